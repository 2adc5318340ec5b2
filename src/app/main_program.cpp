#include "app/main_program.h"

#include "ui/panel/screen_metrics.h"

#include <QApplication>
#include <QFileInfo>
#include <QOperatingSystemVersion>

namespace paneda {

namespace {

constexpr int kPlatformNt = 2; // platform id of every Windows of today

QString CurrentWindowsName() {
    const QOperatingSystemVersion system = QOperatingSystemVersion::current();
    if (system.type() != QOperatingSystemVersion::Windows)
        return WindowsNameOf(0, 0, 0);
    return WindowsNameOf(kPlatformNt, system.majorVersion(), system.minorVersion());
}

} // namespace

void FillAppState(AppState& state, const QString& executableFolder, Volumes& volumes) {
    volumes.Refresh(state.Drives);
    state.AppFolder = executableFolder;
    state.AppPath = state.Drives.ToStored(executableFolder);
    FillEdition(state);
    state.WindowsName = CurrentWindowsName();
}

MainProgram::MainProgram(Platform platform, const QString& executablePath)
    : platform_(std::move(platform)), executablePath_(executablePath) {
    FillAppState(state_, QFileInfo(executablePath).absolutePath(), *platform_.Drives);
    prompts_ = std::make_unique<QtPrompts>(state_.ProductName);
}

MainProgram::~MainProgram() = default;

int MainProgram::Run() {
    state_.ColourDepth = CurrentColourDepth();
    if (!platform_.Instance->TryLock(executablePath_)) {
        prompts_->Notice(state_.ProductName + QStringLiteral(" has been launched"), {});
        return 0;
    }
    LoadPanel();
    panel_->ShowAtStart();
    return QApplication::exec();
}

void MainProgram::ReloadPanel() {
    panel_->Form_Unload();
    panel_.reset();
    state_.IgnoreCache = true;
    state_.FormLoaded = false;
    LoadPanel();
    panel_->Form_LinkExecute({});
}

void MainProgram::LoadPanel() {
    panel_ = std::make_unique<frmMain>(state_,
                                       PanelServices{*platform_.Launcher, *platform_.Drives, *platform_.Icons,
                                                     *platform_.Space, *platform_.Blending, *prompts_});
    connect(panel_.get(), &frmMain::Unloaded, qApp, &QCoreApplication::quit);
    panel_->Form_Load();
}

} // namespace paneda
