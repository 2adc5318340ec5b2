#include "core/panel/launch.h"

#include "core/files/ini_file.h"
#include "core/files/path_conversion.h"
#include "core/files/web_addresses.h"
#include "core/store/names.h"
#include "core/text/text_rules.h"

#include <QLocale>

namespace paneda {

namespace {

constexpr QStringView kDriveWord = u"Drive ";
constexpr QStringView kEntryKind = u"DES"; // of "desktop", see ButtonKind
const QString kSection = QStringLiteral("Properties");
const QString kEntrySection = QStringLiteral("Desktop Entry");

QString FileNameOf(const QString& storedPath) {
    return storedPath.sliced(storedPath.lastIndexOf(u'\\') + 1);
}

LaunchRequest DriveRequest(const QString& path, const QString& appPath) {
    QString letter = path.right(1);
    if (letter == u'9')
        letter = appPath.left(1);
    return {LaunchRequest::Action::OpenDrive, letter, {}, {}, ShowCommand::Normal, kDriveWord + letter};
}

LaunchRequest RecordRequest(const ButtonFields& fields, const QString& appPath, const QString& name) {
    QString target = fields.Target;
    // A path without drive lies on the drive that the program runs from; a network path stays.
    if (target.startsWith(u'\\') && target.mid(1, 1) != u"\\")
        target.prepend(appPath.left(2));
    target = ResolveRelativePath(target, appPath);
    return {LaunchRequest::Action::OpenTarget,
            target,
            fields.Parameter,
            IfEmpty(fields.StartIn, FolderOfTarget(target)),
            ShowCommandOf(fields.WindowState),
            name};
}

// A key of a desktop entry in the user's language, where the entry has it.
QString EntryText(const QString& hostPath, const QString& key) {
    const IniText entry = ReadIniFile(hostPath);
    const QString locale = QLocale().name(); // "de_AT"
    for (const QString& language : {locale, locale.section(u'_', 0, 0)}) {
        const QString text = entry.Value(kEntrySection, QString(key + u'[' + language + u']'));
        if (!text.isEmpty())
            return text;
    }
    return entry.Value(kEntrySection, key);
}

// What a button's file says about itself; empty for nothing.
QString DescriptionIn(const QString& kind, const QString& hostPath) {
    if (kind == u"PND")
        return ReadIni(kSection, QStringLiteral("Description"), hostPath);
    return kind == kEntryKind ? EntryText(hostPath, QStringLiteral("Comment")) : QString();
}

} // namespace

QString FolderOfTarget(const QString& target) {
    const QChar separator = target.startsWith(u'/') ? u'/' : u'\\';
    return target.first(target.lastIndexOf(separator) + 1);
}

ShowCommand ShowCommandOf(const QString& windowState) {
    if (windowState == u"Minimized")
        return ShowCommand::Minimized;
    return windowState == u"Maximized" ? ShowCommand::Maximized : ShowCommand::Normal;
}

QString ButtonKind(const QString& path) {
    return ExtensionOf(path).left(3).toUpper();
}

ButtonFields ReadButtonFields(const QString& hostPath) {
    ButtonFields fields;
    const QString kind = ButtonKind(hostPath);
    if (kind == u"PND") {
        const IniText text = ReadIniFile(hostPath);
        fields.Target = text.Value(kSection, u"Target");
        fields.Parameter = text.Value(kSection, u"Parameter");
        fields.StartIn = text.Value(kSection, u"Start In");
        fields.WindowState = text.Value(kSection, u"Window State");
    } else if (kind == u"URL") {
        fields.Url = ReadIni(QStringLiteral("InternetShortcut"), QStringLiteral("URL"), hostPath);
    }
    return fields;
}

LaunchRequest DecideLaunch(const QString& path, const ButtonFields& fields, const LaunchContext& context) {
    if (path.startsWith(u"Drive"))
        return DriveRequest(path, context.AppPath);
    const QString kind = ButtonKind(path);
    const QString name = ButtonCaption(FileNameOf(path));
    if (kind == u"PND")
        return RecordRequest(fields, context.AppPath, name);
    if (kind == u"URL" && context.Browser != u"default")
        return DecideBrowser(fields.Url, context.Browser, name, path);
    return {LaunchRequest::Action::OpenTarget, path, {}, {}, ShowCommand::Normal, name};
}

LaunchRequest DecideBrowser(const QString& url, const QString& browser, const QString& name,
                            const QString& file) {
    using Action = LaunchRequest::Action;
    const auto address = BrowserAddress(url);
    if (!address)
        return {Action::Refuse, file, {}, {}, ShowCommand::Normal, name, address.error()};
    if (browser == u"default")
        return {Action::OpenTarget, *address, {}, {}, ShowCommand::Normal, name};
    return {Action::OpenBrowser, browser, *address, {}, ShowCommand::Normal, name};
}

QString ProblemText(const QString& name, const QString& problem) {
    if (name.isEmpty() || problem.isEmpty())
        return problem;
    return u'"' + name + QStringLiteral("\" cannot be opened.\n") + problem;
}

bool LaunchesOn(MouseButton button) {
    return button != MouseButton::Middle;
}

AfterLaunch DecideAfterLaunch(MouseButton button, int shiftMask, bool hideAfterLaunch) {
    if (shiftMask == kShiftKey)
        return AfterLaunch::EndProgram;
    const bool hides = button == MouseButton::Left ? hideAfterLaunch : !hideAfterLaunch;
    return hides ? AfterLaunch::Hide : AfterLaunch::Stay;
}

QString DriveText(const ButtonEntry& button, const QString& appPath) {
    const QString text = button.Spare.mid(kDriveWord.size());
    return text == u"9:" ? QString(appPath.left(1) + u':') : text;
}

QString ButtonToolTip(const ButtonEntry& button, const QString& hostPath, const QString& appPath,
                      bool labelIsCut) {
    if (!button.Spare.isEmpty())
        return DriveText(button, appPath);
    const QString fileName = FileNameOf(button.Path);
    const QString description = DescriptionIn(ButtonKind(button.Path), hostPath);
    if (description.isEmpty())
        return WithoutLnk(StripOrderPrefix(fileName));
    return labelIsCut ? QString(CaptionOf(button) + u'\n' + description) : description;
}

} // namespace paneda
