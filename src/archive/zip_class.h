#pragma once

#include "archive/zip_file.h"

#include "core/files/file_io.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace paneda {

// An archive that is being written. It is put together in memory; its entries are small enough for that.
class ZipClass {
public:
    int FileCount() const { return int(files_.size()); }

    // Comment of the archive; cut to 65,535 bytes of UTF-8, the most that its length field can hold.
    void SetComment(const QString& comment);

    // Adds a file of the host with its time, compressed at once. An empty `storedName` stands for the last
    // component of the path. Fails for a path that has been added before and for a file that cannot be read.
    FileResult AddFile(const QString& path, const QString& storedName = {}, const QByteArray& extra = {});

    // The same with bytes that are not in a file.
    FileResult AddBytes(const QString& storedName, const QByteArray& bytes, const QDateTime& modified);

    // The whole archive. Fails when it has more than 65,535 entries or 4 GiB, the most its records can hold.
    tl::expected<QByteArray, FileError> Bytes();

    // Replaces the file whole. Fails when it exists and `overwrite` is false. On failure an old file stays as
    // it was.
    FileResult WriteZip(const QString& zipPath, bool overwrite);

private:
    FileResult Add(const QString& key, const QString& name, const QByteArray& bytes,
                   const QDateTime& modified, const QByteArray& extra);

    QByteArray comment_;
    QStringList keys_;
    std::vector<ZipFile> files_;
};

} // namespace paneda
