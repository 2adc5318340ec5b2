#include "notes/rtf/write/paragraph_words.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace paneda {

namespace {

constexpr int kTwipsPerLine = 240;
constexpr int kListFirstIndent = -360;

int Twips(qreal pixels) {
    constexpr qreal kMost = 31680; // 22 inches, which is what readers take
    return qRound(qBound(-kMost, pixels * kRtfTwipsPerPixel, kMost));
}

void WriteMeasure(RtfOutput& out, QByteArrayView word, qreal pixels) {
    if (const int twips = Twips(pixels); twips != 0)
        out.Word(word, twips);
}

void WriteIndents(RtfOutput& out, const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    const QTextList* list = block.textList();
    const int steps = format.indent() + (list != nullptr ? list->format().indent() : 0);
    const qreal left = format.leftMargin() + steps * block.document()->indentWidth();
    int first = Twips(format.textIndent());
    if (format.hasProperty(RtfListFirstIndent))
        first = list != nullptr ? format.intProperty(RtfListFirstIndent) : first;
    else if (list != nullptr)
        first += qMax(kListFirstIndent, -Twips(left)); // room for the marker
    if (first != 0)
        out.Word("fi", first);
    WriteMeasure(out, "li", left);
    WriteMeasure(out, "ri", format.rightMargin());
}

void WriteLineHeight(RtfOutput& out, const QTextBlockFormat& format) {
    if (format.boolProperty(RtfFiller))
        return;
    int spacing = 0;
    bool isMultiple = false;
    if (format.lineHeightType() == QTextBlockFormat::ProportionalHeight) {
        spacing = qRound(format.lineHeight() / 100 * kTwipsPerLine);
        isMultiple = true;
    } else if (format.lineHeightType() == QTextBlockFormat::FixedHeight) {
        spacing = -Twips(format.lineHeight());
    } else if (format.lineHeightType() == QTextBlockFormat::MinimumHeight) {
        spacing = Twips(format.lineHeight());
    }
    if (spacing == 0)
        return;
    out.Word("sl", spacing);
    out.Word("slmult", isMultiple ? 1 : 0);
}

void WriteAlignment(RtfOutput& out, const QTextBlockFormat& format) {
    const Qt::Alignment alignment = format.alignment();
    // Left and right are sides in RTF; in Qt they are where lines begin and end unless told otherwise.
    const bool isMirrored =
        format.layoutDirection() == Qt::RightToLeft && !alignment.testFlag(Qt::AlignAbsolute);
    if (alignment.testFlag(Qt::AlignHCenter))
        out.Word("qc");
    else if (alignment.testFlag(Qt::AlignJustify))
        out.Word("qj");
    else if (alignment.testFlag(Qt::AlignRight) != isMirrored)
        out.Word("qr");
}

void WriteTabs(RtfOutput& out, const QTextBlockFormat& format) {
    const QByteArray kept = format.stringProperty(RtfTabWords).toLatin1();
    if (!kept.isEmpty())
        return out.Raw(kept);
    for (const QTextOption::Tab& tab : format.tabPositions()) {
        if (tab.type == QTextOption::RightTab)
            out.Word("tqr");
        else if (tab.type == QTextOption::CenterTab)
            out.Word("tqc");
        else if (tab.type == QTextOption::DelimiterTab)
            out.Word("tqdec");
        out.Word("tx", Twips(tab.position));
    }
}

} // namespace

QByteArray ParagraphWords(const QTextBlock& block, RtfNumbers& numbers) {
    const QTextBlockFormat format = block.blockFormat();
    RtfOutput out;
    if (format.layoutDirection() == Qt::RightToLeft)
        out.Word("rtlpar");
    WriteIndents(out, block);
    WriteMeasure(out, "sb", format.topMargin());
    WriteMeasure(out, "sa", format.bottomMargin());
    WriteLineHeight(out, format);
    WriteAlignment(out, format);
    WriteTabs(out, format);
    if (format.pageBreakPolicy().testFlag(QTextFormat::PageBreak_AlwaysBefore))
        out.Word("pagebb");
    if (format.nonBreakableLines())
        out.Word("keep");
    if (format.background().style() != Qt::NoBrush)
        out.Word("cbpat", numbers.Colour(format.background().color()));
    out.Raw(format.stringProperty(RtfParagraphWords).toLatin1());
    return out.Bytes();
}

} // namespace paneda
