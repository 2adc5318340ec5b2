#include "notes/note_disk.h"

#include "notes/note_keys.h"

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

FileResult NoteDisk::WriteKeys(const QString& iniFile, const NoteKeyValues& keys) {
    const FileGuard guard(iniFile);
    QByteArray bytes;
    if (QFileInfo::exists(iniFile)) {
        auto read = ReadFileBytes(iniFile, kMaxIniFile);
        if (!read)
            return tl::make_unexpected(read.error());
        bytes = std::move(*read);
    }
    IniText text(bytes);
    for (const auto& [key, value] : keys)
        text.SetValue(note_key::kSection, key, value);
    return text.Bytes() == bytes ? FileResult() : ReplaceFile(iniFile, text.Bytes());
}

} // namespace paneda
