#include "ui/panel/frmMain.h"

#include "core/text/device_pixels.h"
#include "ui/common/tool_tip.h"

#include <QCursor>
#include <QMouseEvent>
#include <QToolTip>

#include <optional>

// The panel's answers to the mouse: presses, drags and tool tips.

namespace paneda {

namespace {

std::optional<MouseButton> MouseButtonOf(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    case Qt::MiddleButton:
        return MouseButton::Middle;
    default:
        return std::nullopt;
    }
}

int ShiftMaskOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? kShiftKey : 0) |
           (modifiers & Qt::ControlModifier ? kCtrlKey : 0) | (modifiers & Qt::AltModifier ? kAltKey : 0);
}

} // namespace

// The layout pixel of what is drawn under the mouse.
QPoint frmMain::PixelOf(const QMouseEvent& event) const {
    // Qt gives the place in the widget in whole pixels of the layout.
    return LayoutPoint(event.scenePosition(), ScreenRatio());
}

void frmMain::mousePressEvent(QMouseEvent* event) {
    const HitArea area = HitTest(hitAreas_, PixelOf(*event));
    const std::optional<MouseButton> button = MouseButtonOf(event->button());
    pressed_ = button == MouseButton::Left ? area : HitArea();
    // Buttons start their target at the press; bars, headers and signs react to the release.
    if (area.What == HitArea::Kind::Button && button)
        picIcon_MouseDown(ButtonAt(area), *button, ShiftMaskOf(event->modifiers()));
    else if (area.What == HitArea::Kind::Bar)
        picCategory_MouseDown(area.Category, event->button(), event->globalPosition().toPoint());
    else if (area.What == HitArea::Kind::Logo)
        imgLogo_MouseDown(event->button());
    else if (area.What == HitArea::Kind::Frame && button == MouseButton::Right && !HasRoomForMenu())
        imgMenu_Click();
    else if (area.What == HitArea::Kind::Frame)
        motion_.StartDrag(event->scenePosition());
}

void frmMain::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::LeftButton)
        motion_.DoFRDrag(event->globalPosition());
}

void frmMain::mouseDoubleClickEvent(QMouseEvent* event) {
    // Qt sends the second press of a double click only here; it counts as a press too.
    mousePressEvent(event);
    if (HitTest(hitAreas_, PixelOf(*event)).What == HitArea::Kind::Frame)
        fun_.Play();
}

void frmMain::mouseReleaseEvent(QMouseEvent* event) {
    motion_.EndFRDrag();
    const HitArea area = HitTest(hitAreas_, PixelOf(*event));
    const bool clicked = event->button() == Qt::LeftButton && area == pressed_;
    pressed_ = {};
    if (!clicked)
        return;
    if (area.What == HitArea::Kind::Bar)
        picCategory_Click(area.Category);
    else if (area.What == HitArea::Kind::Header)
        picGroup_Click();
    else if (area.What == HitArea::Kind::Hide)
        imgHide_Click();
    else if (area.What == HitArea::Kind::Menu)
        imgMenu_Click();
}

void frmMain::picCategory_MouseDown(int index, Qt::MouseButton button, const QPoint& mouse) {
    const bool isTree = state_.Catalogue[std::size_t(index)].IsTree();
    if (button == Qt::RightButton && isTree && services_.ShowTreeList)
        services_.ShowTreeList(index, *this, mouse);
}

void frmMain::picIcon_MouseDown(const ButtonEntry& button, MouseButton mouse, int shiftMask) {
    if (!LaunchesOn(mouse))
        return;
    services_.Volumes.Refresh(state_.Drives);
    const ButtonFields fields = ReadButtonFields(state_.Drives.ToHost(button.Path, state_.AppPath));
    services_.Opener.Open(DecideLaunch(button.Path, fields, {state_.AppPath, state_.Browser}),
                          {state_.Drives, state_.AppPath});
    switch (DecideAfterLaunch(mouse, shiftMask, state_.HideAfterLaunch)) {
    case AfterLaunch::EndProgram:
        close();
        break;
    case AfterLaunch::Hide:
        imgHide_Click();
        break;
    case AfterLaunch::Stay:
        break;
    }
}

void frmMain::imgMenu_Click() {
    MainMenu menu(services_.MenuActions, state_.TreeOpacity, this);
    menu.exec(QCursor::pos());
}

void frmMain::imgLogo_MouseDown(Qt::MouseButton button) {
    if (button == Qt::RightButton) {
        services_.MenuActions.WebSearch();
        return;
    }
    LogoMenu menu(services_.MenuActions, this);
    menu.exec(QCursor::pos());
}

// On a very narrow panel the menu's sign lies outside the window. The frame then opens the menu, or the user
// could not reach the settings to widen the panel.
bool frmMain::HasRoomForMenu() const {
    return rect().contains(look_->MenuArea().center());
}

void frmMain::ShowToolTip(const QPoint& local, const QPoint& global) {
    const HitArea area = HitTest(hitAreas_, local);
    if (area != tipArea_) {
        tipArea_ = area;
        tip_ = RichTip(ToolTipOf(area));
    }
    // An empty text hides the tip that is shown.
    QToolTip::showText(global, tip_, this, area.Rect);
}

void frmMain::ForgetToolTip() {
    tipArea_ = {};
    tip_.clear();
}

QString frmMain::ToolTipOf(const HitArea& area) const {
    if (area.What != HitArea::Kind::Button)
        return SignToolTip(area.What);
    const ButtonEntry& button = ButtonAt(area);
    const QString drive = look_->DriveTip(button.ControlIndex);
    return drive.isEmpty() ? ButtonToolTip(button, state_.Drives.ToHost(button.Path, state_.AppPath),
                                           state_.AppPath, look_->CutsLabel(button, area.Rect.size()))
                           : drive;
}

const ButtonEntry& frmMain::ButtonAt(const HitArea& area) const {
    const CategoryEntry& category = state_.Catalogue[std::size_t(area.Category)];
    return category.Groups[std::size_t(area.Group)].Buttons[std::size_t(area.Button)];
}

} // namespace paneda
