#include "core/files/ini_file.h"
#include "core/settings/config_settings.h"
#include "core/store/store_layout.h"
#include "skin/plain_look.h"
#include "support/store_builder.h"
#include "ui/fake_panel.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolTip>

using namespace paneda;
using namespace Qt::StringLiterals;
using namespace paneda::test;

namespace {

const QString kTool = u"Setting/[001] One/[001] G/[001] Tool [1].pnd"_s;

// A store of two categories of buttons and one tree category, with a panel over it and a fake desktop.
class PanelBench : public FakePanelDesktop {
public:
    StoreBuilder Store;
    AppState State;
    std::unique_ptr<frmMain> Panel;

    PanelBench() {
        Store.AddFile(kTool, "[Properties]\nTarget=\\Tools\\a.exe\nDescription=Does <b> & more\n");
        Store.AddFile(u"Setting/[001] One/[001] G/[002] Page & more.url"_s,
                      "[InternetShortcut]\nURL=https://a\n");
        Store.AddFile(u"Setting/[001] One/[001] G/[003] File [1].lnk"_s);
        Store.AddFile(u"Setting/[002] Two/[001] H/only.txt"_s);
        Store.AddFile(u"Setting/[003] Dynamic Category/Properties.ini"_s,
                      "[Properties]\nCategory=Old Tree\n");
        State = Store.State();
        Volumes.Refresh(State.Drives);
        State.AppPath = State.Drives.ToStored(Store.AppFolder());
    }

    void Load() {
        Panel = std::make_unique<frmMain>(State, Services());
        Panel->Form_Load();
        Panel->ShowAtStart();
    }

    const GroupGeometry& Group(std::size_t group) const {
        return Panel->Geometry().Categories[std::size_t(Panel->Opened().Index)].Groups[group];
    }
    // What was told, without that there is no skin: the panel is tested in its built-in look.
    QStringList Notices() const {
        QStringList notices = Prompts.Shown;
        notices.removeIf([](const QString& notice) { return notice.contains(u"built-in look"); });
        return notices;
    }

    QRect Button(std::size_t group, std::size_t button) const {
        return ToPixels(Group(group).Buttons[button].Rect);
    }
    QRect Header(std::size_t group) const { return ToPixels(Group(group).Header); }
    QRect Bar(int category) const {
        return ToPixels(Panel->Geometry().Categories[std::size_t(category)].Bar);
    }

    void Press(const QRect& area, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::mousePress(Panel.get(), button, modifiers, area.center());
    }
    void Release(const QRect& area, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseRelease(Panel.get(), button, Qt::NoModifier, area.center());
    }
    void Click(const QRect& area, Qt::MouseButton button = Qt::LeftButton) const {
        Press(area, button);
        Release(area, button);
    }

    bool IsHidden() const { return Panel->isMinimized() || !Panel->isVisible(); }
    QString StoredFolder(const QString& rest) const { return State.AppPath + u'\\' + rest; }
};

// As messages name a file.
QString Native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

} // namespace

class tst_panel_window : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void hitAreas_data();
    void hitAreas();
    void press();
    void requests();
    void bars();
    void hide();
    void trayComesAndGoes();
    void toolTips();
    void failuresAreShownOnce();
    void picture();
    void menuOfNarrowPanel();
};

void tst_panel_window::hitAreas_data() {
    QTest::addColumn<QPoint>("point"); // pixels
    QTest::addColumn<QString>("area"); // kind, category, group, button

    const auto row = [](int x, int y, const QString& area) {
        QTest::addRow("%d,%d", x, y) << QPoint(x, y) << area;
    };
    row(31, 39, u"button 0 0 0"_s);
    row(32, 39, u"none -1 -1 -1"_s); // the gap between two buttons
    row(40, 49, u"button 0 1 0"_s);  // on the header's last line
    row(5, 90, u"none -1 -1 -1"_s);  // a button that does not fit and so is hidden
    row(50, 100, u"bar 0 -1 -1"_s);
    // A piece of the frame that reaches over the header: what lies on it can be pressed.
    row(105, 5, u"frame -1 -1 -1"_s);
    row(95, 5, u"header 0 0 -1"_s);
}

