#pragma once

#include "core/files/file_tree.h"
#include "notes/tree_level.h"

#include <QDateTime>
#include <QString>

#include <functional>

namespace paneda {

// Creates, moves and removes the folders of nodes. A program that is killed at any moment loses no node and
// leaves none in part:
//
//   add      First the folder, then the icon, then Properties.ini with all keys at once. Until that file is
//            there, the folder has no name and so is not a node.
//   move     One rename, then the new Sort. The node is at the old place or at the new one.
//   move to another volume
//            A copy is made in <content>/.moving-<id>/, which is never listed. It gets the new Sort and is
//            renamed into place when it is complete; then the original is deleted as below. In between there
//            are two nodes.
//   delete   One rename into <content>/.deleted-<id>/ takes the node off the tree; then it is removed there.
//            If the program is killed before the end, the next delete removes the rest. A node on another
//            volume than the content folder is removed where it is.

struct ClaimedFolder {
    QString Folder; // six digits
    // The level as it was just before the folder was made.
    SiblingScan Scan;
};

// Finds the next folder number of a level and calls `take` with the path, which makes the folder. If somebody
// else has taken the name in the meantime, tries again with the next number, up to 50 times.
tl::expected<ClaimedFolder, EntryError> ClaimFolder(const DiskPath& levelFolder,
                                                    const std::function<EntryResult(const DiskPath&)>& take);

struct NodeMove {
    DiskPath SourceContent; // content folder of the tree that the node leaves
    DiskPath SourceFolder;  // the node's folder
    DiskPath TargetContent;
    DiskPath TargetLevel; // folder of the level
    // The text that the node gets there.
    std::function<QString(const SiblingScan&)> ChooseSort;
    QDateTime Now;
};

struct MovedFolder {
    ClaimedFolder Claimed;
    // What went wrong although the node is at its new place.
    std::vector<FileError> Failures;
};

// Moves a node's folder to another level. On failure it is still where it was.
tl::expected<MovedFolder, FileError> MoveNodeFolder(const NodeMove& move);

// Removes a node's folder. After a failure it is no longer in the tree, or still there whole. A missing
// folder is not a failure. Leftovers of killed moves are removed too when they are more than a day older than
// `now`; younger ones may be copies that another program is making.
//
// `isIt` looks at the folder once it is off the tree, where nobody else changes it: false puts it back, since
// another user has put another node in its place. Empty: it is not asked.
FileResult RemoveNodeFolder(const DiskPath& contentFolder, const DiskPath& nodeFolder, const QDateTime& now,
                            const std::function<bool(const DiskPath&)>& isIt = {});

} // namespace paneda
