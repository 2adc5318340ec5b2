#include "app/main_program.h"

#include "core/settings/startup.h"
#include "core/store/store_layout.h"
#include "ui/panel/screen_metrics.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QSettings>
#include <QTimer>

#include <utility>

namespace paneda {

namespace {

void SetApplicationIcon() {
    QIcon icon;
    for (const int side : {16, 32, 48, 128})
        icon.addFile(QStringLiteral(":/app/paneda-%1.png").arg(side));
    QApplication::setWindowIcon(icon);
}

} // namespace

void FillAppState(AppState& state, const QString& executableFolder, Volumes& volumes) {
    volumes.Refresh(state.Drives);
    state.AppFolder = executableFolder;
    state.AppPath = state.Drives.ToStored(executableFolder);
    FillEdition(state);
}

MainProgram::MainProgram(Platform platform, const QString& executablePath, std::function<void()> ending)
    : platform_(std::move(platform)), executablePath_(executablePath), ending_(std::move(ending)) {
    FillAppState(state_, QFileInfo(executablePath).absolutePath(), *platform_.Volumes);
    // What Qt's own windows for files and colours remember, which would be in the user's settings folder.
    // Windows has it in the registry in any case.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, CacheFolder(state_.AppFolder));
    prompts_ = std::make_unique<QtPrompts>(state_.ProductName);
    SettingServices settings{.Prompts = *prompts_,
                             .Autostart = *platform_.Autostart,
                             .Hotkey = *platform_.Hotkey,
                             .ExecutablePath = executablePath_,
                             .ReloadPanel = [this] { ReloadPanel(); },
                             .Scene = [this] { return Scene(); },
                             .TrayIcons = {},
                             .RunsWindowsPrograms = platform_.RunsWindowsPrograms};
    const auto close = [this] {
        state_.Exiting = true;
        panel_->close();
    };
    const SourceServices sources{.SourcePlaces = platform_.SourcePlaces,
                                 .FileIcons = *platform_.FileIcons,
                                 .Opener = *platform_.Opener,
                                 .Volumes = *platform_.Volumes};
    MakeTrees();
    dialogs_ = std::make_unique<PanelDialogs>(
        state_, DialogServices{.Settings = settings,
                               .SoundPlayer = *platform_.SoundPlayer,
                               .Opener = *platform_.Opener,
                               .Sources = sources,
                               .Downloader = *platform_.Downloader,
                               .Close = close,
                               .DropTree = [this](const QString& tree) { DropTree(tree); },
                               .TreesBound = [this] { panel_->ShowBoundTrees(); }});
}

MainProgram::~MainProgram() = default;

void MainProgram::MakeTrees() {
    constexpr double kIcon = 16; // layout pixels
    treeDialogs_ = std::make_unique<TreeDialogs>(TreeDialogServices{
        .State = state_,
        .Prompts = *prompts_,
        .FileIcons = *platform_.FileIcons,
        .Opener = *platform_.Opener,
        .Downloader = *platform_.Downloader,
        .PlainNoteIcon = [](int side) { return PaintNodeSign(NodeSign::Note, side / kIcon); },
        .ShowTreeList =
            [this](QWidget& window, const QPoint& mouse) {
                dialogs_->OpenTreeList(state_.SelectedCategory, window, mouse);
            }});
    satellites_ = std::make_unique<TreeSatellite>(state_, TreeServices{.Prompts = *prompts_,
                                                                       .FileIcons = *platform_.FileIcons,
                                                                       .Opener = *platform_.Opener,
                                                                       .Volumes = *platform_.Volumes,
                                                                       .Dialogs = treeDialogs_.get()});
}

void MainProgram::DropTree(const QString& tree) {
    if (frmTree* window = satellites_->Window())
        window->RefreshTree({}, tree);
}

int MainProgram::Run() {
    const QString folderProblem = FolderProblem(state_);
    if (!folderProblem.isEmpty()) {
        prompts_->Notice(folderProblem, {});
        return 1;
    }
    if (!platform_.InstanceLock->TryLock(executablePath_)) {
        // Before the notice, which is to lie above the panel. It says all there is to say, answered or not.
        (void)platform_.OutsideRequest->Send(executablePath_);
        prompts_->Notice(state_.ProductName + QStringLiteral(" has been launched"), {});
        return 0;
    }
    LoadPanel();
    panel_->ShowAtStart();
    ListenToOutside();
    // Later, so that the panel is on the screen before the icon's pictures are read.
    QTimer::singleShot(0, this, &SetApplicationIcon);
    const int status = QApplication::exec();
    // The toolkit may have ended the loop by itself, as at the end of a session.
    panel_->Form_Unload();
    End();
    platform_.Hotkey->Unregister();
    dialogs_->CloseAll();
    // Not before everything has returned that could still write to the store, or two instances would use it.
    // And before anything waits, so that the next start is accepted at once.
    platform_.InstanceLock->Release();
    return status;
}

// The panel has been unloaded for the last time.
void MainProgram::End() {
    if (std::exchange(isEnding_, true))
        return;
    state_.Exiting = true;
    platform_.OutsideRequest->Stop();
    if (ending_)
        ending_();
    // Not quit(), which first asks each window, and one that is in the middle of a question may refuse.
    QCoreApplication::exit();
}

void MainProgram::ListenToOutside() {
    // Ignored: without a session bus the panel can still be called in every other way.
    (void)platform_.OutsideRequest->Listen(executablePath_,
                                           [this](const QString& text) { panel_->Form_LinkExecute(text); });
    platform_.Termination->OnRequest([this] { panel_->close(); });
}

PlaceScene MainProgram::Scene() const {
    const QRect panel = panel_->geometry();
    const TwipsRect rect{PixelsToTwips(panel.x()), PixelsToTwips(panel.y()), PixelsToTwips(panel.width()),
                         PixelsToTwips(panel.height())};
    const ScreenPlace screen =
        ScreenAt(*platform_.WorkAreas, {rect.Left + rect.Width / 2, rect.Top + rect.Height / 2});
    return {rect,
            {screen.Metrics.Width, screen.Metrics.Height},
            screen.Origin.Top + screen.Metrics.WorkAreaBottom,
            screen.Origin};
}

void MainProgram::ReloadPanel() {
    panel_->Form_Unload();
    // The user, or the end of the session, may have ended the program while a message was shown.
    if (isEnding_)
        return;
    panel_.reset();
    state_.IgnoreCache = true;
    LoadPanel();
    // The dialog that changed the store keeps the focus.
    panel_->setAttribute(Qt::WA_ShowWithoutActivating);
    panel_->ShowAtStart();
    panel_->showNormal();
    panel_->raise();
    panel_->setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void MainProgram::LoadPanel() {
    MenuActions actions = dialogs_->Actions();
    actions.TreeOpacity = [this](double opacity) {
        state_.TreeOpacity = opacity;
        satellites_->OpacityChanged();
    };
    const PanelServices services{.Opener = *platform_.Opener,
                                 .Volumes = *platform_.Volumes,
                                 .FileIcons = *platform_.FileIcons,
                                 .DriveSpace = *platform_.DriveSpace,
                                 .Compositor = *platform_.Compositor,
                                 .Foreground = *platform_.Foreground,
                                 .Hotkey = *platform_.Hotkey,
                                 .Pointer = *platform_.Pointer,
                                 .TrayHosts = *platform_.TrayHosts,
                                 .WorkAreas = *platform_.WorkAreas,
                                 .SoundPlayer = *platform_.SoundPlayer,
                                 .Satellites = *satellites_,
                                 .Prompts = *prompts_,
                                 .MenuActions = std::move(actions),
                                 .ShowTreeList = [this](int category, QWidget& window, const QPoint& mouse) {
                                     dialogs_->OpenTreeList(category, window, mouse);
                                 }};
    panel_ = std::make_unique<frmMain>(state_, services);
    connect(panel_.get(), &frmMain::Unloaded, this, &MainProgram::End);
    panel_->Form_Load();
}

} // namespace paneda