void tst_panel_window::hitAreas() {
    QFETCH(QPoint, point);
    PanelGeometry geometry;
    geometry.Categories.resize(2);
    geometry.Categories[0].Bar = {0, 1500, 1500, 300};
    geometry.Categories[1].Bar = {0, 1800, 1500, 300};
    geometry.Categories[0].Groups = {
        {1, {0, 0, 1500, 150}, {{1, {0, 150, 480, 480}}, {2, {540, 150, 240, 240}}}},
        {2, {0, 600, 1500, 150}, {{3, {15, 735, 600, 480}}, {4, {15, 1275, 480, 480}}}}};
    geometry.Categories[1].Groups = {{3, {0, 0, 1500, 1500}, {{5, {0, 0, 1500, 1500}}}}};
    const HitArea area =
        HitTest(HitAreasOf({QRect(90, 0, 20, 30)}, geometry, {0, {0, 1}, {{0, 0}, {0, 1}, {1, 0}}}), point);
    const QStringList kinds{u"none"_s, u"bar"_s, u"header"_s, u"button"_s, {}, {}, {}, u"frame"_s};
    QTEST(
        u"%1 %2 %3 %4"_s.arg(kinds.value(int(area.What))).arg(area.Category).arg(area.Group).arg(area.Button),
        "area");
}

