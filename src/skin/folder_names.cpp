#include "skin/folder_names.h"

#include "core/files/file_io.h"

namespace paneda {

FolderNames::FolderNames(const QString& folder) {
    const QStringList names = ListNoFolders(folder);
    for (const QString& name : names) {
        exact_.insert(name);
        const QString folded = name.toCaseFolded();
        if (!folded_.contains(folded))
            folded_.insert(folded, name);
    }
}

QString FolderNames::Find(const QString& name) const {
    return exact_.contains(name) ? name : folded_.value(name.toCaseFolded());
}

} // namespace paneda
