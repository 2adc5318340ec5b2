#include "core/store/store_layout.h"

#include "core/files/ini_file.h"

#include <QFileInfo>

namespace paneda {

namespace {

using Failures = std::vector<FileError>;

void Note(Failures& failures, const FileResult& result) {
    if (!result)
        failures.push_back(result.error());
}

void CreateTrees(const QString& appFolder, Failures& failures) {
    const QString folder = FindEntry(appFolder, QStringLiteral("Setting2"));
    if (QFileInfo(folder).isDir())
        return;
    Note(failures, MakeFolder(folder));
    const QString tree = folder + QStringLiteral("/Tree.ini");
    const QString note = QStringLiteral("Note");
    Note(failures,
         WriteIni(QStringLiteral("Properties"), QStringLiteral("Path"), QStringLiteral("Data\\Tree"), tree));
    Note(failures, WriteIni(note, QStringLiteral("Background Color"), QStringLiteral("0000FF"), tree));
    Note(failures, WriteIni(note, QStringLiteral("Title Color"), QStringLiteral("FFFF00"), tree));
    Note(failures, WriteIni(note, QStringLiteral("Title 2 Color"), QStringLiteral("00FF00"), tree));
    const QString data = FindEntry(appFolder, QStringLiteral("Data"));
    Note(failures, MakeFolder(data));
    Note(failures, MakeFolder(FindEntry(data, QStringLiteral("Tree"))));
}

void CreateSetting(const QString& appFolder, Failures& failures) {
    const QString setting = SettingFolder(appFolder);
    if (QFileInfo(setting).isDir())
        return;
    Note(failures, MakeFolder(setting));
    if (!failures.empty())
        return;
    const QString treeCategory = QStringLiteral("[002] Dynamic Category");
    Note(failures, MakeFolder(CategoryFolder(appFolder, QStringLiteral("[001] General"))));
    Note(failures, MakeFolder(CategoryFolder(appFolder, treeCategory)));
    Note(failures, WriteIni(QStringLiteral("Systray"), QStringLiteral("countdown sound"),
                            QStringLiteral("Orin Tamber"), SettingIniFile(appFolder)));
    Note(failures, WriteIni(QStringLiteral("Properties"), QStringLiteral("Category"), QStringLiteral("Tree"),
                            CategoryIniFile(appFolder, treeCategory)));
    CreateTrees(appFolder, failures);
}

} // namespace

QString SettingFolder(const QString& appFolder) {
    return FindEntry(appFolder, QStringLiteral("Setting"));
}

QString SettingIniFile(const QString& appFolder) {
    return FindEntry(appFolder, QStringLiteral("setting.ini"));
}

QString ConfigFilePath(const QString& appFolder) {
    return FindEntry(appFolder, QStringLiteral("config"));
}

QString CacheFolder(const QString& appFolder) {
    return FindEntry(appFolder, QStringLiteral("Cache"));
}

QString CacheFilePath(const QString& appFolder) {
    return FindEntry(CacheFolder(appFolder), QStringLiteral("cache"));
}

QString CategoryFolder(const QString& appFolder, const QString& categoryName) {
    return SettingFolder(appFolder) + u'/' + categoryName;
}

QString CategoryIniFile(const QString& appFolder, const QString& categoryName) {
    return FindEntry(CategoryFolder(appFolder, categoryName), QStringLiteral("Properties.ini"));
}

QString StoredPath(const QString& appPath, const QString& relative) {
    return appPath + u'\\' + relative;
}

std::vector<FileError> CreateMissingStore(const QString& appFolder) {
    Failures failures;
    if (appFolder.isEmpty())
        return failures;
    CreateSetting(appFolder, failures);
    if (QFileInfo(SettingFolder(appFolder)).isDir())
        Note(failures, MakeFolder(CacheFolder(appFolder)));
    return failures;
}

} // namespace paneda
