#include "ui/common/dtVisualScrollBar.h"
#include "ui/common/scroll_track.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <limits>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

constexpr int kMost = std::numeric_limits<int>::max();

// A grey pixel of its own for each part, so that a look at the widget tells what is drawn where.
ScrollPicture Plain(const QSize& size, QRgb color) {
    ScrollPicture picture;
    for (const int ratio : {1, 2}) {
        QPixmap pixmap(size * ratio);
        pixmap.fill(QColor(color).darker(ratio == 1 ? 100 : 150));
        pixmap.setDevicePixelRatio(ratio);
        picture.push_back(pixmap);
    }
    return picture;
}

} // namespace

class tst_ScrollBar : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void track();
    void refusals();
    void mouseWheelAndKeys();
    void pictures();
};

void tst_ScrollBar::track() {
    const ScrollTrack whole = ScrollTrack::Of(200, 20, 40, 0, kMost);
    QCOMPARE(whole.PlaceOf(0), 20);
    QCOMPARE(whole.PlaceOf(kMost), 140);
    QCOMPARE(whole.ValueAt(140), kMost);
    QCOMPARE(whole.ValueAt(1000), kMost);
    const ScrollTrack below = ScrollTrack::Of(110, 0, 10, -50, 50);
    for (int value = -50; value <= 50; ++value)
        QCOMPARE(below.ValueAt(below.PlaceOf(value)), value);
    // No room for the thumb to move.
    QCOMPARE(ScrollTrack::Of(30, 16, 10, 0, 9).ValueAt(25), 0);

    QCOMPARE(ThumbLength(100, 10, 50, 0, 50), 50);
    QCOMPARE(ThumbLength(100, 24, 1, 0, kMost), 24);
    QCOMPARE(ThumbLength(10, 24, 1, 0, 9), 10);
}

void tst_ScrollBar::refusals() {
    dtVisualScrollBar bar;
    QStringList shown;
    bar.ShowError = [&shown](const QString& text) { shown.append(text); };
    const QString tooWide = u"Invalid property value. Difference between Min and Max values cannot exceed "
                            "2,147,483,647"_s;
    bar.SetMin(-1);
    QCOMPARE(std::exchange(shown, {}), QStringList{tooWide});
    QCOMPARE(bar.Min(), 0);
    bar.SetMax(100);
    bar.SetMin(-100);
    bar.SetMax(kMost);
    bar.SetMax(-100);
    QCOMPARE(
        std::exchange(shown, {}),
        QStringList({tooWide, u"Invalid property value. Max property must be larger than Min property."_s}));
    QCOMPARE(bar.Max(), 100);
    for (const int change : {0, 32768}) {
        bar.SetSmallChange(change);
        bar.SetLargeChange(change);
    }
    QCOMPARE(shown, QStringList(4, u"Invalid property value"_s));

    QSignalSpy changes(&bar, &dtVisualScrollBar::Change);
    for (const auto& [set, becomes] : {std::pair(500, 100), {500, 100}, {-500, -100}, {-100, -100}}) {
        bar.SetValue(set);
        QCOMPARE(bar.Value(), becomes);
    }
    QCOMPARE(changes.size(), 4);
}

void tst_ScrollBar::mouseWheelAndKeys() {
    for (const int orientation : {dtVisualScrollBar::kVertical, dtVisualScrollBar::kHorizontal}) {
        dtVisualScrollBar bar;
        bar.SetOrientation(orientation);
        bar.SetPictures(LoadScrollBarPictures());
        bar.resize(orientation == dtVisualScrollBar::kVertical ? QSize(16, 232) : QSize(232, 16));
        bar.SetMax(1000);
        bar.SetLargeChange(100);
        bar.SetSmallChange(7);
        const auto press = [&bar](const QPoint& at) { QTest::mouseClick(&bar, Qt::LeftButton, {}, at); };
        press(bar.LastArrow().center());
        QCOMPARE(bar.Value(), 7);
        press(bar.Thumb().bottomRight() + QPoint(orientation == 1 ? 0 : 9, orientation == 1 ? 9 : 0));
        QCOMPARE(bar.Value(), 107);
        press(bar.FirstArrow().center());
        QCOMPARE(bar.Value(), 100);
        // The thumb follows where it was taken, and not further than its track.
        const QPoint grip = bar.Thumb().center();
        QTest::mousePress(&bar, Qt::LeftButton, {}, grip);
        QTest::mouseMove(&bar, grip);
        QCOMPARE(bar.Value(), 100);
        QTest::mouseMove(&bar, grip + QPoint(500, 500));
        QCOMPARE(bar.Value(), 1000);
        QTest::mouseRelease(&bar, Qt::LeftButton);
        QTest::mouseMove(&bar, grip);
        QCOMPARE(bar.Value(), 1000);
        bar.SetButtonsVisible(false);
        bar.SetValue(0);
        QCOMPARE(bar.Thumb().topLeft(), QPoint(0, 0));

        QTest::keyClick(&bar, Qt::Key_PageDown);
        QCOMPARE(bar.Value(), 100);
        QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&bar, &wheel);
        QVERIFY(bar.Value() > 100);
    }
}

void tst_ScrollBar::pictures() {
    dtVisualScrollBar bar;
    ScrollBarPictures parts;
    parts.Background = Plain({16, 16}, 0xFFFF0000);
    parts.Thumb = Plain({10, 24}, 0xFF00FF00);
    parts.Up = parts.Down = Plain({16, 20}, 0xFF0000FF);
    bar.SetPictures(parts);
    bar.SetMax(9);
    bar.resize(16, 200);
    for (const int ratio : {1, 2}) {
        QImage image(bar.size() * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        bar.render(&image);
        const auto at = [&](int x, int y) { return image.pixelColor(x * ratio, y * ratio).name(); };
        QCOMPARE(at(8, 19), u"#0000ff"_s);
        QCOMPARE(at(8, 22), u"#00ff00"_s);
        QCOMPARE(at(1, 22), u"#ff0000"_s);
        QCOMPARE(at(8, 181), u"#0000ff"_s);
    }
    QCOMPARE(ForRatio(parts.Thumb, 1.5).devicePixelRatio(), 2.0);
    QCOMPARE(ForRatio(parts.Thumb, 3).devicePixelRatio(), 2.0);

    // A skin's own pictures, in any case of letters; a damaged one gives way to the built-in one.
    const QTemporaryDir skin;
    QPixmap own(12, 30);
    own.fill(Qt::red);
    QVERIFY(own.save(skin.filePath(u"ScrollThumb.PNG"_s)));
    QFile damaged(skin.filePath(u"scrollup.png"_s));
    QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("no picture") > 0);
    damaged.close();
    const ScrollBarPictures loaded = LoadScrollBarPictures(skin.path());
    QCOMPARE(SizeOf(loaded.Thumb), QSize(12, 30));
    QCOMPARE(SizeOf(loaded.Up), QSize(16, 16));
    QCOMPARE(loaded.Background.size(), std::size_t(3));
}

QTEST_MAIN(tst_ScrollBar)

#include "tst_scroll_bar.moc"
