#include "platform/linux/bookmarks.h"

#include "core/files/file_io.h"
#include "platform/linux/application_menu.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <QXmlStreamReader>

#include <algorithm>

namespace paneda {

namespace {

constexpr qint64 kMaxBookmarkFile = 1024 * 1024; // bytes

void AddBookmark(std::vector<Bookmark>& bookmarks, const QString& address, const QString& title) {
    const QUrl url(address);
    // Folders of other machines have no path here.
    if (!url.isLocalFile() || !url.host().isEmpty())
        return;
    QString folder = url.toLocalFile();
    while (folder.size() > 1 && folder.endsWith(u'/'))
        folder.chop(1);
    const QString name = TitleAsName(title.isEmpty() ? folder.section(u'/', -1) : title);
    // A backslash cannot be told from a separator in a record.
    if (folder.startsWith(u'/') && !folder.contains(u'\\') && !name.isEmpty())
        bookmarks.push_back({name, folder});
}

bool HasFolder(const std::vector<Bookmark>& bookmarks, const QString& folder) {
    return std::any_of(bookmarks.begin(), bookmarks.end(),
                       [&folder](const Bookmark& bookmark) { return bookmark.Folder == folder; });
}

QString FreeTitle(const std::vector<Bookmark>& bookmarks, const QString& title) {
    QString result = title;
    const auto isTaken = [&](const Bookmark& bookmark) { return bookmark.Title == result; };
    for (int number = 2; std::any_of(bookmarks.begin(), bookmarks.end(), isTaken); ++number)
        result = title + QStringLiteral(" (%1)").arg(number);
    return result;
}

} // namespace

std::vector<Bookmark> ParseLineBookmarks(const QByteArray& bytes) {
    std::vector<Bookmark> bookmarks;
    for (const QByteArray& line : bytes.split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        AddBookmark(bookmarks, text.section(u' ', 0, 0), text.section(u' ', 1).trimmed());
    }
    return bookmarks;
}

std::vector<Bookmark> ParseXbelBookmarks(const QByteArray& bytes) {
    std::vector<Bookmark> bookmarks;
    QXmlStreamReader xml(bytes);
    QString address;
    QString title;
    bool isOwn = true;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"bookmark") {
            address = xml.attributes().value(QStringLiteral("href")).toString();
            title.clear();
            isOwn = true;
        } else if (xml.isStartElement() && xml.name() == u"title" && title.isEmpty()) {
            title = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else if (xml.isStartElement() && (xml.name() == u"isSystemItem" || xml.name() == u"IsHidden")) {
            isOwn = isOwn && xml.readElementText(QXmlStreamReader::SkipChildElements) != u"true";
        } else if (xml.isEndElement() && xml.name() == u"bookmark" && isOwn) {
            AddBookmark(bookmarks, address, title);
        }
    }
    return bookmarks;
}

std::vector<Bookmark> ReadBookmarks() {
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const auto bytesOf = [](const QString& file) {
        return ReadFileBytes(file, kMaxBookmarkFile).value_or(QByteArray());
    };
    std::vector<Bookmark> all = ParseLineBookmarks(bytesOf(config + QStringLiteral("/gtk-3.0/bookmarks")));
    for (Bookmark& bookmark : ParseXbelBookmarks(bytesOf(data + QStringLiteral("/user-places.xbel"))))
        all.push_back(std::move(bookmark));
    std::vector<Bookmark> result;
    for (Bookmark& bookmark : all) {
        if (HasFolder(result, bookmark.Folder) || !QFileInfo(bookmark.Folder).isDir())
            continue;
        bookmark.Title = FreeTitle(result, bookmark.Title);
        result.push_back(std::move(bookmark));
    }
    return result;
}

} // namespace paneda
