#pragma once

#include "core/files/web_addresses.h"
#include "platform/downloader.h"
#include "ui/notes/frmDynamicCat.h"
#include "ui/organiser/frmButton.h"
#include "ui/panel/frmCredit.h"
#include "ui/panel/main_menu.h"
#include "ui/settings/frmSetting.h"
#include "ui/skin/frmSkin.h"

#include <QPointer>

#include <functional>

namespace paneda {

// The services that the windows opened by the menus use.
struct DialogServices {
    SettingServices Settings;
    paneda::SoundPlayer& SoundPlayer;
    paneda::Opener& Opener;
    SourceServices Sources;
    paneda::Downloader& Downloader;
    // Ends the program.
    std::function<void()> Close;
    // Of the list of trees; see TreeManagerServices.
    std::function<void()> CloseNote = {};
    std::function<void(const QString& tree)> DropTree = {};
    std::function<void()> TreesBound = {};
};

// The windows that the panel's menus open, at most one of each. They stay open when the panel is reloaded.
class PanelDialogs {
public:
    PanelDialogs(AppState& state, DialogServices services);
    ~PanelDialogs();

    MenuActions Actions();

    // Lets the user choose the tree of a category, in a window that belongs to `window`. `mouse`: pixels of
    // the desktop.
    void OpenTreeList(int category, QWidget& window, const QPoint& mouse);

    // Closes all open windows. Called when the program ends.
    void CloseAll();

private:
    void OpenOrganiser();
    void OpenSetting();
    void OpenSkin();
    void OpenCredit();
    void OpenHelp(HelpTopic topic);
    void OpenUrl(const QString& url, const QString& name);

    AppState& state_;
    DialogServices services_;
    QPointer<frmButton> organiser_;
    QPointer<frmSetting> setting_;
    QPointer<frmSkin> skin_;
    QPointer<frmCredit> credit_;
    QPointer<frmDynamicCat> treeList_;
};

} // namespace paneda
