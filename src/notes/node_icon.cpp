#include "notes/node_icon.h"

#include "core/files/file_tree.h"
#include "core/text/text_rules.h"
#include "notes/tree_node.h"

namespace paneda {

namespace {

const QString kPng = QStringLiteral("Image.png");
const QString kIco = QStringLiteral("Image.ico");

FileResult RemoveIcon(const DiskPath& nodeFolder, const QString& name) {
    const DiskPath file = FindEntry(nodeFolder, name);
    return LookAt(file).Kind == EntryKind::File ? WithoutProblem(RemoveFile(file)) : FileResult();
}

} // namespace

QString FindNodeIcon(const DiskPath& nodeFolder) {
    // One listing for both names in all their spellings. A folder that cannot be read has no icon.
    QString ico;
    for (const DiskEntry& entry : ListEntries(nodeFolder).value_or(std::vector<DiskEntry>())) {
        if (entry.Kind != EntryKind::File)
            continue;
        if (SameName(entry.Name, kPng))
            return (nodeFolder / entry.Name).Text();
        if (ico.isEmpty() && SameName(entry.Name, kIco))
            ico = (nodeFolder / entry.Name).Text();
    }
    return ico;
}

NodeIconKind DecideNodeIcon(const QString& type, bool hasOwnPicture) {
    if (hasOwnPicture)
        return NodeIconKind::OwnPicture;
    if (type == kFileNode)
        return NodeIconKind::Target;
    return type == kUrlNode ? NodeIconKind::Favorite : NodeIconKind::Note;
}

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
