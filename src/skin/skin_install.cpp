#include "skin/skin_install.h"

#include "core/files/file_batch.h"
#include "core/files/file_io.h"
#include "core/store/names.h"
#include "core/text/text_rules.h"
#include "skin/skin_file.h"
#include "skin/skin_list.h"

#include <QDateTime>
#include <QDir>
#include <QLocale>
#include <QMap>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kLongestName = 200; // bytes; some file systems take 255
constexpr int kShownOptions = 8;
constexpr int kLeftoverDays = 1;

tl::unexpected<QString> Refused(const QString& reason) {
    return tl::make_unexpected(reason);
}

// A name that every system takes as it stands, and no listing hides.
bool IsPortableName(const QString& part) {
    const bool isPlain =
        std::none_of(part.begin(), part.end(), [](QChar c) { return c < u' ' || c == u':'; });
    return isPlain && !part.isEmpty() && !part.startsWith(u'.') && TrimBlanks(part) == part &&
           SafeFileName(part) == part && part.toUtf8().size() <= kLongestName;
}

// What file managers put into archives and folders.
bool IsLitter(const QStringList& parts) {
    return SameName(parts.front(), u"__MACOSX") || SameName(parts.back(), u".DS_Store") ||
           SameName(parts.back(), u"Thumbs.db") || SameName(parts.back(), u"desktop.ini");
}

bool IsBottom(const QString& name) {
    return SameName(name, u"bottom.png") || SameName(name, u"bottom.jpg");
}

struct Entry {
    std::size_t Index;
    QStringList Parts;
};

tl::expected<std::vector<Entry>, QString> ReadNames(const std::vector<PackedEntry>& packed, qint64& size) {
    if (packed.size() > std::size_t(kMostInstallFiles))
        return Refused(QStringLiteral("It has more than %1 files.").arg(kMostInstallFiles));
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < packed.size(); ++i) {
        const bool isFolder = packed[i].Name.endsWith(u'\\');
        const QStringList parts = packed[i].Name.chopped(isFolder ? 1 : 0).split(u'\\');
        if (IsLitter(parts))
            continue;
        if (!std::all_of(parts.begin(), parts.end(), IsPortableName))
            return Refused(QStringLiteral("The name \"%1\" cannot be used.").arg(packed[i].Name));
        if (isFolder)
            continue;
        if (!packed[i].IsFile)
            return Refused(
                QStringLiteral("\"%1\" is a link or encrypted, and no plain file.").arg(packed[i].Name));
        size += packed[i].Size;
        if (packed[i].Size < 0 || size > kMaxInstallBytes)
            return Refused(QStringLiteral("Its files have more than %1 MB in all.")
                               .arg(kMaxInstallBytes / (1024 * 1024)));
        entries.push_back({i, parts});
    }
    return entries;
}

// The folder that all files lie in; empty if they lie in none, or not in one.
QString CommonFolder(const std::vector<Entry>& entries) {
    QString folder;
    for (const Entry& entry : entries) {
        if (entry.Parts.size() < 2 || (!folder.isEmpty() && entry.Parts.front() != folder))
            return {};
        folder = entry.Parts.front();
    }
    return folder;
}

// The name of the archive without its extension and what no folder may be called.
QString NameOfArchive(const QString& archiveName) {
    return SafeFileName(TrimBlanks(WithoutExtension(archiveName)));
}

// Fails for names that one folder cannot hold on every system: those that differ in case alone, and a file
// that is called like a folder.
tl::expected<void, QString> CheckNames(const std::vector<SkinInstall::File>& files) {
    QSet<QString> taken;
    QMap<QString, QString> folders;
    for (const SkinInstall::File& file : files) {
        const QString folder = file.Path.contains(u'/') ? file.Path.section(u'/', 0, 0) : QString();
        const bool isTwice = taken.contains(file.Path.toCaseFolded());
        taken.insert(file.Path.toCaseFolded());
        if (isTwice || (!folder.isEmpty() && folders.value(folder.toCaseFolded(), folder) != folder))
            return Refused(QStringLiteral("\"%1\" is there more than once.").arg(file.Path));
        if (!folder.isEmpty())
            folders.insert(folder.toCaseFolded(), folder);
    }
    for (const QString& folder : folders.keys()) {
        if (taken.contains(folder))
            return Refused(QStringLiteral("\"%1\" is a file and a folder.").arg(folders[folder]));
    }
    return {};
}

tl::expected<void, QString> WriteFiles(const DiskPath& folder, const SkinInstall& install,
                                       const PackedBytes& bytesOf) {
    std::vector<QByteArray> contents;
    std::vector<DiskPath> paths;
    for (const SkinInstall::File& file : install.Files) {
        auto bytes = bytesOf(file.Entry);
        if (!bytes)
            return Refused(bytes.error());
        contents.push_back(std::move(*bytes));
        DiskPath path = folder;
        for (const QString& part : file.Path.split(u'/'))
            path = path / part;
        if (const FileResult made = MakeFolder(path.Parent()); !made)
            return Refused(made.error().Text());
        paths.push_back(path);
    }
    const FileResult written = ReplaceFiles(
        paths, [&contents](std::size_t i) -> tl::expected<QByteArray, FileError> { return contents[i]; });
    return written ? tl::expected<void, QString>() : Refused(written.error().Text());
}

