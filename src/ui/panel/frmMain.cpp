#include "ui/panel/frmMain.h"

#include "core/text_rules.h"
#include "ui/panel/plain_panel_look.h"
#include "ui/panel/screen_metrics.h"
#include "ui/panel/skin_choice.h"
#include "ui/panel/skinned_panel_look.h"
#include "ui/panel/window_shape.h"

#include <QCloseEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include <optional>

namespace paneda {

namespace {

// Without blending a pixel is shown or not; half of it decides.
constexpr int kSolidAlpha = 128;

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

frmMain::frmMain(AppState& state, const PanelServices& services)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), state_(state), services_(services) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("AhPanel"));
    setAttribute(Qt::WA_TranslucentBackground);
}

frmMain::~frmMain() = default;

void frmMain::Form_Load() {
    load_ = LoadPanelState(state_);
    MakeLook();
    LayOut();
    state_.FormLoaded = true;
    picCategory_Click(state_.SelectedCategory);
}

void frmMain::MakeLook() {
    SkinChoice choice = ChooseSkin(state_.AppFolder, state_.SkinName);
    skinProblem_ = choice.Problem;
    // Pictures on file are those of the skin that was asked for.
    const bool usesCache = load_.CacheValid && skinProblem_.isEmpty();
    CacheRecord sizes;
    if (choice.Theme) {
        auto look = std::make_unique<SkinnedPanelLook>(state_, std::move(*choice.Theme),
                                                       usesCache ? &load_.Cache : nullptr, services_.Icons,
                                                       services_.Space);
        StorePieceSizes(look->Sizes(), sizes);
        look_ = std::move(look);
    } else {
        look_ = std::make_unique<PlainPanelLook>(state_, services_.Icons);
    }
    if (!usesCache)
        WriteCache(state_, sizes);
}

void frmMain::LayOut() {
    const LayoutInput input{state_.ButtonsPerRow, look_->Metrics(), CurrentScreenMetrics(), state_.PanelLeft,
                            state_.PanelTop};
    state_.WorkAreaBottom = input.Screen.WorkAreaBottom;
    geometry_ = LayoutPanel(state_.Catalogue, input);
    look_->SetGeometry(geometry_);
    state_.PanelLeft = geometry_.PanelLeft;
    state_.PanelTop = geometry_.PanelTop;
    setFixedSize(TwipsToPixels(geometry_.PanelWidth), TwipsToPixels(geometry_.PanelHeight));
    move(TwipsToPixels(geometry_.PanelLeft), TwipsToPixels(geometry_.PanelTop));
}

void frmMain::ShowAtStart() {
    // Nothing could call a hidden panel back yet; minimized it stays in the list of windows.
    if (state_.HideOnStartup)
        showMinimized();
    else
        show();
}

void frmMain::picCategory_Click(int index) {
    opened_ = OpenCategory(geometry_, index);
    if (opened_.Index >= 0)
        state_.SelectedCategory = opened_.Index;
    hitAreas_ = HitAreasOf(geometry_, opened_);
    hitAreas_.push_back({HitArea::Kind::Hide, -1, -1, -1, look_->HideArea()});
    hitAreas_.push_back({HitArea::Kind::Menu, -1, -1, -1, look_->MenuArea()});
    ShowPicture(look_->Picture(opened_.Index));
}

void frmMain::ShowPicture(const QImage& picture) {
    picture_ = picture;
    // Transparent pixels let the mouse through to what is below.
    setMask(ShapeOf(picture_, services_.Blending.IsActive() ? 1 : kSolidAlpha));
    update();
}

void frmMain::AfterFirstPaint() {
    // Free space has changed since the pictures were made.
    if (load_.CacheValid && HasDriveButtons(state_.Catalogue))
        picGroup_Click();
    PrepareNextPicture();
    TellProblems();
}

void frmMain::PrepareNextPicture() {
    // One picture at a time, so that the panel answers in between.
    if (look_->PrepareNext())
        QTimer::singleShot(0, this, &frmMain::PrepareNextPicture);
}

void frmMain::TellProblems() {
    if (!load_.Failures.empty())
        services_.Messages.Notice(QStringLiteral("These files could not be written or read:\n\n") +
                                  FailureText(load_.Failures));
    if (!skinProblem_.isEmpty())
        services_.Messages.Notice(skinProblem_);
}

void frmMain::picGroup_Click() {
    // Any header of the first category brings its drives up to date.
    if (state_.SelectedCategory != 0)
        return;
    look_->RefreshDrives();
    ShowPicture(look_->Picture(opened_.Index));
}

void frmMain::picIcon_MouseDown(const ButtonEntry& button, MouseButton mouse, int shiftMask) {
    if (!LaunchesOn(mouse))
        return;
    services_.Drives.Refresh(state_.Drives);
    const ButtonFields fields = ReadButtonFields(state_.Drives.ToHost(button.Path, state_.AppPath));
    services_.Launcher.Open(DecideLaunch(button.Path, fields, {state_.AppPath, state_.Browser}),
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

void frmMain::imgHide_Click() {
    // As in ShowAtStart.
    showMinimized();
}

void frmMain::imgMenu_Click() {
    QMenu menu;
    connect(menu.addAction(QStringLiteral("Goodbye, Paneda Launcher")), &QAction::triggered, this, [this] {
        state_.Exiting = true;
        close();
    });
    menu.exec(QCursor::pos());
}

void frmMain::Form_LinkExecute(const QString&) {
    showNormal();
    raise();
    activateWindow();
}

void frmMain::Form_Unload() {
    if (unloaded_)
        return;
    unloaded_ = true;
    hide();
    const FileResult saved = SaveAtExit(state_);
    if (!saved)
        services_.Messages.Notice(saved.error().Text());
}

void frmMain::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, picture_);
    if (painted_)
        return;
    painted_ = true;
    QTimer::singleShot(0, this, &frmMain::AfterFirstPaint);
}

void frmMain::mousePressEvent(QMouseEvent* event) {
    const HitArea area = HitTest(hitAreas_, event->pos());
    const std::optional<MouseButton> button = MouseButtonOf(event->button());
    pressed_ = button == MouseButton::Left ? area : HitArea();
    // A button acts on the press, with no wait for the release.
    if (area.What == HitArea::Kind::Button && button)
        picIcon_MouseDown(ButtonAt(area), *button, ShiftMaskOf(event->modifiers()));
}

void frmMain::mouseReleaseEvent(QMouseEvent* event) {
    const HitArea area = HitTest(hitAreas_, event->pos());
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

void frmMain::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
    Q_EMIT Unloaded();
}

bool frmMain::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        ShowToolTip(help->pos(), help->globalPos());
        return true;
    }
    return QWidget::event(event);
}

void frmMain::ShowToolTip(const QPoint& local, const QPoint& global) const {
    const HitArea area = HitTest(hitAreas_, local);
    if (area.What != HitArea::Kind::Button) {
        QToolTip::hideText();
        return;
    }
    const ButtonEntry& button = ButtonAt(area);
    const QString tip =
        ButtonToolTip(button, state_.Drives.ToHost(button.Path, state_.AppPath), state_.AppPath);
    // As text, whatever marks a description holds.
    QToolTip::showText(global, tip.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")),
                       const_cast<frmMain*>(this), area.Rect);
}

const ButtonEntry& frmMain::ButtonAt(const HitArea& area) const {
    const CategoryEntry& category = state_.Catalogue[std::size_t(area.Category)];
    return category.Groups[std::size_t(area.Group)].Buttons[std::size_t(area.Button)];
}

} // namespace paneda
