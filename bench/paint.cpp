// Cost of composing a panel's picture, by its number of buttons, and of showing a category from its file.
//
// usage: bench_paint APP_FOLDER   (a folder with skin/)

#include "core/files/file_io.h"
#include "core/store/catalogue.h"
#include "skin/category_pictures.h"
#include "skin/panel_painter.h"
#include "skin/picture_loader.h"
#include "skin/piece_sizes.h"
#include "skin/quick_png.h"
#include "skin/skin_file.h"
#include "ui/panel/window_shape.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <vector>

using namespace paneda;

namespace {

constexpr int kRuns = 15;
constexpr int kSwitches = 200;
constexpr int kMoved = 100; // buttons of a panel that comes to a screen of another ratio

// Icons that cost what a picture at hand costs: the desktop's own look-up is not what is measured here.
class OneIcon : public IconSource {
public:
    OneIcon() : icon_(32, 32, QImage::Format_ARGB32_Premultiplied) { icon_.fill(0xFF4080C0); }
    QImage Icon(const QString&, const IconSize& size) override {
        const int pixels = size.OnScreen();
        return pixels == 32 ? icon_ : icon_.scaled(pixels, pixels);
    }

private:
    QImage icon_;
};

CatalogueList CatalogueOf(int buttons) {
    CategoryEntry category{QStringLiteral("[001] Bench"), {}, QStringLiteral("S"), std::nullopt, {}};
    GroupEntry group{QStringLiteral("[001] Group"), {}, 1};
    for (int i = 1; i <= buttons; ++i) {
        const QString name = QStringLiteral("[%1] Button %1 [C1113001411]").arg(i, 3, 10, QLatin1Char('0'));
        group.Buttons.push_back({QStringLiteral("C:\\bench\\") + name + QStringLiteral(".exe"),
                                 name,
                                 {},
                                 i,
                                 QStringLiteral("C1113001411")});
    }
    category.Groups.push_back(group);
    return {category};
}

double MedianMs(int runs, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double ComposeMs(const ThemeState& theme, const PieceSizes& sizes, int buttons, double ratio = 1) {
    const CatalogueList catalogue = CatalogueOf(buttons);
    const PanelGeometry geometry =
        LayoutPanel(catalogue, {5, PanelMetricsOf(sizes), {20'000, 1'000'000, 1'000'000}, 0, 0});
    FontChoice fonts;
    OneIcon icons;
    const DriveMap drives = DriveMap::FromMountPoints({});
    return MedianMs(kRuns, [&] {
        PaintTools tools(theme, fonts, {{}, ratio});
        ButtonSources sources{icons, drives, QStringLiteral("C:\\bench"), 5};
        PanelPainter painter({catalogue, geometry, sizes, QImage(), ratio}, tools, sources);
        painter.PaintBase(0);
    });
}

// From a new ratio to the picture in hand, with all that is read and composed on the way.
double MoveMs(const ThemeState& theme, const PieceSizes& sizes, double ratio) {
    const CatalogueList catalogue = CatalogueOf(kMoved);
    const PanelGeometry geometry =
        LayoutPanel(catalogue, {5, PanelMetricsOf(sizes), {20'000, 1'000'000, 1'000'000}, 0, 0});
    FontChoice fonts;
    OneIcon icons;
    const DriveMap drives = DriveMap::FromMountPoints({});
    return MedianMs(kRuns, [&] {
        const QTemporaryDir folder;
        CategoryPictures pictures(folder.path(),
                                  {theme,
                                   fonts,
                                   catalogue,
                                   geometry,
                                   sizes,
                                   icons,
                                   drives,
                                   QStringLiteral("C:\\bench"),
                                   {},
                                   [] { return std::vector<DriveState>(); }},
                                  CategoryPictures::Files::Keep);
        pictures.SetRatio(ratio);
        pictures.Picture(0);
    });
}

double SwitchMs(const ThemeState& theme, const PieceSizes& sizes) {
    // 400 x 600 pixels: ten units wide, as many rows as fill it.
    const CatalogueList catalogue = CatalogueOf(56);
    LayoutInput input{10.3, PanelMetricsOf(sizes), {20'000, 9300, 9300}, 0, 0};
    const PanelGeometry geometry = LayoutPanel(catalogue, input);
    FontChoice fonts;
    OneIcon icons;
    const DriveMap drives = DriveMap::FromMountPoints({});
    PaintTools tools(theme, fonts);
    ButtonSources sources{icons, drives, QStringLiteral("C:\\bench"), 10.3};
    PanelPainter painter({catalogue, geometry, sizes, QImage()}, tools, sources);
    const QImage picture = painter.PaintBase(0).copy(0, 0, 400, 600);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("category.png"));
    if (!ReplaceFile(file, QuickPng(picture, 0)))
        return -1;
    QImage window(picture.size(), QImage::Format_ARGB32_Premultiplied);
    return MedianMs(kSwitches, [&] {
        const QImage shown = LoadPicture(file);
        const QRegion shape = ShapeOf(shown, 1);
        QPainter paint(&window);
        paint.setClipRegion(shape);
        paint.setCompositionMode(QPainter::CompositionMode_Source);
        paint.drawImage(0, 0, shown);
    });
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    const auto theme = ReadSkin(QGuiApplication::arguments().value(1), QStringLiteral("Paneda Black Glass"));
    if (!theme) {
        out << theme.error().Text() << '\n';
        return 1;
    }
    const PieceSizes sizes = MeasurePieces(*theme);
    const double floor = ComposeMs(*theme, sizes, 0);
    out << QStringLiteral("an empty panel: %1 ms\n").arg(floor, 0, 'f', 2);
    double former = 0;
    for (const int buttons : {10, 100, 1000}) {
        const double perButton = (ComposeMs(*theme, sizes, buttons) - floor) / buttons;
        out << QStringLiteral("%1 buttons: %2 ms a button").arg(buttons, 5).arg(perButton, 0, 'f', 4);
        out << (former > 0 ? QStringLiteral(", %1 of the line above\n").arg(perButton / former, 0, 'f', 2)
                           : QStringLiteral("\n"));
        former = perButton;
    }
    const double once = ComposeMs(*theme, sizes, kMoved);
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const double ms = ratio == 1 ? once : ComposeMs(*theme, sizes, kMoved, ratio);
        out << QStringLiteral(
                   "a panel of %1 buttons at %2: %3 ms, %4 of that at 1; %5 ms until it can be shown\n")
                   .arg(kMoved)
                   .arg(ratio)
                   .arg(ms, 0, 'f', 1)
                   .arg(ms / once, 0, 'f', 2)
                   .arg(MoveMs(*theme, sizes, ratio), 0, 'f', 1);
    }
    out << QStringLiteral("category switch, 400 x 600: %1 ms\n").arg(SwitchMs(*theme, sizes), 0, 'f', 2);
    return 0;
}
