// How long a change of skin takes, from the press that writes the new skin's name to the painted panel, by
// the number of buttons in the store: the whole program over a store, and its parts one by one over the same
// store. The floor is a bare window with the panel's picture that takes the place of another one. Needs an X
// server with a window manager (tools/with-desktop).
//
// usage: bench_skin_change APP_FOLDER [RATIO]   (a folder with skin/; device pixels for each pixel of the
// layout)

#include "app/main_program.h"
#include "core/settings/config_settings.h"
#include "core/settings/startup.h"
#include "prepared_panel.h"
#include "ui/panel/skin_choice.h"
#include "ui/panel/skinned_panel_look.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <memory>

#include <xcb/xcb.h>

using namespace paneda;

namespace {

constexpr int kRuns = 15;
constexpr int kGiveUp = 20'000; // ms
constexpr int kSettle = 400;    // ms, for what a panel does once it is shown
const QStringList kSkins{QStringLiteral("Walnut Drawer"), QStringLiteral("Paneda Black Glass")};

// Tells when a window has been painted and the X server has drawn what it was sent.
class Watch : public QApplication {
public:
    using QApplication::QApplication;

    // Milliseconds from the call of `act` until a window that it made is on the screen.
    double TimeToPaint(const std::function<void()>& act) {
        painted_ = drawn_ = false;
        clock_.start();
        QTimer::singleShot(0, this, act);
        QEventLoop loop;
        drawnSignal_ = [&loop] { loop.quit(); };
        QTimer::singleShot(kGiveUp, &loop, [] { qFatal("no window was painted"); });
        loop.exec();
        return ms_;
    }

    bool notify(QObject* receiver, QEvent* event) override {
        const QEvent::Type type = event->type();
        const bool result = QApplication::notify(receiver, event);
        painted_ = painted_ || type == QEvent::Paint;
        // Both end with the picture being sent.
        if (painted_ && !drawn_ && (type == QEvent::Expose || type == QEvent::UpdateRequest)) {
            drawn_ = true;
            const auto* x11 = nativeInterface<QNativeInterface::QX11Application>();
            std::free(xcb_get_input_focus_reply(x11->connection(), xcb_get_input_focus(x11->connection()),
                                                nullptr));
            ms_ = double(clock_.nsecsElapsed()) / 1e6;
            if (drawnSignal_)
                drawnSignal_();
        }
        return result;
    }

private:
    QElapsedTimer clock_;
    std::function<void()> drawnSignal_;
    bool painted_ = false;
    bool drawn_ = false;
    double ms_ = 0;
};

class PictureWindow : public QWidget {
public:
    explicit PictureWindow(const QImage& picture) : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint) {
        picture_ = picture;
        setAttribute(Qt::WA_TranslucentBackground);
        setFixedSize(picture_.deviceIndependentSize().toSize());
        move(0, 0);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, picture_); }

private:
    QImage picture_;
};

// Ten buttons a group, ten groups a category; half of the buttons are documents, the others start programs.
void MakeStore(const QString& folder, int buttons) {
    const QStringList programs = QDir(QStringLiteral("/usr/bin")).entryList(QDir::Files | QDir::Executable);
    for (int i = 0; i < buttons; ++i) {
        const QString path = QStringLiteral("%1/Setting/[%2] Category %2/[%3] Group %3")
                                 .arg(folder)
                                 .arg(i / 100 + 1, 3, 10, QLatin1Char('0'))
                                 .arg(i / 10 % 10 + 1, 3, 10, QLatin1Char('0'));
        QDir().mkpath(path);
        const bool starts = i % 2 == 1;
        QFile file(QStringLiteral("%1/[%2] Button %3 [C1113001411].%4")
                       .arg(path)
                       .arg(i % 10 + 1, 3, 10, QLatin1Char('0'))
                       .arg(i)
                       .arg(starts ? QStringLiteral("pnd") : QStringLiteral("txt")));
        const QByteArray record = "[Properties]\r\nTarget=C:\\usr\\bin\\" +
                                  QFile::encodeName(programs.value(i % int(programs.size()))) + "\r\n";
        if (!file.open(QIODevice::WriteOnly) || file.write(starts ? record : QByteArray()) < 0)
            qFatal("Cannot write %s", qPrintable(file.fileName()));
    }
}

void WriteSkinName(const QString& folder, const QString& name) {
    if (const FileResult saved = SaveSkinName(folder, name); !saved)
        qFatal("%s", qPrintable(saved.error().Text()));
}

double TimeOf(const std::function<void()>& work) {
    QElapsedTimer clock;
    clock.start();
    work();
    return double(clock.nsecsElapsed()) / 1e6;
}

// Milliseconds of one change, or of all of them.
template <class Number>
struct Parts {
    Number Floor{}, Whole{}, Config{}, Keep{}, Scan{}, Skin{}, Compose{}, Cache{};
};

