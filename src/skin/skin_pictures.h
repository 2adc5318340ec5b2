#pragma once

#include "skin/dense_picture.h"
#include "skin/picture_loader.h"
#include "skin/theme_state.h"

#include <QHash>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>
#include <vector>

namespace paneda {

// What a skin may ask for. Of those installed with the program the largest has 660,000 pixels.
inline constexpr qint64 kMaxSkinPixels = 64'000'000;              // of all its pictures
inline constexpr qint64 kMaxSkinBytes = qint64(64) * 1024 * 1024; // of all its pictures' files
inline constexpr quint32 kMaxSkinTime = 1000;  // milliseconds for decoding all pictures of one composition
inline constexpr quint32 kMaxDenserTime = 500; // and for the larger ones that are drawn instead

// A picture that can be decoded, by the file's name in the skin's folder.
struct PieceFacts {
    QString Name;
    QSize Size; // pixels
};

// The pictures among these that are within a limit of pixels, counted from the smallest on, so that one huge
// picture keeps out none of the others.
QHash<QString, QSize> PiecesWithinLimit(std::vector<PieceFacts> pieces, qint64 limit = kMaxSkinPixels);

// A file that shows the same as a piece with more pixels: `top@2x.png` has two for each of `top.png`, on each
// axis.
struct DenserFile {
    QString Name; // in the skin's folder
    int Density = 2;
};

// Files that are looked for beside a piece that is shown at this ratio, best first. None at 1.
std::vector<DenserFile> DenserNames(const QString& stem, double ratio);

// A picture of the program's own for a screen of that ratio: the densest of the files that suit it. Null if
// it is missing. `path` ends in ".png".
DensePicture LoadOwnPicture(const QString& path, double ratio);

// A skin's pictures before any is decoded.
struct PieceSurvey {
    QHash<QString, QSize> Usable;      // by the file's name in the skin's folder, in pixels
    QHash<QString, DenserFile> Denser; // by the piece's name: what is drawn instead
    std::vector<PictureError> LeftOut;
};

// Reads the files of the pieces, and of those that show them at this ratio. One that does not exist is
// neither usable nor left out.
PieceSurvey SurveyPieces(const ThemeState& theme, double ratio = kLeastRatio);

// The skin's pictures of one composition, each decoded once. Made for it and dropped after it, so that the
// next one reads a picture that has changed on disk.
class SkinPictures {
public:
    // Of a picture, what is larger than the canvas, at the right and below, is not kept.
    explicit SkinPictures(const ThemeState& theme, const Canvas& canvas = {},
                          const TickSource& ticks = ProcessorTick);

    // A piece, for drawing tiled or at its own size; null if the skin lacks it, and if it is left out.
    DensePicture Get(const QString& name);

    // A whole piece, which is not kept.
    DensePicture GetWhole(const QString& name);

    // The pictures that have been left out since the last call.
    std::vector<PictureError> TakeLeftOut();

    // Whether pictures are missing that may be there another time.
    bool WasLate() const { return late_; }

private:
    DensePicture Read(const QString& name, const QSize& room);
    QImage ReadFile(const QString& name, const QSize& room, DecodingTime& time);

    const ThemeState& theme_;
    Canvas canvas_;
    bool isSurveyed_ = false;
    PieceSurvey survey_;
    DecodingTime time_;
    DecodingTime denserTime_;
    bool late_ = false;
    QHash<QString, DensePicture> pictures_;
    qint64 bytes_ = 0;
};

} // namespace paneda
