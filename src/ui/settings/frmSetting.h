#pragma once

#include "core/panel/triggers.h"
#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "core/settings/setting_form.h"
#include "platform/autostart.h"
#include "platform/hotkey.h"

#include <QDialog>
#include <QIcon>
#include <QTimer>

#include <array>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QCheckBox;

namespace Ui {
class frmSetting;
} // namespace Ui

namespace paneda {

class DriveBox;

// The services that the settings dialogs use. A service has the name of its type.
struct SettingServices {
    paneda::Prompts& Prompts;
    paneda::Autostart& Autostart;
    paneda::Hotkey& Hotkey;
    QString ExecutablePath; // host path of this program, for the start with the session
    // Replaces the panel by one that is made from the saved settings. Returns when the new panel is shown.
    std::function<void()> ReloadPanel;
    // Rectangle of the panel and its screen, as they are now.
    std::function<PlaceScene()> Scene;
    // The pictures to choose from for the tray icon, number 1 first.
    std::vector<QIcon> TrayIcons;
    // Whether this system can start programs made for Windows.
    bool RunsWindowsPrograms = false;
};

// The settings dialog. It looks like a letter on a sheet of paper, with controls inside its sentences. A save
// replaces the panel but leaves the dialog open and in front, so that the user sees the changed panel and can
// change more.
//
// The controls of an array are named by the array and an index: txtDrive1 to txtDrive26 for A to Z,
// optMouseKey0 and optMouseKey1.
class frmSetting : public QDialog {
    Q_OBJECT

public:
    frmSetting(AppState& state, SettingServices services, QWidget* parent = nullptr);
    ~frmSetting() override;

    // Fills the controls from the store, sizes and places the dialog. Call it once, before the first show.
    void Form_Load();

    void lblSave_Click();
    void lblAdvance_Click();

protected:
    void changeEvent(QEvent* event) override;

private:
    using FlagBinding = std::pair<QCheckBox*, bool SettingForm::*>;

    void AddDriveBoxes();
    void DressAsPaper();
    void FitToScreen();
    void ScrollTo(QWidget* control);
    void ShowHint();
    std::vector<FlagBinding> Flags() const;
    void ShowForm(const SettingForm& form);
    SettingForm TypedForm() const;
    FileResult SetAutoStart(bool on);
    QString HotkeyProblemNow(const SettingForm& form) const;

    AppState& state_;
    SettingServices services_;
    std::unique_ptr<Ui::frmSetting> ui_;
    std::array<DriveBox*, 27> txtDrive_{};
    DriveBox* txtDrivePaneda_ = nullptr;
    // The question about the hotkey that was stored at the opening or saved last. It is not asked twice.
    QString answeredQuestion_;
    bool autostartAtLoad_ = false;
    QTimer replyTimer_;
};

} // namespace paneda
