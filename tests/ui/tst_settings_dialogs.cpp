#include "core/files/ini_file.h"
#include "core/settings/config_settings.h"
#include "core/settings/startup.h"
#include "core/store/store_layout.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/fake_services.h"
#include "ui/settings/drive_box.h"
#include "ui/settings/frmSetting.h"
#include "ui/settings/frmSettingAdvance.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace paneda;
using namespace paneda::test;

namespace {

const QString kExecutable = QStringLiteral("/stick/paneda");

QString ValueText(const ConfigValue& value) {
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? QStringLiteral("true") : QStringLiteral("false");
    if (const auto* number = std::get_if<qint16>(&value))
        return QStringLiteral("i") + QString::number(*number);
    if (const auto* number = std::get_if<double>(&value))
        return QStringLiteral("r") + QString::number(*number);
    return u'"' + std::get<QString>(value) + u'"';
}

QString RecordText(const ConfigArray& values) {
    QStringList texts;
    for (const ConfigValue& value : values)
        texts.append(ValueText(value));
    return texts.join(u',');
}

QStringList PlanText(const SettingPlan& plan) {
    QStringList lines{plan.First.Key + u'=' + plan.First.Value};
    for (const RecordWrite& write : plan.Records)
        lines.append(QStringLiteral("%1: %2").arg(write.Record).arg(RecordText(write.Values)));
    if (plan.Autostart)
        lines.append(*plan.Autostart ? QStringLiteral("autostart on") : QStringLiteral("autostart off"));
    for (const KeyWrite& write : plan.Last)
        lines.append(write.Key + u'=' + write.Value);
    return lines;
}

// A store with its first files, and the dialog on it.
struct Scene {
    StoreBuilder Store;
    AppState State = Store.State();
    FakePrompts Prompts;
    FakeAutostart Autostart;
    FakeHotkey Hotkey;
    int Reloads = 0;
    std::unique_ptr<frmSetting> Dialog;

    Scene() { LoadPanelState(State); }

    void Open() {
        Dialog = std::make_unique<frmSetting>(
            State, SettingServices{.Prompts = Prompts,
                                   .Autostart = Autostart,
                                   .Hotkey = Hotkey,
                                   .ExecutablePath = kExecutable,
                                   .ReloadPanel =
                                       [this] {
                                           ++Reloads;
                                           Hotkey.Register(0, 0, {});
                                       },
                                   .Scene =
                                       [] {
                                           return PlaceScene{{}, {12'000, 9'000}, 9'000};
                                       },
                                   .TrayIcons = {}});
        Dialog->Form_Load();
        Dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(Dialog.get()));
    }

    template <class Control>
    Control* Get(const char* name) const {
        auto* control = Dialog->findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("There is no %s", name);
        return control;
    }
    void Press(const char* name) const { QTest::mouseClick(Get<QWidget>(name), Qt::LeftButton); }

    QString Record(int number) const {
        const ConfigFile config = *ConfigFile::Load(ConfigFilePath(State.AppFolder));
        return RecordText(config.Read(number).value_or(ConfigArray()));
    }
    QString Key(const char* name) const {
        return ReadIni(QStringLiteral("Properties"), QString::fromLatin1(name),
                       SettingIniFile(State.AppFolder));
    }
};

} // namespace

class TestSettingsDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void planInOrder();
    void loadFillsEveryControl();
    void drivesFlip();
    void saveWritesWhatIsShown();
    void buttonsPerRow_data();
    void buttonsPerRow();
    void autostartOnlyWhenChanged();
    void hotkeyProblems_data();
    void hotkeyProblems();
    void failedWriteKeepsTheDialog();
    void browsers_data();
    void browsers();
    void advanceRoundTrip();
    void linkOpensAdvance();
};

