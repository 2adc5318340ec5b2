#include "archive/zip_file.h"

#include "archive/raw_deflate.h"

#include <limits>

namespace paneda {

namespace {

bool FitsHeader(const QByteArray& text) {
    return text.size() <= std::numeric_limits<quint16>::max();
}

} // namespace

tl::expected<ZipFile, FileError> ZipFile::Make(const QString& name, const QByteArray& bytes,
                                               const QDateTime& modified, const QByteArray& extra) {
    ZipFile file;
    file.name_ = name.toUtf8();
    file.extra_ = extra;
    if (file.name_.isEmpty() || !FitsHeader(file.name_) || !FitsHeader(extra))
        return Failure(name, QStringLiteral("This name cannot be used in a zip file."));
    if (bytes.size() > kMaxZipEntry)
        return Failure(name, QStringLiteral("This is larger than %1 bytes.").arg(kMaxZipEntry));
    auto data = DeflateRaw(bytes);
    if (!data)
        return Failure(name, QStringLiteral("There is not enough memory to compress this."));
    file.data_ = std::move(*data);

    const ZipDosTime time = PackDosTime(modified);
    ZipEntryFields& entry = file.local_.Entry;
    entry.DosTime = time.Time;
    entry.DosDate = time.Date;
    entry.Crc32 = ZipCrc32(bytes);
    entry.CompressedSize = quint32(file.data_.size());
    entry.UncompressedSize = quint32(bytes.size());
    entry.NameLength = quint16(file.name_.size());
    entry.ExtraLength = quint16(file.extra_.size());
    file.central_.Entry = entry;
    file.central_.CommentLength = quint16(file.comment_.size());
    return file;
}

QByteArray ZipFile::LocalPart(quint32 offset) {
    central_.LocalOffset = offset;
    return EncodeZipLocal(local_) + name_ + extra_ + data_;
}

QByteArray ZipFile::CentralPart() const {
    return EncodeZipCentral(central_) + name_ + extra_ + comment_;
}

} // namespace paneda
