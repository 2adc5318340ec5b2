#include "notes/node_icon.h"

#include "core/files/file_tree.h"

namespace paneda {

namespace {

const QString kPng = QStringLiteral("Image.png");
const QString kIco = QStringLiteral("Image.ico");

FileResult RemoveIcon(const DiskPath& nodeFolder, const QString& name) {
    const DiskPath file = FindEntry(nodeFolder, name);
    return LookAt(file).Kind == EntryKind::File ? WithoutProblem(RemoveFile(file)) : FileResult();
}

} // namespace

FileResult CopyNodeIcon(const QString& source, const DiskPath& nodeFolder) {
    return CopyWholeFile(source, FindEntry(nodeFolder, QStringLiteral("Image.") + source.right(3)));
}

FileResult ChangeNodeIcon(const QString& source, const DiskPath& nodeFolder) {
    if (source.isEmpty()) {
        const FileResult png = RemoveIcon(nodeFolder, kPng);
        const FileResult ico = RemoveIcon(nodeFolder, kIco);
        return png ? ico : png;
    }
    if (const FileResult copied = CopyNodeIcon(source, nodeFolder); !copied)
        return copied;
    return RemoveIcon(nodeFolder, source.endsWith(u"ico", Qt::CaseInsensitive) ? kPng : kIco);
}

DiskPath FaviconFile(const DiskPath& nodeFolder) {
    return FindEntry(nodeFolder, kIco);
}

} // namespace paneda
