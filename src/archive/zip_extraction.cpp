#include "archive/zip_extraction.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <zlib.h>

namespace paneda {

namespace {

QString LastComponent(const QString& name) {
    return name.mid(name.lastIndexOf(u'\\') + 1);
}

} // namespace

ZipExtractionClass::ZipExtractionClass(ZipEvents events, ZipSink sink, ZipFilter filter)
    : events_(std::move(events)), sink_(std::move(sink)), filter_(std::move(filter)) {}

ZipExtractionClass::~ZipExtractionClass() {
    CloseZip();
}

QString ZipExtractionClass::ZLibVersion() {
    // The first character is what the library's makers ask to be compared.
    const char* version = zlibVersion();
    return version[0] == ZLIB_VERSION[0] ? QString::fromLatin1(version) : QString();
}

FileResult ZipExtractionClass::ExtractFile(const QString& path, const QByteArray& bytes) {
    return ReplaceFile(path, bytes);
}

void ZipExtractionClass::TellStatus(const QString& text) const {
    if (events_.Status)
        events_.Status(text);
}

void ZipExtractionClass::TellError(ZipError number, const QString& message) const {
    if (events_.Error)
        events_.Error(message, int(number));
}

bool ZipExtractionClass::TellProgress(int number, int total) const {
    bool cancel = false;
    if (events_.Progress)
        events_.Progress(cancel, int(qint64(number) * 100 / total));
    return !cancel;
}

bool ZipExtractionClass::OpenZip(const QString& path) {
    CloseZip();
    TellStatus(QStringLiteral("Opening Zip"));
    path_ = QDir::toNativeSeparators(path);
    // A pipe or a device would block.
    if (!QFileInfo(path).isFile()) {
        TellError(ZipError::FileMissing, QStringLiteral("The file %1 doesn't exist").arg(path_));
        return false;
    }
    return OpenDevice(std::make_unique<QFile>(path));
}

bool ZipExtractionClass::OpenZip(const QByteArray& bytes, const QString& name) {
    CloseZip();
    TellStatus(QStringLiteral("Opening Zip"));
    path_ = name;
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    return OpenDevice(std::move(buffer));
}

bool ZipExtractionClass::OpenDevice(std::unique_ptr<QIODevice> device) {
    if (reader_.Open(std::move(device))) {
        TellStatus(QStringLiteral("Zip Opened"));
        return true;
    }
    TellError(ZipError::NotAZip, QStringLiteral("The file %1 is not a Zip file").arg(path_));
    return false;
}

void ZipExtractionClass::CloseZip() {
    if (!reader_.IsOpen())
        return;
    reader_.Close();
    TellStatus(QStringLiteral("Zip Closed"));
}

bool ZipExtractionClass::CanMakeFolder(const QString& folder) const {
    const FileResult made = MakeFolderPath(folder);
    if (!made)
        TellError(ZipError::NoFolder, QStringLiteral("Can't create the folder %1: %2")
                                          .arg(QDir::toNativeSeparators(folder), made.error().Reason));
    return made.has_value();
}

bool ZipExtractionClass::CanExtract(const QString& folder) const {
    if (ZLibVersion().isEmpty()) {
        TellError(ZipError::LibraryMissing, QStringLiteral("Zlib is not installed"));
        return false;
    }
    TellStatus(QStringLiteral("Extracting Files"));
    if (!reader_.IsOpen()) {
        TellError(ZipError::NothingOpen, QStringLiteral("There is no Zip File Open"));
        return false;
    }
    return sink_ || CanMakeFolder(folder);
}

bool ZipExtractionClass::Extract(const QString& folder, bool useFolders, bool overwrite) {
    if (!CanExtract(folder))
        return false;
    if (!ExtractAll({folder, useFolders, overwrite}))
        return false;
    TellStatus(QStringLiteral("Extraction Complete"));
    return true;
}

// False when the listener cancelled.
bool ZipExtractionClass::ExtractAll(const Target& target) {
    const int total = reader_.Rewind();
    for (int number = 1; number <= total; ++number) {
        const auto entry = reader_.Next();
        if (!entry) {
            TellError(ZipError::Damaged, QStringLiteral("The directory of %1 is damaged").arg(path_));
            return true;
        }
        // Folders and empty files.
        if (entry->Header.Entry.UncompressedSize >= 1)
            ExtractNamed(*entry, target);
        if (!TellProgress(number, total))
            return false;
    }
    return true;
}

void ZipExtractionClass::ExtractNamed(const ZipListed& entry, const Target& target) {
    const QString& name = entry.Name;
    const QString last = LastComponent(name);
    if (filter_ && !filter_(last))
        return;
    const QString within = target.UseFolders && !sink_ ? name : last;
    if (!IsSafeZipName(within)) {
        TellError(ZipError::UnsafeName, QStringLiteral("The name %1 cannot be used").arg(name));
        return;
    }
    TellStatus(QStringLiteral("Extracting ...\\") + within);
    if (sink_) {
        const QByteArray bytes = ReadEntry(entry);
        if (!bytes.isEmpty())
            sink_(last, bytes);
        return;
    }
    const QString path = QDir(target.Folder).filePath(QString(within).replace(u'\\', u'/'));
    ExtractTo(entry, path, target.Overwrite);
}

void ZipExtractionClass::ExtractTo(const ZipListed& entry, const QString& path, bool overwrite) {
    const QString shown = QDir::toNativeSeparators(path);
    if (!CanMakeFolder(QFileInfo(path).path()))
        return;
    const QFileInfo existing(path);
    if (existing.exists() && !overwrite) {
        TellError(ZipError::Exists, QStringLiteral("The file %1 already exists").arg(shown));
        return;
    }
    // The old file is replaced only when the new bytes are there.
    const QByteArray bytes = ReadEntry(entry);
    if (bytes.isEmpty())
        return;
    if (existing.exists() && !existing.isFile()) {
        TellError(ZipError::CannotRemove, QStringLiteral("Can't remove the file %1").arg(shown));
        return;
    }
    if (const auto written = ExtractFile(path, bytes); !written)
        TellError(ZipError::CannotWrite, written.error().Text());
}

// The uncompressed bytes; empty where an entry gives none.
QByteArray ZipExtractionClass::ReadEntry(const ZipListed& entry) {
    if (entry.Header.Entry.Method == kZipStored)
        return {};
    auto bytes = reader_.Read(entry);
    if (bytes)
        return std::move(*bytes);
    TellError(bytes.error().Number, bytes.error().Message);
    return {};
}

} // namespace paneda
