#include "core/panel/triggers.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

// A work area of 1000 x 700 pixels whose left is taken by a bar of 50 and whose bottom is 20 above the
// screen's.
static const WorkArea kArea{750, 0, 15000, 10500};

class tst_triggers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void holding_data();
    void holding();
    void modifierWord();
    void toggle_data();
    void toggle();
    void farEdges_data();
    void farEdges();
    void snapping_data();
    void snapping();
    void placing_data();
    void placing();
    void intoView_data();
    void intoView();
    void hiding();
};

void tst_triggers::holding_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("looks");    // "x" button down, "." up
    QTest::addColumn<QString>("expected"); // "F" where the trigger fires

    QTest::newRow("click") << 1 << u".x."_s << u".F."_s;
    QTest::newRow("two clicks") << 1 << u"x.x"_s << u"F.F"_s;
    QTest::newRow("click that two looks see") << 1 << u"xx."_s << u"F.."_s;
    QTest::newRow("held in mode 1") << 1 << u"xxxxxxxxxxxxxxx"_s << u"F...........F.."_s;
    QTest::newRow("one look is not enough") << 2 << u"x.x.x"_s << u"....."_s;
    QTest::newRow("two in a row") << 2 << u".xx."_s << u"..F."_s;
    // Every twelve looks of 0.2 s: 2.4 s.
    QTest::newRow("held in mode 2") << 2 << u"xxxxxxxxxxxxxxxxxxxxxxxxxxx"_s
                                    << u".F...........F...........F."_s;
    QTest::newRow("a release ends the wait") << 2 << u"xxx.xx"_s << u".F...F"_s;
    QTest::newRow("unknown mode is as 2") << 0 << u"xx"_s << u".F"_s;
}

void tst_triggers::holding() {
    QFETCH(int, mode);
    QFETCH(QString, looks);
    QString fired;
    double holdCount = 0;
    for (const QChar look : looks)
        fired += MouseHoldTick(holdCount, look == u'x', mode) ? u'F' : u'.';
    QTEST(fired, "expected");
}

void tst_triggers::modifierWord() {
    AppState state;
    QCOMPARE(HotkeyModifiers(state), 0);
    state.HotkeyCtrl = state.HotkeyWin = true;
    QCOMPARE(HotkeyModifiers(state), 10);
    state.HotkeyAlt = state.HotkeyShift = true;
    state.HotkeyCtrl = state.HotkeyWin = false;
    QCOMPARE(HotkeyModifiers(state), 5);
}

void tst_triggers::toggle_data() {
    QTest::addColumn<ToggleInput>("input");
    QTest::addColumn<TogglePlan>("expected");

    // The panel is 3000 x 6000, saved at left 2000, standing at top 900; the note is 7500 x 4500.
    const auto row = [](const char* name, Trigger from, WindowPlace cursor, WindowPlace expected) {
        ToggleInput input{from, false, kArea, cursor, {5000, 900, 3000, 6000}, {}};
        QTest::newRow(name) << input << TogglePlan{TogglePlan::Action::Show, expected, {}};
    };
    const auto noteRow = [](const char* name, NoteWindowState note, WindowPlace cursor, WindowPlace expected,
                            std::optional<WindowPlace> expectedNote) {
        ToggleInput input{Trigger::Hotkey, false, kArea, cursor, {5000, 900, 3000, 6000}, note};
        QTest::newRow(name) << input << TogglePlan{TogglePlan::Action::Show, expected, expectedNote};
    };
    // The hotkey centres and the mouse does not: see toggle().
    row("centred", Trigger::Hotkey, {7500, 5000}, {6000, 2000});
    row("not centred", Trigger::Mouse, {7500, 5000}, {2000, 900});
    row("top left corner", Trigger::Hotkey, {0, 0}, {750, 0});
    row("bottom right corner", Trigger::Hotkey, {15285, 10785}, {12000, 4500});
    row("on another screen at the left", Trigger::Hotkey, {-9000, 5000}, {750, 2000});

    const NoteWindowState note{true, false, {7500, 4500}};
    noteRow("note at the right", note, {9000, 6000}, {2250, 3000}, WindowPlace{5250, 3750});
    noteRow("note at the left", note, {6000, 6000}, {9750, 3000}, WindowPlace{2250, 3750});
    // Middle of the area: 7875. The note's middle has to be beyond it.
    noteRow("note in the middle", note, {7875, 6000}, {11625, 3000}, WindowPlace{4125, 3750});
    // The note keeps to 0 and not to the work area's left.
    noteRow("note at the edge", note, {0, 0}, {7500, 0}, WindowPlace{0, 0});
    noteRow("note at the bottom", note, {9000, 10500}, {2250, 4500}, WindowPlace{5250, 6000});
    noteRow("closed note", {false, false, {7500, 4500}}, {7500, 5000}, {6000, 2000}, {});
    noteRow("maximized note", {true, true, {15000, 10500}}, {7500, 5000}, {6000, 2000}, {});

    const ToggleInput active{Trigger::Hotkey, true, kArea, {7500, 5000}, {5000, 900, 3000, 6000}, note};
    QTest::newRow("active") << active << TogglePlan{TogglePlan::Action::Hide, {}, {}};
}

