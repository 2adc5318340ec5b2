#include "platform/linux/theme_icons.h"

#include "core/files/web_addresses.h"
#include "platform/icon_sizing.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/foreign_icon.h"
#include "platform/linux/host_target.h"
#include "platform/linux/shortcut_target.h"

#include <QFileInfo>
#include <QMimeDatabase>
#include <QPixmap>

#include <algorithm>

namespace paneda {

namespace {

// How an icon is looked for.
struct Wanted {
    const LaunchPaths& Paths;
    int Pixels;
    ThemeNames& Theme;
    int ShortcutsSoFar = 0;
};

QIcon PictureIcon(const QString& file, const Wanted& wanted) {
    const LaunchPaths& paths = wanted.Paths;
    return ForeignIcon(file, wanted.Pixels, paths.Drives.ToHost(paths.AppPath, paths.AppPath));
}

QIcon EntryIcon(const QString& file, const Wanted& wanted) {
    const QString name = ReadDesktopEntry(file).Icon;
    const QIcon picture = name.startsWith(u'/') ? PictureIcon(name, wanted) : QIcon();
    if (!picture.isNull())
        return picture;
    // A name with separators would lead out of the theme's folders.
    return wanted.Theme.FirstOf({name.contains(u'/') ? QString() : name, QFileInfo(name).completeBaseName(),
                                 QStringLiteral("application-x-executable")});
}

QIcon MimeIcon(const QString& file, ThemeNames& theme) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension);
    return theme.FirstOf({type.iconName(), type.genericIconName(), QStringLiteral("text-x-generic")});
}

QIcon ProgramIcon(const QString& file, ThemeNames& theme) {
    return theme.FirstOf({QFileInfo(file).completeBaseName(), QStringLiteral("application-x-executable"),
                          QStringLiteral("system-run")});
}

QIcon AddressIcon(ThemeNames& theme) {
    return theme.FirstOf(
        {QStringLiteral("text-html"), QStringLiteral("web-browser"), QStringLiteral("emblem-web")});
}

QIcon IconFor(const QString& text, const Wanted& wanted);

// The picture that a shortcut names, if it exists here and can be read, else the icon of its target. Icons
// inside Windows programs cannot be read.
QIcon ShortcutIcon(const QString& file, const Wanted& wanted) {
    const auto link = ReadShellLink(file);
    const QString path = link ? FindAbsolute(link->IconLocation, wanted.Paths) : QString();
    const QIcon picture = path.isEmpty() ? QIcon() : PictureIcon(path, wanted);
    if (!picture.isNull())
        return picture;
    const auto target = ResolveShortcut(file, wanted.Paths);
    if (!target || wanted.ShortcutsSoFar == kMaxShortcutsInARow)
        return {};
    return IconFor(target->Path, {wanted.Paths, wanted.Pixels, wanted.Theme, wanted.ShortcutsSoFar + 1});
}

QIcon IconFor(const QString& text, const Wanted& wanted) {
    if (IsAddress(text))
        return AddressIcon(wanted.Theme);
    const QString target = FindTarget(text, wanted.Paths);
    switch (KindOf(target)) {
    case TargetKind::Missing:
        return {};
    case TargetKind::Folder:
        return wanted.Theme.FirstOf(
            {target == u"/" ? QStringLiteral("drive-harddisk") : QStringLiteral("folder"),
             QStringLiteral("folder"), QStringLiteral("inode-directory")});
    case TargetKind::DesktopFile:
        return EntryIcon(target, wanted);
    case TargetKind::InternetShortcut:
        return AddressIcon(wanted.Theme);
    case TargetKind::Shortcut:
        return ShortcutIcon(target, wanted);
    case TargetKind::Program:
    case TargetKind::ShellScript:
        return ProgramIcon(target, wanted.Theme);
    case TargetKind::Document:
        return MimeIcon(target, wanted.Theme);
    }
    return {};
}

// The smallest picture of the icon that is at least this size, else its largest one.
QImage PictureIn(const QIcon& icon, int pixels) {
    QImage picture;
    for (int wanted = pixels; wanted <= 4 * pixels; wanted *= 2) {
        picture = icon.pixmap(QSize(wanted, wanted), 1.0).toImage();
        if (std::max(picture.width(), picture.height()) >= pixels)
            break;
    }
    return picture;
}

} // namespace

QImage ThemeIcons::IconOf(const QString& target, const LaunchPaths& paths, const IconSize& size) {
    const QIcon icon = IconFor(target, {paths, size.OnScreen(), names_});
    return icon.isNull() ? QImage() : SizedIcon(PictureIn(icon, size.OnScreen()), size);
}

QString ThemeIcons::TypeNameOf(const QString& fileName) {
    return QMimeDatabase().mimeTypeForFile(fileName, QMimeDatabase::MatchExtension).comment();
}

} // namespace paneda
