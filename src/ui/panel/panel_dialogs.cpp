#include "ui/panel/panel_dialogs.h"

#include "core/panel/launch.h"
#include "ui/common/place_beside.h"
#include "ui/panel/tray_presence.h"
#include "ui/skin/frmSkinConfigure.h"

#include <QColorDialog>
#include <QFileDialog>

namespace paneda {

namespace {

// Shows the window and brings it to the front. `make` makes it if it is not open.
template <class Window, class Make>
void ShowOne(QPointer<Window>& window, const Make& make) {
    if (!window) {
        window = make();
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->Form_Load();
    }
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace

PanelDialogs::PanelDialogs(AppState& state, DialogServices services)
    : state_(state), services_(std::move(services)) {}

PanelDialogs::~PanelDialogs() {
    CloseAll();
}

MenuActions PanelDialogs::Actions() {
    const WebAddresses web = WebAddressesOf(state_.HomepageAddress);
    MenuActions actions;
    actions.OrganiseButton = [this] { OpenOrganiser(); };
    actions.Setting = [this] { OpenSetting(); };
    actions.Help = [this] { OpenHelp(HelpTopic::Index); };
    actions.Skin = [this] { OpenSkin(); };
    actions.About = [this] { OpenCredit(); };
    actions.Donate = [this, web] { OpenUrl(web.Donate, QStringLiteral("Donate")); };
    actions.Close = services_.Close;
    actions.Homepage = [this, web] { OpenUrl(web.Home, QStringLiteral("Paneda Homepage")); };
    actions.WebSearch = [this, web] { OpenUrl(web.Search, QStringLiteral("Web Search")); };
    actions.Wallpapers = [this, web] { OpenUrl(web.Wallpapers, QStringLiteral("Wallpapers of the Day")); };
    return actions;
}

void PanelDialogs::CloseAll() {
    // Deleted now, since the event loop that would delete them later may have ended.
    delete organiser_;
    delete setting_;
    delete skin_;
    delete credit_;
    delete treeList_;
}

void PanelDialogs::OpenOrganiser() {
    ShowOne(organiser_, [this] {
        return new frmButton(
            state_, {.Prompts = services_.Settings.Prompts,
                     .Opener = services_.Opener,
                     .FileIcons = services_.Sources.FileIcons,
                     .ReloadPanel = services_.Settings.ReloadPanel,
                     .Scene = services_.Settings.Scene,
                     .OpenHelp = [this] { OpenHelp(HelpTopic::Buttons); },
                     .Sources = services_.Sources,
                     .Dialogs = MakeOrganiserDialogs(state_, services_.Settings.Prompts,
                                                     services_.Sources.FileIcons, services_.Downloader)});
    });
}

void PanelDialogs::OpenSetting() {
    if (services_.Settings.TrayIcons.empty())
        services_.Settings.TrayIcons = TrayPictures();
    ShowOne(setting_, [this] { return new frmSetting(state_, services_.Settings); });
}

void PanelDialogs::OpenSkin() {
    ShowOne(skin_, [this] {
        return new frmSkin(
            state_, {.Prompts = services_.Settings.Prompts,
                     .Opener = services_.Opener,
                     .ReloadPanel = services_.Settings.ReloadPanel,
                     .Scene = services_.Settings.Scene,
                     .OpenUrl = [this](const QString& url, const QString& name) { OpenUrl(url, name); },
                     .Configure =
                         [this](const QString& skinName, QWidget* parent) {
                             frmSkinConfigure window(skinName, {state_.AppFolder, services_.Settings.Prompts},
                                                     parent);
                             return window.Form_Load() && window.exec() == QDialog::Accepted;
                         }});
    });
}

void PanelDialogs::OpenCredit() {
    ShowOne(credit_, [this] { return new frmCredit(state_, services_.SoundPlayer); });
}

void PanelDialogs::OpenTreeList(int category, QWidget& window, const QPoint& mouse) {
    delete treeList_;
    const auto chooseColor = [](const QColor& color, QWidget* parent) {
        return QColorDialog::getColor(color, parent);
    };
    const auto chooseFolder = [](const QString& title, const QString& folder, QWidget* parent) {
        // A caption has one line.
        return QFileDialog::getExistingDirectory(parent, title.simplified(), folder);
    };
    treeList_ = new frmDynamicCat({.State = state_,
                                   .Prompts = services_.Settings.Prompts,
                                   .Opener = services_.Opener,
                                   .ChooseColor = chooseColor,
                                   .ChooseFolder = chooseFolder,
                                   .CloseNote = services_.CloseNote,
                                   .DropTree = services_.DropTree,
                                   .TreesBound = services_.TreesBound},
                                  category, &window);
    treeList_->setAttribute(Qt::WA_DeleteOnClose);
    treeList_->Form_Load();
    PlaceAtPoint(*treeList_, mouse);
    treeList_->show();
    treeList_->activateWindow();
}

void PanelDialogs::OpenHelp(HelpTopic topic) {
    OpenUrl(HelpAddress(topic, state_.AppFolder, state_.HomepageAddress), QStringLiteral("Help"));
}

void PanelDialogs::OpenUrl(const QString& url, const QString& name) {
    services_.Opener.Open(DecideBrowser(url, state_.Browser, name), {state_.Drives, state_.AppPath});
}

} // namespace paneda