void tst_triggers::toggle() {
    QFETCH(ToggleInput, input);
    AppState state;
    state.HotkeyShowCenter = 1;
    state.MouseShowCenter = 0;
    state.PanelLeft = 2000;
    state.PanelTop = 3000;
    const TogglePlan plan = ToggleByTrigger(input, state);
    QTEST(plan, "expected");
    // Each trigger has its own setting.
    std::swap(state.HotkeyShowCenter, state.MouseShowCenter);
    input.From = input.From == Trigger::Hotkey ? Trigger::Mouse : Trigger::Hotkey;
    QCOMPARE(ToggleByTrigger(input, state), plan);
}

void tst_triggers::farEdges_data() {
    QTest::addColumn<WindowPlace>("saved");
    QTest::addColumn<WindowPlace>("expected");

    QTest::newRow("inside") << WindowPlace{1000, 500} << WindowPlace{1000, 500};
    QTest::newRow("touching") << WindowPlace{12000, 4500} << WindowPlace{12000, 4500};
    QTest::newRow("passing") << WindowPlace{12001, 9000} << WindowPlace{12000, 4500};
    QTest::newRow("left and top stay") << WindowPlace{-800, -15} << WindowPlace{-800, -15};
}

void tst_triggers::farEdges() {
    QFETCH(WindowPlace, saved);
    QTEST(HeldToFarEdges(saved, {3000, 6000}, kArea), "expected");
    // The top of a panel that is higher than the area stays to be reached.
    QCOMPARE(HeldToFarEdges({1000, 500}, {3000, 20000}, kArea), (WindowPlace{1000, 0}));
}

void tst_triggers::snapping_data() {
    QTest::addColumn<TwipsRect>("panel");
    QTest::addColumn<WindowPlace>("expected");

    const auto row = [](const char* name, int left, int top, WindowPlace expected) {
        QTest::newRow(name) << TwipsRect{left, top, 3000, 6000} << expected;
    };
    row("200 from left and top", 950, 200, {750, 0});
    row("300 from left", 1050, 2000, {750, 2000});
    row("beyond 300", 1065, 315, {1065, 315});
    row("near right and bottom", 11700, 4200, {12000, 4500});
    row("beyond 300 of them", 11685, 4185, {11685, 4185});
    row("outside at the left", 735, -15, {735, -15});
    row("outside at the right", 12015, 4515, {12015, 4515});
    QTest::newRow("as wide as the area but for 100") << TwipsRect{800, 0, 14150, 6000} << WindowPlace{750, 0};
}

void tst_triggers::snapping() {
    QFETCH(TwipsRect, panel);
    QTEST(SnapToEdges(panel, kArea), "expected");
}

