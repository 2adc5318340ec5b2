#pragma once

#include <QByteArray>
#include <QDateTime>

#include <optional>

namespace paneda {

// The records of a zip archive, little-endian, field by field without padding:
//
//   for each entry: local header (30 bytes), name, extra text, data
//   for each entry: central header (46 bytes), name, extra text, comment      (the directory)
//   end record (22 bytes), comment of the archive
//
// The values given here are the ones that this program writes.

inline constexpr qsizetype kZipLocalSize = 30;
inline constexpr qsizetype kZipCentralSize = 46;
inline constexpr qsizetype kZipEndSize = 22;
// The end record's first four bytes.
inline constexpr char kZipEndSignature[] = "PK\x05\x06";

inline constexpr quint16 kZipStored = 0;
inline constexpr quint16 kZipDeflated = 8;

// An entry with more uncompressed bytes than this is neither written nor read, so that a damaged or hostile
// archive does not take all memory. It is also the limit of a note's text: one that is full of pictures takes
// about one and a half times its size to be shown, which leaves room below 300 MB for the rest.
inline constexpr qint64 kMaxZipEntry = 128 * 1024 * 1024;

// What local and central header have in common, in this order.
struct ZipEntryFields {
    quint16 VersionNeeded = 20;
    quint16 Flags = 2;
    quint16 Method = kZipDeflated;
    quint16 DosTime = 0;
    quint16 DosDate = 0;
    quint32 Crc32 = 0; // of the uncompressed bytes
    quint32 CompressedSize = 0;
    quint32 UncompressedSize = 0;
    quint16 NameLength = 0;
    quint16 ExtraLength = 0;
};

struct ZipLocalHeader {
    ZipEntryFields Entry;
};

struct ZipCentralHeader {
    quint16 VersionMadeBy = 20;
    ZipEntryFields Entry;
    quint16 CommentLength = 0;
    quint16 DiskStart = 0;
    quint16 InternalAttributes = 32;
    quint32 ExternalAttributes = 0;
    quint32 LocalOffset = 0; // from the begin of the file
};

struct ZipEndRecord {
    quint16 ThisDisk = 0;
    quint16 DirectoryDisk = 0;
    quint16 EntriesOnDisk = 0;
    quint16 TotalEntries = 0;
    quint32 DirectorySize = 0;
    quint32 DirectoryOffset = 0; // from the begin of the file
    quint16 CommentLength = 0;
};

QByteArray EncodeZipLocal(const ZipLocalHeader& header);
QByteArray EncodeZipCentral(const ZipCentralHeader& header);
QByteArray EncodeZipEnd(const ZipEndRecord& record);

// Nothing if there are too few bytes or another signature.
std::optional<ZipLocalHeader> DecodeZipLocal(QByteArrayView bytes);
std::optional<ZipCentralHeader> DecodeZipCentral(QByteArrayView bytes);
std::optional<ZipEndRecord> DecodeZipEnd(QByteArrayView bytes);

// A time as the headers hold it: steps of two seconds, odd seconds cut, in local time of the given value.
// A time before 1980 or after 2107 becomes the first or the last one that fits; an invalid time becomes the
// first.
struct ZipDosTime {
    quint16 Time = 0;
    quint16 Date = 0;
};
ZipDosTime PackDosTime(const QDateTime& time);

} // namespace paneda
