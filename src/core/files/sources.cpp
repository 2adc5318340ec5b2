#include "core/files/sources.h"

namespace paneda {

tl::expected<std::vector<SourceItem>, FileError> ListItems(const QString& folder) {
    const auto entries = ListEntries(folder);
    if (!entries)
        return tl::make_unexpected(entries.error().Error);
    const QString begin = folder.endsWith(u'/') ? folder : QString(folder + u'/');
    std::vector<SourceItem> items;
    for (const DiskEntry& entry : *entries) {
        const bool isFolder = entry.Kind == EntryKind::Folder;
        if (IsListed(entry) && (isFolder || entry.Kind == EntryKind::File))
            items.push_back({entry.Name, isFolder, begin + entry.Name});
    }
    return items;
}

} // namespace paneda