void TestSettingsDialogs::planInOrder() {
    SettingForm form;
    form.DriveTable[3] = form.DriveTable[26] = true;
    form.DriveOfProgram = form.HotkeyAlt = form.MouseShowCenter = form.Autostart = true;
    form.ButtonsPerRow = QStringLiteral("6.5 or so");
    form.HotkeyKey = 65;
    form.UserName = QStringLiteral("  Ada ");
    form.FeedHeight = QStringLiteral("90");
    const QString noDrives = QStringLiteral("i0,").repeated(22);
    const QStringList expected{
        QStringLiteral("my computer drive paneda=1"),
        QStringLiteral("1: i0,i0,i0,i1,") + noDrives + QStringLiteral("i1"),
        QStringLiteral("3: i1"),
        QStringLiteral("4: r6.5"),
        QStringLiteral("6: false"),
        QStringLiteral("7: false"),
        QStringLiteral("8: i2"),
        QStringLiteral("9: false"),
        QStringLiteral("10: false"),
        QStringLiteral("11: true"),
        QStringLiteral("12: false"),
        QStringLiteral("13: false"),
        QStringLiteral("14: i65"),
        QStringLiteral("15: \"Ada\""),
        QStringLiteral("16: false"),
        QStringLiteral("17: r90"),
        QStringLiteral("18: \"\""),
        QStringLiteral("autostart on"),
        QStringLiteral("mouse click show center=1"),
        QStringLiteral("hotkey show center=0"),
    };
    QCOMPARE(PlanText(PlanSettings(form, false)), expected);
}

void TestSettingsDialogs::loadFillsEveryControl() {
    Scene scene;
    scene.State.UserName = QStringLiteral("Ada");
    scene.State.UserId = QStringLiteral("a1");
    const QString path = ConfigFilePath(scene.State.AppFolder);
    ConfigFile config = *ConfigFile::Load(path);
    ConfigArray drives(27, ConfigValue(qint16(0)));
    drives[1] = drives[26] = qint16(1);
    config.Write(kRecordDriveTable, drives);
    config.Write(kRecordAutostart, {qint16(1)});
    config.Write(kRecordButtonsPerRow, {4.5});
    config.Write(kRecordMouseTriggerMode, {qint16(1)});
    config.Write(kRecordHotkeyKey, {qint16(106)});
    config.Write(kRecordFeedHeight, {90.0});
    // One flag at a time, so that a control bound to another's record is found.
    const std::vector<std::pair<int, const char*>> flags{{kRecordHideAfterLaunch, "chkHideAfterLaunch"},
                                                         {kRecordMouseTriggerEnabled, "chkEnableMouseClick"},
                                                         {kRecordHotkeyEnabled, "chkEnableHotKey"},
                                                         {kRecordHotkeyCtrl, "chkCtrKey"},
                                                         {kRecordHotkeyAlt, "chkAltKey"},
                                                         {kRecordHotkeyShift, "chkShiftKey"},
                                                         {kRecordHotkeyWin, "chkWinKey"}};
    for (const auto& [record, name] : flags) {
        for (const auto& flag : flags)
            config.Write(flag.first, {flag.first == record});
        QVERIFY(config.Save(path));
        scene.Open();
        for (const auto& flag : flags)
            QCOMPARE(scene.Get<QCheckBox>(flag.second)->isChecked(), flag.first == record);
    }
    QVERIFY(scene.Get<DriveBox>("txtDrive1")->isChecked());
    QVERIFY(!scene.Get<DriveBox>("txtDrive3")->isChecked());
    QVERIFY(scene.Get<DriveBox>("txtDrive26")->isChecked());
    QVERIFY(!scene.Get<DriveBox>("txtDrivePaneda")->isChecked());
    QVERIFY(scene.Get<QCheckBox>("chkAutoStart")->isChecked());
    QVERIFY(scene.Get<QRadioButton>("optMouseKey0")->isChecked());
    QVERIFY(scene.Get<QCheckBox>("chkMouseCenter")->isChecked());
    QCOMPARE(scene.Get<QLineEdit>("txtButtonsPerRow")->text(), QStringLiteral("4.5"));
    QCOMPARE(scene.Get<QComboBox>("cboOtherKey")->currentText(), QStringLiteral("Numpad *"));
    QCOMPARE(scene.Get<QLineEdit>("txtUser")->text(), QStringLiteral("Ada"));
    QCOMPARE(scene.Get<QLineEdit>("txtID")->text(), QStringLiteral("a1"));
    QCOMPARE(scene.Get<QLineEdit>("txtFeedHeight")->text(), QStringLiteral("90"));
    QVERIFY(!scene.Get<QWidget>("fraFeed")->isVisible());
}