void tst_panel_window::press() {
    PanelBench bench;
    bench.Load();
    QSignalSpy unloaded(bench.Panel.get(), &frmMain::Unloaded);
    const QRect button = bench.Button(0, 0);
    bench.Press(button, Qt::BackButton, Qt::ShiftModifier);
    bench.Click(button); // the release adds nothing
    QCOMPARE(bench.Opener.Requests.size(), 1U);
    bench.State.HideAfterLaunch = true;
    bench.Press(button);
    QVERIFY(bench.IsHidden());
    bench.Panel->Form_LinkExecute({});
    QVERIFY(unloaded.isEmpty());
    bench.Press(button, Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(unloaded.size(), 1);
}

void tst_panel_window::requests() {
    PanelBench bench;
    bench.Store.AddFile(u"setting.ini"_s, "[Properties]\nmy computer drive paneda=1\n");
    bench.Load();
    bench.Volumes.MountPoints.append(u"/media/stick"_s);
    for (const QRect& button : {bench.Button(0, 0), bench.Button(1, 1)})
        bench.Press(button);
    // A volume that has come since the start is known to the launch.
    if (QDir::rootPath() == u'/')
        QCOMPARE(bench.Opener.Paths.Drives.RootOf(u'D'), u"/media/stick"_s);
    // Records are read at the press.
    bench.Store.AddFile(kTool, "[Properties]\nTarget=https://b\n");
    bench.Press(bench.Button(0, 0));

    QStringList targets;
    for (const LaunchRequest& request : bench.Opener.Requests)
        targets.append(request.Target);
    QCOMPARE(targets, (QStringList{u"C:\\Tools\\a.exe"_s, u"C"_s, u"https://b"_s}));
}

void tst_panel_window::bars() {
    PanelBench bench;
    bench.Load();
    const QRect first = bench.Button(0, 0);
    const QRect third = bench.Button(0, 2);
    QCOMPARE(bench.Panel->Opened().Index, 0);

    // A click is a press and a release of the left button on one bar.
    bench.Press(bench.Bar(1));
    QCOMPARE(bench.Panel->Opened().Index, 0);
    bench.Release(bench.Bar(2));
    bench.Press(bench.Bar(1));
    bench.Release(first);
    bench.Click(bench.Bar(1), Qt::RightButton);
    QCOMPARE(bench.Panel->Opened().Index, 0);
    bench.Click(bench.Bar(1));
    QCOMPARE(bench.Panel->Opened().Index, 1);
    QCOMPARE(bench.State.SelectedCategory, 1);

    // The button that has taken a hidden one's place is the one that is hit, and an empty place is empty.
    bench.Press(first);
    bench.Press(third);
    QCOMPARE(bench.Opener.Requests.size(), 1U);
    QVERIFY(bench.Opener.Requests[0].Target.endsWith(u"\\[002] Two\\[001] H\\only.txt"_s));
}

void tst_panel_window::hide() {
    PanelBench bench;
    bench.Store.AddFile(u"setting.ini"_s, "[Properties]\nhide on startup=1\ncategory=2\n");
    bench.Load();
    QVERIFY(bench.IsHidden());
    QCOMPARE(bench.Panel->Opened().Index, 1);
    bench.Panel->Form_LinkExecute(u"whatever"_s);
    QVERIFY(!bench.IsHidden());
    const QRect spot = PlainChromeOf(bench.Panel->Geometry()).Hide;
    bench.Press(spot);
    QVERIFY(!bench.IsHidden());
    bench.Release(spot);
    QVERIFY(bench.IsHidden());
}

void tst_panel_window::trayComesAndGoes() {
    PanelBench bench;
    bench.Load();
    using enum TrayHosts::Kind;
    // A panel that is shown stays so.
    bench.TrayHosts.Become(Presses);
    bench.TrayHosts.Become(None);
    QVERIFY(!bench.IsHidden());
    bench.Panel->imgHide_Click();
    QVERIFY(bench.Panel->isMinimized() && bench.Panel->isVisible());
    bench.TrayHosts.Become(Menus);
    QVERIFY(!bench.Panel->isVisible());
    bench.TrayHosts.Become(None);
    QVERIFY(bench.Panel->isMinimized() && bench.Panel->isVisible());
    // With another way to call it, the panel stays out of the list of windows.
    bench.Hotkey.Register(0, 0, {});
    bench.Panel->imgHide_Click();
    QVERIFY(!bench.Panel->isVisible());
}

void tst_panel_window::toolTips() {
    PanelBench bench;
    bench.Store.AddFile(u"setting.ini"_s, "[Properties]\nmy computer drive paneda=1\n");
    bench.Load();
    const auto tipAt = [&bench](const QPoint& point) {
        QHelpEvent event(QEvent::ToolTip, point, bench.Panel->mapToGlobal(point));
        QApplication::sendEvent(bench.Panel.get(), &event);
        return ShownTip();
    };
    // The built-in look has little room for labels: the caption is in the tip as well.
    QCOMPARE(tipAt(bench.Button(0, 0).center()), u"Tool\nDoes <b> & more"_s);
    // No file is read for another place on the same button.
    bench.Store.AddFile(kTool, "[Properties]\nDescription=new\n");
    QCOMPARE(tipAt(bench.Button(0, 0).topLeft()), u"Tool\nDoes <b> & more"_s);
    QCOMPARE(tipAt(bench.Button(0, 1).center()), u"Page & more.url"_s);
    QCOMPARE(tipAt(bench.Button(0, 0).center()), u"Tool\nnew"_s);
    QTRY_COMPARE(tipAt(bench.Button(1, 0).center()), u"C: Free -"_s); // known after the first paint
    const QPoint header = bench.Header(0).center();
    tipAt(header);
    QTRY_VERIFY(tipAt(header).isEmpty());
}

void tst_panel_window::failuresAreShownOnce() {
    PanelBench bench;
    bench.Store.AddFile(u"Cache"_s);
    bench.Store.AddFolder(u"config"_s);
    bench.Load();
    QVERIFY(bench.Notices().isEmpty()); // not before the panel is there
    QTRY_COMPARE(bench.Notices().size(), 1);
    QVERIFY(bench.Notices()[0].contains(Native(bench.Store.Path(u"Cache"_s)) + u':'));
    QVERIFY(bench.Notices()[0].contains(Native(bench.Store.Path(u"config"_s)) + u':'));
    bench.Panel->showMinimized();
    bench.Panel->Form_LinkExecute({});
    QCoreApplication::processEvents();
    QCOMPARE(bench.Notices().size(), 1);
}

void tst_panel_window::picture() {
    PanelBench bench;
    bench.Load();
    const auto colour = [&bench](const QRect& rect) {
        return bench.Panel->grab().toImage().pixel(rect.topRight() + QPoint(-1, 1));
    };
    const QRect iconButton = bench.Button(0, 1); // without a style: the icon alone
    QCOMPARE(colour(iconButton), FakeIcons::kColour);
    const QRgb active = colour(bench.Bar(0));
    const QRgb bar = colour(bench.Bar(1));
    QVERIFY(active != bar);
    // The other category: its bar is the active one, and the buttons of the first have gone.
    bench.Panel->picCategory_Click(1);
    QCOMPARE(colour(bench.Bar(1)), active);
    QVERIFY(colour(iconButton) != FakeIcons::kColour);
}

// Its sign for the menu has no room; the frame opens the menu then, or nobody could widen the panel.
void tst_panel_window::menuOfNarrowPanel() {
    for (const double buttonsPerRow : {0.5, 5.0}) {
        PanelBench bench;
        LoadPanelState(bench.State);
        ConfigFile config = ConfigFile::Load(ConfigFilePath(bench.Store.AppFolder())).value_or(ConfigFile());
        config.Write(kRecordButtonsPerRow, {buttonsPerRow});
        QVERIFY(config.Save(ConfigFilePath(bench.Store.AppFolder())));
        bench.Load();
        bool opened = false;
        QTimer::singleShot(0, this, [&opened] {
            opened = QApplication::activePopupWidget() && QApplication::activePopupWidget()->close();
        });
        bench.Press({0, 30, 2, 2}, Qt::RightButton);
        QCoreApplication::processEvents();
        QCOMPARE(opened, buttonsPerRow < 1);
    }
}

QTEST_MAIN(tst_panel_window)
#include "tst_panel_window.moc"
