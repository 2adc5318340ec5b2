#pragma once

#include "core/files/file_io.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <utility>
#include <vector>

namespace paneda {

// Keys and values of the section `Properties`.
using NoteKeyValues = std::vector<std::pair<QStringView, QString>>;

// The steps by which notes change the disk. Each is whole or not done at all, so a program that ends anywhere
// has done the first few of them; a test replaces this class to end between any two.
class NoteDisk {
public:
    NoteDisk() = default;
    virtual ~NoteDisk() = default;
    Q_DISABLE_COPY_MOVE(NoteDisk)

    virtual FileResult Replace(const QString& path, const QByteArray& bytes);

    // Copies a file of any size under a new name.
    virtual FileResult Copy(const QString& from, const QString& to);

    // A file that is missing is no failure.
    virtual FileResult Remove(const QString& path);

    // Writes several keys of a Properties.ini at once, making the file if it is missing. Fails where the
    // folder is missing.
    virtual FileResult WriteKeys(const QString& iniFile, const NoteKeyValues& keys);
};

} // namespace paneda
