#include "skin/skin_file.h"

#include "core/files/file_io.h"
#include "core/files/ini_file.h"
#include "core/text/ranges.h"
#include "core/text/text_rules.h"
#include "skin/font_choice.h"
#include "skin/fonts_section.h"

#include <QDir>

#include <array>
#include <vector>

namespace paneda {

namespace {

constexpr QStringView kButtons = u"Buttons";
constexpr int kUsualMessageHeight = 92; // pixels
constexpr int kLogoDesigns = 11;

void ReadColoursAndFonts(const FontsSection& fonts, ThemeState& theme) {
    theme.CategoryActiveColor = fonts.Color(u"category active color");
    theme.CategoryInactiveColor = fonts.Color(u"category inactive color");
    theme.GroupColor = fonts.Color(u"group color");
    const SkinColor back = fonts.Color(u"button background color");
    theme.ButtonBackHex = back.Hex;
    if (!back.Hex.isEmpty()) {
        theme.ButtonBackColor = back.Color;
        theme.ButtonBackArgb = ColorToArgb(back.Color, 255);
    }
    theme.GroupDrawMode = fonts.Mode(u"group drawmode");
    theme.BackAlignment = fonts.Text(u"background alignment", QStringLiteral("5"));
    theme.BackMethod = fonts.Text(u"background drawmethod", QStringLiteral("tile")).toLower();
    theme.GroupFont = fonts.Font(QStringLiteral("group"));
    theme.CategoryActiveFont = fonts.Font(QStringLiteral("category active"));
    theme.CategoryInactiveFont = fonts.Font(QStringLiteral("category inactive"));
    theme.CategoryDrawMode = fonts.Mode(u"category drawmode");
    theme.ButtonDrawMode = fonts.Mode(u"button background drawmode");
    theme.ButtonBackOverride = fonts.Override(u"button background");
    theme.LabelBoldOverride = fonts.Override(u"button label bold");
    theme.LabelBorderOverride = fonts.Override(u"button label border");
}

void ReadDriveColours(const FontsSection& fonts, ThemeState& theme) {
    theme.DriveFreeColor = fonts.Color(u"drive free space color");
    theme.DriveCapacityColor = fonts.Color(u"drive capacity color");
    theme.DriveNaColor = fonts.Color(u"drive N/A color");
    theme.DriveLetterColor = fonts.Color(u"drive letter color");
    theme.DriveBarBorderColor = fonts.Color(u"drive bar border color").Color;
    theme.DriveBarFreeColor = fonts.Color(u"drive bar free space color").Color;
}

void ReadLabel(const FontsSection& fonts, ThemeState& theme) {
    const SkinColor label = fonts.Color(u"button label color");
    const SkinColor& used = label.Hex.isEmpty() ? theme.DriveLetterColor : label;
    theme.LabelColor = used.Color;
    theme.LabelHex = used.Hex;
    const SkinColor border = fonts.Color(u"button label border color");
    if (border.Hex.isEmpty()) {
        theme.LabelBorderColor = theme.ButtonBackColor;
        theme.LabelBorderHex = theme.ButtonBackHex;
    } else {
        theme.LabelBorderColor = border.Color;
        theme.LabelBorderHex = border.Hex;
    }
    theme.LabelFontName = fonts.Text(u"button label font name", kUsualFont);
    theme.LabelAntiAlias = fonts.Flag(u"button label font anti alias");
}

// The colours of the drive bar and of the groups do not count: no text is printed in them.
KeyColour KeyFor(const ThemeState& theme) {
    std::vector<ColorRef> taken{theme.LabelColor,
                                theme.CategoryActiveColor.Color,
                                theme.CategoryInactiveColor.Color,
                                theme.DriveFreeColor.Color,
                                theme.DriveCapacityColor.Color,
                                theme.DriveNaColor.Color,
                                theme.DriveLetterColor.Color};
    for (const std::optional<ColorRef>& color : {theme.LabelBorderColor, theme.ButtonBackColor}) {
        if (color)
            taken.push_back(*color);
    }
    return PickKeyColour(taken);
}

struct PlaceKey {
    QStringView Key;
    int* Field;
};

// The first key without a value; empty if all have one.
QString ReadPlaces(const IniText& ini, ThemeState& theme) {
    const std::array<PlaceKey, 10> keys{{{u"hide button top", &theme.HideRect.Top},
                                         {u"hide button left", &theme.HideRect.Left},
                                         {u"hide button bottom", &theme.HideRect.Bottom},
                                         {u"hide button right", &theme.HideRect.Right},
                                         {u"menu button top", &theme.MenuRect.Top},
                                         {u"menu button left", &theme.MenuRect.Left},
                                         {u"menu button bottom", &theme.MenuRect.Bottom},
                                         {u"menu button right", &theme.MenuRect.Right},
                                         {u"paneda logo top", &theme.LogoTop},
                                         {u"paneda logo left", &theme.LogoLeft}}};
    for (const PlaceKey& key : keys) {
        const QString value = ini.Value(kButtons, key.Key);
        if (value.isEmpty())
            return key.Key.toString();
        *key.Field = range::kOnBottom.Nearest(LeadingInt(value));
    }
    return {};
}

int ReadLogoDesign(const IniText& ini) {
    const QString value = ini.Value(kButtons, u"paneda logo design");
    const int design = LeadingInt(value);
    return design >= 2 && design <= kLogoDesigns && value == QString::number(design) ? design : 1;
}

int ReadMessageHeight(const IniText& ini) {
    const int height = LeadingInt(ini.Value(u"Message Window", u"Height"));
    return PixelsToTwips(height < range::kMessageHeight.Lowest ? kUsualMessageHeight
                                                               : range::kMessageHeight.Nearest(height));
}

} // namespace

tl::expected<ThemeState, SkinError> ReadSkin(const QString& appFolder, const QString& skinName) {
    const auto folder = FindSkinFolder(appFolder, skinName);
    if (!folder)
        return tl::make_unexpected(folder.error());
    const DiskPath file = SkinIniFile(*folder);
    const auto bytes = ReadFileBytes(file, kMaxIniFile);
    if (!bytes)
        return tl::make_unexpected(SkinFileError(skinName, file.Text(), bytes.error().Reason));
    auto theme = ReadTheme(IniText(*bytes), skinName, file.Text());
    if (theme) {
        theme->SkinPath = *folder;
        theme->Pieces = LoadSkinPieces(*folder);
    }
    return theme;
}

tl::expected<ThemeState, SkinError> ReadTheme(const IniText& ini, const QString& skinName,
                                              const QString& file) {
    ThemeState theme;
    theme.LogoDesign = ReadLogoDesign(ini);
    const FontsSection fonts(ini);
    ReadColoursAndFonts(fonts, theme);
    const QString missing = ReadPlaces(ini, theme);
    if (!missing.isEmpty())
        return tl::make_unexpected(SkinError{skinName, QDir::toNativeSeparators(file), missing, {}});
    theme.MessageHeight = ReadMessageHeight(ini);
    ReadDriveColours(fonts, theme);
    ReadLabel(fonts, theme);
    theme.Key = KeyFor(theme);
    return theme;
}

TreeColors ReadTreeColors(const IniText& ini) {
    const auto value = [&ini](QStringView key, const QString& fallback) {
        return IfEmpty(ini.Value(u"Tree", key), fallback);
    };
    TreeColors colors;
    colors.Background = value(u"background color", QStringLiteral("000000"));
    colors.Label = value(u"label color", QStringLiteral("FFFFFF"));
    colors.Highlight = value(u"highlight color", QStringLiteral("0000FF"));
    colors.HighlightLabel = value(u"highlight label color", colors.Label);
    return colors;
}

DiskPath SkinIniFile(const QString& skinPath) {
    return FindEntry(DiskPath::Below(skinPath, skinPath), QStringLiteral("skin.ini"));
}

IniText ReadSkinIni(const QString& skinPath) {
    return ReadIniFile(SkinIniFile(skinPath));
}

} // namespace paneda
