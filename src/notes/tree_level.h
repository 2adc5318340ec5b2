#pragma once

#include "core/disk/disk_path.h"
#include "notes/tree_node.h"

#include <QString>

namespace paneda {

// Where one level of a tree is on the disk.
struct LevelPlace {
    QString ContentFolder; // host path
    QString RelativePath = QStringLiteral("\\");
    int Level = 0;
    QString PathLabel;

    DiskPath Folder() const;
};

// The place of a node's children, and its own.
LevelPlace ChildPlace(const QString& contentFolder, const TreeNode& node);
LevelPlace PlaceOf(const QString& contentFolder, const TreeNode& node);

// The nodes of a level in their order, with every field but RowIndex; those with subfolders are collapsed.
TreeNodeList LoadLevel(const LevelPlace& place, const QString& appPath);

// What an operation on a level has to know: every folder in it, in byte order of names.
struct SiblingScan {
    QStringList Folders;
    QStringList Sorts;
    // Whether the folder is a node, which has a name.
    std::vector<bool> IsNode;
    // The highest number that a folder's name begins with; 0 when there is none.
    double HighestNumber = 0;
};

SiblingScan ScanSiblings(const DiskPath& levelFolder);

// The folders that are nodes, in the order that their texts give; equal texts stay in byte order of names.
std::vector<std::size_t> NodesInOrder(const SiblingScan& scan);

} // namespace paneda
