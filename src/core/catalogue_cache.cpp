#include "core/catalogue_cache.h"

#include "core/checksum.h"
#include "core/store_layout.h"

#include <QDataStream>
#include <QIODevice>

namespace paneda {

namespace {

constexpr quint64 kMark = 0x50616E65'64614331; // "PanedaC1"
constexpr qint64 kMaxCacheFile = 256 * 1024 * 1024;

QDataStream& operator<<(QDataStream& stream, const TwipsSize& size) {
    return stream << qint32(size.Width) << qint32(size.Height);
}

QDataStream& operator>>(QDataStream& stream, TwipsSize& size) {
    qint32 width = 0;
    qint32 height = 0;
    stream >> width >> height;
    size = {width, height};
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const ButtonEntry& button) {
    const QString fileName = button.Path.sliced(button.Path.lastIndexOf(u'\\') + 1);
    return stream << fileName << button.Name << button.Spare << qint32(button.ControlIndex) << button.Style;
}

QDataStream& operator>>(QDataStream& stream, ButtonEntry& button) {
    qint32 index = 0;
    stream >> button.Path >> button.Name >> button.Spare >> index >> button.Style;
    button.ControlIndex = index;
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const GroupEntry& group);
QDataStream& operator>>(QDataStream& stream, GroupEntry& group);
QDataStream& operator<<(QDataStream& stream, const CategoryEntry& category);
QDataStream& operator>>(QDataStream& stream, CategoryEntry& category);

template <class Entry>
void WriteList(QDataStream& stream, const std::vector<Entry>& list) {
    stream << quint32(list.size());
    for (const Entry& entry : list)
        stream << entry;
}

// Stops at the first entry that the data does not hold, whatever number of entries it claims.
template <class Entry>
void ReadList(QDataStream& stream, std::vector<Entry>& list) {
    quint32 count = 0;
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i)
        stream >> list.emplace_back();
}

QDataStream& operator<<(QDataStream& stream, const GroupEntry& group) {
    stream << group.FolderName << qint32(group.ControlIndex);
    WriteList(stream, group.Buttons);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, GroupEntry& group) {
    qint32 index = 0;
    stream >> group.FolderName >> index;
    group.ControlIndex = index;
    ReadList(stream, group.Buttons);
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const CategoryEntry& category) {
    stream << category.FolderName << category.Kind << qint32(category.TreeNumber.value_or(-1))
           << category.TreeName;
    WriteList(stream, category.Groups);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CategoryEntry& category) {
    qint32 treeNumber = -1;
    stream >> category.FolderName >> category.Kind >> treeNumber >> category.TreeName;
    if (treeNumber >= 0)
        category.TreeNumber = treeNumber;
    ReadList(stream, category.Groups);
    return stream;
}

QByteArray EncodeContents(const CacheRecord& record) {
    QByteArray contents;
    QDataStream stream(&contents, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << record.GroupHeight << record.CategoryWallpaper << record.Bottom << record.Top << record.Left
           << record.Right << record.TopLeft << record.TopRight << record.BottomLeft << record.BottomRight
           << record.HasDriveButtons;
    WriteList(stream, record.Catalogue);
    return contents;
}

void RestorePaths(CatalogueList& catalogue, const QString& appPath) {
    for (CategoryEntry& category : catalogue) {
        const QString categoryPath =
            StoredPath(appPath, QStringLiteral("Setting\\") + category.FolderName) + u'\\';
        for (GroupEntry& group : category.Groups) {
            const QString groupPath = categoryPath + group.FolderName + u'\\';
            for (ButtonEntry& button : group.Buttons) {
                if (button.Spare.isEmpty())
                    button.Path.prepend(groupPath);
            }
        }
    }
}

} // namespace

QByteArray EncodeCache(const CacheRecord& record) {
    const QByteArray contents = EncodeContents(record);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << kMark << record.ProductVersion << Fnv1a32(contents);
    return bytes + contents;
}

std::optional<CacheRecord> DecodeCache(const QByteArray& bytes, const QString& productVersion,
                                       const QString& appPath) {
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_0);
    quint64 mark = 0;
    quint32 checksum = 0;
    CacheRecord record;
    stream >> mark;
    if (mark != kMark)
        return std::nullopt;
    stream >> record.ProductVersion >> checksum;
    if (stream.status() != QDataStream::Ok || record.ProductVersion != productVersion)
        return std::nullopt;
    if (Fnv1a32(QByteArrayView(bytes).sliced(stream.device()->pos())) != checksum)
        return std::nullopt;
    stream >> record.GroupHeight >> record.CategoryWallpaper >> record.Bottom >> record.Top >> record.Left >>
        record.Right >> record.TopLeft >> record.TopRight >> record.BottomLeft >> record.BottomRight >>
        record.HasDriveButtons;
    ReadList(stream, record.Catalogue);
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return std::nullopt;
    RestorePaths(record.Catalogue, appPath);
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
