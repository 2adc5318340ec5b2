#include "core/store/catalogue_cache.h"

#include "core/store/store_layout.h"
#include "core/text/checksum.h"
#include "core/text/ranges.h"

#include <QtEndian>

#include <algorithm>

namespace paneda {

namespace {

constexpr QByteArrayView kMark("PanedaC4");
constexpr qsizetype kChecksumSize = 8;
// Bytes. Room for range::kEntries with names of the usual length.
constexpr qint64 kMaxCacheFile = 8 * 1024 * 1024;

class Writer {
public:
    void Number(qint32 value) {
        const qint32 bytes = qToLittleEndian(value);
        bytes_.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
    }
    void LongNumber(quint64 value) {
        const quint64 bytes = qToLittleEndian(value);
        bytes_.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
    }
    void Text(QStringView text) {
        const QByteArray utf8 = text.toUtf8();
        Number(qint32(utf8.size()));
        bytes_.append(utf8);
    }
    const QByteArray& Bytes() const { return bytes_; }

private:
    QByteArray bytes_;
};

// If the bytes end too early or a number is out of its range, Ok() is false, and this and every later value
// reads as zero or as empty.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : rest_(bytes) {}

    bool Ok() const { return ok_; }
    QByteArrayView Rest() const { return rest_; }
    QByteArrayView Bytes(qsizetype size) {
        if (size < 0 || size > rest_.size()) {
            Fail();
            return {};
        }
        const QByteArrayView taken = rest_.first(size);
        rest_ = rest_.sliced(size);
        return taken;
    }
    qint32 Number(const Range<int>& range) {
        const QByteArrayView bytes = Bytes(sizeof(qint32));
        const qint32 number = bytes.isEmpty() ? 0 : qFromLittleEndian<qint32>(bytes.data());
        if (range.Holds(number))
            return number;
        Fail();
        return 0;
    }
    quint64 LongNumber() {
        const QByteArrayView bytes = Bytes(sizeof(quint64));
        return bytes.isEmpty() ? 0 : qFromLittleEndian<quint64>(bytes.data());
    }
    QString Text() {
        QString text;
        TextInto(text);
        return text;
    }
    // The same, into a text that is reused.
    void TextInto(QString& text) {
        const QByteArrayView bytes = Bytes(Number(range::kNameBytes));
        text.resize(bytes.size());
        QChar* target = text.data();
        unsigned char seen = 0;
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            const auto byte = static_cast<unsigned char>(bytes[i]);
            seen |= byte;
            target[i] = QChar(char16_t(byte));
        }
        // Nearly all names are ASCII, and those are read by now.
        if (seen >= 0x80)
            text = QString::fromUtf8(bytes);
    }
    // Reads a list's entries with `read`. Stops where the bytes end, however many entries the list claims,
    // and fails when all lists together have too many.
    template <class Entry, class Read>
    void List(std::vector<Entry>& list, Read read) {
        const qint32 count = Number({0, range::kEntries.Highest - entries_});
        entries_ += count;
        list.reserve(std::size_t(std::clamp<qsizetype>(count, 0, rest_.size() / qsizetype(sizeof(Entry)))));
        for (qint32 i = 0; i < count && ok_; ++i)
            list.push_back(read());
    }

private:
    void Fail() {
        ok_ = false;
        rest_ = {};
    }

    QByteArrayView rest_;
    qint32 entries_ = 0; // of all lists so far
    bool ok_ = true;
};

// The sizes of a record in the order of the file, each with its range.
template <class Record, class Action>
void ForEachSize(Record& record, Action action) {
    auto& sizes = record.Pictures.Sizes;
    for (auto* size : {&sizes.Group, &sizes.Category, &sizes.Bottom, &sizes.TopA, &sizes.LeftA, &sizes.RightA,
                       &sizes.TopLeft, &sizes.TopRight, &sizes.BottomLeft, &sizes.BottomRight, &sizes.Top,
                       &sizes.Left, &sizes.Right})
        action(*size, range::kPiece);
    action(record.Pictures.Window, range::kSide);
}

template <class Record, class Action>
void ForEachFlag(Record& record, Action action) {
    auto& sizes = record.Pictures.Sizes;
    for (auto* flag :
         {&sizes.HasTopB, &sizes.HasBottomB, &sizes.HasLeftB, &sizes.HasRightB, &record.HasDriveButtons})
        action(*flag);
}

void WriteButton(Writer& writer, const ButtonEntry& button) {
    const bool isDrive = !button.Spare.isEmpty();
    writer.Number(button.ControlIndex);
    writer.Number(isDrive ? 1 : 0);
    writer.Text(isDrive ? QStringView(button.Name).last(1)
                        : QStringView(button.Path).sliced(button.Path.lastIndexOf(u'\\') + 1));
}

