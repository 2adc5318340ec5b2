#pragma once

#include "core/files/file_io.h"

#include <QString>

namespace paneda {

// The remark file beside a node's folder, "000001 <Name>.txt": an INI file with an empty key Remark in
// section Remark. It shows a person with a file manager which node a numbered folder is; no program reads it.

// Name of the file. Each of \ / : * ? " < > | and each control character becomes "-", nothing else: a file
// that was made elsewhere has to be found by its name. Cut to what a file system takes.
QString RemarkFileName(const QString& nodeFolderName, const QString& nodeName);

FileResult WriteRemark(const DiskPath& levelFolder, const QString& nodeFolderName, const QString& nodeName);

// Gives the file of a node its new name or place, or makes one if it is missing. A file that has the new name
// already is not touched.
FileResult MoveRemark(const DiskPath& fromLevel, const QString& fromFile, const DiskPath& toLevel,
                      const QString& toFile);

FileResult RemoveRemark(const DiskPath& levelFolder, const QString& nodeFolderName, const QString& nodeName);

} // namespace paneda
