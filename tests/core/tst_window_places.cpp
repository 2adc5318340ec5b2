#include "core/panel/screen_drag.h"
#include "core/panel/window_places.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

// A work area of 1000 x 700 pixels whose left is taken by a bar of 50 and whose bottom is 20 above the
// screen's.
static const WorkArea kArea{750, 0, 15000, 10500};
static const TwipsSize kPanel{3000, 6000};

class tst_window_places : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void farEdges();
    void snapping_data();
    void snapping();
    void placing_data();
    void placing();
    void intoView_data();
    void intoView();
    void draggedOverScreens();
};

void tst_window_places::farEdges() {
    QCOMPARE(HeldToFarEdges({12000, 4500}, kPanel, kArea), (WindowPlace{12000, 4500}));
    QCOMPARE(HeldToFarEdges({12001, 9000}, kPanel, kArea), (WindowPlace{12000, 4500}));
    QCOMPARE(HeldToFarEdges({-800, -15}, kPanel, kArea), (WindowPlace{-800, -15}));
    // The top of a panel that is higher than the area stays to be reached.
    QCOMPARE(HeldToFarEdges({1000, 500}, {3000, 20000}, kArea), (WindowPlace{1000, 0}));
}

void tst_window_places::snapping_data() {
    QTest::addColumn<WindowPlace>("from");
    QTest::addColumn<WindowPlace>("to");

    QTest::newRow("300 from left, 200 from top") << WindowPlace{1050, 200} << WindowPlace{750, 0};
    QTest::newRow("beyond 300") << WindowPlace{1065, 315} << WindowPlace{1065, 315};
    QTest::newRow("near right and bottom") << WindowPlace{11700, 4200} << WindowPlace{12000, 4500};
    QTest::newRow("beyond 300 of them") << WindowPlace{11685, 4185} << WindowPlace{11685, 4185};
    QTest::newRow("outside at right and bottom") << WindowPlace{12015, 4515} << WindowPlace{12015, 4515};
}

void tst_window_places::snapping() {
    QFETCH(WindowPlace, from);
    QTEST(SnapToEdges({from.Left, from.Top, kPanel.Width, kPanel.Height}, kArea), "to");
    // Near both, the left edge goes first.
    QCOMPARE(SnapToEdges({800, 0, 14150, 6000}, kArea), (WindowPlace{750, 0}));
}

void tst_window_places::placing_data() {
    QTest::addColumn<TwipsSize>("size");
    QTest::addColumn<int>("mode");
    QTest::addColumn<WindowPlace>("panel");
    QTest::addColumn<PlacedWindow>("expected");

    // A gap of 150; the screen 15000 x 10800 with a work area down to 10500.
    using enum BorderLabel;
    const auto row = [](const char* name, TwipsSize size, int mode, WindowPlace panel,
                        PlacedWindow expected) { QTest::newRow(name) << size << mode << panel << expected; };
    const TwipsSize small{4500, 3000};
    row("panel in the middle", small, 1, {6000, 900}, {{9150, 3900}, AsItIs});
    row("panel a pixel further", small, 1, {6015, 900}, {{1365, 3900}, AsItIs});
    row("no room at the left", {9000, 3000}, 1, {7500, 900}, {{0, 3900}, AsItIs});
    row("tops, above the screen", small, 2, {1500, -300}, {{4650, -300}, AsItIs});
    row("tops, too low", small, 2, {1500, 8000}, {{4650, 7500}, AsItIs});
    row("on the panel", small, 3, {1500, 900}, {{4650, 2400}, Right});
    row("on the panel, taller", {4500, 9000}, 3, {9000, 900}, {{4350, 0}, Left});
    row("on the panel, too low", {4500, 9000}, 3, {1500, 4500}, {{4650, 1500}, Right});
    row("other mode", small, 4, {1500, 900}, {{4650, 88}, AsItIs});
}

// On the first screen, and on one that lies beside and below it.
void tst_window_places::placing() {
    QFETCH(TwipsSize, size);
    QFETCH(int, mode);
    QFETCH(WindowPlace, panel);
    for (const WindowPlace corner : {WindowPlace{}, WindowPlace{15000, 1500}}) {
        const PlaceScene scene{
            {panel.Left + corner.Left, panel.Top + corner.Top, kPanel.Width, kPanel.Height},
            {15000, 10800},
            10500 + corner.Top,
            corner};
        PlacedWindow placed = PlaceWindow({77, 88 + corner.Top, size.Width, size.Height}, mode, 150, scene);
        placed.Place = {placed.Place.Left - corner.Left, placed.Place.Top - corner.Top};
        QTEST(placed, "expected");
    }
}

