#pragma once

#include "core/disk/disk_path.h"

#include <QString>
#include <QStringList>

namespace paneda {

// The folder in which an option keeps what it replaces, see skin_option.h.
inline constexpr QStringView kOriginalOption = u"[HIDDEN] Original";

// The folder `skin` of the program. Links in it are refused.
DiskPath SkinsFolder(const QString& appFolder);

// The folder of a skin in it, found in any case of letters. Whether it exists is another question.
DiskPath SkinFolderOf(const QString& appFolder, const QString& skinName);

// Whether a folder is a skin: it has a `bottom.png` or `bottom.jpg`.
bool IsSkin(const DiskPath& folder);

// The names of all skins, in byte order.
QStringList ListSkins(const QString& appFolder);

// Whether a folder of a skin is offered as an option: its name does not begin with "[HIDDEN]" in any case of
// letters.
bool IsOptionName(const QString& folderName);

// The names of a skin's options, in byte order.
QStringList ListSkinOptions(const DiskPath& skin);

} // namespace paneda
