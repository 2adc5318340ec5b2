#include "skin/fonts_section.h"

#include "core/text/ranges.h"
#include "core/text/text_rules.h"
#include "skin/font_choice.h"

namespace paneda {

QString FontsSection::Text(QStringView key, const QString& fallback) const {
    return IfEmpty(ini_.Value(kFontsSection, key), fallback);
}

SkinColor FontsSection::Color(QStringView key) const {
    const QString hex = Text(key);
    return {HexToColor(hex), hex};
}

bool FontsSection::Flag(QStringView key) const {
    bool isNumber = false;
    const double number = Text(key, QStringLiteral("1")).toDouble(&isNumber);
    return !isNumber || number != 0;
}

DrawMode FontsSection::Mode(QStringView key) const {
    return Text(key) == u"Clear" ? DrawMode::Clear : DrawMode::Over;
}

QString FontsSection::Override(QStringView key) const {
    return Text(key).toUpper();
}

SkinFont FontsSection::Font(const QString& block) const {
    const auto key = [&block](QStringView rest) -> QString { return block + rest; };
    SkinFont font;
    const double size = LeadingNumber(Text(key(u" font size")));
    if (size > 0)
        font.Size = range::kFontSize.Nearest(size);
    font.Bold = Flag(key(u" font bold"));
    font.AntiAlias = Flag(key(u" font anti alias"));
    font.Name = Text(key(u" font name"), kUsualFont);
    font.Alignment = Text(key(u" font alignment"), QStringLiteral("1"));
    return font;
}

} // namespace paneda