using Samples = Parts<std::vector<double>>;

// What the parts use of the desktop; the program has the same ones.
struct Services {
    paneda::Volumes& Volumes;
    paneda::FileIcons& FileIcons;
    paneda::DriveSpace& DriveSpace;
};

// The parts of a change one by one, as the panel does them. Returns the new panel's picture.
QImage MeasureParts(const QString& folder, const QString& skin, const Services& services, double ratio,
                    Samples& samples) {
    AppState state;
    state.AppFolder = folder;
    services.Volumes.Refresh(state.Drives);
    state.AppPath = state.Drives.ToStored(folder);
    state.IgnoreCache = true;
    samples.Config.push_back(TimeOf([&] { WriteSkinName(folder, skin); }));
    samples.Scan.push_back(TimeOf([&] { LoadPanelState(state); }));
    std::unique_ptr<SkinnedPanelLook> look;
    samples.Skin.push_back(TimeOf([&] {
        SkinChoice choice = ChooseSkin(folder, state.SkinName);
        look = std::make_unique<SkinnedPanelLook>(state, std::move(*choice.Theme), nullptr,
                                                  services.FileIcons, services.DriveSpace);
    }));
    const PanelGeometry geometry =
        LayoutPanel(state.Catalogue, {state.ButtonsPerRow, look->Metrics(), {20'000, 15'000, 15'000}, 0, 0});
    QImage picture;
    samples.Compose.push_back(TimeOf([&] {
        look->SetGeometry(geometry);
        look->SetRatio(ratio);
        picture = look->Picture(state.SelectedCategory);
    }));
    samples.Cache.push_back(TimeOf([&] { WriteCache(state, look->Record()); }));
    samples.Keep.push_back(TimeOf([&] { (void)SaveAtExit(state); }));
    return picture;
}

void Settle() {
    QEventLoop loop;
    QTimer::singleShot(kSettle, &loop, &QEventLoop::quit);
    loop.exec();
}

Samples Measure(Watch& watch, const QString& skins, int buttons) {
    const QTemporaryDir folder;
    const QDir program(folder.path());
    for (const QString& skin : kSkins) {
        program.mkpath(QStringLiteral("skin/") + skin);
        for (const QString& file : QDir(skins + skin).entryList(QDir::Files))
            QFile::copy(skins + skin + u'/' + file,
                        program.filePath(QStringLiteral("skin/") + skin + u'/' + file));
    }
    MakeStore(folder.path(), buttons);
    Platform platform = MakePlatform();
    const Services services{*platform.Volumes, *platform.FileIcons, *platform.DriveSpace};
    MainProgram main(std::move(platform), program.filePath(QStringLiteral("paneda")));
    Samples samples;
    QTimer::singleShot(kSettle, &watch, [&] {
        Settle();
        std::unique_ptr<PictureWindow> bare;
        for (int run = 0; run < kRuns; ++run) {
            const QString skin = kSkins[run % 2];
            const QImage picture =
                MeasureParts(folder.path(), skin, services, watch.devicePixelRatio(), samples);
            samples.Floor.push_back(watch.TimeToPaint([&] {
                bare.reset();
                bare = std::make_unique<PictureWindow>(picture);
                bare->show();
            }));
            samples.Whole.push_back(watch.TimeToPaint([&] {
                WriteSkinName(folder.path(), skin);
                main.ReloadPanel();
            }));
            Settle();
        }
        for (QWidget* window : QApplication::topLevelWidgets())
            window->close();
    });
    main.Run();
    return samples;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::printf("usage: bench_skin_change APP_FOLDER [RATIO]\n");
        return 2;
    }
    if (argc > 2)
        qputenv("QT_SCALE_FACTOR", argv[2]);
    Watch watch(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QString skins = QFile::decodeName(argv[1]) + QStringLiteral("/skin/");
    std::printf("Medians of %d changes at ratio %g, in ms\n", kRuns, watch.devicePixelRatio());
    std::printf("%8s %9s %9s %9s %9s %9s %9s %9s %9s %9s\n", "buttons", "floor", "change", "ratio", "config",
                "keep", "scan", "skin", "compose", "cache");
    for (const int buttons : {100, 1'000, 10'000}) {
        const Samples samples = Measure(watch, skins, buttons);
        const double floor = bench::Median(samples.Floor);
        const double whole = bench::Median(samples.Whole);
        std::printf("%8d %9.1f %9.1f %9.2f", buttons, floor, whole, whole / floor);
        for (const auto* part :
             {&samples.Config, &samples.Keep, &samples.Scan, &samples.Skin, &samples.Compose, &samples.Cache})
            std::printf(" %9.1f", bench::Median(*part));
        std::printf("\n");
    }
    return 0;
}
