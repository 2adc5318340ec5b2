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
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// A store with its first files, and the dialog on it, on a screen of 800 x 600 pixels.
struct Scene {
    StoreBuilder Store;
    AppState State = Store.State();
    FakePrompts Prompts;
    FakeAutostart Autostart;
    FakeHotkey Hotkey;
    int Reloads = 0;
    std::unique_ptr<frmSetting> Dialog;

    Scene() { LoadPanelState(State); }

    SettingServices Services() {
        return {.Prompts = Prompts,
                .Autostart = Autostart,
                .Hotkey = Hotkey,
                .ExecutablePath = u"/stick/paneda"_s,
                .ReloadPanel =
                    [this] {
                        ++Reloads;
                        Hotkey.Register(0, 0, {});
                    },
                .Scene =
                    [] {
                        return PlaceScene{{}, {12'000, 9'000}, 9'000};
                    },
                .TrayIcons = {}};
    }
    void Open() {
        Dialog = std::make_unique<frmSetting>(State, Services());
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

    ConfigFile Config() const { return *ConfigFile::Load(ConfigFilePath(State.AppFolder)); }
    ConfigValue Record(int number) const { return Config().Read(number).value().front(); }
    QString Key(const QString& name) const {
        return ReadIni(u"Properties"_s, name, SettingIniFile(State.AppFolder));
    }
    // All keys of setting.ini, and the records by their numbers, to be compared.
    QMap<QString, QString> Stored() const {
        QMap<QString, QString> stored{{u"ini"_s, QString::fromUtf8(Store.Bytes(u"setting.ini"_s))}};
        for (int record = 1; record <= kRecordUserId; ++record)
            stored[QString::number(record)] =
                QString::fromLatin1(Config().Bytes().mid((record - 1) * 4000, 4000).toHex());
        return stored;
    }
};

// The letters that Alt calls in a window, in alphabetical order.
QString Mnemonics(const QWidget& window) {
    QString letters;
    for (const QWidget* child : window.findChildren<QWidget*>()) {
        const QString text = child->property("text").toString() + child->property("title").toString();
        const qsizetype mark = text.indexOf(u'&');
        if (mark >= 0)
            letters += text[mark + 1].toUpper();
    }
    std::sort(letters.begin(), letters.end());
    return letters;
}

} // namespace

class TestSettingsDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachControlHasItsField();
    void drives();
    void buttonsPerRow_data();
    void buttonsPerRow();
    void failedAutostart();
    void hotkeys_data();
    void hotkeys();
    void smallScreen();
    void browsers_data();
    void browsers();
    void advanceByKeys();
};

void TestSettingsDialogs::eachControlHasItsField() {
    Scene scene;
    scene.Store.AddFile(u"setting.ini"_s, "; mine\r\n[Properties]\r\nbrowser=x\r\n");
    scene.State.SkinName = u"not written"_s;
    scene.Open();
    scene.Press("lblSave");
    auto before = scene.Stored();
    QCOMPARE(scene.Autostart.Asked, QStringList());
    const auto changed = [&] {
        QStringList names;
        const auto now = scene.Stored();
        for (auto entry = now.begin(); entry != now.end(); ++entry) {
            if (before.value(entry.key()) != entry.value())
                names.append(entry.key());
        }
        before = now;
        return names.join(u' ');
    };
    const std::pair<const char*, const char*> kFields[] = {
        {"txtDrive26", "1"},       {"txtDrivePaneda", "ini"},    {"chkHideAfterLaunch", "6"},
        {"chkAutoStart", "3"},     {"chkEnableMouseClick", "7"}, {"optMouseKey0", "8"},
        {"chkMouseCenter", "ini"}, {"chkEnableHotKey", "9"},     {"chkCtrKey", "10"},
        {"chkAltKey", "11"},       {"chkShiftKey", "12"},        {"chkWinKey", "13"},
        {"chkHotkeyCenter", "ini"}};
    for (const auto& [control, field] : kFields) {
        const bool was = scene.Get<QAbstractButton>(control)->isChecked();
        scene.Press(control);
        scene.Press("lblSave");
        QVERIFY2(changed() == QLatin1StringView(field), control);
        scene.Open();
        QVERIFY2(scene.Get<QAbstractButton>(control)->isChecked() != was, control);
    }
    scene.Get<QComboBox>("cboOtherKey")->setCurrentText(u"F11"_s);
    scene.Get<QLineEdit>("txtUser")->setText(u" Ada "_s);
    scene.Get<QLineEdit>("txtID")->setText(u"a1"_s);
    scene.Press("lblSave");
    QCOMPARE(changed(), u"14 15 18"_s);
    QVERIFY(scene.Record(kRecordHotkeyKey) == ConfigValue(qint16(122)));
    QVERIFY(scene.Record(kRecordUserName) == ConfigValue(u"Ada"_s));
    scene.Open();
    QCOMPARE(scene.Get<QComboBox>("cboOtherKey")->currentText(), u"F11"_s);
    QVERIFY(scene.Store.Bytes(u"setting.ini"_s).startsWith("; mine\r\n[Properties]\r\nbrowser=x\r\n"));
    QCOMPARE(scene.Autostart.Asked, QStringList(u"on /stick/paneda"_s));
}

