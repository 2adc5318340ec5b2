#pragma once

#include "archive/zip_records.h"

#include "core/files/file_io.h"

#include <QIODevice>
#include <QString>

#include <functional>
#include <map>
#include <memory>

namespace paneda {

// What the error event's number says.
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
    TooBig,     // one entry, or what has been extracted before together with it
};

// What a reader calls while it works. Functions that are empty are not called.
struct ZipEvents {
    // After each entry, in per cent of their number. Setting the flag ends the extraction.
    std::function<void(bool& cancel, int percent)> Progress;
    std::function<void(const QString& text)> Status;
    std::function<void(const QString& message, int number)> Error;
};

// Takes the uncompressed bytes of an entry and the last component of its name.
using ZipSink = std::function<void(const QString& name, const QByteArray& bytes)>;

// Whether an entry is wanted, by the last component of its name. Others are passed over before anything of
// them is inflated.
using ZipFilter = std::function<bool(const QString& name)>;

// Reads an archive. Failures are events; the return values say only whether the work came to its end.
//
// Nothing in the file is trusted: offsets and sizes have to be within the file, entries must not overlap, and
// no memory is allocated for more than kMaxZipEntry bytes, or for more than the compressed bytes can hold.
// One extraction inflates at most kMaxZipEntry bytes in all. An entry that breaks a rule causes an error
// event and gives no output. Stored (not compressed) entries, folders, empty files and those that the filter
// does not want give no output either, and cause no event but progress.
class ZipExtractionClass {
public:
    // With a sink the entries are handed to it, and no folder or file is read or made. Without one they
    // become files. Without a filter every entry is wanted.
    explicit ZipExtractionClass(ZipEvents events = {}, ZipSink sink = {}, ZipFilter filter = {});
    ~ZipExtractionClass();
    Q_DISABLE_COPY_MOVE(ZipExtractionClass)

    // `path` is a host path. False when there is no such file or it has no end record.
    bool OpenZip(const QString& path);
    // An archive in memory, which messages call by `name`. False when it has no end record.
    bool OpenZip(const QByteArray& bytes, const QString& name);
    void CloseZip();

    // Extracts the wanted entries below this folder, which is made when it is missing; with `useFolders` into
    // their own folders, else side by side. A file that is there stays unless `overwrite` is set. False when
    // there is nothing to extract from or to, or when the listener cancelled.
    bool Extract(const QString& folder, bool useFolders, bool overwrite);

    static FileResult ExtractFile(const QString& path, const QByteArray& bytes);

    // Empty when the library is not the one that this program was built for.
    static QString ZLibVersion();

private:
    struct Target {
        QString Folder;
        bool UseFolders = false;
        bool Overwrite = false;
    };

    void TellStatus(const QString& text) const;
    void TellError(ZipError number, const QString& message) const;
    bool TellProgress(int number, int total) const;
    bool OpenDevice(std::unique_ptr<QIODevice> device);
    QByteArray BytesAt(qint64 offset, qint64 size);
    bool FindEndRecord();
    bool CanMakeFolder(const QString& folder) const;
    bool CanExtract(const QString& folder) const;
    bool ExtractAll(const ZipEndRecord& end, const Target& target);
    void ExtractNamed(const ZipCentralHeader& header, const QString& name, const Target& target);
    void ExtractTo(const ZipCentralHeader& header, const QString& name, const QString& path, bool overwrite);
    QByteArray ReadEntry(const ZipCentralHeader& header, const QString& name);
    bool ClaimData(qint64 begin, qint64 end);
    QByteArray Inflate(const ZipCentralHeader& header, const QString& name, qint64 dataOffset);

    ZipEvents events_;
    ZipSink sink_;
    ZipFilter filter_;
    // Not set while nothing is open.
    std::unique_ptr<QIODevice> device_;
    QString path_;
    qint64 endOffset_ = -1;
    qint64 directoryOffset_ = 0;
    // Begin and end of the entries that have been read.
    std::map<qint64, qint64> claimed_;
    // Bytes that may still be inflated.
    qint64 budget_ = 0;
};

} // namespace paneda
