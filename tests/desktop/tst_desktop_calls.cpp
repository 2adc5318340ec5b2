#include "core/files/ini_file.h"
#include "core/panel/mouse_trigger.h"
#include "core/settings/config_settings.h"
#include "core/store/store_layout.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"

#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <csignal>
#include <cstdlib>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kShown = u"Normal"_s;
const QString kHidden; // a window that is withdrawn has no state
} // namespace

class tst_desktop_calls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop"); }
    void hotkey();
    void middleButton();
    void dragAndSnap();
    void poorDesktop();
    void hiddenStart();
    void terminationSaves();
};

void tst_desktop_calls::hotkey() {
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    PressKey(u"Num_Lock"_s);
    for (const QString& state : {kHidden, kShown, kHidden, kShown}) {
        PressKey(u"ctrl+alt+k"_s);
        QVERIFY(program.PanelBecomes(state));
        // A panel that has just come up has the focus, or the next press would not hide it.
        if (state == kShown)
            QVERIFY(program.ShowPanel());
    }
    PressKey(u"Num_Lock"_s);
    QVERIFY(program.Close());
}

void tst_desktop_calls::middleButton() {
    InstalledProgram program;
    program.CompleteStore();
    program.SetRecords({{kRecordMouseTriggerEnabled, true}, {kRecordMouseTriggerMode, qint16(kMouseClick)}});
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    // A click far from the panel hides it while it has the focus, and the next one brings it to the mouse.
    ClickAt({900, 700}, 2);
    QVERIFY(program.PanelBecomes(kHidden));
    // Two clicks in neighbouring looks count as one that is held.
    QTest::qWait(600);
    ClickAt({900, 700}, 2);
    QVERIFY(program.PanelBecomes(kShown));
    const QRect panel(test::WindowPlace(program.Panel()), WindowPicture(program.Panel()).size());
    QVERIFY2(std::abs(panel.center().x() - 900) <= 2, qPrintable(QString::number(panel.center().x())));
    QVERIFY(program.Close());
}

void tst_desktop_calls::dragAndSnap() {
    InstalledProgram program;
    program.CompleteStore();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QSize size = WindowRect(program.Panel()).size();
    const QPoint far(screen.width() - size.width(), screen.height() - size.height());
    const std::pair<QPoint, QPoint> releases[] = {
        {{30, 20}, {30, 0}},
        {far - QPoint(20, 21), {far.x(), far.y() - 21}},
        {{40, 300}, {40, 300}},
    };
    for (const auto& [released, stays] : releases) {
        Drag(program.Grip(), released - test::WindowPlace(program.Panel()));
        QTRY_COMPARE(test::WindowPlace(program.Panel()), stays);
    }
    QVERIFY(program.Close());
    QVERIFY(program.Record(kRecordPanelPlace) == (ConfigArray{300 * 15.0, 40 * 15.0}));
}

// Neither a bus nor a sound device, and sounds that are none.
void tst_desktop_calls::poorDesktop() {
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    program.SetVariable(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent/bus"_s);
    program.SetVariable(u"SDL_AUDIODRIVER"_s, u"nonexistent"_s);
    program.AddFile(u"Launcher/Sound/Fun/01.mp3"_s, QByteArray(1000, 'x'));
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    MoveMouse(program.Grip());
    Xdotool({u"click"_s, u"--repeat"_s, u"2"_s, u"--delay"_s, u"60"_s, u"1"_s});
    for (const QString& state : {kHidden, kShown}) {
        PressKey(u"ctrl+alt+k"_s);
        QVERIFY(program.PanelBecomes(state));
    }
    QVERIFY(program.Close());
}

void tst_desktop_calls::hiddenStart() {
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    QVERIFY(WriteIni(u"Properties"_s, u"hide on startup"_s, u"1"_s, SettingIniFile(program.Folder()))
                .has_value());
    QVERIFY(!program.Start(false) || WindowState(program.Panel()) != kShown);
    QVERIFY(!program.HasEnded());
    PressKey(u"ctrl+alt+k"_s);
    QTRY_VERIFY(!FindWindow(InstalledProgram::kPanelTitle.toString(), program.ProcessId()).isEmpty());
    ::kill(pid_t(program.ProcessId()), SIGTERM);
    QVERIFY(program.HasEnded());
}

void tst_desktop_calls::terminationSaves() {
    InstalledProgram program;
    program.CompleteStore();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    ClickAt(program.Bar(1), 1);
    // The switch is done once the other category's picture is on file.
    QTRY_VERIFY(QFile::exists(program.Folder() + u"/Cache/category002.png"_s));
    QTest::qWait(200);
    ::kill(pid_t(program.ProcessId()), SIGTERM);
    QVERIFY(program.HasEnded());
    QCOMPARE(program.ExitCode(), 0);
    QCOMPARE(ReadIni(u"Properties"_s, u"Category"_s, SettingIniFile(program.Folder())), u"2"_s);
}

QTEST_MAIN(tst_desktop_calls)
#include "tst_desktop_calls.moc"
