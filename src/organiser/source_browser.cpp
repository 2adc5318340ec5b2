#include "organiser/source_browser.h"

#include "core/store/entries.h"
#include "core/store/names.h"
#include "organiser/file_kinds.h"
#include "organiser/store_lists.h"

#include <QSet>

namespace paneda {

namespace {

const QString kSeparator = QStringLiteral(" \\ ");

void AddHalf(std::vector<BrowserEntry>& list, const std::vector<SourceItem>& half, Source source,
             const DriveMap& drives, const QSet<QString>& taken) {
    for (const SourceItem& item : half) {
        const bool fits = source == Source::MyComputer || !item.Name.contains(u'?');
        BrowserEntry entry = MakeEntry(item, drives);
        if (fits && !taken.contains(entry.Shown))
            list.push_back(std::move(entry));
    }
}

} // namespace

QString FolderPath(const BrowserEntry& entry) {
    if (!entry.IsFolder() || entry.FullPath.isEmpty())
        return {};
    return entry.FullPath.endsWith(u'\\') ? entry.FullPath : entry.FullPath + u'\\';
}

BrowserEntry MakeEntry(const SourceItem& item, const DriveMap& drives) {
    BrowserEntry entry;
    entry.Name = item.Name;
    entry.Marker = item.IsFolder ? kFolderMarker : QString();
    entry.Shown = entry.Marker + item.Name;
    entry.SortKey = ((item.IsFolder ? QStringLiteral("!") : QString()) + item.Name).toUpper();
    entry.FullPath = item.Path.isEmpty() ? QString() : drives.ToStored(item.Path);
    return entry;
}

std::vector<BrowserEntry> DriveEntries(const DriveMap& drives,
                                       const std::function<bool(const QString& root)>& hasMedium) {
    std::vector<BrowserEntry> list;
    for (char16_t letter = u'C'; letter <= u'V'; ++letter) {
        const QString name = QString(QChar(letter)) + u':';
        const QString root = drives.RootOf(letter);
        if (root.isEmpty() || !hasMedium(root))
            continue;
        BrowserEntry entry{name, kFolderMarker, kFolderMarker + name, u'!' + name, name + u'\\'};
        if (!root.startsWith(letter))
            entry.Hint = root;
        list.push_back(std::move(entry));
    }
    return list;
}

std::vector<BrowserEntry> FolderEntries(const SourceListing& listing, Source source, const DriveMap& drives) {
    std::vector<BrowserEntry> list;
    AddHalf(list, listing.Public, source, drives, {});
    QSet<QString> taken;
    for (const BrowserEntry& entry : list)
        taken.insert(entry.Shown);
    AddHalf(list, listing.User, source, drives, taken);
    SortEntries(list, {&BrowserEntry::SortKey}, SortOrder::Ascending);
    return list;
}

QString FolderText(const QString& folder) {
    QString text = folder;
    if (text.endsWith(u'\\'))
        text.chop(1);
    return text.replace(QStringLiteral("\\"), kSeparator);
}

QString FolderToolTip(const QString& folder) {
    QString shown = folder;
    if (shown.endsWith(u'\\'))
        shown.chop(1);
    return QStringLiteral("[Current Folder] ") + shown + QStringLiteral(". Click here to change folder");
}

QString FolderAtCaret(const QString& text, int caret) {
    const qsizetype separator = text.indexOf(u'\\', caret);
    QString folder = separator < 0 ? text : text.first(separator);
    if (separator > 0 && folder.endsWith(u' '))
        folder.chop(1);
    folder.replace(kSeparator, QStringLiteral("\\"));
    return folder.isEmpty() ? QString() : folder + u'\\';
}

QString FolderAbove(const QString& folder) {
    const QString open = folder.first(std::max<qsizetype>(folder.lastIndexOf(u'\\'), 0));
    return open.first(open.lastIndexOf(u'\\') + 1);
}

QString FolderIn(const QString& folder, const QString& name) {
    return folder + name + u'\\';
}

SelectedSource LookAtSelected(const BrowserEntry* entry, bool canLinkFolder) {
    SelectedSource look;
    if (!entry || entry->IsFolder()) {
        if (canLinkFolder)
            look.Option = SourceOption::LinkFolder;
        return look;
    }
    look.TypeLabel = ListTitle(entry->Name);
    look.Option = UsualOption(entry->Name);
    const FileKind kind = KindOfFile(entry->Name);
    if (kind == FileKind::Shortcut)
        look.Label = QStringLiteral("Shortcut :");
    if (kind == FileKind::WebShortcut)
        look.Label = QStringLiteral("Url :");
    if (kind == FileKind::Picture) {
        look.Label = QStringLiteral("Pic Icon :");
        look.ToolTip = QStringLiteral("Use to associate button icon with picture");
        look.IsPicture = true;
    }
    return look;
}

SourceOption UsualOption(const QString& name) {
    const FileKind kind = KindOfFile(name);
    return kind == FileKind::Plain || kind == FileKind::Record ? SourceOption::LinkFile : SourceOption::Copy;
}

} // namespace paneda