void TestSettingsDialogs::drivesFlip() {
    Scene scene;
    scene.Open();
    const QColor green(0x80, 0xFF, 0x80);
    QCOMPARE(scene.Get<QWidget>("chkHideAfterLaunch")->nextInFocusChain()->objectName(),
             QStringLiteral("txtDrive1"));
    QTest::keyClick(scene.Get<DriveBox>("txtDrive1"), Qt::Key_Space);
    QCOMPARE(scene.Get<DriveBox>("txtDrive1")->BackColour(), green);
    for (const char* name : {"txtDrive3", "txtDrive4", "txtDrivePaneda"}) {
        auto* box = scene.Get<DriveBox>(name);
        const bool before = box->isChecked();
        QCOMPARE(before, qstrcmp(name, "txtDrive3") == 0);
        QCOMPARE(box->BackColour(), before ? green : QColor(Qt::white));
        scene.Press(name);
        QCOMPARE(box->BackColour(), before ? QColor(Qt::white) : green);
        // The ground that is painted, off the paper and the border.
        QCOMPARE(box->grab().toImage().pixelColor(3, 3), box->BackColour());
    }
}

void TestSettingsDialogs::saveWritesWhatIsShown() {
    Scene scene;
    scene.Store.AddFile(QStringLiteral("setting.ini"), "; mine\r\n[Properties]\r\nbrowser=x\r\n");
    scene.State.SkinName = QStringLiteral("not written");
    scene.Open();
    for (const char* name : {"txtDrive4", "txtDrivePaneda", "optMouseKey0", "chkMouseCenter", "chkWinKey"})
        scene.Press(name);
    scene.Get<QComboBox>("cboOtherKey")->setCurrentText(QStringLiteral("F11"));
    scene.Get<QLineEdit>("txtUser")->setText(QStringLiteral(" Ada "));
    scene.Press("lblSave");
    QCOMPARE(scene.Prompts.Shown, QStringList());
    QCOMPARE(scene.Reloads, 1);
    QVERIFY(scene.Dialog->isVisible());
    QVERIFY(scene.Record(kRecordDriveTable).startsWith(QStringLiteral("i0,i0,i0,i1,i1,i0")));
    QCOMPARE(scene.Record(kRecordMouseTriggerMode), QStringLiteral("i1"));
    QCOMPARE(scene.Record(kRecordHotkeyWin), QStringLiteral("true"));
    QCOMPARE(scene.Record(kRecordHotkeyKey), QStringLiteral("i122"));
    QCOMPARE(scene.Record(kRecordUserName), QStringLiteral("\"Ada\""));
    QCOMPARE(scene.Record(kRecordSkinName), QStringLiteral("\"Paneda Black Glass\""));
    QCOMPARE(scene.Store.Bytes(QStringLiteral("setting.ini")),
             QByteArray("; mine\r\n[Properties]\r\nbrowser=x\r\nmy computer drive paneda=1\r\n"
                        "mouse click show center=0\r\nhotkey show center=1\r\n"));
    scene.Open();
    QVERIFY(scene.Get<QRadioButton>("optMouseKey0")->isChecked());
    QCOMPARE(scene.Get<QComboBox>("cboOtherKey")->currentText(), QStringLiteral("F11"));
}

void TestSettingsDialogs::buttonsPerRow_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::newRow("zero") << QStringLiteral("0") << QStringLiteral("r0");
    QTest::newRow("letters") << QStringLiteral("abc") << QStringLiteral("r0");
    QTest::newRow("many") << QStringLiteral("999") << QStringLiteral("r999");
    QTest::newRow("fraction and rest") << QStringLiteral(" 2.5x") << QStringLiteral("r2.5");
}