void tst_window_places::intoView_data() {
    QTest::addColumn<WindowPlace>("saved");
    QTest::addColumn<WindowPlace>("expected");

    // A screen at the right of the first one, higher up.
    QTest::newRow("on the second") << WindowPlace{20000, -1000} << WindowPlace{20000, -1000};
    QTest::newRow("across both") << WindowPlace{14000, 500} << WindowPlace{14000, 500};
    QTest::newRow("an edge to grab") << WindowPlace{-1950, 10200} << WindowPlace{-1950, 10200};
    QTest::newRow("a corner too small") << WindowPlace{-1965, 10200} << WindowPlace{750, 4500};
    QTest::newRow("its top above the area") << WindowPlace{1000, -420} << WindowPlace{1000, 0};
    QTest::newRow("its top on the second") << WindowPlace{14700, -420} << WindowPlace{14700, -420};
    QTest::newRow("lost below the second") << WindowPlace{27000, 12000} << WindowPlace{27000, 3000};
    QTest::newRow("lost far away") << WindowPlace{99000, -99000} << WindowPlace{27000, -3000};
}

void tst_window_places::intoView() {
    QFETCH(WindowPlace, saved);
    const std::vector<WorkArea> areas{kArea, {15000, -3000, 30000, 9000}};
    QTEST(BringIntoView(saved, kPanel, areas), "expected");
    QCOMPARE(BringIntoView(saved, kPanel, {}), saved);
    // Of a panel larger than the screen the top left corner is kept in view.
    QCOMPARE(BringIntoView({40000, 40000}, {20000, 20000}, {kArea}), (WindowPlace{750, 0}));
}

// Two screens of 800 device pixels side by side. On its way to the right a window neither jumps back nor
// changes its screen twice, and Qt sees its middle on the screen that it was placed for.
void tst_window_places::draggedOverScreens() {
    const QSize size(206, 336);
    for (const auto& [left, right] : {std::pair(1.0, 1.0), {1.0, 2.0}, {2.0, 1.0}, {1.25, 2.0}, {1.5, 1.1}}) {
        const std::vector<DraggedScreen> screens{{{0, 0, int(800 / left), int(1000 / left)}, left},
                                                 {{800, 0, int(800 / right), int(1000 / right)}, right}};
        for (const double grip : {3.0, 103.0, 200.0}) {
            std::size_t current = 0;
            double before = -1e9;
            for (int device = 300; device < 1500; ++device) {
                const DraggedScreen& under = screens[device < 800 ? 0 : 1];
                const QPointF mouse(under.Area.x() + (device - under.Area.x()) / under.Ratio, 10);
                const auto corner = DraggedCorner(screens, current, mouse, {grip, 5}, size);
                QVERIFY(corner);
                const QRect window(*corner, size);
                const std::size_t owner = screens[1].Area.contains(window.center()) ? 1 : 0;
                QVERIFY2(
                    owner >= current && screens[owner].Area.contains(window.center()),
                    qPrintable(u"%1 %2 grip %3 at %4: %5"_s.arg(left).arg(right).arg(grip).arg(device).arg(
                        corner->x())));
                current = owner;
                const DraggedScreen& on = screens[owner];
                const double middle =
                    on.Area.x() + (corner->x() + size.width() / 2.0 - on.Area.x()) * on.Ratio;
                QVERIFY2(middle >= before - on.Ratio, qPrintable(QString::number(device)));
                before = middle;
            }
            QCOMPARE(current, 1u);
        }
    }
    // The edge between two areas belongs to the second one.
    const WorkArea first{0, 0, 12000, 15000};
    const WorkArea second{12000, 0, 24000, 15000};
    QCOMPARE(NearestArea({first, second}, {12000, 300}), second);
    QCOMPARE(NearestArea({first, second}, {11985, 300}), first);
}

QTEST_GUILESS_MAIN(tst_window_places)
#include "tst_window_places.moc"
