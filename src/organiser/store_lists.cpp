#include "organiser/store_lists.h"

#include "core/files/file_io.h"
#include "core/store/catalogue_loader.h"
#include "core/store/entries.h"
#include "core/store/names.h"
#include "organiser/file_kinds.h"

namespace paneda {

namespace {

template <class Entry, class Text>
QStringList Texts(const std::vector<Entry>& entries, const Text& textOf) {
    QStringList texts;
    for (const Entry& entry : entries)
        texts.append(textOf(entry));
    return texts;
}

} // namespace

StoreFolder FolderOfName(const QString& folderName) {
    return {folderName, folderName.startsWith(u'[') ? TitleBehindPrefix(folderName) : folderName};
}

StoreButton ButtonOfName(const QString& fileName) {
    const QString titleExt = StripOrderPrefix(fileName);
    return {fileName, titleExt, WithoutExtension(titleExt), ExtensionOf(titleExt)};
}

std::vector<StoreFolder> ReadFolders(const DiskPath& folder) {
    std::vector<StoreFolder> folders;
    for (const QString& name : ListFolders(folder))
        AppendEntry(folders, FolderOfName(name));
    SortEntries(folders, {&StoreFolder::FolderName}, SortOrder::Ascending);
    return folders;
}

std::vector<StoreButton> ReadButtons(const DiskPath& group) {
    std::vector<StoreButton> buttons;
    for (const QString& name : ListFiles(group)) {
        if (IsButtonFile(name))
            AppendEntry(buttons, ButtonOfName(name));
    }
    SortEntries(buttons, {&StoreButton::FileName}, SortOrder::Ascending);
    return buttons;
}

QString ListTitle(const QString& titleExt) {
    return KindOfFile(titleExt) == FileKind::Shortcut ? WithoutExtension(titleExt) : titleExt;
}

QStringList TitlesOf(const std::vector<StoreFolder>& folders) {
    return Texts(folders, [](const StoreFolder& folder) { return folder.Title; });
}

QStringList TitlesOf(const std::vector<StoreButton>& buttons) {
    return Texts(buttons, [](const StoreButton& button) { return ListTitle(button.TitleExt); });
}

QStringList TitlesWithExtension(const std::vector<StoreButton>& buttons) {
    return Texts(buttons, [](const StoreButton& button) { return button.TitleExt; });
}

} // namespace paneda
