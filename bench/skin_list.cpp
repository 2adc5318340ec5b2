// How long the skin chooser takes in a folder of two hundred skins: to open, and from the click on a skin to
// its painted screenshot. The floor is the same picture read and scaled by the window's own thread. Needs an
// X server with a window manager (tools/with-desktop). Prints tables; judges nothing.
//
// usage: bench_skin_list APP_FOLDER [FOLDER]   (a folder with skin/; the two hundred are made below FOLDER
// and stay there, else in a folder for temporary files)

#include "prepared_panel.h"
#include "ui/skin/frmSkin.h"
#include "ui/skin/screenshot_view.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>
#include <optional>

using namespace paneda;

namespace {

constexpr int kSkins = 200;
constexpr int kOpenings = 7;
constexpr int kGiveUp = 5000; // ms

class NoPrompts : public Prompts {
public:
    void Notice(const QString& text, const QString&) override { qFatal("%s", qPrintable(text)); }
    bool Confirm(const QString&, const QString&) override { return false; }
    QString ChooseFile(const QString&, const QString&) override { return {}; }
};

class NoOpener : public Opener {
public:
    void Open(const LaunchRequest&, const LaunchPaths&) override {}
};

void CopyFolder(const QString& from, const QString& to) {
    QDir().mkpath(to);
    for (const QString& name : QDir(from).entryList(QDir::Files)) {
        QFile source(from + u'/' + name);
        QFile target(to + u'/' + name);
        if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly) ||
            target.write(source.readAll()) < 0)
            qFatal("Cannot copy %s", qPrintable(source.fileName()));
    }
    for (const QString& name : QDir(from).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        CopyFolder(from + u'/' + name, to + u'/' + name);
}

// Whole skins, one after the other under other names.
void MakeSkins(const QString& from, const QString& folder) {
    const QStringList skins = QDir(from).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    if (skins.isEmpty())
        qFatal("There is no skin in %s", qPrintable(from));
    for (int i = 0; i < kSkins; ++i) {
        const QString& skin = skins[i % skins.size()];
        CopyFolder(from + skin,
                   QStringLiteral("%1/skin/%2 %3").arg(folder).arg(i, 3, 10, QLatin1Char('0')).arg(skin));
    }
}

// Tells when a widget has been painted, and keeps the longest time that one event has taken.
class Watch : public QApplication {
public:
    using QApplication::QApplication;

    std::function<bool(const QObject*)> IsWanted; // of the widgets that are painted
    bool Painted = false;                         // a wanted one
    double LongestMs = 0;

    bool notify(QObject* receiver, QEvent* event) override {
        const QEvent::Type type = event->type();
        QElapsedTimer clock;
        clock.start();
        const bool result = QApplication::notify(receiver, event);
        LongestMs = std::max(LongestMs, double(clock.nsecsElapsed()) / 1e6);
        Painted = Painted || (type == QEvent::Paint && IsWanted && IsWanted(receiver));
        return result;
    }
};

class Chooser {
public:
    Chooser(Watch& watch, const QString& folder) : watch_(watch) {
        state_.AppFolder = folder;
        dialog_.emplace(state_, SkinServices{.Prompts = prompts_,
                                             .Opener = opener_,
                                             .ReloadPanel = [] {},
                                             .Scene =
                                                 [] {
                                                     return PlaceScene{{}, {18'000, 15'000}, 15'000};
                                                 },
                                             .OpenUrl = [](const QString&, const QString&) {}});
        dialog_->Form_Load();
        dialog_->show();
        List = dialog_->findChild<QListWidget*>(QStringLiteral("lstSkin"));
        View = dialog_->findChild<ScreenshotView*>(QStringLiteral("imgScreenshot"));
        WaitForPaint([this](const QObject* widget) { return widget == List->viewport(); });
    }

    // Milliseconds from the press until the screenshot of the row is painted.
    double Click(int row) {
        List->scrollToItem(List->item(row));
        QApplication::processEvents();
        const qint64 before = View->Picture().Image.cacheKey();
        QElapsedTimer clock;
        clock.start();
        const QPointF place = List->visualItemRect(List->item(row)).center();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, List->viewport()->mapToGlobal(place), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(List->viewport(), &event);
        }
        WaitForPaint([this, before](const QObject* widget) {
            return widget == View && View->Picture().Image.cacheKey() != before;
        });
        return double(clock.nsecsElapsed()) / 1e6;
    }

    // The longest that the window does not answer while the arrow key is held from the first row to the last.
    double HoldArrowKey() {
        Click(0);
        List->setFocus();
        watch_.LongestMs = 0;
        for (int row = 1; row < kSkins; ++row) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
            QApplication::sendEvent(List, &press);
            QApplication::processEvents();
        }
        if (List->currentRow() != kSkins - 1)
            qFatal("The key does not move the selection");
        return watch_.LongestMs;
    }

    QListWidget* List = nullptr;
    ScreenshotView* View = nullptr;

private:
    void WaitForPaint(const std::function<bool(const QObject*)>& isWanted) {
        watch_.IsWanted = isWanted;
        watch_.Painted = false;
        QElapsedTimer clock;
        clock.start();
        while (!watch_.Painted && clock.elapsed() < kGiveUp)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (!watch_.Painted)
            qFatal("Nothing was painted");
        watch_.IsWanted = {};
    }

    Watch& watch_;
    AppState state_;
    NoPrompts prompts_;
    NoOpener opener_;
    std::optional<frmSkin> dialog_;
};

double ReadMs(const QString& screenshot) {
    QElapsedTimer clock;
    clock.start();
    const QImage picture = QImageReader(screenshot).read();
    if (picture.scaled(300, 480, Qt::KeepAspectRatio, Qt::SmoothTransformation).isNull())
        qFatal("Cannot read %s", qPrintable(screenshot));
    return double(clock.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv) {
    Watch watch(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::printf("usage: bench_skin_list APP_FOLDER [FOLDER]\n");
        return 2;
    }
    const QTemporaryDir temporary;
    const QString folder = arguments.value(2, temporary.path());
    if (!QDir(folder + QStringLiteral("/skin")).exists())
        MakeSkins(arguments[1] + QStringLiteral("/skin/"), folder);

    std::vector<double> openings;
    for (int i = 0; i < kOpenings; ++i) {
        QElapsedTimer clock;
        clock.start();
        const Chooser chooser(watch, folder);
        openings.push_back(double(clock.nsecsElapsed()) / 1e6);
    }
    std::vector<double> clicks;
    std::vector<double> reads;
    Chooser chooser(watch, folder);
    for (int i = 0; i < kSkins; ++i) {
        // Not in the order of the list.
        const int row = (i * 77 + 5) % kSkins;
        const QString name = chooser.List->item(row)->text();
        clicks.push_back(chooser.Click(row));
        reads.push_back(ReadMs(QStringLiteral("%1/skin/%2/screenshot.jpg").arg(folder, name)));
    }
    const double floor = bench::Median(reads);
    const double median = bench::Median(clicks);
    std::printf("%d skins, in ms\n", kSkins);
    std::printf("%-44s first %6.1f  median %6.1f\n", "window opened until its list is painted",
                openings.front(), bench::Median(openings));
    std::printf("%-44s              median %6.1f\n", "a screenshot read and scaled (floor)", floor);
    std::printf("%-44s first %6.1f  median %6.1f  worst %6.1f  %.1f of the floor\n",
                "click until the screenshot is painted", clicks.front(), median,
                *std::max_element(clicks.begin(), clicks.end()), median / floor);
    std::printf("%-44s %6.1f\n", "longest event while the arrow key is held", chooser.HoldArrowKey());
    return 0;
}
