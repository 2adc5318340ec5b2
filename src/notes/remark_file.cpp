#include "notes/remark_file.h"

#include "core/files/ini_text.h"

namespace paneda {

namespace {

// Bytes; a file system takes 255, and the temporary file of a replacement adds to the name.
constexpr qsizetype kMaxName = 240;
const QString kEnd = QStringLiteral(".txt");
constexpr QStringView kForbidden = u"\\/:*?\"<>|";

FileResult WriteRemarkFile(const DiskPath& path) {
    IniText text;
    text.SetValue(u"Remark", u"Remark", u"");
    return ReplaceFile(path, text.Bytes());
}

// A folder of that name was made by the user.
FileResult RemoveIfFile(const DiskPath& path) {
    return LookAt(path).Kind == EntryKind::File ? WithoutProblem(RemoveFile(path)) : FileResult();
}

} // namespace

QString RemarkFileName(const QString& nodeFolderName, const QString& nodeName) {
    QString name = nodeFolderName + u' ' + nodeName;
    for (QChar& c : name) {
        if (kForbidden.contains(c) || c < u' ')
            c = u'-';
    }
    while (name.toUtf8().size() + kEnd.size() > kMaxName)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name + kEnd;
}

FileResult WriteRemark(const DiskPath& levelFolder, const QString& nodeFolderName, const QString& nodeName) {
    return WriteRemarkFile(FindEntry(levelFolder, RemarkFileName(nodeFolderName, nodeName)));
}

FileResult MoveRemark(const DiskPath& fromLevel, const QString& fromFile, const DiskPath& toLevel,
                      const QString& toFile) {
    const DiskPath from = FindEntry(fromLevel, fromFile);
    const DiskPath to = toLevel / toFile;
    if (LookAt(from).Kind == EntryKind::File && (from.Text() == to.Text() || RenameEntry(from, to)))
        return {};
    // It carries nothing: a new one is as good, where it is in the way of another or on another volume.
    if (!EntryExists(to)) {
        if (const FileResult written = WriteRemarkFile(to); !written)
            return written;
    }
    return RemoveIfFile(from);
}

FileResult RemoveRemark(const DiskPath& levelFolder, const QString& nodeFolderName, const QString& nodeName) {
    return RemoveIfFile(FindEntry(levelFolder, RemarkFileName(nodeFolderName, nodeName)));
}

} // namespace paneda
