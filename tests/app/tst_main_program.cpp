#include "app/main_program.h"
#include "core/files/config_file.h"
#include "core/settings/config_settings.h"
#include "core/store/store_layout.h"
#include "support/store_builder.h"
#include "ui/common/qt_prompts.h"
#include "ui/fake_desktop.h"
#include "ui/fake_downloader.h"
#include "ui/fake_places.h"
#include "ui/fake_services.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

using namespace paneda;
using namespace Qt::StringLiterals;
using namespace paneda::test;

namespace {

class FakeLock : public InstanceLock {
public:
    explicit FakeLock(bool isFree) : IsFree(isFree) {}
    bool TryLock(const QString&) override { return std::exchange(IsFree, false); }
    void Release() override { IsFree = true; }

    bool IsFree;
};

Platform FakePlatform(bool isFirst) {
    Platform platform;
    platform.Opener = std::make_unique<FakeOpener>();
    platform.Volumes = std::make_unique<FakeVolumes>();
    platform.InstanceLock = std::make_unique<FakeLock>(isFirst);
    platform.FileIcons = std::make_unique<FakeIcons>();
    platform.DriveSpace = std::make_unique<FakeSpace>();
    platform.Compositor = std::make_unique<FakeCompositor>();
    platform.Hotkey = std::make_unique<FakeHotkey>();
    platform.Pointer = std::make_unique<FakePointer>();
    platform.TrayHosts = std::make_unique<FakeTrayHosts>();
    platform.WorkAreas = std::make_unique<FakeWorkAreas>();
    platform.Foreground = std::make_unique<FakeForeground>();
    platform.OutsideRequest = std::make_unique<FakeRequests>();
    platform.Autostart = std::make_unique<FakeAutostart>();
    platform.SoundPlayer = std::make_unique<FakeSounds>();
    platform.Termination = std::make_unique<FakeTermination>();
    platform.Downloader = std::make_unique<FakeDownloader>();
    platform.SourcePlaces = std::make_unique<FakePlaces>();
    return platform;
}

frmMain* ShownPanel() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* panel = qobject_cast<frmMain*>(window);
        if (panel && panel->isVisible() && !panel->isMinimized())
            return panel;
    }
    return nullptr;
}

} // namespace

class tst_main_program : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void reload();
    void secondInstance();
    void noticeBeginsAtItsEdge();
};

void tst_main_program::reload() {
    const StoreBuilder store;
    store.AddFolder(u"Setting/[001] One"_s);
    store.AddFile(u"Setting/[002] Two/[001] G/[001] a.txt"_s);
    const auto useHotkey = [path = ConfigFilePath(store.AppFolder())](bool on) {
        ConfigFile config = ConfigFile::Load(path).value_or(ConfigFile());
        config.Write(kRecordHotkeyEnabled, {on});
        return config.Save(path).has_value();
    };
    QVERIFY(useHotkey(true));
    Platform platform = FakePlatform(true);
    const auto& hotkey = static_cast<const FakeHotkey&>(*platform.Hotkey);
    const auto& lock = static_cast<const FakeLock&>(*platform.InstanceLock);
    const auto& requests = static_cast<const FakeRequests&>(*platform.OutsideRequest);
    bool savedInTime = false;
    bool heldAtFirst = false;
    bool heldAfterwards = true;
    const auto ending = [&] {
        savedInTime = !lock.IsFree && !requests.Execute && !store.Bytes(u"setting.ini"_s).isEmpty();
    };
    MainProgram program(std::move(platform), store.Path(u"paneda"_s), ending);
    QPointer<frmMain> first;
    std::vector<OpenedCategory> seen;
    bool hiddenPanelShown = false;
    bool shownAfterEnd = true;
    QTimer::singleShot(0, qApp, [&] {
        first = ShownPanel();
        if (!first)
            return QApplication::quit();
        first->picCategory_Click(1);
        seen.push_back(first->Opened());
        heldAtFirst = bool(hotkey.Press);
        useHotkey(false);
        // A change by hand, with a cache that tells of the former state.
        store.AddFile(u"Setting/[002] Two/[001] G/[002] b.txt"_s);
        first->imgHide_Click();
        program.ReloadPanel();
        frmMain* second = ShownPanel();
        hiddenPanelShown = second != nullptr;
        heldAfterwards = bool(hotkey.Press);
        if (!second)
            return QApplication::quit();
        seen.push_back(second->Opened());
        const auto late = requests.Execute;
        second->close();
        late({});
        shownAfterEnd = ShownPanel() != nullptr;
    });
    QTimer::singleShot(30'000, qApp, &QCoreApplication::quit);
    QCOMPARE(program.Run(), 0);
    QVERIFY(hiddenPanelShown);
    QVERIFY(first.isNull());
    QVERIFY(savedInTime && lock.IsFree && !shownAfterEnd);
    // The old registration would call the panel that is gone.
    QVERIFY(heldAtFirst && !heldAfterwards);
    QCOMPARE(seen.size(), 2U);
    QCOMPARE(seen[0].Index, 1);
    QCOMPARE(seen[0].Buttons.size(), 1U);
    QCOMPARE(seen[1].Index, 1);
    QCOMPARE(seen[1].Buttons.size(), 2U);
    QCOMPARE(store.Bytes(u"setting.ini"_s).simplified(), QByteArray("[Properties] category=2"));
}

void tst_main_program::secondInstance() {
    const StoreBuilder store;
    Platform platform = FakePlatform(false);
    const auto& requests = static_cast<const FakeRequests&>(*platform.OutsideRequest);
    MainProgram program(std::move(platform), store.Path(u"paneda"_s));
    QString text;
    QTimer::singleShot(0, qApp, [&] {
        QCOMPARE(requests.Sent, QStringList(store.Path(u"paneda"_s)));
        auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!shown)
            return;
        text = shown->text();
        shown->accept();
    });
    QCOMPARE(program.Run(), 0);
    QCOMPARE(text, u"Paneda Launcher has been launched"_s);
    QCOMPARE(store.Entries(), QStringList());
    QVERIFY(!ShownPanel());
}

// With a text of several lines, which Qt breaks by itself.
void tst_main_program::noticeBeginsAtItsEdge() {
    const auto box = MakeNotice({}, u"Many words "_s.repeated(20), nullptr);
    box->show();
    const auto* label = box->findChild<QLabel*>(u"qt_msgbox_label"_s);
    QVERIFY2(label->x() < 30 && label->width() > box->width() - 60, qPrintable(QString::number(label->x())));
}

QTEST_MAIN(tst_main_program)
#include "tst_main_program.moc"
