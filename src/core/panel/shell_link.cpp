#include "core/panel/shell_link.h"

#include "core/text/windows_1252.h"

#include <QDir>
#include <QtEndian>

#include <optional>

namespace paneda {

namespace {

constexpr quint32 kHeaderSize = 0x4C;
constexpr char kClassId[] = "\x01\x14\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46";
constexpr qsizetype kFlagsAt = 20;
constexpr qsizetype kIconIndexAt = 56;
constexpr qsizetype kShowCommandAt = 60;

enum LinkFlag : quint32 {
    kHasItemList = 0x01,
    kHasLinkInfo = 0x02,
    kHasDescription = 0x04,
    kHasRelativePath = 0x08,
    kHasWorkingFolder = 0x10,
    kHasArguments = 0x20,
    kHasIconLocation = 0x40,
    kIsUnicode = 0x80,
    kIgnoresLinkInfo = 0x100,
};

// LinkInfo: offsets of its fields, and from which size on it has those of the UTF-16 forms.
enum InfoField { kInfoSize = 0, kInfoHeaderSize = 4, kInfoFlags = 8, kInfoLocalPath = 16, kInfoNetwork = 20 };
enum InfoTail { kInfoSuffix = 24, kInfoLocalPathWide = 28, kInfoSuffixWide = 32 };
constexpr quint32 kWideInfoHeader = 0x24;
constexpr quint32 kInfoHasLocalPath = 1;
constexpr quint32 kInfoHasNetwork = 2;
// The network part within it.
enum NetworkField { kNetworkName = 8, kNetworkNameWide = 20 };
constexpr quint32 kNarrowNetworkHeader = 0x14;

// Blocks behind the texts.
constexpr quint32 kEnvironmentMark = 0xA0000001;
constexpr qsizetype kBlockNarrow = 8;
constexpr qsizetype kBlockNarrowSize = 260;
constexpr qsizetype kBlockWide = kBlockNarrow + kBlockNarrowSize;
constexpr qsizetype kBlockWideSize = 2 * kBlockNarrowSize;

template <class Number>
std::optional<Number> NumberAt(QByteArrayView bytes, qsizetype at) {
    if (at < 0 || at > bytes.size() - qsizetype(sizeof(Number)))
        return std::nullopt;
    return qFromLittleEndian<Number>(bytes.data() + at);
}

std::optional<quint32> U32At(QByteArrayView bytes, qsizetype at) {
    return NumberAt<quint32>(bytes, at);
}

// The part of `size` bytes from `at` on; nothing when that much is not there.
std::optional<QByteArrayView> PartAt(QByteArrayView bytes, qsizetype at, qsizetype size) {
    if (at < 0 || size < 0 || at > bytes.size() || size > bytes.size() - at)
        return std::nullopt;
    return bytes.sliced(at, size);
}

QString UpToNul(const QString& text) {
    const qsizetype end = text.indexOf(QChar(0));
    return end < 0 ? text : text.first(end);
}

QString NarrowText(QByteArrayView bytes) {
    return UpToNul(DecodeWindows1252(bytes));
}

QString WideText(QByteArrayView bytes) {
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(qFromLittleEndian<quint16>(bytes.data() + 2 * i));
    return UpToNul(text);
}

// The text that a field of `bytes` holds the offset of; empty for an offset of 0 or one that leads out.
QString TextByOffset(QByteArrayView bytes, qsizetype field, bool wide) {
    const quint32 offset = U32At(bytes, field).value_or(0);
    if (offset == 0 || offset >= quint64(bytes.size()))
        return {};
    const QByteArrayView rest = bytes.sliced(qsizetype(offset));
    return wide ? WideText(rest) : NarrowText(rest);
}

QString Joined(const QString& folder, const QString& rest) {
    if (folder.isEmpty() || rest.isEmpty())
        return folder;
    const bool isSeparated = folder.endsWith(u'\\') || rest.startsWith(u'\\');
    return folder + (isSeparated ? QString() : QStringLiteral("\\")) + rest;
}

// The name "\\server\share" of the network part.
QString NetworkName(QByteArrayView info) {
    const quint32 at = U32At(info, kInfoNetwork).value_or(0);
    const quint32 size = U32At(info, qsizetype(at)).value_or(0);
    const std::optional<QByteArrayView> network = PartAt(info, qsizetype(at), qsizetype(size));
    if (at == 0 || !network)
        return {};
    if (U32At(*network, kNetworkName).value_or(0) > kNarrowNetworkHeader) {
        const QString name = TextByOffset(*network, kNetworkNameWide, true);
        if (!name.isEmpty())
            return name;
    }
    return TextByOffset(*network, kNetworkName, false);
}

void ReadLinkInfo(QByteArrayView info, ShellLink& link) {
    const quint32 flags = U32At(info, kInfoFlags).value_or(0);
    const bool hasWide = U32At(info, kInfoHeaderSize).value_or(0) >= kWideInfoHeader;
    QString suffix = hasWide ? TextByOffset(info, kInfoSuffixWide, true) : QString();
    if (suffix.isEmpty())
        suffix = TextByOffset(info, kInfoSuffix, false);
    if ((flags & kInfoHasLocalPath) != 0) {
        QString path = hasWide ? TextByOffset(info, kInfoLocalPathWide, true) : QString();
        if (path.isEmpty())
            path = TextByOffset(info, kInfoLocalPath, false);
        link.LocalPath = Joined(path, suffix);
    }
    if ((flags & kInfoHasNetwork) != 0)
        link.NetworkPath = Joined(NetworkName(info), suffix);
}

void ReadBlock(QByteArrayView block, ShellLink& link) {
    if (U32At(block, 4) != kEnvironmentMark)
        return;
    if (const std::optional<QByteArrayView> wide = PartAt(block, kBlockWide, kBlockWideSize))
        link.EnvironmentPath = WideText(*wide);
    const std::optional<QByteArrayView> narrow = PartAt(block, kBlockNarrow, kBlockNarrowSize);
    if (narrow && link.EnvironmentPath.isEmpty())
        link.EnvironmentPath = NarrowText(*narrow);
}

ShowCommand ShowCommandOf(quint32 number) {
    constexpr quint32 kMaximizedCode = 3;
    constexpr quint32 kMinimizedCode = 7; // minimized without the focus, the one that shortcuts know
    if (number == kMaximizedCode)
        return ShowCommand::Maximized;
    return number == kMinimizedCode ? ShowCommand::Minimized : ShowCommand::Normal;
}

// Goes through a shortcut part by part. If the file ends within a part, Failed() is true and every later part
// is empty.
class LinkReader {
public:
    explicit LinkReader(QByteArrayView bytes) : rest_(bytes) {}

