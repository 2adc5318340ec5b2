#include "ui/panel/frmMain.h"

#include "core/text/device_pixels.h"
#include "ui/panel/plain_panel_look.h"
#include "ui/panel/screen_metrics.h"
#include "ui/panel/skin_choice.h"
#include "ui/panel/skinned_panel_look.h"
#include "ui/panel/window_shape.h"

#include <QCloseEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <optional>
#include <utility>

namespace paneda {

namespace {

// Alpha from which a pixel is shown on a desktop that cannot blend.
constexpr int kSolidAlpha = 128;
// Milliseconds. Mounting one volume reports several changes in a row; the drives are read after the last one.
constexpr int kDrivesSettle = 300;

} // namespace

frmMain::frmMain(AppState& state, const PanelServices& services)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
    , state_(state)
    , services_(services)
    , motion_(*this, state, services.WorkAreas, services.Satellites)
    , calls_(state, services.Hotkey, services.Pointer, services.TrayHosts,
             {.Toggle = [this](Trigger trigger) { ToggleByTrigger(trigger); },
              .Show = [this] { ShowPaneda(); },
              .WaysChanged = [this] { HideAgain(); }})
    , fun_(services.SoundPlayer) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("AhPanel"));
    setAttribute(Qt::WA_TranslucentBackground);
    connect(&prepare_, &QTimer::timeout, this, &frmMain::PrepareNextPicture);
    drivesChange_.setInterval(kDrivesSettle);
    drivesChange_.setSingleShot(true);
    connect(&drivesChange_, &QTimer::timeout, this, &frmMain::RefreshDrives);
}

frmMain::~frmMain() {
    EndDriveWatch();
}

void frmMain::Form_Load() {
    load_ = LoadPanelState(state_);
    fun_.Load(state_.AppFolder);
    MakeLook(load_.CacheValid ? &load_.Cache : nullptr);
    LayOut({state_.PanelLeft, state_.PanelTop});
    state_.PanelLeft = geometry_.PanelLeft;
    state_.PanelTop = geometry_.PanelTop;
    picCategory_Click(state_.SelectedCategory);
}

// `cache` is null when the store was scanned: the picture files may then show an older store.
void frmMain::MakeLook(const CacheRecord* cache) {
    SkinChoice choice = ChooseSkin(state_.AppFolder, state_.SkinName);
    skinProblem_ = choice.Problem;
    skinPath_ = choice.Theme ? choice.Theme->SkinPath : QString();
    if (choice.Theme)
        look_ = std::make_unique<SkinnedPanelLook>(state_, std::move(*choice.Theme),
                                                   cache ? &cache->Pictures : nullptr, services_.FileIcons,
                                                   services_.DriveSpace);
    else
        look_ = std::make_unique<PlainPanelLook>(state_, services_.FileIcons, services_.DriveSpace);
}

void frmMain::LayOut(WindowPlace wanted) {
    // The layout knows one screen: the one that holds the wanted place, or the middle of the panel's top
    // there.
    ScreenPlace screen = ScreenAt(services_.WorkAreas, wanted);
    const auto layOut = [&] {
        const LayoutInput input{state_.ButtonsPerRow, look_->Metrics(), screen.Metrics,
                                wanted.Left - screen.Origin.Left, wanted.Top - screen.Origin.Top};
        geometry_ = LayoutPanel(state_.Catalogue, input);
    };
    layOut();
    const ScreenPlace middle =
        ScreenAt(services_.WorkAreas, {wanted.Left + geometry_.PanelWidth / 2, wanted.Top});
    if (middle.Origin != screen.Origin) {
        screen = middle;
        layOut();
    }
    look_->SetGeometry(geometry_);
    setFixedSize(TwipsToPixels(geometry_.PanelWidth), TwipsToPixels(geometry_.PanelHeight));
    const WindowPlace place =
        BringIntoView({geometry_.PanelLeft + screen.Origin.Left, geometry_.PanelTop + screen.Origin.Top},
                      {geometry_.PanelWidth, geometry_.PanelHeight}, CurrentWorkAreas(services_.WorkAreas));
    geometry_.PanelLeft = place.Left;
    geometry_.PanelTop = place.Top;
    motion_.MoveTo(place);
    pictureRatio_ = PictureRatio(ScreenAt(services_.WorkAreas, place).Ratio);
    look_->SetRatio(pictureRatio_);
    // The cache names the skin that its pictures show. Where the chosen skin cannot be used this is the skin
    // that is shown instead.
    if (!load_.CacheValid || look_->Record() != load_.Cache.Pictures)
        WriteCache(state_, look_->Record());
}

