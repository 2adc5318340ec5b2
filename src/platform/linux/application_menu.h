#pragma once

#include "core/files/sources.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace paneda {

// An application of the desktop's menu.
struct MenuApplication {
    QString Title;        // in the user's language
    QString Category;     // "Internet", "Office", ...
    QString Path;         // of its desktop entry
    bool IsUsers = false; // from the user's own data folder
};

// Where the desktop looks for applications, and for whom.
struct MenuFolders {
    QString User;        // data folder of the user
    QStringList Public;  // data folders of all users, the most important one first
    QStringList Desktop; // names of the running desktop
    QStringList Languages = {};

    // Those of this session.
    static MenuFolders OfSession();
};

// The applications in the data folders' `applications` with the folders in these, in no order. Of several
// entries of one name (their path below `applications`) the user's counts, then the one of the most important
// folder. Left out are entries that are hidden, that another desktop alone shows, or whose program is
// missing. At most 10,000 files are read.
std::vector<MenuApplication> ReadApplications(const MenuFolders& folders);

// The menu's folder for an entry with these categories; "Other" if it knows none of them.
QString MenuCategory(const QStringList& categories);

// A file name for a title: without characters that the name of a button cannot hold.
QString TitleAsName(const QString& title);

} // namespace paneda
