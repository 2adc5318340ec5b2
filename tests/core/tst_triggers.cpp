#include "core/panel/mouse_trigger.h"
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
    void middleButton();
    void toggle_data();
    void toggle();
};

// The looks at which the trigger calls the panel, of as many as cover these presses and releases (ms).
static QList<int> Calls(const std::vector<std::pair<int, int>>& presses, int mode, int firstLook = 0) {
    MouseTrigger trigger;
    QList<int> calls;
    for (int look = 0, at = firstLook; at <= presses.back().second + 200; ++look, at += 200) {
        MiddleButtonLook seen;
        for (const auto& [down, up] : presses) {
            seen.IsDown = seen.IsDown || (down <= at && at < up);
            if (at - 200 < down && down <= at)
                seen.Presses.push_back(quint32(down));
        }
        if (trigger.Tick(seen, mode))
            calls.append(look);
    }
    return calls;
}

void tst_triggers::middleButton() {
    constexpr int kShort = 40; // ms that the button is down
    const auto click = [](int at) { return std::pair(at, at + kShort); };
    for (int phase = 0; phase < 200; phase += 10) {
        for (int gap = 60; gap <= 500; gap += 10)
            QCOMPARE(Calls({click(500), click(500 + gap)}, kMouseDoubleClickOrHold, phase).size(), 1);
        QCOMPARE(Calls({click(500), click(1010), click(1520)}, kMouseDoubleClickOrHold, phase).size(), 0);
        QCOMPARE(Calls({click(500), click(600), click(700)}, kMouseDoubleClickOrHold, phase).size(), 1);
        QCOMPARE(Calls({click(500)}, kMouseClick, phase).size(), 1);
        QCOMPARE(Calls({click(500), click(600), click(1200)}, kMouseClick, phase).size(), 2);
    }
    // Held: every twelve looks of 0.2 s, 2.4 s.
    QCOMPARE(Calls({{10, 5900}}, kMouseClick), QList({1, 13, 25}));
    QCOMPARE(Calls({{10, 5900}}, kMouseDoubleClickOrHold), QList({2, 14, 26}));
    QCOMPARE(Calls({{10, 500}, {650, 1100}}, 0), QList({2, 5}));
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

QTEST_GUILESS_MAIN(tst_triggers)
#include "tst_triggers.moc"
