#pragma once

#include "core/settings/app_state.h"
#include "platform/tray_hosts.h"

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <functional>
#include <memory>
#include <vector>

namespace paneda {

// How many pictures the user can choose from for the tray icon.
inline constexpr int kTrayPictures = 12;

// The picture with this number, 1 to kTrayPictures; the first one for any other number.
QIcon TrayPicture(int number);
// All of them, number 1 first.
std::vector<QIcon> TrayPictures();

// The tool tip of the tray icon while no countdown runs: product, version, date of the build and address, cut
// to 64 characters.
QString IdleTrayTip(const AppState& state);

// What clicks on the tray icon do. Countdown may be empty; its menu item is then disabled.
struct TrayActions {
    std::function<void()> Show;
    std::function<void()> Countdown;
    // A notification area has appeared or disappeared. May be empty.
    std::function<void()> HostChanged;
};

// The program's icon in the notification area. It is created again when a notification area appears later.
class TrayPresence : public QObject {
    Q_OBJECT

public:
    TrayPresence(TrayHosts& hosts, TrayActions actions);
    ~TrayPresence() override;

    // Creates the icon, or replaces it, with the picture that the settings name.
    void InstallTrayIcons(const AppState& state);
    void RemoveTrayIcons();

    // Whether a notification area shows the icon.
    bool IsSeen() const;

private:
    void FollowHost();
    void MakeIcon(TrayHosts::Kind kind);
    void OnActivated(QSystemTrayIcon::ActivationReason reason);

    TrayHosts& hosts_;
    TrayActions actions_;
    QMenu menu_;
    QIcon picture_;
    QString tip_;
    bool isInstalled_ = false;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

} // namespace paneda
