#include "platform/linux/start_plan.h"

#include "core/files/file_io.h"
#include "core/files/ini_file.h"
#include "core/files/web_addresses.h"
#include "core/store/names.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/host_target.h"
#include "platform/linux/shortcut_target.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace paneda {

namespace {

QString FirstInSearchPath(const QStringList& names) {
    for (const QString& name : names) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

// Nothing to start: why, for the user. `target` is empty where the reason says all.
StartPlan Unable(const QString& target, const QString& reason) {
    StartPlan plan;
    plan.Problem = target.isEmpty() ? reason : FileError{target, reason}.Text();
    return plan;
}

// `target` is an address or an absolute path, so that it cannot be an option of the opener.
StartPlan OpenByDesktop(const QString& target, const QString& folder) {
    const QString opener = FirstInSearchPath({QStringLiteral("xdg-open"), QStringLiteral("gio")});
    if (opener.isEmpty())
        return Unable(target, QStringLiteral("This system has no program that opens files and addresses for "
                                             "others. Install xdg-utils."));
    if (opener.endsWith(QStringLiteral("/gio")))
        return {opener, {QStringLiteral("open"), target}, folder};
    return {opener, {target}, folder};
}

// Terminals take a command as words, but most take one that is a single word for a line of a shell.
QStringList AsWords(const QStringList& command) {
    const auto isPlain = [](QChar c) {
        return (c.unicode() < 0x80 && c.isLetterOrNumber()) || QStringView(u"/._+-").contains(c);
    };
    if (command.size() > 1 || std::all_of(command[0].begin(), command[0].end(), isPlain))
        return command;
    return QStringList{QStringLiteral("/bin/sh"), QStringLiteral("-c"), QStringLiteral("exec \"$0\"")} +
           command;
}

StartPlan PlanInTerminal(const QStringList& command, const QString& folder) {
    const QString terminal =
        FirstInSearchPath({QStringLiteral("x-terminal-emulator"), QStringLiteral("xterm"),
                           QStringLiteral("konsole"), QStringLiteral("xfce4-terminal")});
    if (terminal.isEmpty())
        return Unable(command[0], QStringLiteral("It runs in a terminal, and none is installed here, such "
                                                 "as xterm."));
    // With -e this one takes all words for one line of a shell.
    const bool isXfce = terminal.endsWith(QStringLiteral("/xfce4-terminal"));
    return {terminal, QStringList(isXfce ? QStringLiteral("-x") : QStringLiteral("-e")) + AsWords(command),
            folder, true};
}

StartPlan PlanCommand(QStringList words, const QString& folder) {
    return {words.takeFirst(), words, folder, true};
}

// Splits a command line as Windows programs do, because records may come from Windows: quotes keep a word
// together, two quotes inside them are one, and a backslash is special only before a quote.
QStringList SplitParameter(const QString& line) {
    QStringList words;
    QString word;
    bool inWord = false;
    bool quoted = false;
    int slashes = 0;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (!quoted && c.isSpace()) {
            if (inWord)
                words.append(word);
            word.clear();
            inWord = false;
            slashes = 0;
            continue;
        }
        inWord = true;
        if (c == u'"') {
            // Each two backslashes before a quote become one; an odd one escapes the quote.
            word.chop((slashes + 1) / 2);
            const bool doubled = slashes % 2 == 0 && quoted && line.mid(i + 1, 1) == u"\"";
            if (slashes % 2 == 1 || doubled)
                word += c;
            else
                quoted = !quoted;
            i += doubled ? 1 : 0;
        } else {
            word += c;
        }
        slashes = c == u'\\' ? slashes + 1 : 0;
    }
    if (inWord)
        words.append(word);
    return words;
}

// A desktop entry may lead to places of the desktop too ("trash:///", "smb://server"), and to a path.
StartPlan PlanLink(const QString& target, const QString& file, const QString& folder) {
    if (target.startsWith(u'/'))
        return OpenByDesktop(target, folder);
    const auto address = AddressOfAnyScheme(target);
    return address ? OpenByDesktop(*address, folder) : Unable(file, address.error());
}

StartPlan PlanDesktopFile(const QString& file, const QStringList& files, const QString& folder) {
    const DesktopEntry entry = ReadDesktopEntry(file);
    if (entry.Type == u"Link")
        return PlanLink(entry.Url, file, folder);
    // Without a start folder a program starts in the home folder, not in the folder of application entries.
    const QString own = QFileInfo(file).absolutePath();
    const QString start = QDir(folder) == QDir(own) ? QDir::homePath() : folder;
    const QString working = QFileInfo(entry.Path).isDir() ? entry.Path : start;
    const QStringList words = ExpandExec(entry, file, files);
    if (words.isEmpty())
        return Unable(file, QStringLiteral("This desktop entry holds no command that can be run."));
    return entry.Terminal ? PlanInTerminal(words, working) : PlanCommand(words, working);
}

StartPlan WithoutDrive(const QString& target, QChar letter) {
    return Unable(target, QStringLiteral("There is no drive ") + letter.toUpper() +
                              QStringLiteral(": here. Connect it and try again."));
}

StartPlan PlanMissing(const QString& target, const LaunchPaths& paths) {
    if (target.isEmpty())
        return Unable({}, QStringLiteral("It has no target. Give it one."));
    if (target.startsWith(QStringLiteral("\\\\")))
        return Unable(target,
                      QStringLiteral("This lies on the network. Make a button for the place where this "
                                     "computer has it."));
    const QString host = paths.Drives.ToHost(target, paths.AppPath);
    if (host.isEmpty())
        return WithoutDrive(target, target[0]);
    // A bare name has been looked for in the search path as well.
    const bool isName = !target.contains(u'\\') && !target.contains(u'/');
    return Unable(isName ? target : host,
                  QStringLiteral("This is not there. Put it there, or change the button's target."));
}

StartPlan PlanInternetShortcut(const QString& file, const QString& folder) {
    const auto address =
        BrowserAddress(ReadIni(QStringLiteral("InternetShortcut"), QStringLiteral("URL"), file));
    return address ? OpenByDesktop(*address, folder) : Unable(file, address.error());
}

StartPlan PlanFollowed(const LaunchRequest& request, const LaunchPaths& paths) {
    // A record may name any program, and so any address that a program has registered for.
    if (IsAddress(request.Target)) {
        const auto address = AddressOfAnyScheme(request.Target);
        return address ? OpenByDesktop(*address, {}) : Unable({}, address.error());
    }
    const QString target = FindTarget(request.Target, paths);
    const QString folder = ExistingFolder(request.StartIn, paths, QFileInfo(target).absolutePath());
    const QStringList arguments = SplitParameter(request.Parameter);
    switch (KindOf(target)) {
    case TargetKind::Missing:
    case TargetKind::Shortcut: // has been followed
        return PlanMissing(request.Target, paths);
    case TargetKind::DesktopFile:
        return PlanDesktopFile(target, arguments, folder);
    case TargetKind::InternetShortcut:
        return PlanInternetShortcut(target, folder);
    case TargetKind::Program:
        return PlanCommand(QStringList(target) + arguments, folder);
    case TargetKind::ShellScript:
        return PlanCommand(QStringList{QStringLiteral("/bin/sh"), target} + arguments, folder);
    case TargetKind::Folder:
    case TargetKind::Document:
        return OpenByDesktop(target, folder);
    }
    return {};
}

StartPlan PlanTarget(const LaunchRequest& request, const LaunchPaths& paths) {
    const auto followed = FollowShortcuts(request, paths);
    if (!followed)
        return Unable(followed.error().Path, followed.error().Reason);
    StartPlan plan = PlanFollowed(*followed, paths);
    plan.Show = followed->Show;
    return plan;
}

StartPlan PlanDrive(const QString& letter, const LaunchPaths& paths) {
    const QChar drive = letter.isEmpty() ? QChar(u'?') : letter[0];
    const QString root = paths.Drives.RootOf(drive);
    return root.isEmpty() ? WithoutDrive({}, drive) : OpenByDesktop(root, root);
}

// A store that comes from Windows may name "firefox.exe" in its settings.
StartPlan PlanBrowser(const LaunchRequest& request, const LaunchPaths& paths) {
    const QStringList address(request.Parameter);
    const QString program = FindTarget(request.Target, paths);
    if (KindOf(program) == TargetKind::Program)
        return {program, address, {}, true};
    const QString other = QStandardPaths::findExecutable(WithoutExtension(request.Target));
    if (!other.isEmpty())
        return {other, address, {}, true};
    return OpenByDesktop(request.Parameter, {});
}

StartPlan PlanAction(const LaunchRequest& request, const LaunchPaths& paths) {
    switch (request.What) {
    case LaunchRequest::Action::Nothing:
        return {};
    case LaunchRequest::Action::OpenDrive:
        return PlanDrive(request.Target, paths);
    case LaunchRequest::Action::OpenTarget:
        return PlanTarget(request, paths);
    case LaunchRequest::Action::OpenBrowser:
        return PlanBrowser(request, paths);
    case LaunchRequest::Action::Refuse:
        return Unable(paths.Drives.ToHost(request.Target, paths.AppPath), request.Problem);
    }
    return {};
}

} // namespace

StartPlan PlanStart(const LaunchRequest& request, const LaunchPaths& paths) {
    StartPlan plan = PlanAction(request, paths);
    plan.Problem = ProblemText(request.Name, plan.Problem);
    return plan;
}

} // namespace paneda
