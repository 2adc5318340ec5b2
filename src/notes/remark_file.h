#pragma once

#include "core/files/file_io.h"

#include <QString>

namespace paneda {

// The remark file beside a node's folder, "000001 <Name>.txt": an INI file with an empty key Remark in
// section Remark. It only tells a person with a file manager which node a numbered folder is; nothing reads
// it.

// Name of the file, with characters that no file name may hold replaced by "-", and cut to what a file system
// takes.
QString RemarkFileName(const QString& nodeFolderName, const QString& nodeName);

FileResult WriteRemark(const QString& levelFolder, const QString& nodeFolderName, const QString& nodeName);

// Gives the file of a node its new name or place, making one where it is missing; what stands there already
// stays.
FileResult MoveRemark(const QString& fromLevel, const QString& fromFile, const QString& toLevel,
                      const QString& toFile);

FileResult RemoveRemark(const QString& levelFolder, const QString& nodeFolderName, const QString& nodeName);

} // namespace paneda
