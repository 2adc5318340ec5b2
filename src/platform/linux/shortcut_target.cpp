#include "platform/linux/shortcut_target.h"

#include "core/files/web_addresses.h"
#include "core/text/text_rules.h"
#include "platform/linux/host_target.h"

#include <QDir>
#include <QFileInfo>

namespace paneda {

namespace {

bool HasDrive(const QString& path) {
    return path.size() > 2 && path[0].isLetter() && path[1] == u':' && path[2] == u'\\';
}

// The name between the first two percent signs; empty for a path without one.
QString VariableIn(const QString& path) {
    const qsizetype begin = path.indexOf(u'%') + 1;
    const qsizetype end = path.indexOf(u'%', begin);
    return begin > 0 && end > begin ? path.sliced(begin, end - begin) : QString();
}

// The host path of a path that is relative to the shortcut's folder.
QString Beside(const QString& file, const QString& relative) {
    return QDir::cleanPath(QFileInfo(file).absolutePath() + u'/' + QString(relative).replace(u'\\', u'/'));
}

QString WhyMissing(const QString& file, const ShellLink& link, const LaunchPaths& paths) {
    const QString target =
        IfEmpty(IfEmpty(IfEmpty(link.LocalPath, link.EnvironmentPath), link.NetworkPath), link.RelativePath);
    if (target.isEmpty())
        return QStringLiteral("The shortcut points to something within Windows that is no file. Remove the "
                              "button, or put a file of this computer in its place.");
    const QString points = QStringLiteral("The shortcut points to \"") + target + QStringLiteral("\", ");
    const QString variable = link.LocalPath.isEmpty() ? VariableIn(target) : QString();
    if (!variable.isEmpty())
        return points + QStringLiteral("and Windows alone knows where \"%") + variable +
               QStringLiteral("%\" is. Put a shortcut with a full path in its place.");
    if (target.startsWith(u"\\\\"))
        return points + QStringLiteral("which lies on the network. Make a button for the place where this "
                                       "computer has it.");
    if (HasDrive(target) && paths.Drives.RootOf(target[0]).isEmpty())
        return points + QStringLiteral("and there is no drive ") + target[0] +
               QStringLiteral(": here. Connect it and try again.");
    const QString host = HasDrive(target) ? paths.Drives.ToHost(target, paths.AppPath) : Beside(file, target);
    return points + QStringLiteral("and \"") + host +
           QStringLiteral("\" is not there. Put the file there, or make a button for one that is here.");
}

// A record without a start folder asks for the folder of its target. For a shortcut that would be the wrong
// one.
QString StartFolder(const ShortcutTarget& target, const LaunchRequest& request, const QString& file,
                    const LaunchPaths& paths) {
    const QString startIn = FindAbsolute(target.Link.WorkingFolder, paths);
    if (QFileInfo(startIn).isDir())
        return startIn;
    const QString asked = ExistingFolder(request.StartIn, paths, {});
    return asked.isEmpty() || QDir(asked) == QFileInfo(file).absoluteDir() ? QString() : asked;
}

LaunchRequest Behind(const ShortcutTarget& target, const LaunchRequest& request, const QString& file,
                     const LaunchPaths& paths) {
    const QString& arguments = target.Link.Arguments;
    const bool both = !arguments.isEmpty() && !request.Parameter.isEmpty();
    LaunchRequest next = request;
    next.Target = target.Path;
    next.Parameter = arguments + (both ? QStringLiteral(" ") : QString()) + request.Parameter;
    next.StartIn = StartFolder(target, request, file, paths);
    if (next.Show == ShowCommand::Normal)
        next.Show = target.Link.Show;
    return next;
}

} // namespace

QString FindAbsolute(const QString& windowsPath, const LaunchPaths& paths) {
    const bool isAbsolute = HasDrive(windowsPath) || windowsPath.startsWith(u"\\\\");
    return isAbsolute ? FindTarget(windowsPath, paths) : QString();
}

tl::expected<ShortcutTarget, FileError> ResolveShortcut(const QString& file, const LaunchPaths& paths) {
    const auto link = ReadShellLink(file);
    if (!link)
        return tl::make_unexpected(link.error());
    for (const QString& path : {link->LocalPath, link->EnvironmentPath, link->NetworkPath}) {
        const QString found = FindAbsolute(path, paths);
        if (!found.isEmpty())
            return ShortcutTarget{found, *link};
    }
    if (!link->RelativePath.isEmpty()) {
        const QString found = FindTarget(Beside(file, link->RelativePath), paths);
        if (!found.isEmpty())
            return ShortcutTarget{found, *link};
    }
    return Failure(file, WhyMissing(file, *link, paths));
}

tl::expected<LaunchRequest, FileError> FollowShortcuts(LaunchRequest request, const LaunchPaths& paths) {
    if (IsAddress(request.Target))
        return request;
    for (int i = 0; i < kMaxShortcutsInARow; ++i) {
        const QString file = FindTarget(request.Target, paths);
        if (KindOf(file) != TargetKind::Shortcut)
            return request;
        const auto target = ResolveShortcut(file, paths);
        if (!target)
            return tl::make_unexpected(target.error());
        request = Behind(*target, request, file, paths);
    }
    return Failure(request.Target, QStringLiteral("The shortcut leads from one shortcut to the next without "
                                                  "an end. Put one that points to a file in its place."));
}

} // namespace paneda
