#include "notes/tree_store.h"

#include "core/files/file_io.h"
#include "core/files/ini_file.h"
#include "core/files/path_conversion.h"
#include "core/settings/app_state.h"
#include "core/store/names.h"
#include "notes/node_properties.h"

#include <QDir>

#include <algorithm>

namespace paneda {

namespace {

const QString kIniEnd = QStringLiteral(".ini");

QString SettingsFolder(const QString& appFolder) {
    return FindEntry(appFolder, QStringLiteral("Setting2"));
}

bool IsNodeFolderName(const QString& name) {
    return !name.startsWith(u'.');
}

uint HexPair(const QString& text) {
    bool isHex = false;
    const uint value = text.toUInt(&isHex, 16);
    return isHex ? value : 0;
}

} // namespace

QStringList ListTrees(const QString& appFolder) {
    QStringList trees;
    for (const QString& file : ListFiles(SettingsFolder(appFolder))) {
        if (file.endsWith(kIniEnd, Qt::CaseInsensitive))
            trees.append(WithoutExtension(file));
    }
    return trees;
}

QString TreeIniFile(const QString& appFolder, const QString& treeName) {
    return FindEntry(SettingsFolder(appFolder), treeName + kIniEnd);
}

TreeSettings ReadTreeSettings(const AppState& state, const QString& treeName) {
    const IniText text = ReadIniFile(TreeIniFile(state.AppFolder, treeName));
    TreeSettings settings;
    settings.Path = text.Value(node_key::kProperties, u"Path");
    settings.NoteBackColor = ReadHexColour(text.Value(u"Note", u"Background Color"));
    settings.NoteTitleColor = ReadHexColour(text.Value(u"Note", u"Title Color"));
    settings.NoteTitle2Color = ReadHexColour(text.Value(u"Note", u"Title 2 Color"));
    ResolveContentFolder(settings, state.AppPath, state.Drives);
    if (!settings.ContentFolder.isEmpty())
        settings.MultiUser = ReadNodeIni(DiskPath::Below(settings.ContentFolder, settings.ContentFolder))
                                 .Value(node_key::kProperties, node_key::kMultiuser) == u"1";
    return settings;
}

QString ResolveStoredPath(const QString& path, const QString& appPath) {
    return path.startsWith(u'/') ? path : ToAbsolutePath(path, appPath);
}

void ResolveContentFolder(TreeSettings& settings, const QString& appPath, const DriveMap& drives) {
    QString stored = ResolveStoredPath(settings.Path, appPath);
    while (stored.endsWith(u'\\') || (stored.endsWith(u'/') && stored.size() > 1))
        stored.chop(1);
    settings.ContentFolder = drives.ToHost(stored, appPath);
    settings.ShownFolder =
        settings.ContentFolder.isEmpty() ? stored : QDir::toNativeSeparators(settings.ContentFolder);
}

QRgb ReadHexColour(const QString& text) {
    return qRgb(int(HexPair(text.left(2))), int(HexPair(text.mid(2, 2))), int(HexPair(text.right(2))));
}

DiskPath LevelFolder(const QString& contentFolder, const QString& relativePath) {
    if (contentFolder.isEmpty())
        return {};
    QString folder = contentFolder;
    if (folder.endsWith(u'/'))
        folder.chop(1);
    folder += QString(relativePath).replace(u'\\', u'/');
    // The root of a drive keeps its separator.
    if (relativePath.size() > 1 || !contentFolder.endsWith(u'/'))
        folder.chop(1);
    return DiskPath::Below(contentFolder, folder);
}

QStringList ListNodeFolders(const DiskPath& levelFolder) {
    if (levelFolder.Text().isEmpty())
        return {};
    QStringList folders = ListFolders(levelFolder);
    folders.removeIf([](const QString& name) { return !IsNodeFolderName(name); });
    return folders;
}

bool HasSubfolder(const DiskPath& nodeFolder) {
    // A folder that cannot be read shows no box.
    const auto entries = ListEntries(nodeFolder).value_or(std::vector<DiskEntry>());
    return std::any_of(entries.begin(), entries.end(), [](const DiskEntry& entry) {
        return entry.Kind == EntryKind::Folder && !entry.Hidden && IsNodeFolderName(entry.Name);
    });
}

} // namespace paneda
