#pragma once

#include "core/files/drive_map.h"
#include "core/settings/app_state.h"
#include "core/store/catalogue_loader.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace paneda::test {

// The folder of the program in the stored form, whatever folder the host gave.
inline const QString kAppPath = QStringLiteral("E:\\Paneda");

// A program folder in a temporary directory. Paths are relative to it, with forward slashes. A test that
// cannot get its files ends at once.
class StoreBuilder {
public:
    StoreBuilder();

    QString AppFolder() const { return folder_.path(); }
    QString Path(const QString& relative) const { return folder_.filePath(relative); }

    // Makes missing parent folders as well.
    void AddFolder(const QString& relative) const;
    void AddFile(const QString& relative, const QByteArray& bytes = {}) const;

    // Contents of a file; a null array when it cannot be read.
    QByteArray Bytes(const QString& relative) const;

    // All entries in byte order, folders with "/" at their end.
    QStringList Entries() const;

    // A state with the paths and the edition set.
    AppState State() const;
    ScanOptions Scan() const;

private:
    QTemporaryDir folder_;
};

// Makes a symbolic link, which may lead nowhere. False where the system makes none.
bool MakeSymbolicLink(const QString& target, const QString& link);

// The drive map of the machine that the test runs on, with nothing mounted.
DriveMap DrivesOfHost();

// One line for each category, group and button, indented by level, with all fields but a path's folder.
QStringList Describe(const CatalogueList& catalogue);

} // namespace paneda::test
