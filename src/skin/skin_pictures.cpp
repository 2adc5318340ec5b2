#include "skin/skin_pictures.h"

#include "core/disk/disk_entries.h"
#include "skin/folder_names.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

namespace paneda {

namespace {

// Pictures beyond that are decoded at each use.
constexpr qint64 kMaxKeptBytes = 128 * 1024 * 1024;

// The size of a picture, if its file fits beside the bytes of those before it.
tl::expected<QSize, PictureError> MeasureWithin(const DiskPath& file, qint64 size, qint64& bytes) {
    constexpr qint64 kMegabyte = 1024 * 1024;
    if (bytes + size > kMaxSkinBytes)
        return tl::make_unexpected(
            PictureError{file.Text(), QStringLiteral("The skin's pictures take more than %1 MB in all.")
                                          .arg(kMaxSkinBytes / kMegabyte)});
    bytes += size;
    return MeasurePicture(file);
}

qint64 Pixels(const QSize& size) {
    return qint64(size.width()) * size.height();
}

qint64 PixelsOf(const QHash<QString, QSize>& pictures) {
    return std::accumulate(pictures.begin(), pictures.end(), qint64(0),
                           [](qint64 sum, const QSize& size) { return sum + Pixels(size); });
}

class Survey {
public:
    Survey(const ThemeState& theme, double ratio) : theme_(theme), ratio_(ratio) {}

    PieceSurvey Run() {
        for (const QString& name : PieceFiles(theme_.Pieces)) {
            if (const auto size = Measure(name))
                pieces_.push_back({name, *size});
        }
        if (ratio_ > kLeastRatio)
            FindDenser();
        // Larger files have what room the pieces leave.
        QHash<QString, QSize> usable = PiecesWithinLimit(pieces_);
        usable.insert(PiecesWithinLimit(denser_, kMaxSkinPixels - PixelsOf(usable)));
        pieces_.insert(pieces_.end(), denser_.begin(), denser_.end());
        for (const PieceFacts& piece : pieces_) {
            if (!usable.contains(piece.Name))
                LeaveOut(piece.Name,
                         QStringLiteral("The skin's pictures have more than %1 million pixels in all.")
                             .arg(kMaxSkinPixels / 1'000'000));
        }
        found_.Denser.removeIf([&usable](const auto& entry) { return !usable.contains(entry->Name); });
        found_.Usable = usable;
        return found_;
    }

private:
    // No value for a file that does not exist, and for one that is left out.
    std::optional<QSize> Measure(const QString& name) {
        const DiskPath file = theme_.PathOf(name);
        const EntryState state = LookAt(file);
        if (state.Kind == EntryKind::Missing)
            return std::nullopt;
        const auto size = MeasureWithin(file, state.Size, bytes_);
        if (size)
            return *size;
        found_.LeftOut.push_back(size.error());
        return std::nullopt;
    }

    void FindDenser() {
        const FolderNames folder(theme_.SkinPath);
        for (const PieceFacts& piece : pieces_) {
            const QString stem = piece.Name.left(piece.Name.lastIndexOf(u'.'));
            for (const DenserFile& wanted : DenserNames(stem, ratio_)) {
                const DenserFile file{PickPieceFile(wanted.Name, folder), wanted.Density};
                const auto size = Measure(file.Name);
                if (!size)
                    continue;
                if (*size != piece.Size * file.Density) {
                    LeaveOut(file.Name,
                             QStringLiteral("The picture does not have exactly %1 times the width and "
                                            "height of %2.")
                                 .arg(file.Density)
                                 .arg(piece.Name));
                    continue;
                }
                denser_.push_back({file.Name, *size});
                found_.Denser.insert(piece.Name, file);
                break;
            }
        }
    }

    void LeaveOut(const QString& name, const QString& reason) {
        found_.LeftOut.push_back({theme_.PathOf(name).Text(), reason});
    }

