#include "notes/note_disk.h"

#include "notes/node_properties.h"

#include "core/files/file_guard.h"
#include "core/files/file_tree.h"
#include "core/files/ini_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace paneda {

FileResult NoteDisk::Replace(const QString& path, const QByteArray& bytes) {
    return ReplaceFile(path, bytes);
}

FileResult NoteDisk::Copy(const QString& from, const QString& to) {
    return CopyWholeFile(from, to);
}

FileResult NoteDisk::Remove(const QString& path) {
    QFile file(path);
    if (!file.exists() || file.remove())
        return {};
    return Failure(path, file.errorString());
}

FileResult NoteDisk::WriteKeys(const NotePlace& place, const QString& folder, const NoteKeyValues& keys) {
    const QString iniFile = NodeIniFile(folder);
    // The folder around the tree's root belongs to others, so no file is made there.
    const bool isRoot =
        QDir::cleanPath(folder).compare(QDir::cleanPath(place.TreeRoot), Qt::CaseInsensitive) == 0;
    const FileGuard guard(isRoot ? iniFile : LevelGuardFile(QFileInfo(folder).path()));
    QByteArray bytes;
    if (QFileInfo::exists(iniFile)) {
        auto read = ReadFileBytes(iniFile, kMaxIniFile);
        if (!read)
            return tl::make_unexpected(read.error());
        bytes = std::move(*read);
    }
    IniText text(bytes);
    for (const auto& [key, value] : keys) {
        if (const IniResult set = text.SetValue(node_key::kProperties, key, value); !set)
            return Failure(iniFile, set.error());
    }
    return text.Bytes() == bytes ? FileResult() : ReplaceFile(iniFile, text.Bytes());
}

} // namespace paneda
