#include "core/settings/config_settings.h"
#include "core/text/device_pixels.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QWidget>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// Two monitors side by side; the second one is small, begins lower and has nothing below it.
const QRect kLeft(0, 0, 800, 1024);
const QRect kRight(800, 100, 480, 600);

void SetMonitor(const QString& name, const QRect& rect, const QString& output) {
    ToolOutput(u"xrandr"_s,
               {u"--setmonitor"_s, name,
                u"%1/200x%2/200+%3+%4"_s.arg(rect.width()).arg(rect.height()).arg(rect.x()).arg(rect.y()),
                output});
}

bool HasScreens(qsizetype count) {
    return QTest::qWaitFor([count] { return QGuiApplication::screens().size() == count; }, kPatience);
}

// A dock at a screen's edge, as wide as the screen.
class Dock {
public:
    // The number of pixels at the bottom of the second screen.
    explicit Dock(int height) {
        window_.setGeometry(kRight.x(), kRight.bottom() + 1 - height, kRight.width(), height);
        window_.setAttribute(Qt::WA_X11NetWmWindowTypeDock);
        const QString strut =
            u"0, 0, 0, %1, 0, 0, 0, 0, 0, 0, %2, %3"_s.arg(1024 - kRight.bottom() - 1 + height)
                .arg(kRight.left())
                .arg(kRight.right());
        const QString name = u"_NET_WM_STRUT_PARTIAL"_s;
        ToolOutput(u"xprop"_s, {u"-id"_s, QString::number(window_.winId()), u"-f"_s, name, u"32c"_s,
                                u"-set"_s, name, strut});
        window_.show();
        if (!QTest::qWaitForWindowExposed(&window_))
            qFatal("The dock does not come.");
    }

private:
    QWidget window_;
};

void CallByHotkey(const QPoint& mouse) {
    MoveMouse(mouse);
    PressKey(u"ctrl+alt+k"_s);
}

} // namespace

class tst_desktop_screens : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop"); }
    void init();
    void cleanup();
    void centredAtTheMouse();
    void screenThatGoes();
    void screensOfTwoRatios();
};

void tst_desktop_screens::init() {
    SetMonitor(u"left"_s, kLeft, u"screen"_s);
    SetMonitor(u"right"_s, kRight, u"none"_s);
    QVERIFY(HasScreens(2));
}

void tst_desktop_screens::cleanup() {
    for (const QString& name : {u"right"_s, u"left"_s})
        ToolOutput(u"xrandr"_s, {u"--delmonitor"_s, name});
}

void tst_desktop_screens::centredAtTheMouse() {
    Dock dock(40);
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    program.AddFile(u"Launcher/setting.ini"_s, "[Properties]\nhotkey show center=1\n");
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    const QSize size = WindowRect(program.Panel()).size();
    const QRect room = kRight.adjusted(0, 0, 0, -40);
    const auto at = [&size](const QPoint& corner) { return QRect(corner, size); };
    const std::pair<QPoint, QRect> calls[] = {
        {{1279, 699}, at(room.bottomRight() - QPoint(size.width(), size.height()) + QPoint(1, 1))},
        {{801, 101}, at(room.topLeft())},
        {{1040, 300}, at(QPoint(1040 - size.width() / 2, 300 - size.height() / 2))},
        {{798, 1023}, at(kLeft.bottomRight() - QPoint(size.width(), size.height()) + QPoint(1, 1))},
    };
    for (const auto& [mouse, expected] : calls) {
        PressKey(u"ctrl+alt+k"_s);
        QVERIFY(program.PanelBecomes({}));
        CallByHotkey(mouse);
        QVERIFY(program.PanelBecomes(u"Normal"_s));
        QTRY_COMPARE(WindowRect(program.Panel()), expected);
        QVERIFY(program.ShowPanel());
    }
    QVERIFY(program.Close());
}

void tst_desktop_screens::screenThatGoes() {
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    program.AddFile(u"Launcher/setting.ini"_s, "[Properties]\nhotkey show center=0\n");
    program.SetPlace({900, 150});
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    PressKey(u"ctrl+alt+k"_s);
    QVERIFY(program.PanelBecomes({}));
    ToolOutput(u"xrandr"_s, {u"--delmonitor"_s, u"right"_s});
    QVERIFY(HasScreens(1));
    PressKey(u"ctrl+alt+k"_s);
    QVERIFY(program.PanelBecomes(u"Normal"_s));
    const QSize size = WindowRect(program.Panel()).size();
    QTRY_COMPARE(test::WindowPlace(program.Panel()), QPoint(kLeft.width() - size.width(), 150));
    // The saved place is kept for the day when the screen is back.
    QVERIFY(program.Close());
    QVERIFY(program.Record(kRecordPanelPlace) == (ConfigArray{150 * 15.0, 900 * 15.0}));
}

// The panel is drawn in the pixels of the screen that it is on, at the start and after it was dragged over.
void tst_desktop_screens::screensOfTwoRatios() {
    InstalledProgram program;
    program.CompleteStore();
    program.SetPlace({40, 40});
    program.SetVariable(u"QT_SCREEN_SCALE_FACTORS"_s, u"left=1;right=1.5"_s);
    const auto shows = [&program](const QString& file) {
        const auto same = [&] {
            const QImage shown = WindowPicture(program.Panel());
            const QImage wanted(program.Folder() + u"/Cache/"_s + file);
            if (shown.size() != wanted.size() || shown.isNull())
                return false;
            for (int y = 0; y < shown.height(); ++y) {
                for (int x = 0; x < shown.width(); ++x) {
                    if (qAlpha(wanted.pixel(x, y)) == 255 &&
                        (shown.pixel(x, y) ^ wanted.pixel(x, y)) & 0xFFFFFF)
                        return false;
                }
            }
            return true;
        };
        return QTest::qWaitFor(same, kPatience);
    };
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    QVERIFY(shows(u"category001.png"_s));
    const QSize size = WindowRect(program.Panel()).size();
    Drag(program.Grip(), {880, 200});
    QVERIFY(shows(u"category001@1.5x.png"_s));
    QCOMPARE(WindowRect(program.Panel()).size(), DeviceSize(size, 1.5));
    QVERIFY(program.Close());
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    QVERIFY(shows(u"category001@1.5x.png"_s));
    QVERIFY(program.Close());
    for (const QString& ratio : {u"1.1"_s, u"1.25"_s, u"2"_s, u"3"_s}) {
        program.SetVariable(u"QT_SCREEN_SCALE_FACTORS"_s, u"left=%1;right=%1"_s.arg(ratio));
        QVERIFY(program.Start());
        QVERIFY(program.ShowPanel());
        QVERIFY2(shows(u"category001@%1x.png"_s.arg(ratio)), qPrintable(ratio));
        // Clicks on the first row of pixels that the second bar is drawn on, on its last one, and above it.
        const QRect bar = DeviceRect(program.BarRect(1), ratio.toDouble());
        for (const auto& [row, category] :
             {std::pair(bar.top(), 2), {bar.top() - 1, 1}, {bar.bottom(), 2}, {bar.top() - 1, 1}}) {
            ClickAt(WindowRect(program.Panel()).topLeft() + QPoint(bar.center().x(), row), 1);
            QVERIFY2(shows(u"category00%1@%2x.png"_s.arg(category).arg(ratio)), qPrintable(ratio));
        }
        QVERIFY(program.Close());
    }
}

QTEST_MAIN(tst_desktop_screens)
#include "tst_desktop_screens.moc"
