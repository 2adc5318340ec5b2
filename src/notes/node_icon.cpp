#include "notes/node_icon.h"

#include "core/files/file_tree.h"

#include <QFileInfo>

namespace paneda {

namespace {

const QString kPng = QStringLiteral("Image.png");
const QString kIco = QStringLiteral("Image.ico");

FileResult RemoveIcon(const QString& nodeFolder, const QString& name) {
    const QString file = FindEntry(nodeFolder, name);
    return QFileInfo(file).isFile() ? RemoveTree(file) : FileResult();
}

} // namespace

FileResult CopyNodeIcon(const QString& source, const QString& nodeFolder) {
    return CopyWholeFile(source, FindEntry(nodeFolder, QStringLiteral("Image.") + source.right(3)));
}

FileResult ChangeNodeIcon(const QString& source, const QString& nodeFolder) {
    if (source.isEmpty()) {
        const FileResult png = RemoveIcon(nodeFolder, kPng);
        const FileResult ico = RemoveIcon(nodeFolder, kIco);
        return png ? ico : png;
    }
    if (const FileResult copied = CopyNodeIcon(source, nodeFolder); !copied)
        return copied;
    return RemoveIcon(nodeFolder, source.endsWith(u"ico", Qt::CaseInsensitive) ? kPng : kIco);
}

QString FaviconFile(const QString& nodeFolder) {
    return FindEntry(nodeFolder, kIco);
}

} // namespace paneda
