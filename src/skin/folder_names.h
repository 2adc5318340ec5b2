#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace paneda {

// The file names of one folder, listed once: for looking up many names in it. A name is found in any case of
// letters, as by FindEntry. Pipes and devices count, so that whoever reads one can report it.
class FolderNames {
public:
    FolderNames() = default;

    explicit FolderNames(const QString& folder);

    // The file's name as it is on disk; empty if there is none.
    QString Find(const QString& name) const;

private:
    QSet<QString> exact_;
    QHash<QString, QString> folded_;
};

} // namespace paneda
