#include "archive/zip_reader.h"

#include "archive/raw_deflate.h"

#include "core/text/windows_1252.h"

#include <QStringList>

#include <algorithm>

namespace paneda {

namespace {

// Larger files are no archives of ours, and are not searched.
constexpr qint64 kMaxZipFile = 2 * kMaxZipEntry;
constexpr qint64 kScanStep = 64 * 1024;

// The kind of file in the upper half of the external attributes, where Unix wrote the entry.
constexpr quint32 kUnix = 3;
constexpr quint32 kKindMask = 0170000;
constexpr quint32 kKindFile = 0100000;
constexpr quint32 kKindFolder = 0040000;

// Names are UTF-8 here and anything elsewhere. Backslashes part the components, as in the store.
QString DecodeName(const QByteArray& bytes) {
    const QString name = bytes.isValidUtf8() ? QString::fromUtf8(bytes) : DecodeWindows1252(bytes);
    return QString(name).replace(u'/', u'\\');
}

tl::unexpected<ZipProblem> Problem(ZipError number, const QString& message) {
    return tl::make_unexpected(ZipProblem{number, message});
}

} // namespace

bool ZipListed::IsSpecial() const {
    const quint32 kind = (Header.ExternalAttributes >> 16U) & kKindMask;
    return Header.VersionMadeBy >> 8U == kUnix && kind != 0 && kind != kKindFile && kind != kKindFolder;
}

bool IsSafeZipName(const QString& name) {
    const QStringList parts = name.split(u'\\');
    const auto isSafe = [](const QString& part) {
        return !part.isEmpty() && part != u"." && part != u".." && !part.contains(u':') &&
               !part.contains(u'\0');
    };
    return std::all_of(parts.begin(), parts.end(), isSafe);
}

bool ZipReader::Open(std::unique_ptr<QIODevice> device) {
    device_ = std::move(device);
    if (device_->open(QIODevice::ReadOnly) && device_->size() <= kMaxZipFile && FindEndRecord())
        return true;
    device_.reset();
    return false;
}

void ZipReader::Close() {
    device_.reset();
    endOffset_ = -1;
}

QByteArray ZipReader::BytesAt(qint64 offset, qint64 size) {
    if (offset < 0 || size < 0 || offset > device_->size() - size || !device_->seek(offset))
        return {};
    const QByteArray bytes = device_->read(size);
    return bytes.size() == size ? bytes : QByteArray();
}

// The last place where a whole end record can begin counts, whatever a comment behind it contains.
bool ZipReader::FindEndRecord() {
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

int ZipReader::Rewind() {
    claimed_.clear();
    budget_ = kMaxZipEntry;
    const auto end = DecodeZipEnd(BytesAt(endOffset_, kZipEndSize));
    if (!end || end->ThisDisk != end->DirectoryDisk)
        return 0;
    directoryOffset_ = end->DirectoryOffset;
    next_ = directoryOffset_;
    return end->TotalEntries;
}

std::optional<ZipListed> ZipReader::Next() {
    const auto header = DecodeZipCentral(BytesAt(next_, kZipCentralSize));
    if (!header || next_ + kZipCentralSize > endOffset_)
        return std::nullopt;
    const QByteArray name = BytesAt(next_ + kZipCentralSize, header->Entry.NameLength);
    next_ += kZipCentralSize + header->Entry.NameLength + header->Entry.ExtraLength + header->CommentLength;
    return ZipListed{*header, DecodeName(name)};
}

tl::expected<QByteArray, ZipProblem> ZipReader::Read(const ZipListed& listed) {
    const ZipEntryFields& entry = listed.Header.Entry;
    if (entry.Method != kZipDeflated && entry.Method != kZipStored)
        return Problem(ZipError::UnsupportedMethod,
                       QStringLiteral("The compression Method for %1 is unsupported").arg(listed.Name));
    const qint64 offset = listed.Header.LocalOffset;
    const auto local = DecodeZipLocal(BytesAt(offset, kZipLocalSize));
    const qint64 dataOffset =
        local ? offset + kZipLocalSize + local->Entry.NameLength + local->Entry.ExtraLength : 0;
    if (!local || !ClaimData(offset, dataOffset + entry.CompressedSize))
        return Problem(ZipError::Damaged,
                       QStringLiteral("The place of %1 in the zip file is damaged").arg(listed.Name));
    return Inflate(listed, dataOffset);
}

// Entries lie in front of the directory and share no byte: one stream that many entries name would multiply
// the output.
bool ZipReader::ClaimData(qint64 begin, qint64 end) {
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

tl::expected<QByteArray, ZipProblem> ZipReader::Inflate(const ZipListed& listed, qint64 dataOffset) {
    const ZipEntryFields& entry = listed.Header.Entry;
    const bool isStored = entry.Method == kZipStored;
    const bool isPlausible = isStored ? entry.CompressedSize == entry.UncompressedSize
                                      : IsPlausibleDeflateSize(entry.CompressedSize, entry.UncompressedSize);
    if (isPlausible && entry.UncompressedSize > budget_)
        return Problem(ZipError::TooBig,
                       QStringLiteral("%1 is larger than %2 bytes").arg(listed.Name).arg(budget_));
    QByteArray bytes;
    if (isPlausible && entry.UncompressedSize > 0) {
        budget_ -= entry.UncompressedSize;
        const QByteArray data = BytesAt(dataOffset, entry.CompressedSize);
        bytes = isStored ? data : InflateRaw(data, entry.UncompressedSize);
    }
    if (bytes.isEmpty() != (entry.UncompressedSize == 0) || ZipCrc32(bytes) != entry.Crc32)
        return Problem(ZipError::Checksum, QStringLiteral("Data checksum error in %1").arg(listed.Name));
    return bytes;
}

} // namespace paneda
