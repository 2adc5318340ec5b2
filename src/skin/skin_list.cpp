#include "skin/skin_list.h"

#include "core/files/file_io.h"

namespace paneda {

DiskPath SkinsFolder(const QString& appFolder) {
    const QString skins = FindEntry(appFolder, QStringLiteral("skin"));
    return DiskPath::Below(skins, skins);
}

DiskPath SkinFolderOf(const QString& appFolder, const QString& skinName) {
    return FindEntry(SkinsFolder(appFolder), skinName);
}

bool IsSkin(const DiskPath& folder) {
    for (const QString& name : {QStringLiteral("bottom.png"), QStringLiteral("bottom.jpg")}) {
        if (LookAt(FindEntry(folder, name)).Kind == EntryKind::File)
            return true;
    }
    return false;
}

QStringList ListSkins(const QString& appFolder) {
    const DiskPath skins = SkinsFolder(appFolder);
    QStringList names = ListFolders(skins);
    names.removeIf([&skins](const QString& name) { return !IsSkin(skins / name); });
    return names;
}

bool IsOptionName(const QString& folderName) {
    return !folderName.toUpper().startsWith(u"[HIDDEN]");
}

QStringList ListSkinOptions(const DiskPath& skin) {
    QStringList names = ListFolders(skin);
    names.removeIf([](const QString& name) { return !IsOptionName(name); });
    return names;
}

} // namespace paneda
