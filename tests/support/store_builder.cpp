#include "support/store_builder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace paneda::test {

StoreBuilder::StoreBuilder() {
    if (!folder_.isValid())
        qFatal("No temporary folder: %s", qPrintable(folder_.errorString()));
}

void StoreBuilder::AddFolder(const QString& relative) const {
    if (!QDir(AppFolder()).mkpath(relative))
        qFatal("Cannot make the folder %s", qPrintable(relative));
}

void StoreBuilder::AddFile(const QString& relative, const QByteArray& bytes) const {
    AddFolder(QFileInfo(relative).path());
    QFile file(Path(relative));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write the file %s", qPrintable(relative));
}

QByteArray StoreBuilder::Bytes(const QString& relative) const {
    QFile file(Path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList StoreBuilder::Entries() const {
    QStringList entries;
    QDirIterator all(AppFolder(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        entries.append(QDir(AppFolder()).relativeFilePath(path) +
                       (all.fileInfo().isDir() ? QStringLiteral("/") : QString()));
    }
    entries.sort();
    return entries;
}

AppState StoreBuilder::State() const {
    AppState state;
    state.AppPath = kAppPath;
    state.AppFolder = AppFolder();
    FillEdition(state);
    return state;
}

ScanOptions StoreBuilder::Scan() const {
    return ScanOptionsOf(State());
}

bool MakeSymbolicLink(const QString& target, const QString& link) {
    std::error_code error;
    std::filesystem::create_symlink(QFileInfo(target).filesystemFilePath(),
                                    QFileInfo(link).filesystemFilePath(), error);
    return !error;
}

DriveMap DrivesOfHost() {
    return QDir::rootPath() == u'/' ? DriveMap::FromMountPoints({}) : DriveMap();
}

QStringList Describe(const CatalogueList& catalogue) {
    QStringList lines;
    for (const CategoryEntry& category : catalogue) {
        const QString tree = category.TreeNumber
                                 ? QStringLiteral(" %1 <%2>").arg(*category.TreeNumber).arg(category.TreeName)
                                 : QString();
        lines.append(category.FolderName + QStringLiteral(" | ") + category.Kind + tree);
        for (const GroupEntry& group : category.Groups) {
            lines.append(QStringLiteral("  %1 #%2").arg(group.FolderName).arg(group.ControlIndex));
            for (const ButtonEntry& button : group.Buttons)
                lines.append(QStringLiteral("    %1 #%2 | %3 | <%4>%5")
                                 .arg(button.Path.section(u'\\', -1))
                                 .arg(button.ControlIndex)
                                 .arg(button.Name, button.Style, button.Spare));
        }
    }
    return lines;
}

} // namespace paneda::test
