#pragma once

#include "core/disk/disk_path.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace paneda {

// The lists that the organiser shows: categories, groups and buttons, in the order of their names.

// A category or a group.
struct StoreFolder {
    QString FolderName; // on the disk, "[001] General"
    QString Title;      // "General"

    friend bool operator==(const StoreFolder&, const StoreFolder&) = default;
};

// A button's file.
struct StoreButton {
    QString FileName;  // on the disk, "[001] Notepad [11].LNK"
    QString TitleExt;  // "Notepad.LNK"
    QString Title;     // "Notepad"
    QString Extension; // "LNK", as on the disk

    friend bool operator==(const StoreButton&, const StoreButton&) = default;
};

// The title of the categories that show a tree of notes.
inline const QString kDynamicCategory = QStringLiteral("Dynamic Category");

// The parts of a name. Brackets in the middle of a folder's name belong to its title.
StoreFolder FolderOfName(const QString& folderName);
StoreButton ButtonOfName(const QString& fileName);

// The folders in a folder, and the buttons in a group: all files but pictures. What cannot be read is empty.
std::vector<StoreFolder> ReadFolders(const DiskPath& folder);
std::vector<StoreButton> ReadButtons(const DiskPath& group);

// A name with extension as the lists show it: links to programs (.lnk, .desktop) hide theirs.
QString ListTitle(const QString& titleExt);

// What the lists show, and what ValidateName compares a new name with.
QStringList TitlesOf(const std::vector<StoreFolder>& folders);
QStringList TitlesOf(const std::vector<StoreButton>& buttons); // ListTitle of each
QStringList TitlesWithExtension(const std::vector<StoreButton>& buttons);

} // namespace paneda
