#include "skin/category_pictures.h"

#include "core/files/file_io.h"
#include "skin/picture_loader.h"
#include "skin/quick_png.h"

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

constexpr int kWithoutDrives = 0; // number of the first category's picture before its drives are drawn

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
    explicit Composition(const PictureSources& from)
        : tools_(from.Theme, from.Fonts,
                 {TwipsToPixels(from.Geometry.PanelWidth), TwipsToPixels(from.Geometry.PanelHeight)},
                 from.DecodingTicks)
        , buttons_{from.Icons,   from.Drives,
                   from.AppPath, from.Geometry.ButtonsPerRow,
                   {},           {kMaxButtonPicturesTime, from.DecodingTicks}}
        , painter_(
              {from.Catalogue, from.Geometry, from.Sizes, from.Logo.isEmpty() ? QImage() : QImage(from.Logo)},
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
    , window_(TwipsToPixels(sources_.Geometry.PanelWidth), TwipsToPixels(sources_.Geometry.PanelHeight))
    , onFile_(sources_.Catalogue.size(), files == Files::Keep) {
    if (files == Files::Drop)
        DropFiles();
}

CategoryPictures::~CategoryPictures() = default;

QString CategoryPictures::PathOf(int number, Kind kind) const {
    return folder_ + QStringLiteral("/category%1%2.png")
                         .arg(number, 3, 10, QLatin1Char('0'))
                         .arg(kind == Kind::Base ? QStringLiteral("a") : QString());
}

void CategoryPictures::DropFiles() const {
    static const QRegularExpression picture(QStringLiteral("^category[0-9]+a?\\.png$"));
    for (const QString& name : ListFiles(folder_)) {
        if (name.contains(picture))
            QFile::remove(folder_ + u'/' + name);
    }
}

QImage CategoryPictures::Load(int number, Kind kind) const {
    QImage picture = LoadPicture(PathOf(number, kind));
    return picture.size() == window_ ? picture : QImage();
}

FileResult CategoryPictures::Save(int number, Kind kind, const QImage& picture) const {
    return ReplaceFile(PathOf(number, kind),
                       QuickPng(picture, kind == Kind::Finished ? kUnpacked : kQuicklyPacked));
}

QImage CategoryPictures::Picture(int category) {
    if (category < 0)
        return Painter().PaintFrame();
    const QImage picture =
        onFile_[std::size_t(category)] ? Load(ShownNumber(category), Kind::Finished) : QImage();
    if (picture.isNull() && unsavedCategory_ == category)
        return unsaved_;
    return picture.isNull() ? Compose(category) : picture;
}

PanelPainter& CategoryPictures::Painter() {
    if (!composition_)
        composition_ = std::make_unique<Composition>(sources_);
    return composition_->Painter();
}

QImage CategoryPictures::Compose(int category) {
    PanelPainter& painter = Painter();
    composition_->BeginCategory();
    const QImage base = painter.PaintBase(category);
    DrawingSurface surface(base);
    painter.DrawBarTitles(surface, category);
    const int number = ComposedNumber(category);
    const bool whole = !composition_->WasLate();
    const auto isOnFile = onFile_.begin() + category;
    *isOnFile = whole && Save(number, Kind::Base, base) && Save(number, Kind::Finished, surface.Image());
    const QImage shown = category == 0 ? KeepWithDrives(base, surface.Image()) : surface.Image();
    if (whole)
        canSave_ = *isOnFile;
    unsavedCategory_ = *isOnFile ? -1 : category;
    unsaved_ = *isOnFile ? QImage() : shown;
    return shown;
}

QImage CategoryPictures::KeepWithDrives(const QImage& base, const QImage& finished) {
    const std::vector<DriveState> drives = sources_.ReadDrives();
    PaintTools tools(sources_.Theme, sources_.Fonts);
    const auto keep = [&](const QImage& composed, Kind kind) {
        DrawingSurface surface(composed);
        for (const DriveState& drive : drives)
            DrawDrive(surface, drive.Button, drive.Info, tools);
        onFile_[0] = onFile_[0] && Save(ShownNumber(0), kind, surface.Image());
        return surface.Image();
    };
    keep(base, Kind::Base);
    return keep(finished, Kind::Finished);
}

void CategoryPictures::RefleshPanel() {
    if (onFile_.empty())
        return;
    const QImage base = onFile_[0] ? Load(kWithoutDrives, Kind::Base) : QImage();
    const QImage finished = onFile_[0] ? Load(kWithoutDrives, Kind::Finished) : QImage();
    if (base.isNull() || finished.isNull())
        Compose(0);
    else
        KeepWithDrives(base, finished);
}

std::vector<FileError> CategoryPictures::RedrawBarTitles() {
    std::vector<FileError> failures;
    unsavedCategory_ = -1;
    const int last = int(onFile_.size());
    for (int number = kWithoutDrives; number <= last; ++number) {
        const int category = std::max(number - 1, 0);
        const QImage base =
            category < last && onFile_[std::size_t(category)] ? Load(number, Kind::Base) : QImage();
        if (base.isNull())
            continue;
        DrawingSurface surface(base);
        Painter().DrawBarTitles(surface, category);
        const FileResult saved = Save(number, Kind::Finished, surface.Image());
        if (!saved)
            failures.push_back(saved.error());
    }
    return failures;
}

bool CategoryPictures::PrepareNext() {
    const bool late = composition_ && composition_->SkinWasLate();
    while (canSave_ && !late && next_ < int(onFile_.size())) {
        const int category = next_++;
        if (onFile_[std::size_t(category)] && QFile::exists(PathOf(ShownNumber(category), Kind::Finished)))
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
