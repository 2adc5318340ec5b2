#include "skin/skin_folder.h"

#include "core/files/file_io.h"
#include "core/store/names.h"
#include "core/text/checksum.h"
#include "core/text/text_rules.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace paneda {

namespace {

bool IsPlainFolderName(const QString& name) {
    static const QString kForbidden = QStringLiteral("/\\:");
    return !TrimBlanks(name).isEmpty() && name != u"." && name != u".." &&
           std::none_of(name.begin(), name.end(),
                        [](QChar c) { return c.isNull() || kForbidden.contains(c); });
}

} // namespace

QString SkinError::Text() const {
    const QString begin = QStringLiteral("The skin \"%1\" cannot be used. ").arg(Skin);
    if (Key.isEmpty())
        return begin + File + QStringLiteral(": ") + Reason;
    return begin +
           QStringLiteral("The key \"%1\" in section [Buttons] of %2 is missing or empty.").arg(Key, File);
}

tl::expected<QString, SkinError> FindSkinFolder(const QString& appFolder, const QString& skinName) {
    const QString skins = FindEntry(appFolder, QStringLiteral("skin"));
    if (!IsPlainFolderName(skinName))
        return tl::make_unexpected(
            SkinFileError(skinName, skins, QStringLiteral("This is not the name of a skin's folder.")));
    const QString folder = FindEntry(skins, skinName);
    const EntryKind kind = LookAt(DiskPath::Below(skins, folder)).Kind;
    if (kind == EntryKind::Link)
        return tl::make_unexpected(
            SkinFileError(skinName, folder,
                          QStringLiteral("This is a link. Links in the folder of skins are not followed.")));
    if (kind != EntryKind::Folder)
        return tl::make_unexpected(
            SkinFileError(skinName, folder, QStringLiteral("The folder does not exist.")));
    return folder + u'/';
}

quint64 SkinStamp(const QString& skinPath) {
    QByteArray files;
    for (const QString& name : ListFiles(skinPath)) {
        if (!IsImageExtension(ExtensionOf(name)) && !SameName(name, u"skin.ini"))
            continue;
        const QFileInfo file(skinPath + u'/' + name);
        files += name.toUtf8() + '\n' + QByteArray::number(file.size()) + ' ' +
                 QByteArray::number(file.lastModified().toMSecsSinceEpoch()) + '\n';
    }
    return files.isEmpty() ? 0 : Fnv1a64OfWords(files);
}

SkinError SkinFileError(const QString& skin, const QString& file, const QString& reason) {
    return {skin, QDir::toNativeSeparators(file), {}, reason};
}

} // namespace paneda
