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

// Number of pictures that the idle tray icon is chosen from.
inline constexpr int kTrayPictures = 12;

// The picture with this number, from 1; the first one for a number that there is none of.
QIcon TrayPicture(int number);
std::vector<QIcon> TrayPictures();

// Tip of the tray icon without a countdown, at most 64 characters: product, version, date of the build, site.
QString IdleTrayTip(const AppState& state);

// What the presses on the icon do. Countdown may be missing as long as its dialog is.
struct TrayActions {
    std::function<void()> Show;
    std::function<void()> Countdown;
    // The place where the icon is shown has come or gone.
    std::function<void()> HostChanged;
};

// The program's icon in the notification area, made again whenever one appears.
class TrayPresence : public QObject {
    Q_OBJECT

public:
    TrayPresence(TrayHosts& hosts, TrayActions actions);
    ~TrayPresence() override;

    // Makes the icon, or replaces it, with the picture that the state names.
    void InstallTrayIcons(const AppState& state);
    void RemoveTrayIcons();

    // Whether there is a notification area that shows the icon.
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
