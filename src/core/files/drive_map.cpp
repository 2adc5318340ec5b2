#include "core/files/drive_map.h"

#include "core/text/text_rules.h"

#include <algorithm>
#include <array>

namespace paneda {

namespace {

bool IsBelowMediaFolder(const QString& path) {
    static constexpr std::array<QStringView, 3> kFolders{u"/media/", u"/run/media/", u"/mnt/"};
    return std::any_of(kFolders.begin(), kFolders.end(), [&path](QStringView folder) {
        return path.startsWith(folder) && path.size() > folder.size();
    });
}

bool HasDrive(const QString& stored) {
    return stored.size() > 1 && stored[1] == u':';
}

// Whether a host path is a folder or lies below it.
bool LiesIn(const QString& path, const QString& root) {
    if (root == u'/')
        return path.startsWith(u'/');
    return path == root || path.startsWith(root + u'/');
}

} // namespace

void DriveMap::UseMountPoints(QStringList mountPoints) {
    hostHasLetters_ = false;
    if (volumes_.empty())
        volumes_.push_back({u'C', QStringLiteral("/")});
    std::sort(mountPoints.begin(), mountPoints.end(),
              [](const QString& a, const QString& b) { return CompareText(a, b) < 0; });
    for (const QString& mountPoint : mountPoints) {
        const char16_t letter = char16_t(volumes_.back().Letter + 1);
        const bool known = std::any_of(volumes_.begin(), volumes_.end(),
                                       [&](const Volume& volume) { return volume.Root == mountPoint; });
        if (IsBelowMediaFolder(mountPoint) && !known && letter <= u'Z')
            volumes_.push_back({letter, mountPoint});
    }
}

DriveMap DriveMap::FromMountPoints(const QStringList& mountPoints) {
    DriveMap map;
    map.UseMountPoints(mountPoints);
    return map;
}

QString DriveMap::ToHost(const QString& stored, const QString& app) const {
    if (stored.isEmpty() || stored.startsWith(u'/'))
        return stored;
    if (HasDrive(stored)) {
        const QString root = RootOf(stored[0]);
        return root.isEmpty() ? QString() : JoinHost(root, stored.sliced(2));
    }
    // A network path is nobody's to change.
    if (stored.startsWith(QStringLiteral("\\\\")))
        return QString(stored).replace(u'\\', u'/');
    if (stored.startsWith(u'\\') && HasDrive(app))
        return ToHost(app.first(2) + stored, app);
    if (stored.startsWith(u'\\') || app.isEmpty())
        return JoinHost(QStringLiteral("/"), stored);
    return ToHost(app + u'\\' + stored, {});
}

QString DriveMap::ToStored(const QString& host) const {
    if (hostHasLetters_)
        return QString(host).replace(u'/', u'\\');
    if (host.contains(u'\\') || !host.startsWith(u'/'))
        return host;
    // The root volume comes first and holds every path.
    const Volume* best = &volumes_.front();
    for (const Volume& volume : volumes_) {
        if (LiesIn(host, volume.Root) && volume.Root.size() > best->Root.size())
            best = &volume;
    }
    QString rest = host.sliced(best->Root == u'/' ? 0 : best->Root.size());
    if (rest.isEmpty())
        rest = QStringLiteral("/");
    return QString(QChar(best->Letter)) + u':' + rest.replace(u'/', u'\\');
}

QString DriveMap::RootOf(QChar letter) const {
    const char16_t capital = letter.toUpper().unicode();
    if (hostHasLetters_)
        return capital >= u'A' && capital <= u'Z' ? QString(QChar(capital)) + QStringLiteral(":/")
                                                  : QString();
    const auto found = std::find_if(volumes_.begin(), volumes_.end(),
                                    [capital](const Volume& volume) { return volume.Letter == capital; });
    return found == volumes_.end() ? QString() : found->Root;
}

QString DriveMap::JoinHost(const QString& root, QString rest) const {
    rest.replace(u'\\', u'/');
    while (rest.startsWith(u'/'))
        rest.remove(0, 1);
    // A program in a drive's root writes a doubled separator.
    while (rest.contains(QStringLiteral("//")))
        rest.replace(QStringLiteral("//"), QStringLiteral("/"));
    return root.endsWith(u'/') ? root + rest : root + (rest.isEmpty() ? QString() : u'/' + rest);
}

} // namespace paneda
