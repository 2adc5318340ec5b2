#include "core/config_settings.h"
#include "core/ini_file.h"
#include "core/store_layout.h"
#include "core/triggers.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"

#include <QTest>

#include <csignal>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kShown = u"Normal"_s;
const QString kHidden; // a window that is withdrawn has no state
constexpr int kLetterK = 75;

void WriteRecords(const InstalledProgram& program, const std::vector<std::pair<int, ConfigValue>>& records) {
    const QString path = ConfigFilePath(program.Folder());
    ConfigFile config = ConfigFile::Load(path).value_or(ConfigFile());
    for (const auto& [record, value] : records)
        config.Write(record, {value});
    QVERIFY(config.Save(path).has_value());
}

void WriteHotkey(const InstalledProgram& program) {
    WriteRecords(program, {{kRecordHotkeyEnabled, true},
                           {kRecordHotkeyCtrl, true},
                           {kRecordHotkeyAlt, true},
                           {kRecordHotkeyKey, qint16(kLetterK)}});
}

void Xdotool(const QStringList& words) {
    ToolOutput(u"xdotool"_s, words);
}

// Drags from a place of the panel's upper edge, with real events.
void Drag(const QPoint& from, const QPoint& by) {
    const auto text = [](int number) { return QString::number(number); };
    Xdotool({u"mousemove"_s, text(from.x()), text(from.y()), u"mousedown"_s, u"1"_s});
    // In steps, as a hand does.
    for (int i = 1; i <= 4; ++i)
        Xdotool({u"mousemove"_s, text(from.x() + by.x() * i / 4), text(from.y() + by.y() * i / 4)});
    Xdotool({u"mouseup"_s, u"1"_s});
}

} // namespace

class tst_desktop_calls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop"); }
    void hotkey_data();
    void hotkey();
    void middleButton();
    void outsideRequest();
    void dragAndSnap();
    void hiddenStart();
    void terminationSaves();
};

void tst_desktop_calls::hotkey_data() {
    QTest::addColumn<QString>("lock");

    QTest::newRow("alone") << QString();
    QTest::newRow("with NumLock") << u"Num_Lock"_s;
    QTest::newRow("with CapsLock") << u"Caps_Lock"_s;
}

void tst_desktop_calls::hotkey() {
    QFETCH(QString, lock);
    InstalledProgram program;
    program.CompleteStore();
    WriteHotkey(program);
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    if (!lock.isEmpty())
        PressKey(lock);
    for (const QString& state : {kHidden, kShown, kHidden, kShown}) {
        PressKey(u"ctrl+alt+k"_s);
        QVERIFY(program.PanelBecomes(state));
        // A panel that has just come up has the focus, or the next press would not hide it.
        if (state == kShown)
            QVERIFY(program.ShowPanel());
    }
    if (!lock.isEmpty())
        PressKey(lock);
    QVERIFY(program.Close());
}

void tst_desktop_calls::middleButton() {
    InstalledProgram program;
    program.CompleteStore();
    WriteRecords(program,
                 {{kRecordMouseTriggerEnabled, true}, {kRecordMouseTriggerMode, qint16(kMouseClick)}});
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

void tst_desktop_calls::outsideRequest() {
    InstalledProgram program;
    program.CompleteStore();
    WriteHotkey(program);
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    PressKey(u"ctrl+alt+k"_s);
    QVERIFY(program.PanelBecomes(kHidden));
    ToolOutput(u"dbus-send"_s, {u"--session"_s, u"--print-reply"_s, u"--dest=local.paneda.Launcher"_s,
                                u"/Panel"_s, u"local.paneda.Launcher.Execute"_s, u"string:whatever"_s});
    QVERIFY(program.PanelBecomes(kShown));
    QVERIFY(program.Close());
}

void tst_desktop_calls::dragAndSnap() {
    InstalledProgram program;
    program.CompleteStore();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    const QPoint grip(60, 8); // in the upper edge of the frame
    const QPoint start = test::WindowPlace(program.Panel());
    Drag(start + grip, {300, 200});
    QTRY_COMPARE(test::WindowPlace(program.Panel()), start + QPoint(300, 200));
    // Released 12 pixels inside the left edge it snaps, at 30 it stays.
    Drag(start + QPoint(300, 200) + grip, {-288, 0});
    QTRY_COMPARE(test::WindowPlace(program.Panel()), QPoint(0, start.y() + 200));
    Drag(QPoint(0, start.y() + 200) + grip, {30, 0});
    QTRY_COMPARE(test::WindowPlace(program.Panel()), QPoint(30, start.y() + 200));
    QVERIFY(program.Close());
    const ConfigFile config = ConfigFile::Load(ConfigFilePath(program.Folder())).value_or(ConfigFile());
    QVERIFY(config.Read(kRecordPanelPlace) == (ConfigArray{(start.y() + 200) * 15.0, 30 * 15.0}));
}

void tst_desktop_calls::hiddenStart() {
    InstalledProgram program;
    program.CompleteStore();
    WriteHotkey(program);
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