void tst_triggers::placing_data() {
    QTest::addColumn<TwipsRect>("window");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("panelLeft");
    QTest::addColumn<int>("panelTop");
    QTest::addColumn<PlacedWindow>("expected");

    // A gap of 150; the screen 15000 x 10800 with a work area down to 10500; the panel 3000 x 6000.
    using enum BorderLabel;
    const auto row = [](const char* name, TwipsSize size, int mode, WindowPlace panel,
                        PlacedWindow expected) {
        QTest::newRow(name) << TwipsRect{77, 88, size.Width, size.Height} << mode << panel.Left << panel.Top
                            << expected;
    };
    const TwipsSize small{4500, 3000};
    row("screen, panel left", small, 1, {1500, 900}, {{4650, 3900}, AsItIs});
    row("screen, panel right", small, 1, {9000, 900}, {{4350, 3900}, AsItIs});
    row("panel in the middle", small, 1, {6000, 900}, {{9150, 3900}, AsItIs});
    row("panel a pixel further", small, 1, {6015, 900}, {{1365, 3900}, AsItIs});
    row("no room at the left", {9000, 3000}, 1, {7500, 900}, {{0, 3900}, AsItIs});
    row("no room at the right", {13000, 3000}, 1, {1500, 900}, {{2000, 3900}, AsItIs});
    row("tops", small, 2, {1500, 900}, {{4650, 900}, AsItIs});
    row("tops, above the screen", small, 2, {1500, -300}, {{4650, -300}, AsItIs});
    row("tops, too low", small, 2, {1500, 8000}, {{4650, 7500}, AsItIs});
    row("on the panel", small, 3, {1500, 900}, {{4650, 2400}, Right});
    row("on the panel, taller", {4500, 9000}, 3, {9000, 900}, {{4350, 0}, Left});
    row("on the panel, too low", {4500, 9000}, 3, {1500, 4500}, {{4650, 1500}, Right});
    row("pushed over the panel", {15000, 3000}, 3, {1500, 900}, {{0, 2400}, Left});
    row("other mode", small, 4, {1500, 900}, {{4650, 88}, AsItIs});
}

void tst_triggers::placing() {
    QFETCH(TwipsRect, window);
    QFETCH(int, mode);
    QFETCH(int, panelLeft);
    QFETCH(int, panelTop);
    const PlaceScene scene{{panelLeft, panelTop, 3000, 6000}, {15000, 10800}, 10500};
    QTEST(PlaceWindow(window, mode, 150, scene), "expected");

    // The same on a screen that lies beside and below the first one.
    const WindowPlace corner{15000, 1500};
    const auto moved = [corner](const TwipsRect& rect) {
        return TwipsRect{rect.Left + corner.Left, rect.Top + corner.Top, rect.Width, rect.Height};
    };
    const PlaceScene second{moved(scene.Panel), scene.Screen, scene.WorkAreaBottom + corner.Top, corner};
    PlacedWindow placed = PlaceWindow(moved(window), mode, 150, second);
    placed.Place = {placed.Place.Left - corner.Left, placed.Place.Top - corner.Top};
    QTEST(placed, "expected");
}

void tst_triggers::intoView_data() {
    QTest::addColumn<WindowPlace>("saved");
    QTest::addColumn<WindowPlace>("expected");

    // A screen at the right of the first one, higher up.
    QTest::newRow("on the first") << WindowPlace{1000, 500} << WindowPlace{1000, 500};
    QTest::newRow("on the second") << WindowPlace{20000, -1000} << WindowPlace{20000, -1000};
    QTest::newRow("across both") << WindowPlace{14000, 500} << WindowPlace{14000, 500};
    QTest::newRow("an edge to grab") << WindowPlace{-1950, 10200} << WindowPlace{-1950, 10200};
    QTest::newRow("a corner too small") << WindowPlace{-1965, 10200} << WindowPlace{750, 4500};
    QTest::newRow("its top above the area") << WindowPlace{1000, -420} << WindowPlace{1000, 0};
    QTest::newRow("its top on the second") << WindowPlace{14700, -420} << WindowPlace{14700, -420};
    QTest::newRow("lost at the left") << WindowPlace{-20000, 500} << WindowPlace{750, 500};
    QTest::newRow("lost below the second") << WindowPlace{27000, 12000} << WindowPlace{27000, 3000};
    QTest::newRow("lost far away") << WindowPlace{99000, -99000} << WindowPlace{27000, -3000};
}

void tst_triggers::intoView() {
    QFETCH(WindowPlace, saved);
    const std::vector<WorkArea> areas{kArea, {15000, -3000, 30000, 9000}};
    QTEST(BringIntoView(saved, {3000, 6000}, areas), "expected");
    QCOMPARE(BringIntoView(saved, {3000, 6000}, {}), saved);
    // Of a panel larger than the screen the top left corner is kept in view.
    QCOMPARE(BringIntoView({40000, 40000}, {20000, 20000}, {kArea}), (WindowPlace{750, 0}));
}

void tst_triggers::hiding() {
    QCOMPARE(HowToHide({false, false, false}), HideMeans::Minimize);
    QCOMPARE(HowToHide({true, false, false}), HideMeans::Hide);
    QCOMPARE(HowToHide({false, true, false}), HideMeans::Hide);
    QCOMPARE(HowToHide({false, false, true}), HideMeans::Hide);
}

QTEST_GUILESS_MAIN(tst_triggers)
#include "tst_triggers.moc"