// Why the skin in this folder cannot be used, as if it had its final name.
QString CheckSkin(const QString& appFolder, const DiskPath& folder, const QString& skinName) {
    if (!IsSkin(folder))
        return QStringLiteral("It has no picture \"bottom\".");
    auto theme = ReadSkin(appFolder, folder.Name());
    if (theme)
        return {};
    SkinError error = theme.error();
    error.Skin = skinName;
    error.File =
        QDir::toNativeSeparators(skinName + u'/' + QDir::fromNativeSeparators(error.File).section(u'/', -1));
    return error.Text();
}

// Folders of installations that were interrupted. Young ones may be those of another program.
void RemoveLeftovers(const DiskPath& skins) {
    const QDateTime now = QDateTime::currentDateTime();
    for (const DiskEntry& entry : ListEntries(skins).value_or(std::vector<DiskEntry>())) {
        const DiskPath folder = skins / entry.Name;
        if (entry.Kind == EntryKind::Folder && entry.Name.startsWith(kUnfinishedPrefix) &&
            LookAt(folder).Modified.daysTo(now) > kLeftoverDays)
            (void)RemoveTree(folder);
    }
}

tl::expected<void, QString> Install(const QString& appFolder, const DiskPath& unfinished,
                                    const SkinInstall& install, const PackedBytes& bytesOf) {
    if (const EntryResult made = MakeNewFolder(unfinished); !made)
        return Refused(made.error().Error.Text());
    if (const auto written = WriteFiles(unfinished, install, bytesOf); !written)
        return written;
    const QString problem = CheckSkin(appFolder, unfinished, install.Skin);
    if (!problem.isEmpty())
        return Refused(problem);
    const DiskPath skins = unfinished.Parent();
    EntryResult renamed = RenameEntry(unfinished, skins / install.Skin);
    if (renamed)
        renamed = FlushFolder(skins);
    return renamed ? tl::expected<void, QString>() : Refused(renamed.error().Error.Text());
}

} // namespace

tl::expected<SkinInstall, QString> PlanSkinInstall(const std::vector<PackedEntry>& packed,
                                                   const QString& archiveName) {
    SkinInstall install;
    const auto entries = ReadNames(packed, install.Size);
    if (!entries)
        return Refused(entries.error());
    const QString folder = CommonFolder(*entries);
    const qsizetype depth = folder.isEmpty() ? 0 : 1;
    install.Skin = folder.isEmpty() ? NameOfArchive(archiveName) : folder;
    bool hasBottom = false;
    bool hasIni = false;
    QString deepest;
    for (const Entry& entry : *entries) {
        const QStringList parts = entry.Parts.mid(depth);
        if (parts.size() > 2)
            deepest = entry.Parts.join(u'/');
        hasBottom = hasBottom || (parts.size() == 1 && IsBottom(parts.front()));
        hasIni = hasIni || (parts.size() == 1 && SameName(parts.front(), u"skin.ini"));
        install.Files.push_back({entry.Index, parts.join(u'/')});
        if (parts.size() == 2 && IsOptionName(parts.front()) && !install.Options.contains(parts.front()))
            install.Options.append(parts.front());
    }
    if (!hasBottom || !hasIni)
        return Refused(
            QStringLiteral("It does not hold one skin: a folder with a file skin.ini and a picture "
                           "bottom.png or bottom.jpg."));
    if (!deepest.isEmpty())
        return Refused(QStringLiteral("\"%1\" lies in a folder of an option.").arg(deepest));
    if (const auto checked = CheckNames(install.Files); !checked)
        return Refused(checked.error());
    if (!IsPortableName(install.Skin))
        return Refused(QStringLiteral("The name \"%1\" cannot be used.").arg(install.Skin));
    install.Options.sort();
    return install;
}

QString InstallQuestion(const SkinInstall& install) {
    QStringList shown = install.Options.mid(0, kShownOptions);
    if (install.Options.size() > shown.size())
        shown.append(QStringLiteral("%1 more").arg(install.Options.size() - shown.size()));
    const QString size = QLocale::c().formattedDataSize(install.Size, 1, QLocale::DataSizeSIFormat);
    const QString options = shown.isEmpty()
                                ? QStringLiteral("no options")
                                : QStringLiteral("the options: ") + shown.join(QStringLiteral(", "));
    return QStringLiteral("Do you want to install the skin \"%1\"?\n\nIt has %2 files of %3 in all, and %4.")
        .arg(install.Skin)
        .arg(install.Files.size())
        .arg(size, options);
}

QString InstallProblem(const QString& appFolder, const QString& skinName) {
    if (!EntryExists(SkinFolderOf(appFolder, skinName)))
        return {};
    return QStringLiteral(
               "There is a skin \"%1\" already. To install another one of this name, give its folder "
               "another name first, or remove it.")
        .arg(skinName);
}

tl::expected<void, QString> InstallSkin(const QString& appFolder, const SkinInstall& install,
                                        const PackedBytes& bytesOf) {
    const QString taken = InstallProblem(appFolder, install.Skin);
    if (!taken.isEmpty())
        return Refused(taken);
    const DiskPath skins = SkinsFolder(appFolder);
    RemoveLeftovers(skins);
    const DiskPath unfinished =
        skins / (kUnfinishedPrefix + QString::number(QRandomGenerator::system()->generate64(), 36));
    auto installed = Install(appFolder, unfinished, install, bytesOf);
    // What stays is shown nowhere.
    if (!installed)
        (void)RemoveTree(unfinished);
    return installed;
}

} // namespace paneda
