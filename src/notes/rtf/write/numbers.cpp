#include "notes/rtf/write/numbers.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/write/output.h"

#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kHighestFontNumber = 32767;
constexpr int kAnsiCharset = 0;
constexpr int kSymbolCharset = 2;

// Fonts of signs instead of letters need a character set of their own in the table.
int CharsetOf(const QString& family) {
    static const QStringList symbolFonts{QStringLiteral("symbol"), QStringLiteral("wingdings"),
                                         QStringLiteral("wingdings 2"), QStringLiteral("wingdings 3"),
                                         QStringLiteral("webdings")};
    return symbolFonts.contains(family.toLower()) ? kSymbolCharset : kAnsiCharset;
}

// A group without its last brace, so that entries can follow; `otherwise` if there is none.
QByteArray Opened(QByteArray group, const QByteArray& otherwise) {
    const qsizetype end = group.lastIndexOf('}');
    if (end < 0)
        return otherwise;
    group.truncate(end);
    return group;
}

// A colour without its semicolon would run into the next one.
QByteArray Ended(QByteArray colours) {
    return colours.trimmed().endsWith(';') ? colours : colours.append(';');
}

} // namespace

RtfNumbers::RtfNumbers(const QTextDocument& document) : defaultFamily_(document.defaultFont().family()) {
    const QTextFrameFormat root = document.rootFrame()->frameFormat();
    const int codePage = root.hasProperty(RtfCodePage) ? root.intProperty(RtfCodePage) : kRtfAnsiCodePage;
    fontTable_ = Opened(root.property(RtfFontTable).toByteArray(), "{\\fonttbl");
    colourTable_ = Ended(Opened(root.property(RtfColourTable).toByteArray(), "{\\colortbl;"));
    fonts_ = ReadFontTable(fontTable_, {codePage});
    const QVariantMap families = root.property(RtfFontFamilies).toMap();
    for (auto it = families.begin(); it != families.end(); ++it)
        fonts_[it.key().toInt()].Family = it.value().toString();
    QList<int> numbers;
    for (const auto& [number, font] : fonts_)
        numbers.append(number);
    std::sort(numbers.begin(), numbers.end());
    for (const int number : numbers) {
        const QString family = fonts_.at(number).Family.toLower();
        if (!fontNumbers_.contains(family))
            fontNumbers_.insert(family, number);
    }
    nextFont_ = numbers.isEmpty() || numbers.last() >= kHighestFontNumber ? 0 : numbers.last() + 1;
    defaultFont_ = root.hasProperty(RtfDefaultFont) ? root.intProperty(RtfDefaultFont) : -1;
    if (!fonts_.contains(defaultFont_))
        defaultFont_ = FontNamed(defaultFamily_);
    const QList<QColor> colours = ReadColourTable(colourTable_);
    for (int i = 1; i < colours.size(); ++i) {
        if (colours[i].isValid() && !colourNumbers_.contains(colours[i].rgb()))
            colourNumbers_.insert(colours[i].rgb(), i);
    }
    colourCount_ = int(colours.size());
}

int RtfNumbers::Font(const QTextFormat& format) {
    const QStringList families = format.property(QTextFormat::FontFamilies).toStringList();
    const QString family = families.isEmpty() ? defaultFamily_ : families.first();
    const auto known = fonts_.find(format.intProperty(RtfFontNumber));
    if (format.hasProperty(RtfFontNumber) && known != fonts_.end() &&
        (families.isEmpty() || known->second.Family.compare(family, Qt::CaseInsensitive) == 0))
        return known->first;
    return FontNamed(family);
}

int RtfNumbers::FontNamed(const QString& family) {
    const auto known = fontNumbers_.constFind(family.toLower());
    return known != fontNumbers_.cend() ? *known : AddFont(family);
}

int RtfNumbers::AddFont(const QString& family) {
    while (fonts_.contains(nextFont_))
        ++nextFont_;
    const int number = nextFont_++;
    fonts_[number].Family = family;
    fontNumbers_.insert(family.toLower(), number);
    newFonts_.append(number);
    return number;
}

int RtfNumbers::Colour(const QColor& colour) {
    if (!colour.isValid())
        return 0;
    const auto known = colourNumbers_.constFind(colour.rgb());
    if (known != colourNumbers_.cend())
        return *known;
    newColours_.append(colour);
    colourNumbers_.insert(colour.rgb(), colourCount_);
    return colourCount_++;
}

void RtfNumbers::WriteTables(RtfOutput& out) const {
    out.Raw(fontTable_);
    for (const int number : newFonts_) {
        QString family = fonts_.at(number).Family;
        out.Open();
        out.Word("f", number);
        out.Word("fnil");
        out.Word("fcharset", CharsetOf(family));
        out.Text(family.remove(u';'));
        out.Raw(";");
        out.Close();
    }
    out.Close();
    out.LineEnd();
    out.Raw(colourTable_);
    for (const QColor& colour : newColours_) {
        out.Word("red", colour.red());
        out.Word("green", colour.green());
        out.Word("blue", colour.blue());
        out.Raw(";");
    }
    out.Close();
    out.LineEnd();
}

} // namespace paneda
