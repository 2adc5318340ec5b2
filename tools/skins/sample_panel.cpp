#include "sample_panel.h"

#include "skin/category_pictures.h"
#include "skin/piece_sizes.h"
#include "skin/skin_file.h"

#include <QHash>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>

namespace paneda {

namespace {

// Style codes (see core/store/style_code.h).
const QString kBig = QStringLiteral("11113001100");
const QString kList = QStringLiteral("C0213001411");
const QString kWide = QStringLiteral("C1113001411");
const QString kTiny = QStringLiteral("0021300110");
const QString kShort = QStringLiteral("11223003811");

const QString kAppPath = QStringLiteral("C:\\sample"); // in the stored form
constexpr int kMargin = 14;                            // pixels of desktop around the panel
constexpr double kGigabyte = 1024.0 * 1024 * 1024;
// Twips; room enough for the whole panel.
constexpr ScreenMetrics kScreen{24'000, 18'000, 18'000};

struct SampleButton {
    QString Style;
    QString Caption;
    QString Icon; // of the icon library
};

struct SampleGroup {
    QString Title;
    std::vector<SampleButton> Buttons;
};

std::vector<SampleGroup> SampleGroups() {
    const auto text = [](const char* letters) { return QString::fromLatin1(letters); };
    std::vector<SampleButton> favourites;
    for (const char* icon :
         {"Documents/Folder", "Internet/Globe", "Internet/Mail", "Tools/Terminal", "Media/Photo",
          "Media/Music", "Office/Calendar", "Office/Bar Chart", "Tools/Settings", "People/Coffee"})
        favourites.push_back({kBig, {}, text(icon)});
    return {{text("Favourites"), favourites},
            {text("Documents"),
             {{kList, text("Letters"), text("Documents/Text")},
              {kList, text("Invoices"), text("Documents/Spreadsheet")},
              {kList, text("Holiday plan"), text("Office/Calendar")},
              {kList, text("Sketches"), text("Tools/Brush")},
              {kWide, text("Contacts"), text("Devices/Phone")},
              {kWide, text("Archive"), text("Documents/Archive")}}},
            {text("Media"),
             {{kBig, {}, text("Media/Play")},
              {kBig, {}, text("Media/Headphones")},
              {kTiny, {}, text("Media/Radio")},
              {kTiny, {}, text("Media/Film")},
              {kTiny, {}, text("Media/Palette")},
              {kTiny, {}, text("Media/Microphone")},
              {kShort, text("Play"), text("Devices/Game Controller")},
              {kShort, text("Chat"), text("Internet/Chat")}}}};
}

// The sample as a catalogue, with the icons of its buttons by their paths.
struct SampleStore {
    CatalogueList Catalogue;
    QHash<QString, QString> Icons;
};

SampleStore MakeSampleStore(bool words) {
    const auto name = [words](int number, const QString& title) {
        return QStringLiteral("[%1] %2").arg(number, 3, 10, QLatin1Char('0')).arg(words ? title : QString());
    };
    SampleStore store;
    CategoryEntry programs{name(1, QStringLiteral("Programs")), {}, QStringLiteral("S"), std::nullopt, {}};
    int control = 0;
    for (const SampleGroup& group : SampleGroups()) {
        GroupEntry& entry = programs.Groups.emplace_back();
        entry.ControlIndex = int(programs.Groups.size());
        entry.FolderName = name(entry.ControlIndex, group.Title);
        for (const SampleButton& button : group.Buttons) {
            const QString file = QStringLiteral("%1 [%2].txt")
                                     .arg(name(int(entry.Buttons.size()) + 1, button.Caption), button.Style);
            entry.Buttons.push_back(FileButton(kAppPath + u'\\' + group.Title, file, ++control));
            store.Icons.insert(entry.Buttons.back().Path, button.Icon);
        }
    }
    GroupEntry drives{words ? QStringLiteral("My Computer") : name(4, {}), {}, 4};
    for (const char16_t letter : {u'C', u'D', u'E'})
        drives.Buttons.push_back(DriveButton(letter, ++control));
    programs.Groups.push_back(drives);
    store.Catalogue.push_back(programs);
    int number = 1;
    for (const auto* title : {"Work", "Pictures and Music", "Notes"})
        store.Catalogue.push_back(
            {name(++number, QString::fromLatin1(title)), {}, QStringLiteral("S"), std::nullopt, {}});
    return store;
}

class LibraryIcons : public IconSource {
public:
    LibraryIcons(const QString& folder, const QHash<QString, QString>& names)
        : folder_(folder), names_(names) {}

    QImage Icon(const QString& path, const IconSize& size) override {
        if (!names_.contains(path))
            return {};
        QImageReader reader(folder_ + u'/' + names_.value(path) + QStringLiteral(".ico"));
        QImage best;
        for (int i = 0; i < reader.imageCount(); ++i) {
            const QImage picture = reader.jumpToImage(i) ? reader.read() : QImage();
            if (picture.width() == size.OnScreen() || picture.width() > best.width())
                best = picture;
            if (picture.width() == size.OnScreen())
                break;
        }
        if (best.isNull())
            qFatal("There is no icon %s", qPrintable(reader.fileName()));
        return best.scaled(size.OnScreen(), size.OnScreen(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

private:
    QString folder_;
    const QHash<QString, QString>& names_;
};

std::vector<DriveState> SampleDrives(const CatalogueList& catalogue, const PanelGeometry& geometry) {
    std::vector<DriveState> drives;
    for (const PlacedDrive& button : DriveButtonsOf(catalogue, geometry, kAppPath)) {
        DriveInfo info;
        if (button.Drive.startsWith(u'C'))
            info = {{}, quint64(237.5 * kGigabyte), quint64(84.25 * kGigabyte)};
        else if (button.Drive.startsWith(u'D'))
            info = {{}, quint64(931.5 * kGigabyte), quint64(612.4 * kGigabyte)};
        drives.push_back({button, info});
    }
    return drives;
}

} // namespace

QImage PaintSamplePanel(const SamplePanel& sample) {
    const auto theme = ReadSkin(sample.AppFolder, sample.Skin);
    if (!theme)
        qFatal("%s", qPrintable(theme.error().Text()));
    const SampleStore store = MakeSampleStore(sample.Words);
    const PieceSizes sizes = MeasurePieces(*theme);
    const PanelGeometry geometry =
        LayoutPanel(store.Catalogue, {sample.ButtonsPerRow, PanelMetricsOf(sizes), kScreen, 0, 0});
    FontChoice fonts;
    LibraryIcons icons(sample.Assets + QStringLiteral("/Icons"), store.Icons);
    const DriveMap drives = DriveMap::FromMountPoints({});
    const QTemporaryDir cache;
    CategoryPictures pictures(
        cache.path(),
        {*theme, fonts, store.Catalogue, geometry, sizes, icons, drives, kAppPath,
         QStringLiteral("%1/logo/logo%2.png").arg(sample.Assets).arg(theme->LogoDesign),
         [&] { return sample.Words ? SampleDrives(store.Catalogue, geometry) : std::vector<DriveState>(); }},
        CategoryPictures::Files::Drop);
    pictures.SetRatio(sample.Ratio);
    QImage picture = pictures.Picture(0);
    const std::vector<PictureError> leftOut = pictures.TakeLeftOut();
    if (!leftOut.empty())
        qFatal("%s", qPrintable(leftOut.front().Text()));
    return picture;
}

QImage OnDesktop(const QImage& panel, double ratio) {
    const double width = panel.width() / ratio + 2 * kMargin;
    const double height = panel.height() / ratio + 2 * kMargin;
    QImage picture((QSizeF(width, height) * ratio).toSize(), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(ratio, ratio);
    QLinearGradient sky(0, 0, 0, height);
    sky.setColorAt(0, QColor(0x8F, 0xA4, 0xB2));
    sky.setColorAt(1, QColor(0xC6, 0xCC, 0xCC));
    painter.fillRect(QRectF(0, 0, width, height), sky);
    // A hill and the sun, in whose edges one sees how clear the panel is.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 46));
    painter.drawEllipse(QPointF(width * 0.86, height * 0.2), width * 0.42, width * 0.42);
    painter.setBrush(QColor(0x2C, 0x4A, 0x5E, 40));
    painter.drawEllipse(QPointF(width * 0.1, height * 0.92), width * 0.62, width * 0.62);
    painter.resetTransform();
    painter.drawImage(QPointF(kMargin, kMargin) * ratio, panel);
    return picture;
}

} // namespace paneda
