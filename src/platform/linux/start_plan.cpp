#include "platform/linux/start_plan.h"

#include "core/files/ini_file.h"
#include "core/store/names.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/host_target.h"
#include "platform/linux/shortcut_target.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

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

StartPlan OpenByDesktop(const QString& target, const QString& folder) {
    const QString opener = FirstInSearchPath({QStringLiteral("xdg-open"), QStringLiteral("gio")});
    if (opener.endsWith(QStringLiteral("/gio")))
        return {opener, {QStringLiteral("open"), target}, folder};
    return {opener, {target}, folder};
}

QString InTerminal(QStringList& arguments) {
    const QString terminal =
        FirstInSearchPath({QStringLiteral("x-terminal-emulator"), QStringLiteral("xterm"),
                           QStringLiteral("konsole"), QStringLiteral("xfce4-terminal")});
    arguments.prepend(QStringLiteral("-e"));
    return terminal;
}

StartPlan PlanCommand(QStringList words, bool terminal, const QString& folder) {
    if (words.isEmpty())
        return {};
    if (terminal) {
        const QString program = InTerminal(words);
        return {program, words, folder, true};
    }
    return {words.takeFirst(), words, folder, true};
}

// A command line as Windows programs take it apart, since records may come from there: quotes hold a word
// together, a doubled one inside of them is a quote, and backslashes mean something only before a quote.
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
            // Two backslashes before a quote are one; one left over takes the quote as it is.
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

StartPlan PlanDesktopFile(const QString& file, const QStringList& files, const QString& folder) {
    const DesktopEntry entry = ReadDesktopEntry(file);
    if (entry.Type == u"Link")
        return OpenByDesktop(entry.Url, folder);
    // Where nothing else is told, a program starts at home rather than in the folder of application entries.
    const QString own = QFileInfo(file).absolutePath();
    const QString start = QDir(folder) == QDir(own) ? QDir::homePath() : folder;
    const QString working = QFileInfo(entry.Path).isDir() ? entry.Path : start;
    return PlanCommand(ExpandExec(entry, file, files), entry.Terminal, working);
}

StartPlan PlanFollowed(const LaunchRequest& request, const LaunchPaths& paths) {
    if (IsAddress(request.Target)) {
        const bool bare = request.Target.startsWith(u"www.", Qt::CaseInsensitive);
        return OpenByDesktop(bare ? QStringLiteral("http://") + request.Target : request.Target, {});
    }
    const QString target = FindTarget(request.Target, paths);
    const QString folder = ExistingFolder(request.StartIn, paths, QFileInfo(target).absolutePath());
    const QStringList arguments = SplitParameter(request.Parameter);
    switch (KindOf(target)) {
    case TargetKind::Missing:
    case TargetKind::Shortcut: // has been followed
        return {};
    case TargetKind::DesktopFile:
        return PlanDesktopFile(target, arguments, folder);
    case TargetKind::InternetShortcut:
        return OpenByDesktop(ReadIni(QStringLiteral("InternetShortcut"), QStringLiteral("URL"), target),
                             folder);
    case TargetKind::Program:
        return PlanCommand(QStringList(target) + arguments, false, folder);
    case TargetKind::ShellScript:
        return PlanCommand(QStringList{QStringLiteral("/bin/sh"), target} + arguments, false, folder);
    case TargetKind::Folder:
    case TargetKind::Document:
        return OpenByDesktop(target, folder);
    }
    return {};
}

StartPlan PlanTarget(const LaunchRequest& request, const LaunchPaths& paths) {
    const auto followed = FollowShortcuts(request, paths);
    StartPlan plan = followed ? PlanFollowed(*followed, paths) : StartPlan();
    plan.Show = followed ? followed->Show : ShowCommand::Normal;
    plan.Problem = followed ? QString() : followed.error().Text();
    return plan;
}

// The settings of a store that has been to another system may name "firefox.exe".
StartPlan PlanBrowser(const LaunchRequest& request, const LaunchPaths& paths) {
    const QStringList address(request.Parameter.isEmpty() ? QStringList() : QStringList(request.Parameter));
    const QString program = FindTarget(request.Target, paths);
    if (KindOf(program) == TargetKind::Program)
        return {program, address, {}, true};
    const QString other = QStandardPaths::findExecutable(WithoutExtension(request.Target));
    if (!other.isEmpty())
        return {other, address, {}, true};
    return OpenByDesktop(request.Parameter, {});
}

} // namespace

StartPlan PlanStart(const LaunchRequest& request, const LaunchPaths& paths) {
    switch (request.What) {
    case LaunchRequest::Action::Nothing:
        return {};
    case LaunchRequest::Action::OpenDrive: {
        const QString root = paths.Drives.RootOf(request.Target.isEmpty() ? QChar() : request.Target[0]);
        return root.isEmpty() ? StartPlan() : OpenByDesktop(root, root);
    }
    case LaunchRequest::Action::OpenTarget:
        return PlanTarget(request, paths);
    case LaunchRequest::Action::OpenBrowser:
        return PlanBrowser(request, paths);
    }
    return {};
}

} // namespace paneda
