#include "core/store/catalogue_loader.h"

#include "core/files/ini_file.h"
#include "core/store/entries.h"
#include "core/store/names.h"
#include "core/store/store_layout.h"
#include "core/text/checksum.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr int kPrefixLength = 6; // "[NNN] "

// Numbers of controls, counted over one whole scan.
struct ControlCounts {
    int Groups = 0;
    int Buttons = 0;
};

void LoadButtons(GroupEntry& group, const QString& hostFolder, const QString& storedFolder,
                 ControlCounts& counts) {
    QByteArray pictures;
    for (const QString& file : ListFiles(hostFolder)) {
        if (IsButtonFile(file))
            AppendEntry(group.Buttons, FileButton(storedFolder, file, ++counts.Buttons));
        else if (IsImageExtension(ExtensionOf(file)))
            pictures += file.toUtf8() + '\n';
    }
    SortEntries(group.Buttons, {&ButtonEntry::Name}, SortOrder::Ascending);
    if (!pictures.isEmpty())
        group.PictureNames = Fnv1a64OfWords(pictures);
}

std::vector<GroupEntry> LoadGroups(const QString& hostFolder, const QString& storedFolder,
                                   ControlCounts& counts) {
    std::vector<GroupEntry> groups;
    for (const QString& name : ListFolders(hostFolder))
        AppendEntry(groups, {name, {}, ++counts.Groups});
    SortEntries(groups, {&GroupEntry::FolderName}, SortOrder::Ascending);
    for (GroupEntry& group : groups)
        LoadButtons(group, hostFolder + u'/' + group.FolderName, storedFolder + u'\\' + group.FolderName,
                    counts);
    return groups;
}

void AddDrives(CategoryEntry& category, const ScanOptions& options, ControlCounts& counts) {
    const bool anyDrive = std::any_of(options.DriveTable.begin() + 1, options.DriveTable.end(),
                                      [](bool shown) { return shown; });
    if (!anyDrive && !options.DriveOfProgram)
        return;
    GroupEntry group{QStringLiteral("My Computer"), {}, ++counts.Groups};
    for (std::size_t i = 1; i < options.DriveTable.size(); ++i) {
        if (options.DriveTable[i])
            AppendEntry(group.Buttons, DriveButton(QChar(char16_t(u'A' + i - 1)), ++counts.Buttons));
    }
    if (options.DriveOfProgram)
        AppendEntry(group.Buttons, DriveButton(u'9', ++counts.Buttons));
    AppendEntry(category.Groups, group);
}

void MarkTreeCategories(CatalogueList& catalogue, const QString& appFolder) {
    int treeCount = 0;
    for (CategoryEntry& category : catalogue) {
        category.Kind = QStringLiteral("S");
        if (!IsTreeCategoryName(category.FolderName))
            continue;
        category.Kind = QStringLiteral("T");
        category.TreeNumber = treeCount++;
        category.TreeName = ReadIni(QStringLiteral("Properties"), QStringLiteral("Category"),
                                    CategoryIniFile(appFolder, category.FolderName));
    }
}

} // namespace

bool IsButtonFile(const QString& fileName) {
    return !IsImageExtension(ExtensionOf(fileName));
}

bool IsTreeCategoryName(const QString& folderName) {
    return folderName.mid(kPrefixLength) == u"Dynamic Category";
}

CatalogueList LoadCatalogue(const ScanOptions& options) {
    const QString setting = SettingFolder(options.AppFolder);
    CatalogueList catalogue;
    for (const QString& name : ListFolders(setting))
        AppendEntry(catalogue, {name, {}, {}, std::nullopt, {}});
    SortEntries(catalogue, {&CategoryEntry::FolderName}, SortOrder::Ascending);
    ControlCounts counts;
    for (CategoryEntry& category : catalogue)
        category.Groups = LoadGroups(
            setting + u'/' + category.FolderName,
            StoredPath(options.AppPath, QStringLiteral("Setting\\") + category.FolderName), counts);
    if (!catalogue.empty())
        AddDrives(catalogue.front(), options, counts);
    MarkTreeCategories(catalogue, options.AppFolder);
    return catalogue;
}

} // namespace paneda
