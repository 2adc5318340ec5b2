#include "archive/zip_extraction.h"

#include "archive/raw_deflate.h"

#include "core/text/windows_1252.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <zlib.h>

#include <algorithm>

namespace paneda {

namespace {

// Larger files are no archives of ours, and are not searched.
constexpr qint64 kMaxZipFile = 2 * kMaxZipEntry;
constexpr qint64 kScanStep = 64 * 1024;

// Names are UTF-8 here and anything elsewhere. Backslashes part the components, as in the store.
QString DecodeName(const QByteArray& bytes) {
    const QString name = bytes.isValidUtf8() ? QString::fromUtf8(bytes) : DecodeWindows1252(bytes);
    return QString(name).replace(u'/', u'\\');
}

bool IsSafeName(const QString& name) {
    const QStringList parts = name.split(u'\\');
    const auto isSafe = [](const QString& part) {
        return !part.isEmpty() && part != u"." && part != u".." && !part.contains(u':') &&
               !part.contains(u'\0');
    };
    return std::all_of(parts.begin(), parts.end(), isSafe);
}

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
    device_ = std::move(device);
    if (device_->open(QIODevice::ReadOnly) && device_->size() <= kMaxZipFile && FindEndRecord()) {
        TellStatus(QStringLiteral("Zip Opened"));
        return true;
    }
    device_.reset();
    TellError(ZipError::NotAZip, QStringLiteral("The file %1 is not a Zip file").arg(path_));
    return false;
}

void ZipExtractionClass::CloseZip() {
    if (!device_)
        return;
    device_.reset();
    endOffset_ = -1;
    TellStatus(QStringLiteral("Zip Closed"));
}

QByteArray ZipExtractionClass::BytesAt(qint64 offset, qint64 size) {
    if (offset < 0 || size < 0 || offset > device_->size() - size || !device_->seek(offset))
        return {};
    const QByteArray bytes = device_->read(size);
    return bytes.size() == size ? bytes : QByteArray();
}

// The last place where a whole end record can begin counts, whatever a comment behind it contains.
bool ZipExtractionClass::FindEndRecord() {
    for (qint64 end = device_->size() - kZipEndSize + 4; end >= 4;) {
        const qint64 begin = std::max<qint64>(end - kScanStep, 0);
        const qsizetype found = BytesAt(begin, end - begin).lastIndexOf(kZipEndSignature);
        if (found >= 0) {
            endOffset_ = begin + found;
            return true;
        }
        // A signature may lie across the border of two steps.
        end = begin == 0 ? 0 : begin + 3;
    }
    return false;
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
    if (!device_) {
        TellError(ZipError::NothingOpen, QStringLiteral("There is no Zip File Open"));
        return false;
    }
    return sink_ || CanMakeFolder(folder);
}

bool ZipExtractionClass::Extract(const QString& folder, bool useFolders, bool overwrite) {
    if (!CanExtract(folder))
        return false;
    const auto end = DecodeZipEnd(BytesAt(endOffset_, kZipEndSize));
    // A part of an archive that spans several disks holds no directory to go by.
    const bool spanned = end && end->ThisDisk != end->DirectoryDisk;
    if (end && !spanned && !ExtractAll(*end, {folder, useFolders, overwrite}))
        return false;
    TellStatus(QStringLiteral("Extraction Complete"));
    return true;
}

// False when the listener cancelled.
bool ZipExtractionClass::ExtractAll(const ZipEndRecord& end, const Target& target) {
    claimed_.clear();
    budget_ = kMaxZipEntry;
    directoryOffset_ = end.DirectoryOffset;
    qint64 offset = directoryOffset_;
    for (int number = 1; number <= end.TotalEntries; ++number) {
        const auto header = DecodeZipCentral(BytesAt(offset, kZipCentralSize));
        if (!header || offset + kZipCentralSize > endOffset_) {
            TellError(ZipError::Damaged, QStringLiteral("The directory of %1 is damaged").arg(path_));
            return true;
        }
        const QByteArray name = BytesAt(offset + kZipCentralSize, header->Entry.NameLength);
        offset +=
            kZipCentralSize + header->Entry.NameLength + header->Entry.ExtraLength + header->CommentLength;
        // Folders and empty files.
        if (header->Entry.UncompressedSize >= 1)
            ExtractNamed(*header, DecodeName(name), target);
        if (!TellProgress(number, end.TotalEntries))
            return false;
    }
    return true;
}

void ZipExtractionClass::ExtractNamed(const ZipCentralHeader& header, const QString& name,
                                      const Target& target) {
    const QString last = LastComponent(name);
    if (filter_ && !filter_(last))
        return;
    const QString within = target.UseFolders && !sink_ ? name : last;
    if (!IsSafeName(within)) {
        TellError(ZipError::UnsafeName, QStringLiteral("The name %1 cannot be used").arg(name));
        return;
    }
    TellStatus(QStringLiteral("Extracting ...\\") + within);
    if (sink_) {
        const QByteArray bytes = ReadEntry(header, name);
        if (!bytes.isEmpty())
            sink_(last, bytes);
        return;
    }
    const QString path = QDir(target.Folder).filePath(QString(within).replace(u'\\', u'/'));
    ExtractTo(header, name, path, target.Overwrite);
}

void ZipExtractionClass::ExtractTo(const ZipCentralHeader& header, const QString& name, const QString& path,
                                   bool overwrite) {
    const QString shown = QDir::toNativeSeparators(path);
    if (!CanMakeFolder(QFileInfo(path).path()))
        return;
    const QFileInfo existing(path);
    if (existing.exists() && !overwrite) {
        TellError(ZipError::Exists, QStringLiteral("The file %1 already exists").arg(shown));
        return;
    }
    // The old file is replaced only when the new bytes are there.
    const QByteArray bytes = ReadEntry(header, name);
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
QByteArray ZipExtractionClass::ReadEntry(const ZipCentralHeader& header, const QString& name) {
    const qint64 offset = header.LocalOffset;
    const auto local = DecodeZipLocal(BytesAt(offset, kZipLocalSize));
    if (header.Entry.Method == kZipStored)
        return {};
    if (header.Entry.Method != kZipDeflated) {
        TellError(ZipError::UnsupportedMethod,
                  QStringLiteral("The compression Method for %1 is unsupported").arg(name));
        return {};
    }
    const qint64 dataOffset =
        local ? offset + kZipLocalSize + local->Entry.NameLength + local->Entry.ExtraLength : 0;
    if (!local || !ClaimData(offset, dataOffset + header.Entry.CompressedSize)) {
        TellError(ZipError::Damaged, QStringLiteral("The place of %1 in the zip file is damaged").arg(name));
        return {};
    }
    return Inflate(header, name, dataOffset);
}

// Entries lie in front of the directory and share no byte: one stream that many entries name would multiply
// the output.
bool ZipExtractionClass::ClaimData(qint64 begin, qint64 end) {
    if (end > directoryOffset_)
        return false;
    const auto behind = claimed_.lower_bound(begin);
    if (behind != claimed_.end() && behind->first < end)
        return false;
    if (behind != claimed_.begin() && std::prev(behind)->second > begin)
        return false;
    claimed_.emplace_hint(behind, begin, end);
    return true;
}

QByteArray ZipExtractionClass::Inflate(const ZipCentralHeader& header, const QString& name,
                                       qint64 dataOffset) {
    const ZipEntryFields& entry = header.Entry;
    const bool isPlausible = IsPlausibleDeflateSize(entry.CompressedSize, entry.UncompressedSize);
    if (isPlausible && entry.UncompressedSize > budget_) {
        TellError(ZipError::TooBig, QStringLiteral("%1 is larger than %2 bytes").arg(name).arg(budget_));
        return {};
    }
    QByteArray bytes;
    if (isPlausible) {
        budget_ -= entry.UncompressedSize;
        bytes = InflateRaw(BytesAt(dataOffset, entry.CompressedSize), entry.UncompressedSize);
    }
    if (bytes.isEmpty() || ZipCrc32(bytes) != entry.Crc32) {
        TellError(ZipError::Checksum, QStringLiteral("Data checksum error in %1").arg(name));
        return {};
    }
    return bytes;
}

} // namespace paneda
