#include "core/panel/triggers.h"
#include "core/settings/key_table.h"
#include "platform/linux/grab_hotkey.h"
#include "platform/linux/linux_foreground.h"
#include "platform/linux/linux_pointer.h"
#include "platform/linux/linux_tray_hosts.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSpace = 32;
constexpr int kCtrlAlt = kHotkeyCtrl | kHotkeyAlt;
constexpr quint8 kSpaceCode = 65;
constexpr quint16 kCtrlAltMask = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
constexpr quint16 kNumLockMask = XCB_MOD_MASK_2;

void Run(const QString& program, const QStringList& arguments) {
    QCOMPARE(QProcess::execute(program, arguments), 0);
}

// Real key and mouse events.
void Act(const QString& line) {
    Run(u"xdotool"_s, line.split(u' '));
}

// Time for an event to arrive, or for one that must not come.
void Settle() {
    QTest::qWait(100);
}

// Another program that wants keys.
class Rival {
public:
    bool Grab(quint16 modifiers, quint8 keycode = kSpaceCode) {
        const XcbPointer<xcb_generic_error_t> error(
            xcb_request_check(x11_.Get(), xcb_grab_key_checked(x11_.Get(), 0, x11_.Root(), modifiers, keycode,
                                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        return !error;
    }

    int Events(int type) {
        int count = 0;
        while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(x11_.Get())})
            count += (event->response_type & 0x7F) == type ? 1 : 0;
        return count;
    }

private:
    X11Connection x11_;
};

qint64 WakeUps() {
    qint64 count = 0;
    const QDir tasks(u"/proc/self/task"_s);
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(tasks.filePath(task + u"/status"_s));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("voluntary_ctxt_switches:"))
                count += line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
        }
    }
    return count;
}

} // namespace

class tst_x11 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void everyKeyOfTheTable();
    void locksMakeNoDifference();
    void otherModifiersDo();
    void heldKeyFiresOnce();
    void takenByAnother();
    void followsTheLayout();
    void registeringAnew();
    void noWakeUps();
    void pointer();
    void foreground();
    void foregroundOfMinimized();

private:
    Hotkey::Answer Register(int modifiers, int key) {
        count_ = 0;
        return hotkey_.Register(modifiers, key, [this] { ++count_; });
    }

    GrabHotkey hotkey_;
    int count_ = 0;
};

void tst_x11::cleanup() {
    hotkey_.Unregister();
    Run(u"setxkbmap"_s, {u"us"_s});
}

void tst_x11::everyKeyOfTheTable() {
    QCOMPARE(hotkey_.Register(kCtrlAlt, 0, {}), Hotkey::Answer::NoSuchKey);
    for (const KeyRow& row : KeyTable()) {
        const bool isKey = row.Key != 0;
        QVERIFY2((Register(kHotkeyCtrl | kHotkeyShift, row.Key) == Hotkey::Answer::Registered) == isKey,
                 qPrintable(row.Text));
    }
    // Z, F11, an arrow, a digit, the 9 of the pad.
    for (const auto& [key, keycode] :
         {std::pair(int('Z'), 52), {122, 95}, {37, 113}, {int('0'), 19}, {105, 81}}) {
        Register(kHotkeyCtrl | kHotkeyShift, key);
        Act(u"key --delay 0 ctrl+shift+%1"_s.arg(keycode));
        QTRY_COMPARE(count_, 1);
    }
}

void tst_x11::locksMakeNoDifference() {
    QCOMPARE(Register(kHotkeyWin | kHotkeyShift, 'P'), Hotkey::Answer::Registered);
    // With one lock, with both, with the other one, with none.
    int presses = 0;
    for (const char* lock : {"Caps_Lock", "Num_Lock", "Caps_Lock", "Num_Lock"}) {
        Act(u"key "_s + QLatin1StringView(lock));
        Act(u"key super+shift+33"_s);
        ++presses;
        QTRY_COMPARE(count_, presses);
    }
}

