#include "organiser/new_link.h"

#include "core/files/path_conversion.h"
#include "core/store/names.h"

namespace paneda {

namespace {

// The last part of a folder's path without its separator. A file name cannot hold the colon of a drive.
QString FolderTitle(const QString& folder, const LinkPlace& place) {
    if (!folder.endsWith(u':'))
        return folder.sliced(folder.lastIndexOf(u'\\') + 1);
    const QString root = place.Drives.RootOf(folder[0]);
    const QString name = root.sliced(root.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? folder.chopped(1) : name;
}

} // namespace

TargetForms FormsOfTarget(const QString& text, const LinkPlace& place) {
    const QString stored = text.startsWith(u'/') ? place.Drives.ToStored(text) : text;
    // A host path with a backslash in it has no other form.
    if (stored.startsWith(u'/'))
        return {text, text, text};
    const QString absolute = ToAbsolutePath(stored, place.AppPath);
    const QString relative = ToRelativePath(absolute, place.AppPath);
    const QString shown = ShownTarget(absolute, place);
    // On another drive the relative form is the absolute one.
    return {relative == absolute ? shown : relative, shown, ToPathWithoutDrive(stored, place.AppPath)};
}

QString ShownTarget(const QString& stored, const LinkPlace& place) {
    // A network path keeps its backslashes.
    const QString host = stored.startsWith(u'\\') ? QString() : place.Drives.ToHost(stored, place.AppPath);
    return host.startsWith(u'/') ? host : stored;
}

LinkResult NewLink(const QString& path, bool isFolder, const LinkPlace& place) {
    LinkResult link;
    link.Target = ShownTarget(path, place);
    link.WindowState = QStringLiteral("Normal Window");
    link.Name = isFolder ? FolderTitle(path.chopped(path.isEmpty() ? 0 : 1), place)
                         : WithoutExtension(path.sliced(path.lastIndexOf(u'\\') + 1));
    return link;
}

} // namespace paneda
