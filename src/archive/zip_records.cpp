#include "archive/zip_records.h"

#include <QtEndian>

namespace paneda {

namespace {

constexpr quint32 kLocalSignature = 0x04034B50;
constexpr quint32 kCentralSignature = 0x02014B50;
constexpr quint32 kEndSignature = 0x06054B50;

class Writer {
public:
    template <class Number>
    Writer& Add(Number value) {
        char bytes[sizeof(Number)];
        qToLittleEndian(value, bytes);
        bytes_.append(bytes, qsizetype(sizeof(Number)));
        return *this;
    }
    QByteArray Bytes() const { return bytes_; }

private:
    QByteArray bytes_;
};

// The number of bytes has been checked before.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : bytes_(bytes) {}

    template <class Number>
    Reader& Take(Number& value) {
        value = qFromLittleEndian<Number>(bytes_.data());
        bytes_ = bytes_.sliced(qsizetype(sizeof(Number)));
        return *this;
    }

private:
    QByteArrayView bytes_;
};

void AddEntry(Writer& writer, const ZipEntryFields& entry) {
    writer.Add(entry.VersionNeeded).Add(entry.Flags).Add(entry.Method).Add(entry.DosTime).Add(entry.DosDate);
    writer.Add(entry.Crc32).Add(entry.CompressedSize).Add(entry.UncompressedSize);
    writer.Add(entry.NameLength).Add(entry.ExtraLength);
}

void TakeEntry(Reader& reader, ZipEntryFields& entry) {
    reader.Take(entry.VersionNeeded).Take(entry.Flags).Take(entry.Method);
    reader.Take(entry.DosTime).Take(entry.DosDate);
    reader.Take(entry.Crc32).Take(entry.CompressedSize).Take(entry.UncompressedSize);
    reader.Take(entry.NameLength).Take(entry.ExtraLength);
}

bool HasRecord(QByteArrayView bytes, qsizetype size, quint32 signature) {
    return bytes.size() >= size && qFromLittleEndian<quint32>(bytes.data()) == signature;
}

} // namespace

QByteArray EncodeZipLocal(const ZipLocalHeader& header) {
    Writer writer;
    writer.Add(kLocalSignature);
    AddEntry(writer, header.Entry);
    return writer.Bytes();
}

QByteArray EncodeZipCentral(const ZipCentralHeader& header) {
    Writer writer;
    writer.Add(kCentralSignature).Add(header.VersionMadeBy);
    AddEntry(writer, header.Entry);
    writer.Add(header.CommentLength).Add(header.DiskStart);
    writer.Add(header.InternalAttributes).Add(header.ExternalAttributes).Add(header.LocalOffset);
    return writer.Bytes();
}

QByteArray EncodeZipEnd(const ZipEndRecord& record) {
    Writer writer;
    writer.Add(kEndSignature).Add(record.ThisDisk).Add(record.DirectoryDisk);
    writer.Add(record.EntriesOnDisk).Add(record.TotalEntries);
    writer.Add(record.DirectorySize).Add(record.DirectoryOffset).Add(record.CommentLength);
    return writer.Bytes();
}

std::optional<ZipLocalHeader> DecodeZipLocal(QByteArrayView bytes) {
    if (!HasRecord(bytes, kZipLocalSize, kLocalSignature))
        return std::nullopt;
    ZipLocalHeader header;
    Reader reader(bytes.sliced(qsizetype(sizeof(kLocalSignature))));
    TakeEntry(reader, header.Entry);
    return header;
}

std::optional<ZipCentralHeader> DecodeZipCentral(QByteArrayView bytes) {
    if (!HasRecord(bytes, kZipCentralSize, kCentralSignature))
        return std::nullopt;
    ZipCentralHeader header;
    Reader reader(bytes.sliced(qsizetype(sizeof(kCentralSignature))));
    reader.Take(header.VersionMadeBy);
    TakeEntry(reader, header.Entry);
    reader.Take(header.CommentLength).Take(header.DiskStart);
    reader.Take(header.InternalAttributes).Take(header.ExternalAttributes).Take(header.LocalOffset);
    return header;
}

std::optional<ZipEndRecord> DecodeZipEnd(QByteArrayView bytes) {
    if (!HasRecord(bytes, kZipEndSize, kEndSignature))
        return std::nullopt;
    ZipEndRecord record;
    Reader reader(bytes.sliced(qsizetype(sizeof(kEndSignature))));
    reader.Take(record.ThisDisk).Take(record.DirectoryDisk);
    reader.Take(record.EntriesOnDisk).Take(record.TotalEntries);
    reader.Take(record.DirectorySize).Take(record.DirectoryOffset).Take(record.CommentLength);
    return record;
}

ZipDosTime PackDosTime(const QDateTime& time) {
    constexpr int kFirstYear = 1980;
    constexpr int kLastYear = 2107;
    QDate date = time.date();
    QTime clock = time.time();
    if (!time.isValid() || date.year() < kFirstYear) {
        date = QDate(kFirstYear, 1, 1);
        clock = QTime(0, 0);
    } else if (date.year() > kLastYear) {
        date = QDate(kLastYear, 12, 31);
        clock = QTime(23, 59, 59);
    }
    ZipDosTime packed;
    packed.Date = quint16(date.day() | date.month() << 5 | (date.year() - kFirstYear) << 9);
    packed.Time = quint16(clock.second() / 2 | clock.minute() << 5 | clock.hour() << 11);
    return packed;
}

} // namespace paneda