void tst_x11::otherModifiersDo() {
    QCOMPARE(Register(kCtrlAlt, kSpace), Hotkey::Answer::Registered);
    for (const char* keys : {"space", "ctrl+space", "alt+space", "ctrl+alt+shift+space", "ctrl+alt+a"})
        Act(u"key "_s + QString::fromLatin1(keys));
    Act(u"key ctrl+alt+space"_s);
    QTRY_COMPARE(count_, 1);
    Settle();
    QCOMPARE(count_, 1);
}

void tst_x11::heldKeyFiresOnce() {
    QCOMPARE(Register(kCtrlAlt, kSpace), Hotkey::Answer::Registered);
    for (int press = 1; press <= 2; ++press) {
        Act(u"keydown ctrl keydown alt keydown space"_s);
        QTest::qWait(1200);
        QCOMPARE(count_, press);
        Act(u"keyup space keyup alt keyup ctrl"_s);
    }
    Settle();
    QCOMPARE(count_, 2);
}

void tst_x11::takenByAnother() {
    {
        Rival rival;
        // One state of the locks is enough.
        QVERIFY(rival.Grab(kCtrlAltMask | kNumLockMask));
        QCOMPARE(Register(kCtrlAlt, kSpace), Hotkey::Answer::Taken);
        QCOMPARE(hotkey_.State(), Hotkey::Answer::Taken);
        for (const quint16 locks : {0, int(XCB_MOD_MASK_LOCK), XCB_MOD_MASK_LOCK | kNumLockMask})
            QVERIFY2(rival.Grab(kCtrlAltMask | locks), "a part of the hotkey was left behind");
        Act(u"key ctrl+alt+space"_s);
        Settle();
        QCOMPARE(rival.Events(XCB_KEY_PRESS), 1);
        QCOMPARE(count_, 0);
    }
    QTRY_COMPARE(Register(kCtrlAlt, kSpace), Hotkey::Answer::Registered);
    QVERIFY(!Rival().Grab(kCtrlAltMask));
}

void tst_x11::followsTheLayout() {
    QCOMPARE(Register(kCtrlAlt, 'A'), Hotkey::Answer::Registered);
    Act(u"key ctrl+alt+38"_s);
    QTRY_COMPARE(count_, 1);
    Run(u"setxkbmap"_s, {u"fr"_s});
    Settle();
    Act(u"key ctrl+alt+38"_s);
    Act(u"key ctrl+alt+24"_s);
    QTRY_COMPARE(count_, 2);
    // A layout without the letter.
    Run(u"setxkbmap"_s, {u"ru"_s});
    Settle();
    Act(u"key ctrl+alt+38"_s);
    QTRY_COMPARE(count_, 3);
}

void tst_x11::registeringAnew() {
    QCOMPARE(Register(kCtrlAlt, kSpace), Hotkey::Answer::Registered);
    // Registering what it has itself is no conflict.
    QCOMPARE(Register(kCtrlAlt, kSpace), Hotkey::Answer::Registered);
    QCOMPARE(Register(kHotkeyAlt, 112), Hotkey::Answer::Registered);
    QVERIFY(Rival().Grab(kCtrlAltMask));
    // A press that has come in and not been told yet is told to nobody after the end.
    Act(u"key alt+F1"_s);
    hotkey_.Unregister();
    Settle();
    QCOMPARE(count_, 0);
    QCOMPARE(hotkey_.State(), Hotkey::Answer::Refused);
    QVERIFY(Rival().Grab(XCB_MOD_MASK_1, 67));
    hotkey_.Unregister();
}

void tst_x11::noWakeUps() {
    QCOMPARE(Register(kCtrlAlt, kSpace), Hotkey::Answer::Registered);
    LinuxForeground windows;
    windows.ActiveWindow();
    LinuxPointer pointer;
    pointer.Position();
    LinuxTrayHosts trays;
    trays.Watch([] {});
    Settle();
    const qint64 before = WakeUps();
    QEventLoop loop;
    QTimer::singleShot(3000, &loop, &QEventLoop::quit);
    loop.exec();
    // The loop's own end, with some room for a thread that had not gone to sleep.
    const qint64 count = WakeUps() - before;
    QVERIFY2(count <= 5, QByteArray::number(count).constData());
}

