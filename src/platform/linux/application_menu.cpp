#include "platform/linux/application_menu.h"

#include "core/store/names.h"
#include "platform/linux/desktop_entry.h"

#include <QSet>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

constexpr int kMaxEntries = 10000;
constexpr int kMaxDepth = 4; // of folders in `applications`

// The main categories that are registered for desktop entries, and older names of some.
constexpr std::pair<QStringView, QStringView> kCategories[] = {
    {u"Network", u"Internet"},        {u"Office", u"Office"},
    {u"Graphics", u"Graphics"},       {u"AudioVideo", u"Multimedia"},
    {u"Audio", u"Multimedia"},        {u"Video", u"Multimedia"},
    {u"Development", u"Programming"}, {u"Education", u"Education"},
    {u"Science", u"Science"},         {u"Game", u"Games"},
    {u"Settings", u"Settings"},       {u"System", u"System"},
    {u"Utility", u"Accessories"},
};

struct EntryFile {
    QString Id; // path below `applications`, with "-" for "/"
    QString Path;
};

void FindEntries(const QString& folder, const QString& idBegin, int depth, std::vector<EntryFile>& found) {
    for (const SourceItem& item : ListItems(folder).value_or(std::vector<SourceItem>())) {
        if (int(found.size()) == kMaxEntries)
            return;
        if (item.IsFolder && depth < kMaxDepth)
            FindEntries(item.Path, idBegin + item.Name + u'-', depth + 1, found);
        else if (!item.IsFolder && item.Name.endsWith(QStringLiteral(".desktop")))
            found.push_back({idBegin + item.Name, item.Path});
    }
}

bool HasOneOf(const QStringList& list, const QStringList& names) {
    return std::any_of(names.begin(), names.end(),
                       [&list](const QString& name) { return list.contains(name); });
}

bool IsShown(const DesktopEntry& entry, const QStringList& desktop) {
    if (entry.Type != u"Application" || entry.Title.isEmpty() || entry.NoDisplay || entry.Hidden)
        return false;
    if (!entry.OnlyShowIn.isEmpty() && !HasOneOf(entry.OnlyShowIn, desktop))
        return false;
    if (HasOneOf(entry.NotShowIn, desktop))
        return false;
    return entry.TryExec.isEmpty() || !QStandardPaths::findExecutable(entry.TryExec).isEmpty();
}

QStringList FoldersIn(const char* variable, const QString& fallback) {
    QStringList folders;
    for (const QString& folder : qEnvironmentVariable(variable).split(u':', Qt::SkipEmptyParts)) {
        // A relative folder is to be ignored.
        if (folder.startsWith(u'/'))
            folders.append(folder);
    }
    return folders.isEmpty() ? fallback.split(u':') : folders;
}

} // namespace

MenuFolders MenuFolders::OfSession() {
    return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
            FoldersIn("XDG_DATA_DIRS", QStringLiteral("/usr/local/share:/usr/share")),
            qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts), EntryLanguages()};
}

std::vector<MenuApplication> ReadApplications(const MenuFolders& folders) {
    std::vector<MenuApplication> applications;
    QSet<QString> seen;
    for (const QString& data : QStringList(folders.User) + folders.Public) {
        std::vector<EntryFile> files;
        FindEntries(data + QStringLiteral("/applications"), {}, 0, files);
        for (const EntryFile& file : files) {
            if (seen.contains(file.Id))
                continue;
            seen.insert(file.Id);
            const DesktopEntry entry = ReadDesktopEntry(file.Path, folders.Languages);
            if (IsShown(entry, folders.Desktop))
                applications.push_back(
                    {entry.Title, MenuCategory(entry.Categories), file.Path, data == folders.User});
        }
    }
    return applications;
}

QString MenuCategory(const QStringList& categories) {
    for (const QString& category : categories) {
        for (const auto& [name, folder] : kCategories) {
            if (category == name)
                return folder.toString();
        }
    }
    return QStringLiteral("Other");
}

QString TitleAsName(const QString& title) {
    QString name = SafeFileName(title.simplified());
    return name.replace(u'[', u'(').replace(u']', u')');
}

} // namespace paneda
