#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "notes/tree_node.h"

#include <QString>

namespace paneda {

// Properties.ini of a node: section Properties with Name, Description, Sort and what the note window keeps
// there; section Link with Type, Target, Parameter, Start In and Window State, which a note does not have.

// Host path of the Properties.ini of a node's folder, in the spelling that it has there.
QString NodeIniFile(const QString& nodeFolder);

// A file that is missing or cannot be read has no keys.
IniText ReadNodeIni(const QString& nodeFolder);

// The same, but fails where it cannot be read.
tl::expected<IniText, FileError> LoadNodeIni(const QString& nodeFolder);

QString ReadSort(const IniText& properties);

// Fills name, description, sort, type and link. The name is empty for a folder that is no node.
void ReadNodeKeys(const IniText& properties, const QString& appPath, TreeNode& node);

// Sets name and description. Quotes around a text are kept by a second pair, since reading drops one.
void SetNodeTitle(IniText& properties, const PendingNode& pending);

// Sets section Link; empties it for a note.
void SetNodeLink(IniText& properties, const PendingNode& pending);

void SetSort(IniText& properties, const QString& sort);

// Replaces the file whole, with all keys that were set at once.
FileResult WriteNodeIni(const QString& nodeFolder, const IniText& properties);

// Gives an existing node another title, and another link if asked to; the keys that others wrote in the
// meantime stay. Returns the whole file as written.
tl::expected<IniText, FileError> ChangeNodeKeys(const QString& nodeFolder, const PendingNode& pending,
                                                bool changesLink);

// One key of an existing node's file. Fails for a folder that has gone.
FileResult WriteSort(const QString& nodeFolder, const QString& sort);

} // namespace paneda