void frmMain::ShowAtStart() {
    calls_.Start();
    if (!state_.HideOnStartup) {
        show();
        return;
    }
    // A hidden panel may never be painted, so the work that otherwise follows the first paint is done now.
    // `painted_` keeps a later paint from doing it twice.
    painted_ = true;
    QTimer::singleShot(0, this, &frmMain::AfterFirstPaint);
    HidePanelAlone();
}

void frmMain::picCategory_Click(int index) {
    opened_ = OpenCategory(geometry_, index);
    if (opened_.Index >= 0)
        state_.SelectedCategory = opened_.Index;
    hitAreas_ = HitAreasOf(look_->FrameAreas(), geometry_, opened_);
    pressed_ = {};
    ForgetToolTip();
    hitAreas_.push_back({HitArea::Kind::Hide, -1, -1, -1, look_->HideArea()});
    hitAreas_.push_back({HitArea::Kind::Menu, -1, -1, -1, look_->MenuArea()});
    hitAreas_.push_back({HitArea::Kind::Logo, -1, -1, -1, look_->LogoArea()});
    ShowPicture(look_->Picture(opened_.Index));
    services_.Satellites.OpenTree(OpenedTree());
    // The first picture's problems are told after its first paint.
    if (painted_)
        QTimer::singleShot(0, this, &frmMain::TellLeftOut);
}

bool frmMain::ShowsTree() const {
    return opened_.Index >= 0 && state_.Catalogue[std::size_t(opened_.Index)].IsTree();
}

std::optional<TreeOnPanel> frmMain::OpenedTree() {
    if (!ShowsTree())
        return std::nullopt;
    const FrameMargins& margins = geometry_.Metrics.Margins;
    return TreeOnPanel{state_.Catalogue[std::size_t(opened_.Index)].TreeName,
                       {margins.Left, margins.Top, geometry_.InnerWidth(), geometry_.GroupsAreaHeight},
                       skinPath_,
                       this,
                       painted_ && isVisible() && !isMinimized()};
}

void frmMain::ShowBoundTrees() {
    if (unloaded_)
        return;
    look_->RedrawBarTitles();
    // The next start is to know the trees, too.
    WriteCache(state_, look_->Record());
    picCategory_Click(opened_.Index);
    prepare_.start();
}

void frmMain::ShowPicture(const QImage& picture) {
    picture_ = picture;
    ShapeWindow();
    update();
}

// A click on a transparent pixel belongs to the window below.
void frmMain::ShapeWindow() {
    // A window that the system does not have yet gets its shape when it is shown.
    if (!windowHandle())
        return;
    const QSize onScreen = DeviceSize(size(), ScreenRatio());
    const QImage shown = picture_.size() == onScreen ? picture_ : picture_.scaled(onScreen);
    services_.Compositor.SetShape(*windowHandle(),
                                  ShapeOf(shown, services_.Compositor.IsActive() ? 1 : kSolidAlpha));
}

// Of the screen that the window is on. A widget's own ratio is cut to a multiple of 1/65536, so that 1.1
// would not be equal to itself.
double frmMain::ScreenRatio() const {
    return windowHandle() ? windowHandle()->devicePixelRatio() : screen()->devicePixelRatio();
}

// The panel has come to a screen of another ratio, or its screen has got another one.
void frmMain::AdoptRatio() {
    const double ratio = PictureRatio(ScreenRatio());
    if (unloaded_ || ratio == pictureRatio_)
        return;
    ShapeWindow();
    pictureRatio_ = ratio;
    look_->SetRatio(ratio);
    ShowPicture(look_->Picture(opened_.Index));
    // The files of this ratio may be older than the drives' figures. The picture is painted first.
    QTimer::singleShot(0, this, &frmMain::RefreshDrives);
    prepare_.start();
}