    const ThemeState& theme_;
    double ratio_;
    qint64 bytes_ = 0;
    std::vector<PieceFacts> pieces_;
    std::vector<PieceFacts> denser_;
    PieceSurvey found_;
};

} // namespace

QHash<QString, QSize> PiecesWithinLimit(std::vector<PieceFacts> pieces, qint64 limit) {
    const auto pixels = [](const PieceFacts& piece) { return Pixels(piece.Size); };
    std::stable_sort(pieces.begin(), pieces.end(),
                     [&pixels](const PieceFacts& a, const PieceFacts& b) { return pixels(a) < pixels(b); });
    QHash<QString, QSize> usable;
    qint64 sum = 0;
    for (const PieceFacts& piece : pieces) {
        sum += pixels(piece);
        if (sum > limit)
            break;
        usable.insert(piece.Name, piece.Size);
    }
    return usable;
}

std::vector<DenserFile> DenserNames(const QString& stem, double ratio) {
    if (ratio <= kLeastRatio)
        return {};
    std::vector<DenserFile> files{{stem + QStringLiteral("@2x"), 2}, {stem + QStringLiteral("@3x"), 3}};
    // Scaled down a picture stays sharp, scaled up it does not.
    if (ratio > 2)
        std::swap(files.front(), files.back());
    return files;
}

DensePicture LoadOwnPicture(const QString& path, double ratio) {
    const QString extension = QStringLiteral(".png");
    std::vector<DenserFile> files = DenserNames(path.chopped(extension.size()), ratio);
    files.push_back({path.chopped(extension.size()), 1});
    for (const DenserFile& file : files) {
        QImage picture(file.Name + extension);
        if (picture.isNull())
            continue;
        // Qt knows some of these names and sets a ratio, by which painters would scale the picture.
        picture.setDevicePixelRatio(1);
        return {std::move(picture), double(file.Density)};
    }
    return {};
}

PieceSurvey SurveyPieces(const ThemeState& theme, double ratio) {
    return Survey(theme, ratio).Run();
}

SkinPictures::SkinPictures(const ThemeState& theme, const Canvas& canvas, const TickSource& ticks)
    : theme_(theme), canvas_(canvas), time_{kMaxSkinTime, ticks}, denserTime_{kMaxDenserTime, ticks} {}

DensePicture SkinPictures::Get(const QString& name) {
    const auto known = pictures_.constFind(name);
    if (known != pictures_.constEnd())
        return *known;
    const DensePicture picture = Read(name, canvas_.Pixels);
    if (bytes_ + picture.Image.sizeInBytes() <= kMaxKeptBytes) {
        bytes_ += picture.Image.sizeInBytes();
        pictures_.insert(name, picture);
    }
    return picture;
}

DensePicture SkinPictures::GetWhole(const QString& name) {
    return Read(name, {});
}

std::vector<PictureError> SkinPictures::TakeLeftOut() {
    return std::exchange(survey_.LeftOut, {});
}

DensePicture SkinPictures::Read(const QString& name, const QSize& room) {
    if (!isSurveyed_) {
        survey_ = SurveyPieces(theme_, canvas_.Ratio);
        isSurveyed_ = true;
    }
    if (!survey_.Usable.contains(name))
        return {};
    if (const auto denser = survey_.Denser.constFind(name); denser != survey_.Denser.constEnd()) {
        const int density = denser->Density;
        if (QImage picture = ReadFile(denser->Name, room * density, denserTime_); !picture.isNull())
            return {std::move(picture), double(density)};
        survey_.Denser.remove(name);
    }
    QImage picture = ReadFile(name, room, time_);
    if (picture.isNull())
        survey_.Usable.remove(name);
    return picture;
}

QImage SkinPictures::ReadFile(const QString& name, const QSize& room, DecodingTime& time) {
    auto picture = ReadPicture(theme_.PathOf(name), {.Room = room}, time);
    if (picture)
        return *picture;
    late_ = late_ || picture.error().Late;
    survey_.LeftOut.push_back(picture.error());
    return {};
}

} // namespace paneda
