#include "core/files/ini_file.h"
#include "core/panel/mouse_trigger.h"
#include "core/panel/triggers.h"
#include "core/settings/config_settings.h"
#include "core/store/store_layout.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"
#include "desktop/setting_window.h"
#include "platform/linux/linux_hotkey.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kLetterK = 75;

QString AutostartFile() {
    return qEnvironmentVariable("HOME") + u"/.config/autostart/paneda.desktop"_s;
}

} // namespace

class tst_desktop_settings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop"); }
    void savedAndSeenAgain();
    void takenHotkey();
    void noRoom();
};

void tst_desktop_settings::savedAndSeenAgain() {
    InstalledProgram program;
    program.CompleteStore();
    QVERIFY(program.Start());
    SettingWindow settings(program);
    QVERIFY(settings.Open());
    const bool hid = std::get<bool>(program.Record(kRecordHideAfterLaunch).at(0));
    for (const char* control : {"txtDrive4", "chkHideAfterLaunch", "chkAutoStart", "optMouseKey1"})
        settings.Click(QString::fromLatin1(control));
    settings.Type(u"txtUser"_s, u"Anna Maria"_s);
    QVERIFY(settings.Save());
    const auto isSaved = [&] {
        return program.Record(kRecordUserName) == ConfigArray{u"Anna Maria"_s} &&
               program.Record(kRecordHideAfterLaunch) == ConfigArray{!hid} &&
               program.Record(kRecordMouseTriggerMode) == ConfigArray{qint16(kMouseDoubleClickOrHold)} &&
               program.Record(kRecordDriveTable).at(4) == ConfigValue(qint16(1));
    };
    QVERIFY(isSaved());
    QVERIFY(ReadIniFile(AutostartFile())
                .Value(u"Desktop Entry", u"Exec")
                .contains(program.Folder() + u"/paneda"_s));
    QVERIFY(program.Close());

    // What the dialog of the next start does not show, it does not save either.
    const TreePicture before = PictureOfTree(program.Folder());
    QVERIFY(program.Start());
    QVERIFY(settings.Open());
    QVERIFY(settings.Save());
    QCOMPARE(Difference(before, PictureOfTree(program.Folder())), QString());
    QVERIFY(QFile::exists(AutostartFile()));
    settings.Click(u"chkAutoStart"_s);
    QVERIFY(settings.Save());
    QVERIFY(!QFile::exists(AutostartFile()));
    // The dialog has kept the focus.
    PressKey(u"Escape"_s);
    QTRY_VERIFY(WindowState(settings.Window()).isEmpty());
    QVERIFY(program.Close());
}

void tst_desktop_settings::takenHotkey() {
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    program.SetRecords({{kRecordHotkeyEnabled, false}});
    QVERIFY(program.Start());
    SettingWindow settings(program);
    QVERIFY(settings.Open());
    const auto other = MakeHotkey();
    QCOMPARE(other->Register(kHotkeyCtrl | kHotkeyAlt, kLetterK, [] {}), Hotkey::Answer::Registered);
    settings.Click(u"chkEnableHotKey"_s);
    QVERIFY(settings.SaveAndBeTold(
        u"The settings are saved, but the hotkey Ctrl + Alt + K belongs to another program. It will "
        "not call the panel; please choose another one."_s));
    QVERIFY(program.Record(kRecordHotkeyEnabled) == ConfigArray{true});
    // The other program gives it up, and the next save has it.
    other->Unregister();
    QVERIFY(program.FindPanel());
    QVERIFY(settings.Save());
    QVERIFY(program.ShowPanel());
    PressKey(u"ctrl+alt+k"_s);
    QVERIFY(program.PanelBecomes({}));
    PressKey(u"ctrl+alt+k"_s);
    QVERIFY(program.PanelBecomes(u"Normal"_s));
    // Switched off, the key is free for others.
    settings.Click(u"chkEnableHotKey"_s);
    QVERIFY(settings.Save());
    QCOMPARE(other->Register(kHotkeyCtrl | kHotkeyAlt, kLetterK, [] {}), Hotkey::Answer::Registered);
    QVERIFY(program.Close());
}

void tst_desktop_settings::noRoom() {
    InstalledProgram program;
    program.CompleteStore();
    QVERIFY(program.Start());
    SettingWindow settings(program);
    QVERIFY(settings.Open());
    const QString process = QString::number(program.ProcessId());
    const auto limitFiles = [&](const QString& bytes) {
        ToolOutput(u"prlimit"_s, {u"--pid"_s, process, u"--fsize="_s + bytes + u':'});
    };
    limitFiles(u"0"_s);
    const TreePicture before = PictureOfTree(program.Folder());
    settings.Type(u"txtUser"_s, u"Anna"_s);
    settings.Click(u"lblSave"_s);
    const auto box = [&] { return FindWindow(InstalledProgram::kBoxTitle.toString(), program.ProcessId()); };
    QTRY_VERIFY(!box().isEmpty());
    QCOMPARE(Difference(before, PictureOfTree(program.Folder())), QString());
    PressKey(u"Return"_s);
    QTRY_VERIFY(box().isEmpty());
    // The dialog is still there with what was typed.
    limitFiles(u"unlimited"_s);
    QVERIFY(settings.Save());
    QVERIFY(program.Record(kRecordUserName) == ConfigArray{u"Anna"_s});
    QVERIFY(program.Close());
}

QTEST_MAIN(tst_desktop_settings)
#include "tst_desktop_settings.moc"
