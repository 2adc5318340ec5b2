#include "platform/linux/desktop_autostart.h"

#include "core/files/ini_file.h"
#include "core/files/ini_text.h"
#include "platform/linux/desktop_entry.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace paneda {

namespace {

constexpr QStringView kGroup = u"Desktop Entry";
constexpr QStringView kOwnMark = u"X-Paneda-Launcher";

QString EntryPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/paneda.desktop");
}

// Also true for a broken link, which QFileInfo::exists does not see: it belongs to somebody.
bool Exists(const QString& path) {
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

bool IsOwn(const QString& path) {
    return ReadIniFile(path).Value(kGroup, kOwnMark) == u"true";
}

QByteArray EntryText(const QString& executablePath) {
    const QString text = QStringLiteral("[Desktop Entry]\n"
                                        "Type=Application\n"
                                        "Name=Paneda Launcher\n"
                                        "Exec=%1\n"
                                        "%2=true\n");
    // Some desktops look for the program before they replace "%%" by "%", and would not find it.
    const QString starter = executablePath.contains(u'%') ? QStringLiteral("env ") : QString();
    return text.arg(starter + QuotedExec(executablePath), kOwnMark).toUtf8();
}

} // namespace

QString QuotedExec(const QString& executablePath) {
    QString word;
    for (const QChar c : executablePath) {
        // First the quoting of the line, then every backslash in it doubled for the file.
        if (c == u'\\')
            word += QStringLiteral("\\\\\\\\");
        else if (c == u'"' || c == u'`' || c == u'$')
            word += QStringLiteral("\\\\") + c;
        else if (c == u'%')
            word += QStringLiteral("%%");
        else if (c == u'\n')
            word += QStringLiteral("\\n");
        else
            word += c;
    }
    return u'"' + word + u'"';
}

FileResult DesktopAutostart::Set(bool on, const QString& executablePath) {
    const QString path = EntryPath();
    if (Exists(path) && !IsOwn(path))
        return tl::make_unexpected(FileError{
            path, QStringLiteral("This file was not made by Paneda Launcher and was left as it is.")});
    if (!on)
        return Exists(path) ? WithoutProblem(RemoveFile(path)) : FileResult();
    const FileResult made = MakeFolderPath(DiskPath(path).Parent());
    return made ? ReplaceFile(path, EntryText(executablePath)) : made;
}

bool DesktopAutostart::IsSet(const QString& executablePath) const {
    const QString path = EntryPath();
    const IniText keys = ReadIniFile(path);
    if (keys.Value(kGroup, u"Hidden") == u"true" ||
        keys.Value(kGroup, u"X-GNOME-Autostart-enabled") == u"false")
        return false;
    const QStringList words = ExpandExec(ReadDesktopEntry(path), path, {});
    return !words.isEmpty() && words.last() == executablePath;
}

} // namespace paneda
