#include "ui/panel/main_menu.h"

#include <QActionGroup>

#include <cmath>

namespace paneda {

namespace {

constexpr int kOpacityItems = 10;

void AddItem(QMenu& menu, const QString& name, const QString& caption, const std::function<void()>& act) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    action->setEnabled(bool(act));
    if (act)
        QObject::connect(action, &QAction::triggered, &menu, [act] { act(); });
}

void AddLine(QMenu& menu, const QString& name) {
    menu.addSeparator()->setObjectName(name);
}

} // namespace

double TreeOpacityOfItem(int index) {
    return double(kOpacityItems - index) / kOpacityItems;
}

int ItemOfTreeOpacity(double opacity) {
    const int item = kOpacityItems - int(std::lround(opacity * kOpacityItems));
    const bool exact =
        item >= 0 && item < kOpacityItems && std::abs(TreeOpacityOfItem(item) - opacity) < 1e-6;
    return exact ? item : -1;
}

MainMenu::MainMenu(const MenuActions& actions, double treeOpacity, QWidget* parent) : QMenu(parent) {
    setObjectName(QStringLiteral("mnuMenu"));
    AddItem(*this, QStringLiteral("mnuOrganiseButton"), QStringLiteral("&Organize Button"),
            actions.OrganiseButton);
    AddItem(*this, QStringLiteral("mnuSetting"), QStringLiteral("&Settings"), actions.Setting);
    AddItem(*this, QStringLiteral("mnuHelp"), QStringLiteral("&Help"), actions.Help);
    AddItem(*this, QStringLiteral("mnuSkin"), QStringLiteral("Change S&kin"), actions.Skin);
    AddTreeOpacity(actions.TreeOpacity, treeOpacity);
    AddItem(*this, QStringLiteral("mnuCountdown"), QStringLiteral("&Countdown"), actions.Countdown);
    AddLine(*this, QStringLiteral("mnuSeparator2"));
    AddItem(*this, QStringLiteral("mnuAbout"), QStringLiteral("&About"), actions.About);
    AddItem(*this, QStringLiteral("mnuDonate"), QStringLiteral("&Donate"), actions.Donate);
    AddItem(*this, QStringLiteral("mnuClose"), QStringLiteral("&Goodbye, Paneda Launcher"), actions.Close);
}

void MainMenu::AddTreeOpacity(const std::function<void(double)>& choose, double treeOpacity) {
    QMenu* menu = addMenu(QStringLiteral("&Tree Opacity"));
    menu->menuAction()->setObjectName(QStringLiteral("mnuTreeOpacity"));
    menu->menuAction()->setEnabled(bool(choose));
    auto* group = new QActionGroup(menu);
    for (int i = 0; i < kOpacityItems; ++i) {
        QAction* action = menu->addAction(QStringLiteral("&%1 %").arg((kOpacityItems - i) * 10));
        action->setObjectName(QStringLiteral("mnuTreeOpacityPercent") + QString::number(i));
        action->setCheckable(true);
        action->setChecked(i == ItemOfTreeOpacity(treeOpacity));
        group->addAction(action);
        if (choose)
            connect(action, &QAction::triggered, this, [choose, i] { choose(TreeOpacityOfItem(i)); });
    }
}

LogoMenu::LogoMenu(const MenuActions& actions, QWidget* parent) : QMenu(parent) {
    setObjectName(QStringLiteral("mnuPanedaCom"));
    setTitle(QStringLiteral("Panedacom"));
    AddItem(*this, QStringLiteral("mnuHomepage"), QStringLiteral("Paneda &Homepage"), actions.Homepage);
    AddItem(*this, QStringLiteral("mnuWebSearch"), QStringLiteral("Web &Search"), actions.WebSearch);
    AddItem(*this, QStringLiteral("mnuWallpapers"), QStringLiteral("&Wallpapers of the Day"),
            actions.Wallpapers);
    // Qt does not draw a separator at the end of a menu.
    AddLine(*this, QStringLiteral("mnuSeparator1"));
}

} // namespace paneda
