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

// What the settings dialogs need of the program around them. A service has the name of its type.
struct SettingServices {
    paneda::Prompts& Prompts;
    paneda::Autostart& Autostart;
    paneda::Hotkey& Hotkey;
    QString ExecutablePath; // host path, for the start with the session
    // Builds the panel again from the store. The new panel is there when it returns.
    std::function<void()> ReloadPanel;
    // The panel and its screen as they are now.
    std::function<PlaceScene()> Scene;
    // The tray pictures, number 1 first.
    std::vector<QIcon> TrayIcons;
    // Programs made for Windows can be started here.
    bool RunsWindowsPrograms = false;
};

// The settings, written on a sheet of paper as sentences with controls in them. The dialog outlives a reload
// of the panel: a save leaves it open and in front, so that the user sees the changed panel and can go on.
//
// Of a control array each control is named by the array and its index: txtDrive1 to txtDrive26 for A to Z,
// optMouseKey0 and optMouseKey1.
class frmSetting : public QDialog {
    Q_OBJECT

public:
    frmSetting(AppState& state, SettingServices services, QWidget* parent = nullptr);
    ~frmSetting() override;

    // Fills the controls from the store and places the dialog. Once, before the first show.
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
    // Of the hotkey that the dialog was opened with or that was saved last: asked once is enough.
    QString answeredQuestion_;
    bool autostartAtLoad_ = false;
    QTimer replyTimer_;
};

} // namespace paneda
