#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

#include <vector>

namespace paneda {

// Turns paths of the stored form (backslashes, a drive letter when absolute) into host paths and back, so
// that one record works on systems with and without drive letters.
class DriveMap {
public:
    struct Volume {
        char16_t Letter = 0; // capital
        QString Root;        // host folder, without a separator at its end unless it is the root folder
    };

    // A host with drive letters of its own: the stored form is the host's form.
    DriveMap() = default;

    // Makes this the map of a host with one root folder. `C:` is that root; each mount point below /media,
    // /run/media and /mnt takes the next letter from `D:` in byte order of paths. Those that find no letter
    // left are reached through `C:`. A volume that the map has from an earlier call keeps its letter, mounted
    // or not.
    void UseMountPoints(QStringList mountPoints);

    static DriveMap FromMountPoints(const QStringList& mountPoints);

    // The host path of a stored one, with forward slashes. A text that begins with "/" is a host path already
    // and comes back as it stands. A path without drive lies on the drive of `app`, a relative one below
    // `app` (both in the stored form). Empty for an empty path and for a drive that has no volume.
    QString ToHost(const QString& stored, const QString& app) const;

    // The stored form of an absolute host path. A path that holds a backslash has none and comes back as it
    // stands.
    QString ToStored(const QString& host) const;

    // Host folder of a drive by its letter in any case; empty for a drive that has no volume.
    QString RootOf(QChar letter) const;

private:
    QString JoinHost(const QString& root, QString rest) const;

    bool hostHasLetters_ = true;
    std::vector<Volume> volumes_;
};

} // namespace paneda