void TestSettingsDialogs::drives() {
    Scene scene;
    scene.Open();
    const QColor green(0x80, 0xFF, 0x80);
    auto* box = scene.Get<DriveBox>("txtDrive2");
    const auto focused = [&] { return scene.Dialog->focusWidget()->objectName(); };
    QVERIFY(QTest::qWaitForWindowActive(scene.Dialog.get()));
    QTest::keyClick(scene.Dialog.get(), Qt::Key_D, Qt::AltModifier);
    QTRY_COMPARE(focused(), u"txtDrive1"_s);
    QVERIFY(!scene.Get<DriveBox>("txtDrive1")->isChecked());
    scene.Get<QWidget>("chkHideAfterLaunch")->setFocus();
    const auto press = [&](Qt::Key key) { QTest::keyClick(scene.Dialog->focusWidget(), key); };
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Left, Qt::Key_Right, Qt::Key_Space})
        press(key);
    QCOMPARE(focused(), u"txtDrive2"_s);
    QCOMPARE(box->grab().toImage().pixelColor(2, 2), green);
    press(Qt::Key_Tab);
    QCOMPARE(focused(), u"chkEnableMouseClick"_s);
    press(Qt::Key_Backtab);
    QCOMPARE(focused(), u"txtDrive2"_s);
    scene.Press("txtDrive2");
    QCOMPARE(box->grab().toImage().pixelColor(2, 2), QColor(Qt::white));
}

void TestSettingsDialogs::buttonsPerRow_data() {
    QTest::addColumn<double>("written");
    QTest::addColumn<QString>("meaning"); // before the advice
    QTest::newRow("20") << 20.0 << QString();
    QTest::newRow("abc") << 0.0 << u"This counts as 0.5, the narrowest panel. "_s;
    QTest::newRow("999") << 999.0 << u"The panel may become as wide as the screen. "_s;
    QTest::newRow(" 2.5x") << 2.5 << u"This counts as 2.5. "_s;
    QTest::newRow("3,5") << 3.0 << u"This counts as 3. "_s;
}

