#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace paneda {

// A folder that the user has marked in a file manager.
struct Bookmark {
    QString Title;  // a name that a folder could have
    QString Folder; // host path

    friend bool operator==(const Bookmark&, const Bookmark&) = default;
};

// The bookmarks of local folders in the two formats of file managers: a line "ADDRESS TITLE" each, in which
// the title may be missing; and XBEL, an XML format, whose bookmarks of the system's own places are left out.
// What cannot be read of damaged bytes is left out.
std::vector<Bookmark> ParseLineBookmarks(const QByteArray& bytes);
std::vector<Bookmark> ParseXbelBookmarks(const QByteArray& bytes);

// Those of the user that exist, with different titles and folders.
std::vector<Bookmark> ReadBookmarks();

} // namespace paneda
