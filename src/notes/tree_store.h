#pragma once

#include "core/disk/disk_path.h"

#include <QRgb>
#include <QString>
#include <QStringList>

namespace paneda {

struct AppState;
class DriveMap;

// A tree on the disk:
//
//   Setting2/<tree>.ini         its settings: section Properties, key Path; section Note, three colours
//   <content>/                  wherever Path says
//   <content>/Properties.ini    key Multiuser of section Properties, set by hand for all who share the folder
//   <parent>/NNNNNN/            a node, with Properties.ini, the note's content and an icon of its own
//   <parent>/NNNNNN <Name>.txt  shows a person with a file manager which node that is
//
// <parent> is <content> or a node's folder. Folders whose names begin with a point are not nodes: they hold
// what is being moved or deleted.

// Names of all trees, in byte order.
QStringList ListTrees(const QString& appFolder);

// Host path of a tree's settings file, which need not exist.
QString TreeIniFile(const QString& appFolder, const QString& treeName);

struct TreeSettings {
    QString Path; // as typed
    // Host path of the content folder; empty for an empty Path and for a drive that has no volume.
    QString ContentFolder;
    // The same as a user reads it; never empty unless Path is.
    QString ShownFolder;
    QRgb NoteBackColor = 0xFF000000;
    QRgb NoteTitleColor = 0xFF000000;
    QRgb NoteTitle2Color = 0xFF000000;
    bool MultiUser = false;
};

// The settings of a tree; what its file lacks is empty and black.
TreeSettings ReadTreeSettings(const AppState& state, const QString& treeName);

// Path of a shortcut or content folder as typed, in the absolute stored form; a host path stays. Empty for
// blanks.
QString ResolveStoredPath(const QString& path, const QString& appPath);

// Sets ContentFolder and ShownFolder from Path. A backslash at its end is dropped.
void ResolveContentFolder(TreeSettings& settings, const QString& appPath, const DriveMap& drives);

// The opaque colour of RRGGBB. A pair of characters that is not hexadecimal counts as 0; empty is black.
QRgb ReadHexColour(const QString& text);

// A level's folder; `relativePath` begins and ends with a backslash. Links behind the content folder are
// refused. Empty for an empty content folder.
DiskPath LevelFolder(const QString& contentFolder, const QString& relativePath);

// Names of the folders in a level that may be nodes, in byte order. An empty folder path has none.
QStringList ListNodeFolders(const DiskPath& levelFolder);

// Whether a node shows an expand box: it has a folder of whatever kind.
bool HasSubfolder(const DiskPath& nodeFolder);

} // namespace paneda