void WriteCategory(Writer& writer, const CategoryEntry& category) {
    writer.Text(category.FolderName);
    writer.Number(category.TreeNumber.value_or(-1));
    writer.Text(category.TreeName);
    writer.Number(qint32(category.Groups.size()));
    for (const GroupEntry& group : category.Groups) {
        writer.Text(group.FolderName);
        writer.Number(group.ControlIndex);
        writer.LongNumber(group.PictureNames);
        writer.Number(qint32(group.Buttons.size()));
        for (const ButtonEntry& button : group.Buttons)
            WriteButton(writer, button);
    }
}

// Neighbours mostly have the same style. They share its text: most of a load's time goes into memory.
void ShareStyle(ButtonEntry& button, const std::vector<ButtonEntry>& before) {
    if (!before.empty() && before.back().Style == button.Style)
        button.Style = before.back().Style;
}

// `text` is scratch memory.
ButtonEntry ReadButton(Reader& reader, const QString& groupPath, const std::vector<ButtonEntry>& before,
                       QString& text) {
    const qint32 index = reader.Number(range::kEntries);
    const bool isDrive = reader.Number(range::kSwitch) != 0;
    reader.TextInto(text);
    if (isDrive)
        return DriveButton(text.isEmpty() ? QChar() : text[0], index);
    ButtonEntry button = FileButton(groupPath, text, index);
    ShareStyle(button, before);
    return button;
}

GroupEntry ReadGroup(Reader& reader, const QString& categoryPath) {
    GroupEntry group;
    group.FolderName = reader.Text();
    group.ControlIndex = reader.Number(range::kEntries);
    group.PictureNames = reader.LongNumber();
    const QString path = categoryPath + u'\\' + group.FolderName;
    QString text;
    reader.List(group.Buttons, [&] { return ReadButton(reader, path, group.Buttons, text); });
    return group;
}

CategoryEntry ReadCategory(Reader& reader, const QString& appPath) {
    CategoryEntry category;
    category.FolderName = reader.Text();
    const qint32 treeNumber = reader.Number({-1, range::kEntries.Highest});
    if (treeNumber >= 0)
        category.TreeNumber = treeNumber;
    category.Kind = category.TreeNumber ? QStringLiteral("T") : QStringLiteral("S");
    category.TreeName = reader.Text();
    const QString path = StoredPath(appPath, QStringLiteral("Setting\\") + category.FolderName);
    reader.List(category.Groups, [&] { return ReadGroup(reader, path); });
    return category;
}

} // namespace

QByteArray EncodeCache(const CacheRecord& record) {
    Writer contents;
    contents.Text(record.Pictures.Skin);
    contents.LongNumber(record.Pictures.Stamp);
    ForEachSize(record, [&contents](const TwipsSize& size, const Range<int>&) {
        contents.Number(size.Width);
        contents.Number(size.Height);
    });
    ForEachFlag(record, [&contents](bool flag) { contents.Number(flag ? 1 : 0); });
    contents.Number(qint32(record.Catalogue.size()));
    for (const CategoryEntry& category : record.Catalogue)
        WriteCategory(contents, category);

    Writer version;
    version.Text(record.ProductVersion);
    QByteArray checksum(kChecksumSize, '\0');
    qToLittleEndian(Fnv1a64OfWords(contents.Bytes()), checksum.data());
    return kMark.toByteArray() + version.Bytes() + checksum + contents.Bytes();
}

std::optional<CacheRecord> DecodeCache(const QByteArray& bytes, const QString& productVersion,
                                       const QString& appPath) {
    Reader reader(bytes);
    if (reader.Bytes(kMark.size()) != kMark)
        return std::nullopt;
    CacheRecord record;
    record.ProductVersion = reader.Text();
    const QByteArrayView checksum = reader.Bytes(kChecksumSize);
    if (!reader.Ok() || record.ProductVersion != productVersion ||
        qFromLittleEndian<quint64>(checksum.data()) != Fnv1a64OfWords(reader.Rest()))
        return std::nullopt;
    record.Pictures.Skin = reader.Text();
    record.Pictures.Stamp = reader.LongNumber();
    ForEachSize(record, [&reader](TwipsSize& size, const Range<int>& range) {
        size.Width = reader.Number(range);
        size.Height = reader.Number(range);
    });
    ForEachFlag(record, [&reader](bool& flag) { flag = reader.Number(range::kSwitch) != 0; });
    reader.List(record.Catalogue, [&] { return ReadCategory(reader, appPath); });
    if (!reader.Ok() || !reader.Rest().isEmpty())
        return std::nullopt;
    return record;
}

std::optional<CacheRecord> LoadCache(const QString& path, const QString& productVersion,
                                     const QString& appPath) {
    const auto bytes = ReadFileBytes(path, kMaxCacheFile);
    if (!bytes)
        return std::nullopt;
    return DecodeCache(*bytes, productVersion, appPath);
}

FileResult SaveCache(const QString& path, const CacheRecord& record) {
    return ReplaceFile(path, EncodeCache(record));
}

} // namespace paneda
