#include "skin/category_pictures.h"

#include "core/files/file_io.h"
#include "skin/picture_loader.h"
#include "skin/quick_png.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

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
        : tools_(from.Theme, from.Fonts)
        , buttons_{from.Icons, from.Drives, from.AppPath, from.Geometry.ButtonsPerRow}
        , painter_(
              {from.Catalogue, from.Geometry, from.Sizes, from.Logo.isEmpty() ? QImage() : QImage(from.Logo)},
              tools_, buttons_) {}

    PanelPainter& Painter() { return painter_; }

private:
    PaintTools tools_;
    ButtonSources buttons_;
    PanelPainter painter_;
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
    return picture.isNull() ? Compose(category) : picture;
}

PanelPainter& CategoryPictures::Painter() {
    if (!composition_)
        composition_ = std::make_unique<Composition>(sources_);
    return composition_->Painter();
}

QImage CategoryPictures::Compose(int category) {
    const QImage base = Painter().PaintBase(category);
    DrawingSurface surface(base);
    Painter().DrawBarTitles(surface, category);
    const int number = ComposedNumber(category);
    canSave_ = Save(number, Kind::Base, base) && Save(number, Kind::Finished, surface.Image());
    onFile_[std::size_t(category)] = canSave_;
    return category == 0 ? KeepWithDrives(base, surface.Image()) : surface.Image();
}

QImage CategoryPictures::KeepWithDrives(const QImage& base, const QImage& finished) {
    const std::vector<DriveState> drives = sources_.ReadDrives();
    PaintTools tools(sources_.Theme, sources_.Fonts);
    const auto keep = [&](const QImage& composed, Kind kind) {
        DrawingSurface surface(composed);
        for (const DriveState& drive : drives)
            DrawDrive(surface, drive.Button, drive.Info, tools);
        canSave_ = canSave_ && Save(ShownNumber(0), kind, surface.Image());
        return surface.Image();
    };
    keep(base, Kind::Base);
    const QImage shown = keep(finished, Kind::Finished);
    onFile_[0] = canSave_;
    return shown;
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
    while (canSave_ && next_ < int(onFile_.size())) {
        const int category = next_++;
        if (onFile_[std::size_t(category)] && QFile::exists(PathOf(ShownNumber(category), Kind::Finished)))
            continue;
        Compose(category);
        return true;
    }
    composition_.reset();
    return false;
}

} // namespace paneda
