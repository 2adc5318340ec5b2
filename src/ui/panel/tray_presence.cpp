#include "ui/panel/tray_presence.h"

#include <QLocale>

namespace paneda {

namespace {

constexpr int kMaxTip = 64; // characters, as the notification areas of old take them
constexpr int kSizes[] = {16, 22, 24, 32, 48};

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

TrayPresence::TrayPresence(TrayActions actions) : actions_(std::move(actions)) {
    // Some desktops send no presses but show a menu; there these are the way to the panel.
    connect(menu_.addAction(QStringLiteral("Show")), &QAction::triggered, this, [this] { actions_.Show(); });
    QAction* countdown = menu_.addAction(QStringLiteral("Countdown"));
    countdown->setEnabled(bool(actions_.Countdown));
    connect(countdown, &QAction::triggered, this, [this] { actions_.Countdown(); });
}

TrayPresence::~TrayPresence() = default;

void TrayPresence::InstallTrayIcons(const AppState& state) {
    icon_ = std::make_unique<QSystemTrayIcon>(TrayPicture(state.SystemTrayIcon));
    icon_->setToolTip(IdleTrayTip(state));
    icon_->setContextMenu(&menu_);
    connect(icon_.get(), &QSystemTrayIcon::activated, this, &TrayPresence::OnActivated);
    icon_->show();
}

void TrayPresence::RemoveTrayIcons() {
    icon_.reset();
}

bool TrayPresence::IsSeen() const {
    return icon_ && QSystemTrayIcon::isSystemTrayAvailable();
}

void TrayPresence::OnActivated(QSystemTrayIcon::ActivationReason reason) {
    // A right press shows the menu by itself.
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
        actions_.Show();
}

} // namespace paneda
