#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "skin/theme_state.h"

#include <QString>

namespace paneda {

// What a skin says about a feature of all buttons.
enum class OverrideChoice { Custom, Yes, No }; // Custom: each button's style decides

// Font and colour of one kind of text.
struct FontBlock {
    SkinFont Font;
    QString ColorHex; // RRGGBB as the file has it; empty for the colour that the panel then takes
};

// What a user changes of a skin's texts and buttons, as its skin.ini has it. Missing keys have the values
// that the panel takes for them.
struct SkinConfig {
    OverrideChoice ButtonBack = OverrideChoice::Custom;
    OverrideChoice LabelBold = OverrideChoice::Custom;
    OverrideChoice LabelBorder = OverrideChoice::Custom;
    FontBlock Group;
    FontBlock CategoryActive;
    FontBlock CategoryInactive;
    FontBlock Label;        // without alignment; the panel takes size and bold from each button's style
    QString LabelBorderHex; // as ColorHex
};

SkinConfig ReadSkinConfig(const IniText& skin);

// Puts the configuration into the text; keys that say the same already stay as they are. Fails, with a part
// of the keys changed, for a value that is too long.
IniResult SetSkinConfig(IniText& skin, const SkinConfig& config);

// The skin.ini in the host folder of a skin.
tl::expected<IniText, FileError> LoadSkinIni(const QString& skinPath);

// Writes the configuration to the skin.ini as it is now, all keys or none. A skin.ini that is gone is not
// made again.
FileResult SaveSkinConfig(const QString& skinPath, const SkinConfig& config);

} // namespace paneda
