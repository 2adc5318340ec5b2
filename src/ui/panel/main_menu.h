#pragma once

#include <QMenu>

#include <functional>

namespace paneda {

// The actions of the menu items. An item whose action is empty is shown disabled.
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

// The opacity, a fraction, of the menu item with this index: 0 is "100 %", 9 is "10 %".
double TreeOpacityOfItem(int index);

// The index of the menu item with this opacity; -1 if there is none.
int ItemOfTreeOpacity(double opacity);

// The menu of the panel, mnuMenu. The actions are found by their object names; those of the opacities are
// mnuTreeOpacityPercent0 to mnuTreeOpacityPercent9.
class MainMenu : public QMenu {
    Q_OBJECT

public:
    // `treeOpacity`: the current opacity, a fraction; its item is checked.
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
