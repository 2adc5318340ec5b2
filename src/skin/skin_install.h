#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

#include <functional>
#include <vector>

namespace paneda {

// Adding a skin from an archive that anybody may have made.

inline constexpr int kMostInstallFiles = 2000;
inline constexpr qint64 kMaxInstallBytes = qint64(64) * 1024 * 1024; // of all files, uncompressed

// An entry of the archive, as it says itself.
struct PackedEntry {
    QString Name;       // with backslashes between its parts, and one at the end of a folder's
    qint64 Size = 0;    // bytes, uncompressed
    bool IsFile = true; // neither a link nor a device nor encrypted
};

// What would be installed.
struct SkinInstall {
    struct File {
        std::size_t Entry; // its place in the archive
        QString Path;      // below the skin's folder, with "/" before the name of a file in an option
    };

    QString Skin; // name of its folder
    std::vector<File> Files;
    qint64 Size = 0; // bytes of all files
    QStringList Options;
};

// What an archive holds: one folder that is a skin, or the files of a skin without a folder, which then is
// called like the archive. Files that desktops add to archives are left out. Fails, with a reason for the
// user, for an archive without a skin, with a name that leads out of the folder or that not every system
// takes, with two names that differ in case alone, with folders in options, and with what is no file.
tl::expected<SkinInstall, QString> PlanSkinInstall(const std::vector<PackedEntry>& entries,
                                                   const QString& archiveName);

// The question before it is installed.
QString InstallQuestion(const SkinInstall& install);

// The bytes of an entry of the archive, or why there are none.
using PackedBytes = std::function<tl::expected<QByteArray, QString>(std::size_t entry)>;

// Why a skin of this name cannot be added; empty if it can.
QString InstallProblem(const QString& appFolder, const QString& skinName);

// Makes the skin's folder, whole or not at all: the files are written into a folder that no listing shows,
// which is renamed when the skin can be used. Overwrites nothing.
tl::expected<void, QString> InstallSkin(const QString& appFolder, const SkinInstall& install,
                                        const PackedBytes& bytesOf);

} // namespace paneda
