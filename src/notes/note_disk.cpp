#include "notes/note_disk.h"

#include "notes/note_keys.h"

#include "core/ini_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace paneda {

namespace {

constexpr qint64 kCopyStep = 1024 * 1024;

tl::unexpected<FileError> Failure(const QString& path, const QString& reason) {
    return tl::make_unexpected(FileError{QDir::toNativeSeparators(path), reason});
}

} // namespace

FileResult NoteDisk::Replace(const QString& path, const QByteArray& bytes) {
    return ReplaceFile(path, bytes);
}

FileResult NoteDisk::Copy(const QString& from, const QString& to) {
    QFile source(from);
    if (!QFileInfo(from).isFile() || !source.open(QIODevice::ReadOnly))
        return Failure(from, QStringLiteral("The file cannot be read, so no copy of it can be kept."));
    QSaveFile copy(to);
    if (!copy.open(QIODevice::WriteOnly))
        return Failure(to, copy.errorString());
    while (!source.atEnd()) {
        const QByteArray bytes = source.read(kCopyStep);
        if (bytes.isEmpty())
            return Failure(from, source.errorString());
        if (copy.write(bytes) != bytes.size())
            return Failure(to, copy.errorString());
    }
    if (!copy.commit())
        return Failure(to, copy.errorString());
    return {};
}

FileResult NoteDisk::Remove(const QString& path) {
    QFile file(path);
    if (!file.exists() || file.remove())
        return {};
    return Failure(path, file.errorString());
}

FileResult NoteDisk::WriteKeys(const QString& iniFile, const NoteKeyValues& keys) {
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
