#include "desktop/setting_window.h"

#include "core/store/store_layout.h"
#include "desktop/desktop.h"
#include "ui/panel/main_menu.h"
#include "ui/panel/screen_metrics.h"

#include <QTest>

namespace paneda::test {

using namespace Qt::StringLiterals;

bool SettingWindow::Open() {
    MainMenu menu({}, 1);
    const QSize size = menu.sizeHint();
    const auto pressMenu = [&] {
        ClickAt(program_.Menu(), 1);
        return QTest::qWaitFor(
            [&] { return !RectOf(u"\"paneda\": (\"paneda\" \"paneda\")"_s, size).isEmpty(); }, kPatience);
    };
    if (!program_.ShowPanel() || !pressMenu())
        return false;
    const QPoint popUp = RectOf(u"\"paneda\": (\"paneda\" \"paneda\")"_s, size).topLeft();
    ClickAt(popUp + menu.actionGeometry(menu.findChild<QAction*>(u"mnuSetting"_s)).center(), 1);
    const auto isThere = [this] {
        window_ = FindWindow(u"Settings"_s, program_.ProcessId());
        return !window_.isEmpty();
    };
    if (!QTest::qWaitFor(isThere, kPatience))
        return false;
    MakeTwin();
    return QTest::qWaitFor([this] { return WindowRect(window_).size() == twin_->size(); }, kPatience);
}

void SettingWindow::MakeTwin() {
    state_ = program_.State();
    FakeWorkAreas areas;
    const QPoint corner = WindowPlace(program_.Panel());
    const ScreenMetrics screen =
        ScreenAt(areas, {PixelsToTwips(corner.x()), PixelsToTwips(corner.y())}).Metrics;
    const auto scene = [screen] {
        return PlaceScene{{}, {screen.Width, screen.Height}, screen.WorkAreaBottom, {}};
    };
    twin_ = std::make_unique<frmSetting>(state_, SettingServices{.Prompts = messages_,
                                                                 .Autostart = session_,
                                                                 .Hotkey = keys_,
                                                                 .ExecutablePath = {},
                                                                 .ReloadPanel = [] {},
                                                                 .Scene = scene,
                                                                 .TrayIcons = {}});
    twin_->setAttribute(Qt::WA_DontShowOnScreen);
    twin_->Form_Load();
    twin_->show();
}

void SettingWindow::Click(const QString& control) const {
    const auto* twin = twin_->findChild<QWidget*>(control);
    if (!twin)
        qFatal("There is no %s.", qPrintable(control));
    // Near the left end, where a box has its mark.
    const QPoint inside(std::min(8, twin->width() / 2), twin->height() / 2);
    ClickAt(WindowPlace(window_) + twin->mapTo(twin_.get(), inside), 1);
}

void SettingWindow::Type(const QString& control, const QString& text) const {
    Click(control);
    PressKey(u"ctrl+a"_s);
    Xdotool({u"type"_s, text});
}

bool SettingWindow::Save() {
    const QString before = program_.Panel();
    Click(u"lblSave"_s);
    return QTest::qWaitFor([&before] { return WindowState(before).isEmpty(); }, kPatience) &&
           program_.FindPanel();
}

bool SettingWindow::SaveAndBeTold(const QString& text) {
    // The mouse must not light up the button of the one box and not of the other.
    const QString title = InstalledProgram::kBoxTitle.toString();
    const QImage expected = PictureOfBox(title, text);
    Click(u"lblSave"_s);
    MoveMouse({2, 1020});
    QString box;
    const auto isTold = [&] {
        if (box.isEmpty())
            box = FindWindow(title, program_.ProcessId());
        return !box.isEmpty() && WindowPicture(box) == expected;
    };
    if (expected.isNull() || !QTest::qWaitFor(isTold, kPatience))
        return false;
    PressKey(u"Return"_s);
    return QTest::qWaitFor([&box] { return WindowState(box).isEmpty(); }, kPatience);
}

} // namespace paneda::test
