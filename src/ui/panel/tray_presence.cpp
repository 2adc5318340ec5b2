#include "ui/panel/tray_presence.h"

#include <QLocale>

namespace paneda {

namespace {

constexpr int kMaxTip = 64; // characters; older versions of Windows take no more
constexpr int kSizes[] = {16, 22, 24, 32, 44, 48, 64, 66, 72, 96}; // pixels

} // namespace

QIcon TrayPicture(int number) {
    const int held = number >= 1 && number <= kTrayPictures ? number : 1;
    QIcon icon;
    for (const int size : kSizes)
        icon.addFile(QStringLiteral(":/tray/tray%1-%2.png").arg(held, 2, 10, QLatin1Char('0')).arg(size),
                     {size, size});
    return icon;
}

std::vector<QIcon> TrayPictures() {
    std::vector<QIcon> pictures;
    for (int number = 1; number <= kTrayPictures; ++number)
        pictures.push_back(TrayPicture(number));
    return pictures;
}

QString IdleTrayTip(const AppState& state) {
    const QString built = QLocale::c().toString(state.BuildDate, QStringLiteral("MMM yyyy"));
    const QString tip = QStringLiteral("%1 %2 (built %3) - %4")
                            .arg(state.ProductName, state.ProductVersion, built, state.HomepageAddress);
    return tip.left(kMaxTip);
}

TrayPresence::TrayPresence(TrayHosts& hosts, TrayActions actions)
    : hosts_(hosts), actions_(std::move(actions)) {
    // Some desktops report no clicks on the icon but show its menu. There the panel is called from the menu.
    connect(menu_.addAction(QStringLiteral("Show")), &QAction::triggered, this, [this] { actions_.Show(); });
    QAction* countdown = menu_.addAction(QStringLiteral("Countdown"));
    countdown->setEnabled(bool(actions_.Countdown));
    connect(countdown, &QAction::triggered, this, [this] { actions_.Countdown(); });
}

TrayPresence::~TrayPresence() {
    RemoveTrayIcons();
}

void TrayPresence::InstallTrayIcons(const AppState& state) {
    picture_ = TrayPicture(state.SystemTrayIcon);
    tip_ = IdleTrayTip(state);
    icon_.reset();
    isInstalled_ = true;
    FollowHost();
    hosts_.Watch([this] {
        FollowHost();
        if (actions_.HostChanged)
            actions_.HostChanged();
    });
}

void TrayPresence::RemoveTrayIcons() {
    if (!isInstalled_)
        return;
    isInstalled_ = false;
    hosts_.Watch({});
    icon_.reset();
}

bool TrayPresence::IsSeen() const {
    return icon_ != nullptr;
}

void TrayPresence::FollowHost() {
    const TrayHosts::Kind kind = hosts_.Present();
    if (kind == TrayHosts::Kind::None)
        icon_.reset();
    else if (!icon_)
        MakeIcon(kind);
}

void TrayPresence::MakeIcon(TrayHosts::Kind kind) {
    icon_ = std::make_unique<QSystemTrayIcon>(picture_);
    icon_->setToolTip(tip_);
    // Where clicks are reported, a right click opens the countdown; with a menu it would open the menu.
    if (kind == TrayHosts::Kind::Menus || !actions_.Countdown)
        icon_->setContextMenu(&menu_);
    connect(icon_.get(), &QSystemTrayIcon::activated, this, &TrayPresence::OnActivated);
    icon_->show();
}

void TrayPresence::OnActivated(QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
        actions_.Show();
    else if (reason == QSystemTrayIcon::Context && !icon_->contextMenu())
        actions_.Countdown();
}

} // namespace paneda
