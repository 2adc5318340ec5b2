#include "skin/picture_files.h"

#include "core/store/names.h"
#include "core/text/text_rules.h"
#include "skin/picture_loader.h"

#include <QFile>

namespace paneda {

namespace {

QString FolderOf(const QString& path) {
    return path.first(path.lastIndexOf(u'/') + 1);
}

QString FileNameOf(const QString& path) {
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

QString FindIn(const FolderNames& names, const QString& stem) {
    for (const QStringView extension : kPictureExtensions) {
        const QString name = names.Find(FileNameOf(stem) + u'.' + extension);
        if (!name.isEmpty())
            return FolderOf(stem) + name;
    }
    return {};
}

} // namespace

// A point in a folder's name begins no extension.
QString PictureStem(const QString& path) {
    return FolderOf(path) + WithoutExtension(FileNameOf(path));
}

QString FindPictureFile(const QString& stem) {
    return FindIn(FolderNames(FolderOf(stem)), stem);
}

QString PictureFinder::Find(const QString& stem) {
    const QString folder = FolderOf(stem);
    if (folder != folder_) {
        folder_ = folder;
        names_ = FolderNames(folder);
    }
    return FindIn(names_, stem);
}

FileResult DeletePictureFile(const QString& stem) {
    const QString picture = FindPictureFile(stem);
    if (picture.isEmpty())
        return {};
    QFile file(picture);
    return file.remove() ? FileResult() : Failure(picture, file.errorString());
}

TwipsSize ImageSizeTwips(const QString& path) {
    const QSize size = ReadPictureSize(path);
    return size.isEmpty() ? TwipsSize{}
                          : TwipsSize{PixelsToTwips(size.width()), PixelsToTwips(size.height())};
}

} // namespace paneda