void TestSettingsDialogs::buttonsPerRow() {
    QFETCH(QString, typed);
    QFETCH(QString, written);
    Scene scene;
    scene.Open();
    scene.Get<QLineEdit>("txtButtonsPerRow")->clear();
    QTest::keyClicks(scene.Get<QLineEdit>("txtButtonsPerRow"), typed);
    scene.Press("lblSave");
    QCOMPARE(scene.Record(kRecordButtonsPerRow), written);
}

void TestSettingsDialogs::autostartOnlyWhenChanged() {
    Scene scene;
    scene.Open();
    scene.Press("lblSave");
    QCOMPARE(scene.Autostart.Asked, QStringList());
    scene.Press("chkAutoStart");
    scene.Press("lblSave");
    scene.Press("lblSave");
    scene.Press("chkAutoStart");
    scene.Press("lblSave");
    QCOMPARE(scene.Autostart.Asked,
             QStringList({QStringLiteral("on ") + kExecutable, QStringLiteral("off ") + kExecutable}));
    scene.Autostart.Fails = true;
    scene.Press("chkAutoStart");
    scene.Press("lblSave");
    QVERIFY(scene.Prompts.Shown.value(0).contains(QStringLiteral("/autostart: no room")));
    QCOMPARE(scene.Reloads, 4);
}

void TestSettingsDialogs::hotkeyProblems_data() {
    using Answer = Hotkey::Answer;
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("possible");
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("told"); // a part of the notice; empty for none
    QTest::newRow("works") << true << true << Answer::Registered << QString();
    QTest::newRow("may come") << true << true << Answer::Asked << QString();
    QTest::newRow("taken") << true << true << Answer::Taken
                           << QStringLiteral("the hotkey Ctrl + A belongs to another program");
    QTest::newRow("no such key") << true << true << Answer::NoSuchKey
                                 << QStringLiteral("Ctrl + A is not on this keyboard");
    QTest::newRow("off") << false << true << Answer::Refused << QString();
    QTest::newRow("no means") << true << false << Answer::Refused << QString();
}

void TestSettingsDialogs::hotkeyProblems() {
    QFETCH(bool, enabled);
    QFETCH(bool, possible);
    QFETCH(Hotkey::Answer, answer);
    QFETCH(QString, told);
    Scene scene;
    scene.Hotkey.HasMeans = possible ? Hotkey::Means::Grab : Hotkey::Means::None;
    scene.Hotkey.Answers = answer;
    scene.Open();
    QCOMPARE(scene.Get<QLabel>("lblNoHotkey")->isVisible(), !possible);
    if (enabled)
        scene.Press("chkEnableHotKey");
    scene.Press("chkCtrKey");
    scene.Get<QComboBox>("cboOtherKey")->setCurrentText(QStringLiteral("A"));
    scene.Press("lblSave");
    QCOMPARE(scene.Prompts.Shown.size(), told.isEmpty() ? 0 : 1);
    QVERIFY2(scene.Prompts.Shown.value(0).contains(told), qPrintable(scene.Prompts.Shown.value(0)));
    QCOMPARE(scene.Record(kRecordHotkeyKey), QStringLiteral("i65"));
}

void TestSettingsDialogs::failedWriteKeepsTheDialog() {
    Scene scene;
    scene.Open();
    // A folder in the place of the file fails for every user, root too.
    const QString path = ConfigFilePath(scene.State.AppFolder);
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in")));
    scene.Get<QLineEdit>("txtUser")->setText(QStringLiteral("Ada"));
    scene.Press("chkAutoStart");
    scene.Press("lblSave");
    QCOMPARE(scene.Prompts.Shown.size(), 1);
    QVERIFY(scene.Prompts.Shown.first().contains(QDir::toNativeSeparators(path) + QStringLiteral(": ")));
    QVERIFY(scene.Dialog->isVisible());
    QCOMPARE(scene.Get<QLineEdit>("txtUser")->text(), QStringLiteral("Ada"));
    QCOMPARE(scene.Reloads, 0);
    // What comes behind `config` has not been done.
    QCOMPARE(scene.Autostart.Asked, QStringList());
    QCOMPARE(scene.Key("mouse click show center"), QString());
    QVERIFY(QDir(path).removeRecursively());
    scene.Press("lblSave");
    QCOMPARE(scene.Reloads, 1);
    QCOMPARE(scene.Record(kRecordUserName), QStringLiteral("\"Ada\""));
    QCOMPARE(scene.Autostart.Asked.size(), 1);
}

