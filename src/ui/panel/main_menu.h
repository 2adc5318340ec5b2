#pragma once

#include <QMenu>

#include <functional>

namespace paneda {

// What the menus of the panel do. An item without an action is shown disabled.
struct MenuActions {
    std::function<void()> OrganiseButton;
    std::function<void()> Setting;
    std::function<void()> Help;
    std::function<void()> Skin;
    std::function<void(double)> TreeOpacity; // fraction, 0.1 to 1
    std::function<void()> Countdown;
    std::function<void()> About;
    std::function<void()> Donate;
    std::function<void()> Close;
    std::function<void()> Homepage;
    std::function<void()> WebSearch;
    std::function<void()> Wallpapers;
};

// The opacity, as a fraction, of the item with this index, from 0 for "100 %" to 9 for "10 %".
double TreeOpacityOfItem(int index);

// The item that shows an opacity; -1 for one that no item has.
int ItemOfTreeOpacity(double opacity);

// The menu of the panel, mnuMenu. Each action's object name is its name, of the opacities
// mnuTreeOpacityPercent0 to mnuTreeOpacityPercent9.
class MainMenu : public QMenu {
    Q_OBJECT

public:
    // `treeOpacity`: the present one; its item is checked.
    MainMenu(const MenuActions& actions, double treeOpacity, QWidget* parent = nullptr);

private:
    void AddTreeOpacity(const std::function<void(double)>& choose, double treeOpacity);
};

// The menu of the logo, mnuPanedaCom.
class LogoMenu : public QMenu {
    Q_OBJECT

public:
    explicit LogoMenu(const MenuActions& actions, QWidget* parent = nullptr);
};

} // namespace paneda