void tst_x11::pointer() {
    LinuxPointer pointer;
    QVERIFY(pointer.CanSee());
    Act(u"mousemove 333 222"_s);
    QCOMPARE(pointer.Position(), QPoint(333, 222));
    Act(u"mousemove 0 1023"_s);
    QCOMPARE(pointer.Position(), QPoint(0, 1023));

    Act(u"click 2"_s);
    // "down" and the number of presses.
    const auto look = [&pointer]() -> QString {
        const MiddleButtonLook seen = pointer.LookAtMiddleButton();
        return (seen.IsDown ? u"down "_s : QString()) + QString::number(seen.Presses.size());
    };
    QCOMPARE(look(), u"0"_s);
    pointer.WatchMiddleButton(true);
    QCOMPARE(look(), u"0"_s);
    Act(u"click 1 click 3 click --repeat 2 --delay 60 2"_s);
    const std::vector<quint32> times = pointer.LookAtMiddleButton().Presses;
    QVERIFY(times.size() == 2 && times[1] - times[0] >= 60 && times[1] - times[0] < 200);
    QCOMPARE(look(), u"0"_s);
    Act(u"mousedown 2"_s);
    QCOMPARE(look(), u"down 1"_s);
    QCOMPARE(look(), u"down 0"_s);
    Act(u"mouseup 2"_s);
    QCOMPARE(look(), u"0"_s);
    pointer.WatchMiddleButton(false);
    Act(u"click 2"_s);
    QCOMPARE(look(), u"0"_s);
}

// A terminal of another program has the focus, as when the user works there.
class OtherProgram {
public:
    OtherProgram() {
        process_.start(u"xterm"_s, {u"-title"_s, u"other"_s});
        QProcess::execute(u"xdotool"_s,
                          {u"search"_s, u"--sync"_s, u"--onlyvisible"_s, u"--name"_s, u"^other$"_s});
    }
    ~OtherProgram() {
        process_.kill();
        process_.waitForFinished();
    }
    static void Focus() { Act(u"search --name ^other$ windowactivate --sync"_s); }

private:
    QProcess process_;
};

void tst_x11::foreground() {
    OtherProgram other;
    OtherProgram::Focus();
    LinuxForeground windows;
    QWindow panel;
    panel.setGeometry(0, 0, 200, 200);
    const WId id = panel.winId();
    QVERIFY(windows.ActiveWindow() != id);
    QVERIFY(windows.ActiveWindow() != 0);
    // Not waited for the window to appear; again once it has been there.
    for (int i = 0; i < 3; ++i) {
        panel.show();
        windows.Activate(id);
        QTRY_COMPARE(windows.ActiveWindow(), id);
        QTRY_VERIFY(panel.isActive());
        panel.hide();
        QTRY_VERIFY(windows.ActiveWindow() != id);
    }
    // The wish comes before the window, which would not get the focus by itself.
    QWindow late;
    late.setGeometry(300, 0, 200, 200);
    OtherProgram::Focus();
    late.setProperty("_q_showWithoutActivating", true);
    windows.Activate(late.winId());
    Settle();
    late.show();
    QTRY_COMPARE(windows.ActiveWindow(), late.winId());
    late.hide();
    // Seen, but behind another one.
    panel.show();
    QTRY_COMPARE(windows.ActiveWindow(), id);
    OtherProgram::Focus();
    QTRY_VERIFY(windows.ActiveWindow() != id);
    windows.Activate(id);
    QTRY_COMPARE(windows.ActiveWindow(), id);
    windows.Activate(0x7FFFFFF); // gone
    Settle();
    QCOMPARE(windows.ActiveWindow(), id);
}

void tst_x11::foregroundOfMinimized() {
    OtherProgram other;
    LinuxForeground windows;
    QWindow panel;
    panel.setGeometry(0, 0, 200, 200);
    panel.showMinimized();
    Settle();
    OtherProgram::Focus();
    windows.Activate(panel.winId());
    QTRY_COMPARE(windows.ActiveWindow(), panel.winId());
}

QTEST_MAIN(tst_x11)
#include "tst_x11.moc"
