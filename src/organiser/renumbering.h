#pragma once

#include "organiser/store_lists.h"

namespace paneda {

// One rename in a folder, by names.
struct Rename {
    QString From;
    QString To;

    friend bool operator==(const Rename&, const Rename&) = default;
};

using Renames = std::vector<Rename>;

// The renames that bring the names into the order of a list. `names` are all names in the folder. An entry
// that has the right name is not renamed. A button takes its picture with it, the first one in the order of
// kPictureExtensions.
//
// No rename finds its name taken when they are made one after the other: where an entry is in the way that is
// to be renamed itself, that comes first. Entries that want each other's names, which only those of one title
// do, take a detour by a number behind the last one. A picture that belongs to no button gives way to
// "<name> (2).png". After any number of them, each entry still has a name that the lists show.
Renames RenumberFolders(const std::vector<StoreFolder>& folders, const QStringList& names);
Renames RenumberButtons(const std::vector<StoreButton>& buttons, const QStringList& names);

// The same order for renames that somebody has chosen.
Renames InSafeOrder(Renames renames, const QStringList& names);

// The renames of buttons to new file names, with their pictures.
Renames RenameButtons(const Renames& buttons, const QStringList& names);

// The same for one.
Renames RenameButton(const QString& fileName, const QString& newName, const QStringList& names);

// The picture that belongs to a button's file; empty for none.
QString PictureOf(const QString& fileName, const QStringList& names);

// A free name for a picture that is in the way of another one: "<name> (2).png", or with a higher number.
QString PlaceAside(const QString& picture, const QStringList& names);

// The name of a folder (a button) with a new title. The number stays as it is, also when there is none, and
// so do style and extension of a button. The name is one that every system takes (see SafeFileName).
QString RetitledFolder(const QString& folderName, const QString& title);
QString RetitledButton(const StoreButton& button, const QString& title);

// The file name of a button that is added behind the others: with the style of the last one, or without any
// when it is the first.
QString AddedButtonName(const std::vector<StoreButton>& buttons, const QString& titleExt);

} // namespace paneda
