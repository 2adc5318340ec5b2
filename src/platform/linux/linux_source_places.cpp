#include "platform/linux/linux_source_places.h"

#include "core/store/names.h"
#include "core/text/text_rules.h"
#include "platform/linux/application_menu.h"
#include "platform/linux/bookmarks.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/volume_space.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace paneda {

namespace {

const QString kEntryExtension = QStringLiteral(".desktop");

// A desktop entry gets the name that it has on the desktop. Without a title it keeps its own.
void TakeTitle(SourceItem& item, const QStringList& languages) {
    if (item.IsFolder || !item.Name.endsWith(kEntryExtension))
        return;
    const QString name = TitleAsName(ReadDesktopEntry(item.Path, languages).Title);
    if (!name.isEmpty())
        item.Name = name + kEntryExtension;
}

// A folder of the disk, as what the user has.
SourceListing ListFolder(const QString& folder) {
    SourceListing listing;
    auto items = ListItems(folder);
    if (!items) {
        listing.Problem = QFileInfo::exists(folder) ? items.error().Text() : QString();
        return listing;
    }
    const QStringList languages = EntryLanguages();
    for (SourceItem& item : *items)
        TakeTitle(item, languages);
    listing.User = std::move(*items);
    return listing;
}

QString Below(const QString& root, const QString& folder) {
    QString names = folder;
    names.replace(u'\\', u'/');
    if (names.endsWith(u'/'))
        names.chop(1);
    return names.isEmpty() ? root : root + u'/' + names;
}

void AddFolder(std::vector<SourceItem>& items, const QString& name) {
    const SourceItem folder{name, true};
    if (std::find(items.begin(), items.end(), folder) == items.end())
        items.push_back(folder);
}

SourceListing ListMenu(const QString& folder) {
    SourceListing listing;
    for (const MenuApplication& application : ReadApplications(MenuFolders::OfSession())) {
        auto& half = application.IsUsers ? listing.User : listing.Public;
        const QString name = TitleAsName(application.Title);
        if (folder.isEmpty())
            AddFolder(half, application.Category);
        else if (folder == application.Category + u'\\' && !name.isEmpty())
            half.push_back({name + kEntryExtension, false, application.Path});
    }
    return listing;
}

bool IsLink(const SourceItem& item) {
    return item.IsFolder || item.Name.endsWith(kEntryExtension) || SameName(ExtensionOf(item.Name), u"url");
}

SourceListing ListFavorites(const QString& folder) {
    const std::vector<Bookmark> bookmarks = ReadBookmarks();
    const QString first = folder.section(u'\\', 0, 0);
    const auto marked = std::find_if(bookmarks.begin(), bookmarks.end(),
                                     [&first](const Bookmark& bookmark) { return bookmark.Title == first; });
    if (marked != bookmarks.end() && !folder.isEmpty()) {
        const QString path = Below(marked->Folder, folder.section(u'\\', 1));
        SourceListing listing = ListFolder(path);
        listing.Folder = path;
        return listing;
    }
    SourceListing listing =
        ListFolder(Below(FindEntry(QDir::homePath(), QStringLiteral("Favorites")), folder));
    std::erase_if(listing.User, [](const SourceItem& item) { return !IsLink(item); });
    if (folder.isEmpty()) {
        for (const Bookmark& bookmark : bookmarks) {
            std::erase_if(listing.User, [&bookmark](const SourceItem& item) {
                return item.IsFolder && item.Name == bookmark.Title;
            });
            listing.User.push_back({bookmark.Title, true, bookmark.Folder});
        }
    }
    return listing;
}

} // namespace

SourceListing LinuxSourcePlaces::List(Source source, const QString& folder) const {
    switch (source) {
    case Source::Desktop:
        return ListFolder(Below(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation), folder));
    case Source::StartMenu:
        return ListMenu(folder);
    case Source::Favorites:
        return ListFavorites(folder);
    case Source::MyComputer:
        break;
    }
    SourceListing listing = ListFolder(folder);
    listing.Folder = folder;
    return listing;
}

bool LinuxSourcePlaces::HasMedium(const QString& root) const {
    return AskVolumeSpace(root).TotalBytes > 0;
}

SourceItem LinuxSourcePlaces::ItemOf(const QString& path) const {
    const QFileInfo file(path);
    SourceItem item{file.fileName(), file.isDir(), path};
    TakeTitle(item, EntryLanguages());
    return item;
}

} // namespace paneda
