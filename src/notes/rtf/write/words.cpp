#include "notes/rtf/write/words.h"
#include "notes/rtf/properties.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"

#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>
#include <array>

namespace paneda {

namespace {

constexpr qreal kPointsPerPixel = 0.75;
constexpr int kMaxHalfPoints = 3276;

// Text from the web names its size by steps up and down; these are the factors that Qt shows them with.
constexpr std::array<qreal, 7> kSizeSteps{0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};

qreal PointsOf(const QFont& font) {
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * kPointsPerPixel;
}

int HalfPointsOf(const QTextCharFormat& format, const QFont& defaults) {
    qreal points = format.fontPointSize();
    if (points <= 0 && format.hasProperty(QTextFormat::FontPixelSize))
        points = format.intProperty(QTextFormat::FontPixelSize) * kPointsPerPixel;
    if (points <= 0)
        points = PointsOf(defaults);
    if (const int step = format.intProperty(QTextFormat::FontSizeAdjustment); step != 0)
        points *= kSizeSteps[size_t(std::clamp(step, -2, 4) + 2)];
    return std::clamp(qRound(points * 2), 1, kMaxHalfPoints);
}

QByteArray UnderlineOf(const QTextCharFormat& format) {
    const QTextCharFormat::UnderlineStyle style = format.underlineStyle();
    if (style == QTextCharFormat::NoUnderline && !format.fontUnderline())
        return {};
    const QByteArray word = format.stringProperty(RtfUnderlineWord).toLatin1();
    if (!word.isEmpty())
        return word;
    switch (style) {
    case QTextCharFormat::DashUnderline:
        return "uldash";
    case QTextCharFormat::DotLine:
        return "uld";
    case QTextCharFormat::DashDotLine:
        return "uldashd";
    case QTextCharFormat::DashDotDotLine:
        return "uldashdd";
    case QTextCharFormat::WaveUnderline:
    case QTextCharFormat::SpellCheckUnderline:
        return "ulwave";
    default:
        return "ul";
    }
}

QByteArray ScriptOf(const QTextCharFormat& format) {
    switch (format.verticalAlignment()) {
    case QTextCharFormat::AlignSuperScript:
        return "super";
    case QTextCharFormat::AlignSubScript:
        return "sub";
    default:
        return {};
    }
}

QByteArray BackgroundWordOf(const QTextCharFormat& format) {
    switch (static_cast<RtfBackground>(format.intProperty(RtfBackgroundWord))) {
    case RtfBackground::Cb:
        return "cb";
    case RtfBackground::Chcbpat:
        return "chcbpat";
    default:
        return "highlight";
    }
}

int SpacingOf(const QTextCharFormat& format) {
    if (format.fontLetterSpacingType() != QFont::AbsoluteSpacing)
        return 0;
    return qRound(format.fontLetterSpacing() * kRtfTwipsPerPixel);
}

struct Toggle {
    bool RtfCharacters::*Is;
    const char* Word;
};

constexpr std::array<Toggle, 5> kToggles{{{&RtfCharacters::Bold, "b"},
                                          {&RtfCharacters::Italic, "i"},
                                          {&RtfCharacters::StrikeOut, "strike"},
                                          {&RtfCharacters::Capitals, "caps"},
                                          {&RtfCharacters::SmallCapitals, "scaps"}}};

void WriteToggles(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    for (const Toggle& toggle : kToggles) {
        if (from.*toggle.Is && !(to.*toggle.Is))
            out.Word(toggle.Word, 0);
        else if (!(from.*toggle.Is) && to.*toggle.Is)
            out.Word(toggle.Word);
    }
    if (from.Underline != to.Underline)
        out.Word(to.Underline.isEmpty() ? QByteArray("ulnone") : to.Underline);
    if (from.Script != to.Script)
        out.Word(to.Script.isEmpty() ? QByteArray("nosupersub") : to.Script);
}

void WriteMeasures(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    if (from.Shift != to.Shift)
        out.Word(to.Shift < 0 ? "dn" : "up", qAbs(to.Shift));
    if (from.Spacing != to.Spacing)
        out.Word("expndtw", to.Spacing);
    if (from.Font != to.Font)
        out.Word("f", to.Font);
    if (from.HalfPoints != to.HalfPoints)
        out.Word("fs", to.HalfPoints);
    if (from.Language != to.Language)
        out.Word("lang", to.Language);
}

void WriteColours(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    if (from.Colour != to.Colour)
        out.Word("cf", to.Colour);
    if (!from.BackgroundWord.isEmpty() && from.BackgroundWord != to.BackgroundWord)
        out.Word(from.BackgroundWord, 0);
    if (!to.BackgroundWord.isEmpty() &&
        (from.BackgroundWord != to.BackgroundWord || from.Background != to.Background))
        out.Word(to.BackgroundWord, to.Background);
}

} // namespace

RtfCharacters CharactersOf(const QTextCharFormat& format, RtfNumbers& numbers, const QFont& defaults) {
    RtfCharacters look;
    look.Font = numbers.Font(format);
    look.HalfPoints = HalfPointsOf(format, defaults);
    look.Bold = format.fontWeight() >= QFont::DemiBold;
    look.Italic = format.fontItalic();
    look.StrikeOut = format.fontStrikeOut();
    look.Capitals = format.fontCapitalization() == QFont::AllUppercase;
    look.SmallCapitals = format.fontCapitalization() == QFont::SmallCaps;
    look.Underline = UnderlineOf(format);
    look.Script = ScriptOf(format);
    look.Shift = qRound(BaselineShiftOf(format, look.HalfPoints / 2.0) / 10.0);
    look.Spacing = SpacingOf(format);
    if (format.foreground().style() != Qt::NoBrush)
        look.Colour = numbers.Colour(format.foreground().color());
    if (format.background().style() != Qt::NoBrush) {
        look.BackgroundWord = BackgroundWordOf(format);
        look.Background = numbers.Colour(format.background().color());
    }
    if (format.hasProperty(RtfLanguage))
        look.Language = format.intProperty(RtfLanguage);
    look.Words = format.stringProperty(RtfCharWords).toLatin1();
    return look;
}

RtfCharacters WriteChange(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    RtfCharacters before = from;
    if (!from.Words.isEmpty() && from.Words != to.Words) {
        out.Word("plain");
        before = RtfCharacters();
    }
    RtfCharacters after = to;
    if (after.Language < 0)
        after.Language = before.Language;
    WriteToggles(out, before, after);
    WriteColours(out, before, after);
    WriteMeasures(out, before, after);
    if (before.Words != after.Words)
        out.Raw(after.Words);
    return after;
}

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
    // Left and right are sides in RTF; in Qt they are where lines begin and end unless the format says
    // otherwise.
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
