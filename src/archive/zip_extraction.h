#pragma once

#include "archive/zip_reader.h"

#include "core/files/file_io.h"

#include <QIODevice>
#include <QString>

#include <functional>
#include <memory>

namespace paneda {

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
// Nothing in the file is trusted, see ZipReader. An entry that breaks a rule causes an error event and gives
// no output. Stored (not compressed) entries, folders, empty files and those that the filter does not want
// give no output either, and cause no event but progress.
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
    bool CanMakeFolder(const QString& folder) const;
    bool CanExtract(const QString& folder) const;
    bool ExtractAll(const Target& target);
    void ExtractNamed(const ZipListed& entry, const Target& target);
    void ExtractTo(const ZipListed& entry, const QString& path, bool overwrite);
    QByteArray ReadEntry(const ZipListed& entry);

    ZipEvents events_;
    ZipSink sink_;
    ZipFilter filter_;
    ZipReader reader_;
    QString path_;
};

} // namespace paneda
