#include "archive/zip_class.h"

#include <QFileInfo>

#include <limits>

namespace paneda {

namespace {

constexpr qsizetype kMaxCount = std::numeric_limits<quint16>::max();
constexpr qint64 kMaxOffset = std::numeric_limits<quint32>::max();

} // namespace

void ZipClass::SetComment(const QString& comment) {
    comment_ = comment.toUtf8().left(kMaxCount);
}

FileResult ZipClass::AddFile(const QString& path, const QString& storedName, const QByteArray& extra) {
    const auto bytes = ReadFileBytes(path, kMaxZipEntry);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    const QFileInfo info(path);
    const QString name = storedName.isEmpty() ? info.fileName() : storedName;
    return Add(path, name, *bytes, info.lastModified(), extra);
}

FileResult ZipClass::AddBytes(const QString& storedName, const QByteArray& bytes, const QDateTime& modified) {
    return Add(storedName, storedName, bytes, modified, {});
}

FileResult ZipClass::Add(const QString& key, const QString& name, const QByteArray& bytes,
                         const QDateTime& modified, const QByteArray& extra) {
    if (keys_.contains(key))
        return Failure(key, QStringLiteral("This is in the zip file already."));
    auto file = ZipFile::Make(name, bytes, modified, extra);
    if (!file)
        return tl::make_unexpected(file.error());
    keys_.append(key);
    files_.push_back(std::move(*file));
    return {};
}

tl::expected<QByteArray, FileError> ZipClass::Bytes() {
    const auto tooBig = [] {
        return Failure(QStringLiteral("zip"), QStringLiteral("This is too much for a zip file."));
    };
    if (qsizetype(files_.size()) > kMaxCount)
        return tooBig();
    QByteArray bytes;
    for (ZipFile& file : files_) {
        bytes += file.LocalPart(quint32(bytes.size()));
        if (bytes.size() > kMaxOffset)
            return tooBig();
    }
    ZipEndRecord end;
    end.DirectoryOffset = quint32(bytes.size());
    for (const ZipFile& file : files_)
        bytes += file.CentralPart();
    if (bytes.size() > kMaxOffset)
        return tooBig();
    end.DirectorySize = quint32(bytes.size()) - end.DirectoryOffset;
    end.EntriesOnDisk = end.TotalEntries = quint16(files_.size());
    end.CommentLength = quint16(comment_.size());
    return bytes + EncodeZipEnd(end) + comment_;
}

FileResult ZipClass::WriteZip(const QString& zipPath, bool overwrite) {
    if (!overwrite && QFileInfo::exists(zipPath))
        return Failure(zipPath, QStringLiteral("The file exists already."));
    const auto bytes = Bytes();
    if (!bytes)
        return Failure(zipPath, bytes.error().Reason);
    return ReplaceFile(zipPath, *bytes);
}

} // namespace paneda
