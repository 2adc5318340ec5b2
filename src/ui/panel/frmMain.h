#pragma once

#include "core/panel/launch.h"
#include "core/panel/panel_geometry.h"
#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "core/settings/startup.h"
#include "platform/compositor.h"
#include "platform/drive_space.h"
#include "platform/file_icons.h"
#include "platform/foreground.h"
#include "platform/hotkey.h"
#include "platform/opener.h"
#include "platform/pointer.h"
#include "platform/sound_player.h"
#include "platform/tray_hosts.h"
#include "platform/volumes.h"
#include "platform/work_areas.h"
#include "ui/panel/hit_areas.h"
#include "ui/panel/main_menu.h"
#include "ui/panel/panel_calls.h"
#include "ui/panel/panel_fun.h"
#include "ui/panel/panel_look.h"
#include "ui/panel/panel_motion.h"
#include "ui/panel/satellites.h"
#include "ui/panel/store_check.h"

#include <QImage>
#include <QSet>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace paneda {

// The services that the panel uses. Each field has the name of its type, as in Platform.
struct PanelServices {
    paneda::Opener& Opener;
    paneda::Volumes& Volumes;
    paneda::FileIcons& FileIcons;
    paneda::DriveSpace& DriveSpace;
    paneda::Compositor& Compositor;
    paneda::Foreground& Foreground;
    paneda::Hotkey& Hotkey;
    paneda::Pointer& Pointer;
    paneda::TrayHosts& TrayHosts;
    paneda::WorkAreas& WorkAreas;
    paneda::SoundPlayer& SoundPlayer;
    paneda::Satellites& Satellites;
    paneda::Prompts& Prompts;
    paneda::MenuActions MenuActions;
    // Lets the user choose the tree of a category. `mouse`: pixels of the desktop. Empty: nothing happens.
    std::function<void(int category, QWidget& window, const QPoint& mouse)> ShowTreeList = {};
};

// The panel: one window that shows the stack of category bars and, above them, the groups and buttons of the
// opened category. It shows one picture, and areas of that picture react to the mouse. The layout changes
// only when the store is loaded.
class frmMain : public QWidget {
    Q_OBJECT

public:
    frmMain(AppState& state, const PanelServices& services);
    ~frmMain() override;

    // Reads the store into the state, lays the panel out and opens the selected category. Call it once,
    // before the first show.
    void Form_Load();

    // Shows the panel, unless the settings ask for a hidden start.
    void ShowAtStart();

    // Hides the panel, and saves its place and the settings that are kept at exit. A second call does
    // nothing. After it the panel cannot be shown again. Tray icon and mouse trigger go when it is closed or
    // destroyed.
    void Form_Unload();

    // Another program asked for the panel: shows it, whatever the text of the request.
    void Form_LinkExecute(const QString& command);

    void picCategory_Click(int index);
    void picCategory_MouseDown(int index, Qt::MouseButton button, const QPoint& mouse);
    void picGroup_Click();
    void picIcon_MouseDown(const ButtonEntry& button, MouseButton mouse, int shiftMask);
    void imgHide_Click();
    void imgMenu_Click();
    void imgLogo_MouseDown(Qt::MouseButton button);

    // Categories show other trees than before.
    void ShowBoundTrees();

    // Shows the panel at its saved place, moved into the work area where it would reach beyond it.
    void ShowPaneda();
    // Hides the panel if it has the focus. Otherwise brings it to the front, at the place that the settings
    // ask for: where it was, or at the cursor.
    void ToggleByTrigger(Trigger trigger);

    const PanelGeometry& Geometry() const { return geometry_; }
    const OpenedCategory& Opened() const { return opened_; }

Q_SIGNALS:
    // The panel has been closed to end the program. Form_Unload has run: all that is kept is on the disk.
    void Unloaded();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void MakeLook(const CacheRecord* cache);
    void LayOut(WindowPlace wanted);
    bool ShowsTree() const;
    std::optional<TreeOnPanel> OpenedTree();
    void BringToFront();
    void HidePanelAlone();
    void HideAgain();
    bool HasRoomForMenu() const;
    void ShowPicture(const QImage& picture);
    void ShapeWindow();
    void AdoptRatio();
    double ScreenRatio() const;
    QPoint PixelOf(const QMouseEvent& event) const;
    void AfterFirstPaint();
    void WatchDrives();
    void EndDriveWatch();
    void CheckStore();
    void FollowStore(CatalogueList catalogue);
    void PrepareNextPicture();
    void RefreshDrives();
    void TellProblems();
    void TellSkinProblem();
    void TellLeftOut();
    void ShowToolTip(const QPoint& local, const QPoint& global);
    QString ToolTipOf(const HitArea& area) const;
    void ForgetToolTip();
    const ButtonEntry& ButtonAt(const HitArea& area) const;

    AppState& state_;
    PanelServices services_;
    PanelLoad load_;
    QString skinPath_; // host folder of the shown skin; empty for the built-in look
    QString skinProblem_;
    QSet<QString> toldPictures_; // pictures that are not shown, as the user was told
    std::unique_ptr<PanelLook> look_;
    PanelMotion motion_;
    PanelCalls calls_;
    PanelFun fun_;
    QTimer prepare_;      // runs while pictures are left to prepare
    QTimer drivesChange_; // runs out when no drive has come or gone for a moment
    StoreCheck check_;
    std::optional<CatalogueList> waiting_; // a changed store, shown once the panel is restored
    PanelGeometry geometry_;
    OpenedCategory opened_;
    std::vector<HitArea> hitAreas_;
    HitArea pressed_;
    // The area that the mouse is on, and its tip. Qt asks for the tip at each move of the mouse, and the file
    // that it comes from may lie on a slow disk.
    HitArea tipArea_;
    QString tip_;
    double pictureRatio_ = 1; // device pixels of the picture for each pixel of the layout
    QImage picture_;
    bool painted_ = false;
    bool unloaded_ = false;
};

} // namespace paneda