void frmMain::AfterFirstPaint() {
    if (unloaded_)
        return;
    if (isVisible() && !isMinimized())
        services_.Satellites.Show(ShowsTree());
    if (load_.CacheValid)
        CheckStore();
    // The pictures of a cached start show the free space of an earlier session, and without a reading the
    // drives have no tool tips.
    WatchDrives();
    RefreshDrives();
    prepare_.start();
    TellProblems();
}

void frmMain::WatchDrives() {
    if (!HasDriveButtons(state_.Catalogue))
        return;
    services_.Volumes.Watch([this] { drivesChange_.start(); });
    services_.DriveSpace.Watch([this] { drivesChange_.start(); });
}

void frmMain::EndDriveWatch() {
    services_.Volumes.Watch({});
    services_.DriveSpace.Watch({});
}

void frmMain::CheckStore() {
    check_.Start({ScanOptionsOf(state_), state_.Catalogue, skinPath_, look_->Record().Stamp},
                 [this](CatalogueList found) { FollowStore(std::move(found)); });
}

// Shows a store or skin that was changed by hand. A hidden panel stays hidden, and an open menu stays open.
void frmMain::FollowStore(CatalogueList catalogue) {
    if (unloaded_)
        return;
    // Under X11 resizing a minimized window would restore it.
    if (isMinimized()) {
        waiting_ = std::move(catalogue);
        return;
    }
    const QString opened =
        opened_.Index < 0 ? QString() : state_.Catalogue[std::size_t(opened_.Index)].FolderName;
    state_.Catalogue = std::move(catalogue);
    const auto same =
        std::find_if(state_.Catalogue.begin(), state_.Catalogue.end(),
                     [&opened](const CategoryEntry& entry) { return entry.FolderName == opened; });
    const int index =
        same == state_.Catalogue.end() ? std::max(opened_.Index, 0) : int(same - state_.Catalogue.begin());
    load_.CacheValid = false;
    const QString shown = skinProblem_;
    MakeLook(nullptr);
    const TwipsRect now = motion_.Rect();
    LayOut({now.Left, now.Top});
    picCategory_Click(index);
    WatchDrives();
    prepare_.start();
    // A problem of the start has been shown already.
    if (skinProblem_ != shown)
        TellSkinProblem();
}

void frmMain::PrepareNextPicture() {
    // One picture at a time, so that the panel reacts to the user in between.
    if (look_->PrepareNext())
        return;
    prepare_.stop();
    TellLeftOut();
}

void frmMain::TellProblems() {
    if (!load_.Failures.empty())
        services_.Prompts.Notice(QStringLiteral("These files could not be written or read:\n\n") +
                                 FailureText(load_.Failures));
    TellSkinProblem();
    TellLeftOut();
}

void frmMain::TellLeftOut() {
    if (unloaded_)
        return;
    std::vector<PictureError> fresh;
    for (const PictureError& error : look_->TakeLeftOut()) {
        const QString line = error.Text();
        if (!toldPictures_.contains(line))
            fresh.push_back(error);
        toldPictures_.insert(line);
    }
    if (!fresh.empty())
        services_.Prompts.Notice(QStringLiteral("These pictures are not shown:\n\n") + LeftOutText(fresh));
}

void frmMain::TellSkinProblem() {
    if (!skinProblem_.isEmpty())
        services_.Prompts.Notice(skinProblem_);
}

void frmMain::picGroup_Click() {
    // Any header of the first category refreshes the drives.
    if (state_.SelectedCategory == 0)
        RefreshDrives();
}

void frmMain::RefreshDrives() {
    if (unloaded_ || !HasDriveButtons(state_.Catalogue))
        return;
    services_.Volumes.Refresh(state_.Drives);
    look_->RefreshDrives();
    ForgetToolTip();
    if (opened_.Index == 0)
        ShowPicture(look_->Picture(0));
}

void frmMain::imgHide_Click() {
    services_.Satellites.Hide();
    HidePanelAlone();
}

