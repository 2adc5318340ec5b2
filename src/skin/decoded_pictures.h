#pragma once

#include <QHash>
#include <QImage>
#include <QString>

namespace paneda {

// The skin's pictures of one composition, each decoded once. Made for it and dropped after it, so that the
// next one reads a picture that has changed on disk.
class DecodedPictures {
public:
    // As LoadPicture; null for an empty path.
    QImage Get(const QString& path);

private:
    QHash<QString, QImage> pictures_;
    qint64 bytes_ = 0;
};

} // namespace paneda
