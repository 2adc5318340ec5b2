#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "notes/tree_node.h"

#include <QString>
#include <QStringList>

namespace paneda {

// Properties.ini in the folder of a node, and in the content folder of a tree.

namespace node_key {
inline constexpr QStringView kProperties = u"Properties"; // a section
inline constexpr QStringView kName = u"Name";
inline constexpr QStringView kDescription = u"Description";
inline constexpr QStringView kSort = u"Sort";
inline constexpr QStringView kMultiuser = u"Multiuser"; // in the content folder alone
inline constexpr QStringView kEditing = u"Editing";
inline constexpr QStringView kLastEditUser = u"Last Edit User";
inline constexpr QStringView kLastEditDate = u"Last Edit Date";
inline constexpr QStringView kLastEditTime = u"Last Edit Time";
inline constexpr QStringView kLastAllLevelEditTime = u"Last All Level Edit Time";
inline constexpr QStringView kWidth = u"Width";   // pixels
inline constexpr QStringView kHeight = u"Height"; // pixels
inline constexpr QStringView kLink = u"Link";     // a section, which a note does not have
inline constexpr QStringView kType = u"Type";
inline constexpr QStringView kTarget = u"Target";
inline constexpr QStringView kParameter = u"Parameter";
inline constexpr QStringView kStartIn = u"Start In";
inline constexpr QStringView kWindowState = u"Window State";
} // namespace node_key

// The Properties.ini of a folder, in the spelling that it has there.
DiskPath NodeIniFile(const DiskPath& nodeFolder);

// What a FileGuard is created with by those who change the Properties.ini of any node of this level. One
// guard for the whole level, so that a renumbering needs no more than one.
DiskPath LevelGuardFile(const DiskPath& levelFolder);

// A file that is missing or cannot be read has no keys.
IniText ReadNodeIni(const DiskPath& nodeFolder);

// The same, but fails for a file that is missing or cannot be read.
tl::expected<IniText, FileError> LoadNodeIni(const DiskPath& nodeFolder);

QString ReadSort(const IniText& properties);

// Fills name, description, sort, type and link. The name is empty for a folder that is no node.
void ReadNodeKeys(const IniText& properties, const QString& appPath, TreeNode& node);

// The link of a node as its user typed it, where ReadNodeKeys gives the target in another form.
NodeLink ReadTypedLink(const IniText& properties);

// Why what a dialog holds cannot be kept, as a text for the user; empty when it can.
QString EntryProblem(const PendingNode& entered);

// Sets name, description, and section Link if asked to; a note's section Link is emptied where there is one.
// Reading drops a pair of quotes, so texts in quotes get a second pair. Fails for a text that is too long.
IniResult SetNodeKeys(IniText& properties, const PendingNode& pending, bool setsLink);

IniResult SetSort(IniText& properties, const QString& sort);

// Replaces the file whole, with all keys that were set at once.
FileResult WriteNodeIni(const DiskPath& nodeFolder, const IniText& properties);

// Gives an existing node another title, and another link if asked to; the keys that others wrote in the
// meantime stay. Returns the whole file as written.
tl::expected<IniText, FileError> ChangeNodeKeys(const DiskPath& nodeFolder, const PendingNode& pending,
                                                bool changesLink);

// Changes Sort of an existing node. Fails for a folder that is missing.
FileResult WriteSort(const DiskPath& nodeFolder, const QString& sort);

// The same for nodes of one level, in this order: a program that is killed has changed the first few.
// Touches nothing but the disk, so it may run on any thread.
FileResult WriteSorts(const DiskPath& levelFolder, const QStringList& folders, const QStringList& sorts);

} // namespace paneda
