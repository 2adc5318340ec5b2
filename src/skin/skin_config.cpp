#include "skin/skin_config.h"

#include "core/files/ini_file.h"
#include "skin/fonts_section.h"
#include "skin/skin_file.h"

#include <QLocale>

#include <utility>
#include <vector>

namespace paneda {

namespace {

constexpr QStringView kButtonBack = u"button background";
constexpr QStringView kLabelBold = u"button label bold";
constexpr QStringView kLabelBorder = u"button label border";
constexpr QStringView kGroup = u"group";
constexpr QStringView kLabel = u"button label";
constexpr QStringView kCategoryActive = u"category active";
constexpr QStringView kCategoryInactive = u"category inactive";
constexpr QStringView kBorderColor = u"button label border color";

OverrideChoice ReadOverride(const FontsSection& fonts, QStringView key) {
    const QString text = fonts.Override(key);
    if (text == u"YES")
        return OverrideChoice::Yes;
    return text == u"NO" ? OverrideChoice::No : OverrideChoice::Custom;
}

QString OverrideText(OverrideChoice choice) {
    switch (choice) {
    case OverrideChoice::Yes:
        return QStringLiteral("yes");
    case OverrideChoice::No:
        return QStringLiteral("no");
    case OverrideChoice::Custom:
        break;
    }
    return QStringLiteral("user defined");
}

FontBlock ReadBlock(const FontsSection& fonts, QStringView name) {
    return {fonts.Font(name.toString()), fonts.Text(QString(name + QStringLiteral(" color")))};
}

using KeyValues = std::vector<std::pair<QString, QString>>;

void AddBlock(KeyValues& keys, QStringView name, const FontBlock& block) {
    const auto add = [&](QStringView rest, const QString& value) { keys.emplace_back(name + rest, value); };
    const auto mark = [](bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); };
    add(u" color", block.ColorHex);
    add(u" font name", block.Font.Name);
    add(u" font size", QString::number(block.Font.Size, 'g', QLocale::FloatingPointShortest));
    add(u" font bold", mark(block.Font.Bold));
    add(u" font anti alias", mark(block.Font.AntiAlias));
}

void AddAlignment(KeyValues& keys, QStringView name, const FontBlock& block) {
    keys.emplace_back(name + QStringLiteral(" font alignment"), block.Font.Alignment);
}

// In the order in which missing keys are added.
KeyValues KeysOf(const SkinConfig& config) {
    KeyValues keys{{kButtonBack.toString(), OverrideText(config.ButtonBack)},
                   {kLabelBold.toString(), OverrideText(config.LabelBold)},
                   {kLabelBorder.toString(), OverrideText(config.LabelBorder)}};
    AddBlock(keys, kGroup, config.Group);
    AddAlignment(keys, kGroup, config.Group);
    AddBlock(keys, kLabel, config.Label);
    keys.emplace_back(kBorderColor.toString(), config.LabelBorderHex);
    AddBlock(keys, kCategoryActive, config.CategoryActive);
    AddAlignment(keys, kCategoryActive, config.CategoryActive);
    AddBlock(keys, kCategoryInactive, config.CategoryInactive);
    AddAlignment(keys, kCategoryInactive, config.CategoryInactive);
    return keys;
}

} // namespace

SkinConfig ReadSkinConfig(const IniText& skin) {
    const FontsSection fonts(skin);
    SkinConfig config;
    config.ButtonBack = ReadOverride(fonts, kButtonBack);
    config.LabelBold = ReadOverride(fonts, kLabelBold);
    config.LabelBorder = ReadOverride(fonts, kLabelBorder);
    config.Group = ReadBlock(fonts, kGroup);
    config.CategoryActive = ReadBlock(fonts, kCategoryActive);
    config.CategoryInactive = ReadBlock(fonts, kCategoryInactive);
    config.Label = ReadBlock(fonts, kLabel);
    config.LabelBorderHex = fonts.Text(kBorderColor);
    return config;
}

IniResult SetSkinConfig(IniText& skin, const SkinConfig& config) {
    for (const auto& [key, value] : KeysOf(config)) {
        if (skin.Value(kFontsSection, key) == value)
            continue;
        if (const IniResult set = skin.SetValue(kFontsSection, key, value); !set)
            return set;
    }
    return {};
}

tl::expected<IniText, FileError> LoadSkinIni(const QString& skinPath) {
    auto bytes = ReadFileBytes(SkinIniFile(skinPath), kMaxIniFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    return IniText(std::move(*bytes));
}

FileResult SaveSkinConfig(const QString& skinPath, const SkinConfig& config) {
    const DiskPath file = SkinIniFile(skinPath);
    auto skin = LoadSkinIni(skinPath);
    if (!skin)
        return tl::make_unexpected(skin.error());
    const QByteArray before = skin->Bytes();
    if (const IniResult set = SetSkinConfig(*skin, config); !set)
        return Failure(file.Text(), set.error());
    return skin->Bytes() == before ? FileResult() : ReplaceFile(file, skin->Bytes());
}

} // namespace paneda
