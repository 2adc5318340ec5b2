#include "core/text/ranges.h"
#include "skin/skin_config.h"
#include "skin/skin_file.h"

#include <cstddef>
#include <cstdint>

// The bytes of a skin.ini. What comes out of them has to lie within the limits that the painters rely on.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paneda;
    const IniText ini(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    ReadTreeColors(ini);
    const auto theme = ReadTheme(ini, QStringLiteral("x"), QStringLiteral("skin.ini"));
    if (!theme) {
        if (theme.error().Text().isEmpty())
            __builtin_trap();
        return 0;
    }
    for (const SkinFont& font : {theme->GroupFont, theme->CategoryActiveFont, theme->CategoryInactiveFont}) {
        if (!(font.Size >= 1 && font.Size <= 200) || font.Name.isEmpty())
            __builtin_trap();
    }
    for (const PixelArea& area : {theme->HideRect, theme->MenuRect}) {
        for (const int place : {area.Top, area.Left, area.Bottom, area.Right}) {
            if (!range::kOnBottom.Holds(place))
                __builtin_trap();
        }
    }
    // Written back as it was read, a skin looks the same.
    IniText written = ini;
    if (SetSkinConfig(written, ReadSkinConfig(ini))) {
        const auto again = ReadTheme(written, QStringLiteral("x"), QStringLiteral("skin.ini"));
        if (!again || again->GroupFont.Name != theme->GroupFont.Name ||
            again->CategoryActiveFont.Size != theme->CategoryActiveFont.Size ||
            again->CategoryInactiveColor.Hex != theme->CategoryInactiveColor.Hex ||
            again->LabelHex != theme->LabelHex || again->LabelBorderColor != theme->LabelBorderColor ||
            again->LabelAntiAlias != theme->LabelAntiAlias)
            __builtin_trap();
    }
    if (theme->LogoDesign < 1 || theme->LogoDesign > 11 || theme->MessageHeight < 92 * 15)
        __builtin_trap();
    return 0;
}
