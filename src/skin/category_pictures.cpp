#include "skin/category_pictures.h"

#include "core/files/file_io.h"
#include "skin/picture_loader.h"
#include "skin/quick_png.h"
#include "skin/skin_pictures.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

// A shown picture is read at each switch of category, which unpacking would make three times as long; one
// without titles is hardly ever read.
constexpr int kUnpacked = 0;
constexpr int kQuicklyPacked = 1;

constexpr int kRatioDigits = 6;   // of a ratio in the names of files
constexpr int kWithoutDrives = 0; // number of the first category's picture before its drives are drawn

// Sets of pictures that are kept, which are a few megabytes each.
constexpr qsizetype kMostRatios = 4;

const QString kExtension = QStringLiteral(".png");

// Whether a file is one of the pictures; captures the mark of a ratio other than 1.
QRegularExpressionMatch PictureName(const QString& name) {
    static const QRegularExpression picture(QStringLiteral("^category[0-9]+a?(@[0-9.]+x)?\\.png$"));
    return picture.match(name);
}

// Number of the picture that shows a category.
int ShownNumber(int category) {
    return category + 1;
}

// Number of the picture that is composed for it.
int ComposedNumber(int category) {
    return category == 0 ? kWithoutDrives : ShownNumber(category);
}

} // namespace

// Everything that composing takes, held together while it is needed.
class CategoryPictures::Composition {
public:
    Composition(const PictureSources& from, const Canvas& window)
        : tools_(from.Theme, from.Fonts, window, from.DecodingTicks)
        , buttons_{from.Icons,   from.Drives,
                   from.AppPath, from.Geometry.ButtonsPerRow,
                   {},           {kMaxButtonPicturesTime, from.DecodingTicks}}
        , painter_({from.Catalogue, from.Geometry, from.Sizes,
                    from.Logo.isEmpty() ? DensePicture() : LoadOwnPicture(from.Logo, window.Ratio),
                    window.Ratio},
                   tools_, buttons_) {}

    PanelPainter& Painter() { return painter_; }

    // Each category has the whole time for the pictures of its buttons.
    void BeginCategory() {
        buttons_.Time.Left = kMaxButtonPicturesTime;
        buttonsBefore_ = buttons_.LeftOut.size();
    }

    // Whether the category lacks a picture that may be there another time.
    bool WasLate() const {
        return SkinWasLate() ||
               std::any_of(buttons_.LeftOut.begin() + std::ptrdiff_t(buttonsBefore_), buttons_.LeftOut.end(),
                           [](const PictureError& error) { return error.Late; });
    }
    bool SkinWasLate() const { return tools_.Pictures.WasLate(); }

    void MoveLeftOut(std::vector<PictureError>& to) {
        for (auto& from : {tools_.Pictures.TakeLeftOut(), std::exchange(buttons_.LeftOut, {})})
            to.insert(to.end(), from.begin(), from.end());
        buttonsBefore_ = 0;
    }

private:
    PaintTools tools_;
    ButtonSources buttons_;
    PanelPainter painter_;
    std::size_t buttonsBefore_ = 0; // left out before this category
};

CategoryPictures::CategoryPictures(const QString& folder, PictureSources sources, Files files)
    : folder_(folder)
    , sources_(std::move(sources))
    , window_{{TwipsToPixels(sources_.Geometry.PanelWidth), TwipsToPixels(sources_.Geometry.PanelHeight)}}
    , files_(files) {
    if (files == Files::Drop)
        DropFiles({});
}

CategoryPictures::~CategoryPictures() = default;

void CategoryPictures::SetRatio(double ratio) {
    if (ratio == window_.Ratio)
        return;
    KeepComposed();
    if (composition_)
        composition_->MoveLeftOut(leftOut_);
    composition_.reset();
    window_.Ratio = ratio;
    composed_ = {};
    canSave_ = true;
    next_ = 0;
}

// Of the ratios the present one is kept, and those that were composed last.
void CategoryPictures::DropOldRatios() const {
    QStringList kept{NameEnd()};
    for (const QString& name : QDir(folder_).entryList(QDir::Files, QDir::Time)) {
        const QRegularExpressionMatch match = PictureName(name);
        const QString end = match.captured(1) + kExtension;
        if (match.hasMatch() && !kept.contains(end) && kept.size() < kMostRatios)
            kept.append(end);
    }
    DropFiles(kept);
}

std::vector<bool>& CategoryPictures::OnFile() {
    const std::vector<bool> fresh(sources_.Catalogue.size(), files_ == Files::Keep);
    return onFile_.try_emplace(window_.Ratio, fresh).first->second;
}

// How the names of files of the present ratio end.
QString CategoryPictures::NameEnd() const {
    const QString ratio = QString::number(window_.Ratio, 'g', kRatioDigits);
    return (window_.Ratio == kLeastRatio ? QString() : u'@' + ratio + u'x') + kExtension;
}

QString CategoryPictures::PathOf(int number, Kind kind) const {
    return folder_ +
           QStringLiteral("/category%1%2")
               .arg(number, 3, 10, QLatin1Char('0'))
               .arg(kind == Kind::Base ? QStringLiteral("a") : QString()) +
           NameEnd();
}

// Removes all pictures, but for those whose names have one of these ends.
void CategoryPictures::DropFiles(const QStringList& keptEnds) const {
    for (const QString& name : ListFiles(folder_)) {
        const QRegularExpressionMatch match = PictureName(name);
        if (match.hasMatch() && !keptEnds.contains(match.captured(1) + kExtension))
            QFile::remove(folder_ + u'/' + name);
    }
}