void TestSettingsDialogs::buttonsPerRow() {
    QFETCH(double, written);
    QFETCH(QString, meaning);
    Scene scene;
    scene.Open();
    scene.Get<QLineEdit>("txtButtonsPerRow")->clear();
    QTest::keyClicks(scene.Get<QLineEdit>("txtButtonsPerRow"), QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(scene.Get<QLabel>("lblButtonsPerRow")->text(), meaning + u"Use a number from 0.5 to 20."_s);
    scene.Press("lblSave");
    QVERIFY(scene.Record(kRecordButtonsPerRow) == ConfigValue(written));
}

void TestSettingsDialogs::failedAutostart() {
    Scene scene;
    scene.Autostart.Fails = true;
    scene.Open();
    for (const char* control : {"chkAutoStart", "chkHideAfterLaunch", "chkHotkeyCenter", "lblSave"})
        scene.Press(control);
    QCOMPARE(scene.Prompts.Shown.size(), 1);
    QVERIFY(scene.Prompts.Shown[0].endsWith(
        u"The start along with your desktop could not be switched on:\n/autostart: no room"_s));
    QVERIFY(scene.Record(kRecordHideAfterLaunch) == ConfigValue(true));
    QCOMPARE(scene.Key(u"hotkey show center"_s), u"0"_s);
    QCOMPARE(scene.Reloads, 1);
    // What is shown and stored is what the session does.
    QVERIFY(scene.Record(kRecordAutostart) == ConfigValue(qint16(0)));
    QVERIFY(!scene.Get<QCheckBox>("chkAutoStart")->isChecked());
    // A save that fails leaves setting.ini as it was, although its first key is written before `config`.
    const QByteArray before = scene.Store.Bytes(u"setting.ini"_s);
    const QString config = ConfigFilePath(scene.State.AppFolder);
    QVERIFY(QFile::remove(config) && QDir().mkpath(config));
    for (const char* control : {"txtDrivePaneda", "lblSave"})
        scene.Press(control);
    QCOMPARE(scene.Prompts.Shown.size(), 2);
    QCOMPARE(scene.Store.Bytes(u"setting.ini"_s), before);
}

void TestSettingsDialogs::hotkeys_data() {
    using Answer = Hotkey::Answer;
    QTest::addColumn<QString>("modifier"); // a box to press
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("told"); // a part of the notice or question; empty for none
    QTest::newRow("F5") << QString() << Answer::Registered << QString();
    QTest::newRow("A") << QString() << Answer::Registered << u"A can then not be typed in any program"_s;
    QTest::newRow("Space Bar") << u"chkShiftKey"_s << Answer::Registered << u"Shift + Space Bar can then"_s;
    QTest::newRow("C") << u"chkCtrKey"_s << Answer::Asked << QString();
    QTest::newRow("D") << u"chkCtrKey"_s << Answer::Taken << u"the hotkey Ctrl + D belongs to another"_s;
    QTest::newRow("F6") << QString() << Answer::NoSuchKey << u"F6 is not on this keyboard"_s;
    QTest::newRow(" ") << u"chkAltKey"_s << Answer::NoSuchKey << u"no key is chosen for the hotkey."_s;
}

void TestSettingsDialogs::hotkeys() {
    QFETCH(QString, modifier);
    QFETCH(Hotkey::Answer, answer);
    QFETCH(QString, told);
    Scene scene;
    scene.Hotkey.Answers = answer;
    scene.Open();
    scene.Press("chkEnableHotKey");
    if (!modifier.isEmpty())
        scene.Press(qPrintable(modifier));
    scene.Get<QComboBox>("cboOtherKey")->setCurrentText(QString::fromLatin1(QTest::currentDataTag()));
    scene.Press("lblSave");
    QCOMPARE(scene.Prompts.Shown.size(), told.isEmpty() ? 0 : 1);
    QVERIFY2(scene.Prompts.Shown.value(0).contains(told), qPrintable(scene.Prompts.Shown.value(0)));
    if (!told.contains(u"can then"))
        return;
    // A No leaves everything as it was; a Yes is asked for once.
    QCOMPARE(scene.Reloads, 0);
    scene.Prompts.Answers = {true};
    scene.Press("lblSave");
    scene.Press("lblSave");
    QCOMPARE(scene.Reloads, 2);
    QCOMPARE(scene.Prompts.Shown.size(), 2);
}

void TestSettingsDialogs::smallScreen() {
    Scene scene;
    scene.Hotkey.HasMeans = Hotkey::Means::None;
    scene.Open();
    QVERIFY(scene.Get<QLabel>("lblNoHotkey")->isVisible());
    auto* save = scene.Get<QPushButton>("lblSave");
    QVERIFY(scene.Dialog->height() < 600);
    QVERIFY(scene.Dialog->rect().contains(save->geometry()));
    QCOMPARE(save->visibleRegion().boundingRect().size(), save->size());
    QCOMPARE(Mnemonics(*scene.Dialog), u"ACDEHIKLMNOPRSTUVWY"_s);
    // A field below the edge comes into view when its letter is pressed.
    QVERIFY(scene.Get<QLineEdit>("txtUser")->visibleRegion().isEmpty());
    QVERIFY(QTest::qWaitForWindowActive(scene.Dialog.get()));
    QTest::keyClick(scene.Dialog.get(), Qt::Key_Y, Qt::AltModifier);
    QTRY_VERIFY(!scene.Get<QLineEdit>("txtUser")->visibleRegion().isEmpty());
}

void TestSettingsDialogs::browsers_data() {
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("offersExplorer"); // on a system that cannot have it
    QTest::newRow("iexplorer.exe") << u"optBrowserIE"_s << QString() << true;
    QTest::newRow("iexplore.exe") << u"optBrowserOther"_s << u"iexplore.exe"_s << false;
    QTest::newRow("firefox.exe") << u"optBrowserFirefox"_s << QString() << false;
    QTest::newRow("/usr/bin/w3m") << u"optBrowserOther"_s << u"/usr/bin/w3m"_s << false;
}

void TestSettingsDialogs::browsers() {
    QFETCH(QString, option);
    QFETCH(QString, other);
    QFETCH(bool, offersExplorer);
    Scene scene;
    scene.State.Browser = QString::fromLatin1(QTest::currentDataTag());
    const SettingServices services = scene.Services();
    frmSettingAdvance dialog(scene.State, services);
    dialog.Form_Load();
    QVERIFY(dialog.findChild<QRadioButton*>(option)->isChecked());
    QCOMPARE(dialog.findChild<QLineEdit*>(u"txtBrowserOther"_s)->text(), other);
    QCOMPARE(dialog.findChild<QRadioButton*>(u"optBrowserIE"_s)->isHidden(), !offersExplorer);
    dialog.cmdSave_Click();
    const QString written = offersExplorer ? u"iexplore.exe"_s : QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(scene.Key(u"browser"_s), written);
    QCOMPARE(scene.State.Browser, written);
}

void TestSettingsDialogs::advanceByKeys() {
    Scene scene;
    scene.Open();
    scene.Get<QPushButton>("lblAdvance")->setFocus();
    QTest::keyClick(scene.Dialog.get(), Qt::Key_Return);
    QVERIFY(scene.Dialog->findChild<frmSettingAdvance*>());
    scene.Dialog.reset();
    const SettingServices services = scene.Services();
    frmSettingAdvance dialog(scene.State, services);
    dialog.Form_Load();
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(Mnemonics(dialog), u"ABDFHIST"_s);
    scene.Prompts.File = QDir::rootPath() + u"bin/w3m"_s;
    QTest::keyClick(&dialog, Qt::Key_B, Qt::AltModifier);
    QTRY_COMPARE(scene.Prompts.Shown.size(), 1);
    QTest::keyClick(&dialog, Qt::Key_H, Qt::AltModifier);
    QTRY_VERIFY(dialog.findChild<QCheckBox*>(u"chkHideOnStartup"_s)->isChecked());
    QTest::keyClick(&dialog, Qt::Key_T, Qt::AltModifier);
    QTRY_COMPARE(dialog.focusWidget()->objectName(), u"optIcon0"_s);
    // Six pictures in a row: down, and two to the right.
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right})
        QTest::keyClick(dialog.focusWidget(), key);
    // A file that cannot be written keeps the dialog.
    const QString ini = SettingIniFile(scene.State.AppFolder);
    QVERIFY(QFile::remove(ini) && QDir().mkpath(ini));
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(dialog.isVisible() && scene.Prompts.Shown.value(1).contains(QDir::toNativeSeparators(ini)));
    QVERIFY(QDir(ini).removeRecursively());
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(scene.Key(u"browser"_s), QDir::toNativeSeparators(QDir::rootPath() + u"bin/w3m"_s));
    QCOMPARE(scene.Key(u"hide on startup"_s), u"1"_s);
    QCOMPARE(scene.Key(u"system tray icon"_s), u"9"_s);
}

QTEST_MAIN(TestSettingsDialogs)
#include "tst_settings_dialogs.moc"
