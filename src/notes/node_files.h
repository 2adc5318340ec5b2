#pragma once

#include "core/files/file_tree.h"
#include "notes/tree_level.h"

#include <QDateTime>
#include <QString>

#include <functional>

namespace paneda {

// Folders of nodes, made, moved and removed so that a program killed at any instant loses no node and shows
// none in part:
//
//   add      the folder, the icon, then Properties.ini with all keys at once. Until that stands, the folder
//   has
//            no name and is no node.
//   move     one rename, then the new Sort: the node is at the old place or at the new one.
//   move to another volume
//            a copy in <content>/.moving-<id>/, where no loader looks, gets the new Sort and is renamed into
//            place when it is complete; then the source goes like a deleted node. In between there are two.
//   delete   one rename into <content>/.deleted-<id>/, which takes the node off the tree; then the removal
//            there. What a killed removal leaves is removed by the next delete. Only a node on another volume
//            than the content folder is removed where it is.

struct ClaimedFolder {
    QString Folder; // six digits
    // The level as it was just before.
    SiblingScan Scan;
};

// Gives a level's next folder number to `take`, which makes that folder. When somebody else has taken the
// name in the meantime, scans anew and tries the next number, a bounded number of times.
tl::expected<ClaimedFolder, EntryError> ClaimFolder(const QString& levelFolder,
                                                    const std::function<EntryResult(const QString&)>& take);

struct NodeMove {
    QString SourceContent; // content folder of the tree that the node leaves
    QString SourceFolder;  // the node's folder
    QString TargetContent;
    QString TargetLevel; // folder of the level
    // The text that the node gets there.
    std::function<QString(const SiblingScan&)> ChooseSort;
    QDateTime Now;
};

struct MovedFolder {
    ClaimedFolder Claimed;
    // The node stands at its new place all the same.
    std::vector<FileError> Failures;
};

// Moves a node's folder to another level. On failure it stands where it was.
tl::expected<MovedFolder, FileError> MoveNodeFolder(const NodeMove& move);

// Removes a node's folder. After a failure it has left the tree or is there whole. A folder that is missing
// is no failure. `now` tells old leftovers from copies that are still being made.
FileResult RemoveNodeFolder(const QString& contentFolder, const QString& nodeFolder, const QDateTime& now);

} // namespace paneda
