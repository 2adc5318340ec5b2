#pragma once

#include "core/disk/disk_path.h"
#include "core/files/ini_text.h"
#include "skin/skin_folder.h"
#include "skin/theme_state.h"

#include <QString>

#include <tl/expected.hpp>

namespace paneda {

// Reads skin.ini and the names of the pieces, but no picture. Fails when the folder or the file is missing
// and when a place on the bottom picture has no value.
tl::expected<ThemeState, SkinError> ReadSkin(const QString& appFolder, const QString& skinName);

// The theme that skin.ini describes, without SkinPath and Pieces. `skinName` and `file` are for the error.
tl::expected<ThemeState, SkinError> ReadTheme(const IniText& ini, const QString& skinName,
                                              const QString& file);

TreeColors ReadTreeColors(const IniText& ini);

// A skin's skin.ini, in any case of letters; a link in its place is refused. `skinPath` is the host folder.
DiskPath SkinIniFile(const QString& skinPath);

// The text of a skin's skin.ini, found in any case of letters. Without keys if it cannot be read.
IniText ReadSkinIni(const QString& skinPath);

} // namespace paneda
