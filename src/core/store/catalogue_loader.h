#pragma once

#include "core/store/catalogue.h"

namespace paneda {

// What a scan of the store needs to know.
struct ScanOptions {
    QString AppPath;   // stored form
    QString AppFolder; // host path
    DriveTableFlags DriveTable{};
    // Adds the button "Drive 9", which stands for the program's own drive.
    bool DriveOfProgram = false;
};

// Reads folders and file names of the store: categories, groups and buttons by their names' text order, the
// group of drives behind the folder groups of the first category, tree categories with their trees. Opens no
// button file. A folder that cannot be read counts as empty.
CatalogueList LoadCatalogue(const ScanOptions& options);

// Whether a file in a group is a button: any but a picture. (Listings leave out what an interrupted write may
// leave behind, see kUnfinishedPrefix.)
bool IsButtonFile(const QString& fileName);

// Whether a category shows a tree of notes: its folder is named "Dynamic Category" from the seventh character
// on, behind "[NNN] ".
bool IsTreeCategoryName(const QString& folderName);

} // namespace paneda
