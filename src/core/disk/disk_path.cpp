#include "core/disk/disk_path.h"

#include <QDir>
#include <QFileInfo>

namespace paneda {

namespace {

QString WithSeparator(const QString& folder) {
    return folder.isEmpty() || folder.endsWith(u'/') ? folder : folder + u'/';
}

} // namespace

DiskPath::DiskPath(const QString& path) : path_(path) {}

DiskPath DiskPath::Below(const QString& root, const QString& path) {
    DiskPath below;
    below.path_ = QDir::cleanPath(path);
    if (root.isEmpty())
        return below;
    below.root_ = QDir::cleanPath(root);
    // Some hosts ignore case; on the others a path that comes from its root has the root's spelling.
    if (WithSeparator(below.path_).startsWith(WithSeparator(below.root_), Qt::CaseInsensitive))
        below.root_ = below.path_.left(below.root_.size());
    return below;
}

DiskPath DiskPath::operator/(const QString& name) const {
    DiskPath entry(*this);
    entry.path_ = WithSeparator(path_) + name;
    return entry;
}

DiskPath DiskPath::Parent() const {
    const QString folder = QFileInfo(path_).path();
    if (!RefusesLinks() || IsRoot())
        return folder;
    DiskPath parent;
    parent.path_ = folder;
    parent.root_ = root_;
    return parent;
}

QString DiskPath::Name() const {
    return QFileInfo(path_).fileName();
}

std::optional<QStringList> DiskPath::NamesBelowRoot() const {
    if (IsRoot())
        return QStringList();
    const QString begin = WithSeparator(root_);
    if (!path_.startsWith(begin))
        return std::nullopt;
    const QStringList names = path_.mid(begin.size()).split(u'/');
    for (const QString& name : names) {
        if (name.isEmpty() || name == u"." || name == u"..")
            return std::nullopt;
    }
    return names;
}

} // namespace paneda
