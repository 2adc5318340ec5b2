#pragma once

#include <QString>
#include <QStringBuilder>
#include <QStringList>

#include <optional>

namespace paneda {

// A host path, and the folder from which on links are refused.
//
// A user may put links into the path of the store, and they are followed. A folder that several users write
// to is different: a link there may lead to a file that only this user can read or write, and somebody else
// chose it. Every function that takes a DiskPath opens such a path folder by folder from its root, and fails
// where an entry behind the root is a link (on Windows also a junction), with the path of the link in the
// error. The root itself is the user's choice and may be reached through links.
class DiskPath {
public:
    // Links are followed.
    DiskPath() = default;
    DiskPath(const QString& path);
    template <typename A, typename B>
    DiskPath(const QStringBuilder<A, B>& path) : DiskPath(QString(path)) {}

    // Links behind `root` are refused. With an empty root they are followed. A path that does not lie in the
    // root can be made, but each use of it fails.
    static DiskPath Below(const QString& root, const QString& path);

    // An entry of this folder.
    DiskPath operator/(const QString& name) const;

    // The folder of this entry. The root's own folder lies outside, so links to it are followed.
    DiskPath Parent() const;

    QString Name() const;
    const QString& Text() const { return path_; }
    const QString& Root() const { return root_; }
    bool RefusesLinks() const { return !root_.isEmpty(); }
    bool IsRoot() const { return path_ == root_; }

    // The names from the root to this entry, none for the root itself. Nothing when the path does not lie in
    // the root. Not for paths whose links are followed.
    std::optional<QStringList> NamesBelowRoot() const;

private:
    QString path_;
    QString root_; // a beginning of path_ if this lies in the root; empty: links are followed
};

} // namespace paneda