QImage CategoryPictures::Load(int number, Kind kind) const {
    const QSize size = DeviceSize(window_.Pixels, window_.Ratio);
    DecodingTime time;
    const PictureWish wish{.MaxSide = std::max({kMaxPictureSide, size.width(), size.height()})};
    const QImage picture = ReadPicture(PathOf(number, kind), wish, time).value_or(QImage());
    return picture.size() == size ? picture : QImage();
}

FileResult CategoryPictures::Save(int number, Kind kind, const QImage& picture) const {
    return ReplaceFile(PathOf(number, kind),
                       QuickPng(picture, kind == Kind::Finished ? kUnpacked : kQuicklyPacked));
}

QImage CategoryPictures::Picture(int category) {
    if (category < 0)
        return Painter().PaintFrame();
    const QImage picture =
        OnFile()[std::size_t(category)] ? Load(ShownNumber(category), Kind::Finished) : QImage();
    if (picture.isNull() && composed_.Category == category)
        return composed_.Pairs.back().Finished;
    return picture.isNull() ? Compose(category) : picture;
}

PanelPainter& CategoryPictures::Painter() {
    if (!composition_) {
        DropOldRatios();
        composition_ = std::make_unique<Composition>(sources_, window_);
    }
    return composition_->Painter();
}

QImage CategoryPictures::Compose(int category) {
    KeepComposed();
    PanelPainter& painter = Painter();
    composition_->BeginCategory();
    const QImage base = painter.PaintBase(category);
    DrawingSurface surface(base, window_.Ratio);
    painter.DrawBarTitles(surface, category);
    composed_ = {
        category, !composition_->WasLate(), false, {{ComposedNumber(category), base, surface.Image()}}};
    if (category == 0)
        composed_.Pairs.push_back(WithDrives(composed_.Pairs[0]));
    OnFile()[std::size_t(category)] = false;
    return composed_.Pairs.back().Finished;
}

CategoryPictures::Pair CategoryPictures::WithDrives(const Pair& composed) {
    const std::vector<DriveState> drives = sources_.ReadDrives();
    PaintTools tools(sources_.Theme, sources_.Fonts, window_);
    const auto draw = [&](const QImage& picture) {
        DrawingSurface surface(picture, window_.Ratio);
        for (const DriveState& drive : drives)
            DrawDrive(surface, drive.Button, drive.Info, tools);
        return surface.Image();
    };
    return {ShownNumber(0), draw(composed.Base), draw(composed.Finished)};
}

bool CategoryPictures::SavePair(const Pair& pair) const {
    return Save(pair.Number, Kind::Base, pair.Base) && Save(pair.Number, Kind::Finished, pair.Finished);
}

// Writes what was composed last, once. What cannot be written stays in memory, for that category alone.
bool CategoryPictures::KeepComposed() {
    if (composed_.Category < 0 || !composed_.Whole || std::exchange(composed_.Tried, true))
        return false;
    canSave_ = std::all_of(composed_.Pairs.begin(), composed_.Pairs.end(),
                           [this](const Pair& pair) { return SavePair(pair); });
    OnFile()[std::size_t(composed_.Category)] = canSave_;
    if (canSave_)
        composed_ = {};
    return canSave_;
}

void CategoryPictures::RefleshPanel() {
    if (sources_.Catalogue.empty())
        return;
    if (composed_.Category == 0) {
        composed_.Pairs[1] = WithDrives(composed_.Pairs[0]);
        return;
    }
    const QImage base = OnFile()[0] ? Load(kWithoutDrives, Kind::Base) : QImage();
    const QImage finished = OnFile()[0] ? Load(kWithoutDrives, Kind::Finished) : QImage();
    if (base.isNull() || finished.isNull())
        Compose(0);
    else
        OnFile()[0] = SavePair(WithDrives({kWithoutDrives, base, finished}));
}

std::vector<FileError> CategoryPictures::RedrawBarTitles() {
    std::vector<FileError> failures;
    KeepComposed();
    composed_ = {};
    DropFiles({NameEnd()});
    files_ = Files::Drop;
    onFile_ = {{window_.Ratio, OnFile()}};
    const int last = int(sources_.Catalogue.size());
    for (int number = kWithoutDrives; number <= last; ++number) {
        const int category = std::max(number - 1, 0);
        const QImage base =
            category < last && OnFile()[std::size_t(category)] ? Load(number, Kind::Base) : QImage();
        if (base.isNull())
            continue;
        DrawingSurface surface(base, window_.Ratio);
        Painter().DrawBarTitles(surface, category);
        const FileResult saved = Save(number, Kind::Finished, surface.Image());
        if (!saved)
            failures.push_back(saved.error());
    }
    return failures;
}

bool CategoryPictures::PrepareNext() {
    if (KeepComposed())
        return true;
    const bool late = composition_ && composition_->SkinWasLate();
    while (canSave_ && !late && next_ < int(sources_.Catalogue.size())) {
        const int category = next_++;
        if (OnFile()[std::size_t(category)] && QFile::exists(PathOf(ShownNumber(category), Kind::Finished)))
            continue;
        Compose(category);
        return true;
    }
    if (composition_ && !late) {
        composition_->MoveLeftOut(leftOut_);
        composition_.reset();
    }
    return false;
}

std::vector<PictureError> CategoryPictures::TakeLeftOut() {
    if (composition_)
        composition_->MoveLeftOut(leftOut_);
    return std::exchange(leftOut_, {});
}

} // namespace paneda
