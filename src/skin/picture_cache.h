#pragma once

#include "core/files/file_io.h"

#include <QImage>
#include <QString>

namespace paneda {

// The finished pictures of the categories on disk, PNG files of the window's size: category002.png for the
// second category, category002a.png for the same without the titles on its bars. The first category has two
// pairs: number 0 as it was composed, number 1 with the data of its drives, which is the one that is shown.
enum class PictureKind { Finished, Base };

// Number of the picture that shows the category at this index.
constexpr int ShownPicture(int category) {
    return category + 1;
}

// Number of the picture that is composed for it.
constexpr int ComposedPicture(int category) {
    return category == 0 ? 0 : category + 1;
}

QString CategoryPictureName(int number, PictureKind kind);

// Premultiplied ARGB; null if it is missing or damaged.
QImage LoadCategoryPicture(const QString& folder, int number, PictureKind kind);

FileResult SaveCategoryPicture(const QString& folder, int number, PictureKind kind, const QImage& picture);

} // namespace paneda
