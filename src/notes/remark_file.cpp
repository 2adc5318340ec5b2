#include "notes/remark_file.h"

#include "core/files/file_tree.h"
#include "core/files/ini_text.h"
#include <QFileInfo>

namespace paneda {

namespace {

// Bytes; a file system takes 255, and the temporary file of a replacement adds to the name.
constexpr qsizetype kMaxName = 240;
const QString kEnd = QStringLiteral(".txt");
constexpr QStringView kForbidden = u"\\/:*?\"<>|";

FileResult WriteRemarkFile(const QString& path) {
    IniText text;
    text.SetValue(u"Remark", u"Remark", u"");
    return ReplaceFile(path, text.Bytes());
}

// A folder of that name was made by the user.
FileResult RemoveFile(const QString& path) {
    return QFileInfo(path).isFile() ? RemoveTree(path) : FileResult();
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

FileResult WriteRemark(const QString& levelFolder, const QString& nodeFolderName, const QString& nodeName) {
    return WriteRemarkFile(FindEntry(levelFolder, RemarkFileName(nodeFolderName, nodeName)));
}

FileResult MoveRemark(const QString& fromLevel, const QString& fromFile, const QString& toLevel,
                      const QString& toFile) {
    const QString from = FindEntry(fromLevel, fromFile);
    const QString to = toLevel + u'/' + toFile;
    if (QFileInfo(from).isFile() && (from == to || RenameEntry(from, to)))
        return {};
    // It carries nothing: a new one is as good, where it is in the way of another or on another volume.
    if (!EntryExists(to)) {
        if (const FileResult written = WriteRemarkFile(to); !written)
            return written;
    }
    return RemoveFile(from);
}

FileResult RemoveRemark(const QString& levelFolder, const QString& nodeFolderName, const QString& nodeName) {
    return RemoveFile(FindEntry(levelFolder, RemarkFileName(nodeFolderName, nodeName)));
}

} // namespace paneda