void frmMain::HidePanelAlone() {
    if (HowToHide(calls_.Ways()) == HideMeans::Minimize)
        showMinimized();
    else
        hide();
}

// Hides the panel in the way that the tray now allows. If the tray has gone, a hidden panel could perhaps not
// be called back, so it is minimized; if one has appeared, a minimized panel is hidden.
void frmMain::HideAgain() {
    if (!unloaded_ && (isHidden() || isMinimized()))
        HidePanelAlone();
}

void frmMain::Form_LinkExecute(const QString&) {
    BringToFront();
}

void frmMain::BringToFront() {
    // A request may still arrive while the user reads why the place could not be saved.
    if (unloaded_)
        return;
    if (isMinimized())
        showNormal();
    else
        show();
    services_.Foreground.Activate(winId());
    services_.Satellites.Show(ShowsTree());
}

void frmMain::ShowPaneda() {
    const WindowPlace saved{state_.PanelLeft, state_.PanelTop};
    const TwipsSize size{geometry_.PanelWidth, geometry_.PanelHeight};
    const WindowPlace held = HeldToFarEdges(BringIntoView(saved, size, CurrentWorkAreas(services_.WorkAreas)),
                                            size, WorkAreaAt(services_.WorkAreas, saved));
    state_.PanelLeft = held.Left;
    state_.PanelTop = held.Top;
    motion_.MoveTo(held);
    BringToFront();
    picGroup_Click();
}

void frmMain::ToggleByTrigger(Trigger trigger) {
    if (unloaded_)
        return;
    const QPoint mouse = services_.Pointer.Position();
    const WindowPlace cursor{PixelsToTwips(mouse.x()), PixelsToTwips(mouse.y())};
    const WId active = services_.Foreground.ActiveWindow();
    const bool own = isVisible() && active != 0 && (active == winId() || services_.Satellites.Owns(active));
    const TogglePlan plan = paneda::ToggleByTrigger({trigger, own, WorkAreaAt(services_.WorkAreas, cursor),
                                                     cursor, motion_.Rect(), services_.Satellites.Note()},
                                                    state_);
    if (plan.What == TogglePlan::Action::Hide) {
        imgHide_Click();
        return;
    }
    // The planned place may lie on a screen that has been unplugged.
    motion_.MoveTo(BringIntoView(plan.Panel, {geometry_.PanelWidth, geometry_.PanelHeight},
                                 CurrentWorkAreas(services_.WorkAreas)));
    if (plan.Note)
        services_.Satellites.Follow(motion_.Rect(), &*plan.Note);
    BringToFront();
}

void frmMain::Form_Unload() {
    if (unloaded_)
        return;
    unloaded_ = true;
    services_.Satellites.Unload();
    hide();
    prepare_.stop();
    drivesChange_.stop();
    const FileResult saved = SaveAtExit(state_);
    EndDriveWatch();
    services_.SoundPlayer.CloseAll();
    if (saved)
        return;
    calls_.Stop();
    services_.Prompts.Notice(saved.error().Text());
}

void frmMain::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (pictureRatio_ == ScreenRatio()) {
        // By the ratio that the painter has, each pixel becomes one.
        picture_.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(0, 0, picture_);
    } else {
        // Shown at once, and sharp as soon as it is composed.
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), picture_);
        QTimer::singleShot(0, this, &frmMain::AdoptRatio);
    }
    if (painted_)
        return;
    painted_ = true;
    QTimer::singleShot(0, this, &frmMain::AfterFirstPaint);
}

void frmMain::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
    Q_EMIT Unloaded();
    // Waits where the display does not answer, so the end has to be under way.
    calls_.Stop();
}

bool frmMain::event(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && waiting_ && !isMinimized())
        FollowStore(*std::exchange(waiting_, std::nullopt));
    if (event->type() == QEvent::Show)
        ShapeWindow();
    if (event->type() == QEvent::Leave)
        ForgetToolTip();
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        ShowToolTip(help->pos(), help->globalPos());
        return true;
    }
    return QWidget::event(event);
}

} // namespace paneda
