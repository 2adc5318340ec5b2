#pragma once

#include "archive/zip_records.h"

#include "core/files/file_io.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace paneda {

// One entry of an archive that is being written: its headers, texts and compressed bytes. The lengths of the
// texts stand in the headers. A name is written as UTF-8 without the flag that says so, so a name for every
// reader is plain ASCII.
class ZipFile {
public:
    // Compresses the bytes under this name. Fails for an empty name, for texts of more than 65,535 bytes (the
    // most a header can hold) and for more than kMaxZipEntry bytes.
    static tl::expected<ZipFile, FileError> Make(const QString& name, const QByteArray& bytes,
                                                 const QDateTime& modified, const QByteArray& extra);

    // Local header, name, extra text and data of an entry that begins at this byte of the archive.
    QByteArray LocalPart(quint32 offset);

    // Central header, name, extra text and comment. To be called after LocalPart.
    QByteArray CentralPart() const;

private:
    ZipLocalHeader local_;
    ZipCentralHeader central_;
    QByteArray name_;
    QByteArray extra_;
    QByteArray comment_;
    QByteArray data_;
};

} // namespace paneda
