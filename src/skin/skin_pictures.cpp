#include "skin/skin_pictures.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

// Pictures beyond that are decoded at each use.
constexpr qint64 kMaxKeptBytes = 128 * 1024 * 1024;

// The size of a picture, if its file fits beside the bytes of those before it.
tl::expected<QSize, PictureError> MeasureWithin(const QFileInfo& file, qint64& bytes) {
    constexpr qint64 kMegabyte = 1024 * 1024;
    if (bytes + file.size() > kMaxSkinBytes)
        return tl::make_unexpected(
            PictureError{file.filePath(), QStringLiteral("The skin's pictures take more than %1 MB in all.")
                                              .arg(kMaxSkinBytes / kMegabyte)});
    bytes += file.size();
    return MeasurePicture(file.filePath());
}

} // namespace

QHash<QString, QSize> PiecesWithinLimit(std::vector<PieceFacts> pieces) {
    const auto pixels = [](const PieceFacts& piece) {
        return qint64(piece.Size.width()) * piece.Size.height();
    };
    std::stable_sort(pieces.begin(), pieces.end(),
                     [&pixels](const PieceFacts& a, const PieceFacts& b) { return pixels(a) < pixels(b); });
    QHash<QString, QSize> usable;
    qint64 sum = 0;
    for (const PieceFacts& piece : pieces) {
        sum += pixels(piece);
        if (sum > kMaxSkinPixels)
            break;
        usable.insert(piece.Name, piece.Size);
    }
    return usable;
}

PieceSurvey SurveyPieces(const ThemeState& theme) {
    PieceSurvey survey;
    std::vector<PieceFacts> pieces;
    qint64 bytes = 0;
    for (const QString& name : PieceFiles(theme.Pieces)) {
        const QFileInfo file(theme.PathOf(name));
        if (!file.exists())
            continue;
        const auto size = MeasureWithin(file, bytes);
        if (size)
            pieces.push_back({name, *size});
        else
            survey.LeftOut.push_back(size.error());
    }
    survey.Usable = PiecesWithinLimit(pieces);
    for (const PieceFacts& piece : pieces) {
        if (!survey.Usable.contains(piece.Name))
            survey.LeftOut.push_back(
                {theme.PathOf(piece.Name),
                 QStringLiteral("The skin's pictures have more than %1 million pixels in all.")
                     .arg(kMaxSkinPixels / 1'000'000)});
    }
    return survey;
}

SkinPictures::SkinPictures(const ThemeState& theme, const QSize& room, TickSource ticks)
    : theme_(theme), room_(room), time_{kMaxSkinTime, std::move(ticks)} {}

QImage SkinPictures::Get(const QString& name) {
    const auto known = pictures_.constFind(name);
    if (known != pictures_.constEnd())
        return *known;
    const QImage picture = Read(name, room_);
    if (bytes_ + picture.sizeInBytes() <= kMaxKeptBytes) {
        bytes_ += picture.sizeInBytes();
        pictures_.insert(name, picture);
    }
    return picture;
}

QImage SkinPictures::GetWhole(const QString& name) {
    return Read(name, {});
}

std::vector<PictureError> SkinPictures::TakeLeftOut() {
    return std::exchange(survey_.LeftOut, {});
}

QImage SkinPictures::Read(const QString& name, const QSize& room) {
    if (!isSurveyed_) {
        survey_ = SurveyPieces(theme_);
        isSurveyed_ = true;
    }
    if (!survey_.Usable.contains(name))
        return {};
    auto picture = ReadPicture(theme_.PathOf(name), {.Room = room}, time_);
    if (picture)
        return *picture;
    late_ = late_ || picture.error().Late;
    survey_.LeftOut.push_back(picture.error());
    survey_.Usable.remove(name);
    return {};
}

} // namespace paneda
