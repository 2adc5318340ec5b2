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

    const NoteWindowState note{true, false, {7500, 4500}};
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

void tst_triggers::hiding() {
    QCOMPARE(HowToHide({false, false, false}), HideMeans::Minimize);
    QCOMPARE(HowToHide({true, true, false}), HideMeans::Hide);
    QCOMPARE(HowToHide({false, false, true}), HideMeans::Hide);
}

QTEST_GUILESS_MAIN(tst_triggers)
#include "tst_triggers.moc"
