#pragma once

#include "core/app_state.h"
#include "core/launch.h"
#include "core/panel_geometry.h"
#include "core/prompts.h"
#include "core/startup.h"
#include "platform/compositor.h"
#include "platform/drive_space.h"
#include "platform/file_icons.h"
#include "platform/opener.h"
#include "platform/volumes.h"
#include "ui/panel/hit_areas.h"
#include "ui/panel/panel_look.h"

#include <QImage>
#include <QWidget>

#include <memory>

namespace paneda {

// What the panel asks of the world outside its window.
struct PanelServices {
    Opener& Launcher;
    Volumes& Drives;
    FileIcons& Icons;
    DriveSpace& Space;
    Compositor& Blending;
    Prompts& Messages;
};

// The panel: one window that shows the stack of category bars and, above them, the groups and buttons of the
// opened category. It is a picture with areas that answer to the mouse; nothing in it moves between two
// loads.
class frmMain : public QWidget {
    Q_OBJECT

public:
    frmMain(AppState& state, const PanelServices& services);
    ~frmMain() override;

    // Reads the store into the state, lays the panel out and opens the selected category. Once, before the
    // first show.
    void Form_Load();

    // Shows the panel, minimized if the settings ask for a hidden start.
    void ShowAtStart();

    // Saves what outlives the panel. Once, as its last act.
    void Form_Unload();

    // An outside request, whatever its text, makes the panel visible.
    void Form_LinkExecute(const QString& command);

    void picCategory_Click(int index);
    void picGroup_Click();
    void picIcon_MouseDown(const ButtonEntry& button, MouseButton mouse, int shiftMask);
    void imgHide_Click();
    void imgMenu_Click();

    const PanelGeometry& Geometry() const { return geometry_; }
    const OpenedCategory& Opened() const { return opened_; }

Q_SIGNALS:
    // The user ends the program; the panel has been unloaded.
    void Unloaded();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void MakeLook();
    void LayOut();
    void ShowPicture(const QImage& picture);
    void AfterFirstPaint();
    void PrepareNextPicture();
    void TellProblems();
    void ShowToolTip(const QPoint& local, const QPoint& global) const;
    const ButtonEntry& ButtonAt(const HitArea& area) const;

    AppState& state_;
    PanelServices services_;
    PanelLoad load_;
    QString skinProblem_;
    std::unique_ptr<PanelLook> look_;
    PanelGeometry geometry_;
    OpenedCategory opened_;
    std::vector<HitArea> hitAreas_;
    HitArea pressed_;
    QImage picture_;
    bool painted_ = false;
    bool unloaded_ = false;
};

} // namespace paneda
