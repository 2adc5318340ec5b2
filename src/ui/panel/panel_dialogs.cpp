#include "ui/panel/panel_dialogs.h"

#include "core/panel/launch.h"
#include "skin/picture_files.h"
#include "ui/organiser/fetch_favicon.h"
#include "ui/organiser/frmButtonStyle.h"
#include "ui/organiser/frmGetText.h"
#include "ui/panel/tray_presence.h"

#include <QApplication>

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
    actions.TreeOpacity = [this](double opacity) { state_.TreeOpacity = opacity; };
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
    delete credit_;
}

void PanelDialogs::OpenOrganiser() {
    ShowOne(organiser_, [this] {
        const OrganiserDialogs dialogs{
            .AskText =
                [](const QString& title, const QString& prompt, const QString& text) {
                    return AskText(QApplication::activeWindow(), title, prompt, text);
                },
            .EditStyle = [this](const DiskPath& button) { return EditStyle(button); },
            .FetchIcon = [this](const DiskPath& webShortcut) { FetchIcon(webShortcut); }};
        return new frmButton(state_, {.Prompts = services_.Settings.Prompts,
                                      .Opener = services_.Opener,
                                      .FileIcons = services_.FileIcons,
                                      .ReloadPanel = services_.Settings.ReloadPanel,
                                      .Scene = services_.Settings.Scene,
                                      .OpenHelp = [this] { OpenHelp(HelpTopic::Buttons); },
                                      .Dialogs = dialogs});
    });
}

bool PanelDialogs::EditStyle(const DiskPath& button) {
    // The end of the program may close the window with the one behind it.
    const QPointer<frmButtonStyle> window(new frmButtonStyle(
        state_, {services_.Settings.Prompts, services_.FileIcons, services_.Downloader}, button, organiser_));
    window->Form_Load();
    window->exec();
    const bool changed = window && window->HasChanges();
    delete window;
    return changed;
}

void PanelDialogs::FetchIcon(const DiskPath& webShortcut) {
    // A site without an icon is nothing to tell.
    FetchFavicon(webShortcut.Text(), PictureStem(webShortcut.Text()) + QStringLiteral(".ico"),
                 FaviconKind::Shortcut, services_.Downloader, organiser_);
}

void PanelDialogs::OpenSetting() {
    if (services_.Settings.TrayIcons.empty())
        services_.Settings.TrayIcons = TrayPictures();
    ShowOne(setting_, [this] { return new frmSetting(state_, services_.Settings); });
}

void PanelDialogs::OpenCredit() {
    ShowOne(credit_, [this] { return new frmCredit(state_, services_.SoundPlayer); });
}

void PanelDialogs::OpenHelp(HelpTopic topic) {
    OpenUrl(HelpAddress(topic, state_.AppFolder, state_.HomepageAddress), QStringLiteral("Help"));
}

void PanelDialogs::OpenUrl(const QString& url, const QString& name) {
    services_.Opener.Open(DecideBrowser(url, state_.Browser, name), {state_.Drives, state_.AppPath});
}

} // namespace paneda