    bool Failed() const { return failed_; }

    QByteArrayView Take(qsizetype size) {
        const std::optional<QByteArrayView> part = PartAt(rest_, 0, size);
        failed_ = failed_ || !part;
        if (failed_)
            return {};
        rest_ = rest_.sliced(size);
        return *part;
    }

    // Behind a length of 16 bits that does not count itself.
    void SkipItemList() { Take(NumberAt<quint16>(Take(2), 0).value_or(0)); }

    // A length of 32 bits that counts itself.
    QByteArrayView TakeSized() {
        const std::optional<quint32> size = U32At(rest_, 0);
        failed_ = failed_ || !size || *size < 4;
        return failed_ ? QByteArrayView() : Take(qsizetype(*size));
    }

    QString TakeText(bool wide) {
        const qsizetype count = NumberAt<quint16>(Take(2), 0).value_or(0);
        const QByteArrayView text = Take(wide ? 2 * count : count);
        return wide ? WideText(text) : NarrowText(text);
    }

private:
    QByteArrayView rest_;
    bool failed_ = false;
};

void ReadTexts(LinkReader& reader, quint32 flags, ShellLink& link) {
    const auto take = [&](quint32 flag, QString& text) {
        if ((flags & flag) != 0)
            text = reader.TakeText((flags & kIsUnicode) != 0);
    };
    take(kHasDescription, link.Description);
    take(kHasRelativePath, link.RelativePath);
    take(kHasWorkingFolder, link.WorkingFolder);
    take(kHasArguments, link.Arguments);
    take(kHasIconLocation, link.IconLocation);
}

} // namespace

tl::expected<ShellLink, QString> ParseShellLink(QByteArrayView bytes) {
    LinkReader reader(bytes);
    const QByteArrayView header = reader.Take(kHeaderSize);
    const QByteArrayView classId(kClassId, sizeof kClassId - 1);
    if (reader.Failed() || U32At(header, 0) != kHeaderSize || header.sliced(4, classId.size()) != classId)
        return tl::make_unexpected(QStringLiteral("This is no shortcut of Windows."));
    ShellLink link;
    const quint32 flags = *U32At(header, kFlagsAt);
    link.IconIndex = *NumberAt<qint32>(header, kIconIndexAt);
    link.Show = ShowCommandOf(*U32At(header, kShowCommandAt));
    if ((flags & kHasItemList) != 0)
        reader.SkipItemList();
    const QByteArrayView info = (flags & kHasLinkInfo) != 0 ? reader.TakeSized() : QByteArrayView();
    if ((flags & kIgnoresLinkInfo) == 0)
        ReadLinkInfo(info, link);
    ReadTexts(reader, flags, link);
    if (reader.Failed())
        return tl::make_unexpected(QStringLiteral("The shortcut is damaged: the file ends too early."));
    // Ends at a block that is too short to be one, or at the end of the file.
    for (QByteArrayView block = reader.TakeSized(); !reader.Failed(); block = reader.TakeSized())
        ReadBlock(block, link);
    return link;
}

tl::expected<ShellLink, FileError> ReadShellLink(const QString& path) {
    const auto bytes = ReadFileBytes(path, kMaxLinkFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    const auto link = ParseShellLink(*bytes);
    if (!link)
        return tl::make_unexpected(FileError{QDir::toNativeSeparators(path), link.error()});
    return *link;
}

} // namespace paneda
