#pragma once

#include "archive/zip_records.h"

#include <QIODevice>
#include <QString>

#include <tl/expected.hpp>

#include <map>
#include <memory>
#include <optional>

namespace paneda {

// What the number of an error says.
enum class ZipError : int {
    FileMissing = 1,
    NotAZip,
    LibraryMissing,
    NothingOpen,
    NoFolder,
    Exists,
    CannotRemove,
    CannotWrite,
    UnsupportedMethod,
    Checksum,
    Damaged,    // the directory, or where it says an entry lies
    UnsafeName, // empty, or could lead out of the target folder; of a name whose folders are not used,
                // the last part alone counts
    TooBig,     // one entry, or what has been read before together with it
};

struct ZipProblem {
    ZipError Number;
    QString Message; // for the user
};

// An entry as the directory of an archive tells of it.
struct ZipListed {
    ZipCentralHeader Header;
    // As the archive has it, with backslashes between its parts; it may be any text. That of a folder ends
    // in one.
    QString Name;

    bool IsFolder() const { return Name.endsWith(u'\\'); }
    // Whether it is a link or another thing of Unix that is neither file nor folder.
    bool IsSpecial() const;
    bool IsEncrypted() const { return (Header.Entry.Flags & 1U) != 0; }
};

// Whether no part of a name leads out of the folder that it is used in.
bool IsSafeZipName(const QString& name);

// Reads the directory of an archive, and its entries one by one.
//
// Nothing in the file is trusted: offsets and sizes have to be within the file, entries must not overlap, and
// no memory is allocated for more than kMaxZipEntry bytes, or for more than the compressed bytes can hold. At
// most kMaxZipEntry bytes are inflated in all between two calls of Rewind.
class ZipReader {
public:
    // False when the device cannot be opened, is too large for an archive of ours or has no end record.
    bool Open(std::unique_ptr<QIODevice> device);
    void Close();
    bool IsOpen() const { return device_ != nullptr; }

    // Goes back to the first entry. Returns how many there are, as the archive says; 0 for a part of an
    // archive that spans several disks, since it has no directory to go by.
    int Rewind();

    // The next entry; nothing where the directory is damaged.
    std::optional<ZipListed> Next();

    // The bytes of an entry, stored or deflated; empty for one without any.
    tl::expected<QByteArray, ZipProblem> Read(const ZipListed& entry);

private:
    QByteArray BytesAt(qint64 offset, qint64 size);
    bool FindEndRecord();
    bool ClaimData(qint64 begin, qint64 end);
    tl::expected<QByteArray, ZipProblem> Inflate(const ZipListed& entry, qint64 dataOffset);

    // Not set while nothing is open.
    std::unique_ptr<QIODevice> device_;
    qint64 endOffset_ = -1;
    qint64 directoryOffset_ = 0;
    qint64 next_ = 0; // place of the next entry of the directory
    // Begin and end of the entries that have been read.
    std::map<qint64, qint64> claimed_;
    // Bytes that may still be inflated.
    qint64 budget_ = 0;
};

} // namespace paneda
