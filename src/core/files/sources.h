#pragma once

#include "core/files/file_io.h"

#include <QString>

#include <vector>

namespace paneda {

// Places of the user's machine from which buttons are made. The numbers are those of BrowserMode.
enum class Source { Desktop = 1, StartMenu = 2, MyComputer = 3, Favorites = 4 };

// One file or folder of a source.
struct SourceItem {
    QString Name; // as it is shown and as a button of it is called, with its extension
    bool IsFolder = false;
    QString Path = {}; // host path; empty for a folder that exists in the source alone

    friend bool operator==(const SourceItem&, const SourceItem&) = default;
};

// One folder of a source: what all users of the machine have, and what this user has.
struct SourceListing {
    std::vector<SourceItem> Public = {};
    std::vector<SourceItem> User = {};
    // Host folder that a button of the listed folder would open; empty if there is to be none.
    QString Folder = {};
    // Why the folder cannot be read, for the user; empty if it can.
    QString Problem = {};
};

// The files and folders in a folder (host path), in no order, without those that ListFiles and ListFolders
// leave out.
tl::expected<std::vector<SourceItem>, FileError> ListItems(const QString& folder);

} // namespace paneda