void TestSettingsDialogs::browsers_data() {
    QTest::addColumn<QString>("browser");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("other");
    QTest::newRow("default") << QStringLiteral("default") << QStringLiteral("optBrowserDefault") << QString();
    QTest::newRow("read name") << QStringLiteral("iexplorer.exe") << QStringLiteral("optBrowserIE")
                               << QString();
    QTest::newRow("saved name") << QStringLiteral("iexplore.exe") << QStringLiteral("optBrowserOther")
                                << QStringLiteral("iexplore.exe");
    QTest::newRow("firefox") << QStringLiteral("firefox.exe") << QStringLiteral("optBrowserFirefox")
                             << QString();
    QTest::newRow("path") << QStringLiteral("/usr/bin/w3m") << QStringLiteral("optBrowserOther")
                          << QStringLiteral("/usr/bin/w3m");
}

void TestSettingsDialogs::browsers() {
    QFETCH(QString, browser);
    QFETCH(QString, option);
    QFETCH(QString, other);
    Scene scene;
    scene.State.Browser = browser;
    frmSettingAdvance dialog(scene.State, scene.Prompts, {});
    dialog.Form_Load();
    QVERIFY(dialog.findChild<QRadioButton*>(option)->isChecked());
    QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("txtBrowserOther"))->text(), other);
    dialog.cmdSave_Click();
    const QString written = browser == u"iexplorer.exe" ? QStringLiteral("iexplore.exe") : browser;
    QCOMPARE(scene.Key("browser"), written);
    QCOMPARE(scene.State.Browser, written);
}

void TestSettingsDialogs::advanceRoundTrip() {
    Scene scene;
    frmSettingAdvance dialog(scene.State, scene.Prompts, {});
    dialog.Form_Load();
    dialog.show();
    const auto press = [&dialog](const char* name) {
        QTest::mouseClick(dialog.findChild<QWidget*>(QString::fromLatin1(name)), Qt::LeftButton);
    };
    QVERIFY(dialog.findChild<QRadioButton*>(QStringLiteral("optIcon0"))->isChecked());
    // The picture chooses as its option does.
    press("imgIcon11");
    press("chkHideOnStartup");
    QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("txtBrowserOther")), QStringLiteral("w3m"));
    const QString ini = SettingIniFile(scene.State.AppFolder);
    const QByteArray before = scene.Store.Bytes(QStringLiteral("setting.ini"));
    QVERIFY(QFile::remove(ini));
    QVERIFY(QDir().mkpath(ini));
    press("cmdSave");
    QVERIFY(dialog.isVisible());
    QVERIFY(scene.Prompts.Shown.value(0).contains(QDir::toNativeSeparators(ini)));
    QVERIFY(QDir(ini).removeRecursively());
    scene.Store.AddFile(QStringLiteral("setting.ini"), before);
    press("cmdSave");
    QVERIFY(!dialog.isVisible());
    QCOMPARE(scene.Key("browser"), QStringLiteral("w3m"));
    QCOMPARE(scene.Key("hide on startup"), QStringLiteral("1"));
    QCOMPARE(scene.Key("system tray icon"), QStringLiteral("12"));
}

void TestSettingsDialogs::linkOpensAdvance() {
    Scene scene;
    scene.Open();
    auto* link = scene.Get<QLabel>("lblAdvance");
    QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(20, link->height() / 2));
    auto* advance = scene.Dialog->findChild<frmSettingAdvance*>();
    QVERIFY(advance && advance->isVisible());
    QCOMPARE(advance->windowTitle(), QStringLiteral("Advance Settings"));
}

QTEST_MAIN(TestSettingsDialogs)
#include "tst_settings_dialogs.moc"
