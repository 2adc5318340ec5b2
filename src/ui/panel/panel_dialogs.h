#pragma once

#include "ui/panel/frmCredit.h"
#include "ui/panel/main_menu.h"
#include "ui/settings/frmSetting.h"

#include <QPointer>

#include <functional>

namespace paneda {

class Opener;

// What the windows behind the menu need; the settings dialogs need most of it.
struct DialogServices {
    SettingServices Settings;
    paneda::SoundPlayer& SoundPlayer;
    paneda::Opener& Opener;
    // Ends the program.
    std::function<void()> Close;
};

// The windows that the panel's menus open, one of each at a time. They outlive a reload of the panel.
class PanelDialogs {
public:
    PanelDialogs(AppState& state, DialogServices services);
    ~PanelDialogs();

    MenuActions Actions();

    // Closes all that are open, as the program ends.
    void CloseAll();

private:
    void OpenSetting();
    void OpenCredit();
    void OpenUrl(const QString& url, const QString& name);

    AppState& state_;
    DialogServices services_;
    QPointer<frmSetting> setting_;
    QPointer<frmCredit> credit_;
};

} // namespace paneda
