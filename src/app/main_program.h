#pragma once

#include "core/settings/app_state.h"
#include "platform/platform.h"
#include "ui/common/qt_prompts.h"
#include "ui/notes/tree_dialogs.h"
#include "ui/notes/tree_satellite.h"
#include "ui/panel/frmMain.h"
#include "ui/panel/panel_dialogs.h"

#include <QObject>

#include <functional>
#include <memory>

namespace paneda {

// Fills the part of the state that never changes while the program runs. `executableFolder` is a host path,
// without a slash at the end.
void FillAppState(AppState& state, const QString& executableFolder, Volumes& volumes);

// The program from start to end: the test for a second instance, the panel and its reload.
class MainProgram : public QObject {
    Q_OBJECT

public:
    // `ending` is called once, when the program is about to end and all that it keeps is on the disk.
    MainProgram(Platform platform, const QString& executablePath, std::function<void()> ending = {});
    ~MainProgram() override;

    // Runs the program until the panel is closed; returns the exit status. If this executable runs already,
    // calls the panel of that instance and shows a notice (0). In a folder from which nothing can be started,
    // only shows a message (1).
    int Run();

    // Deletes the panel and builds a new one from the store. The cache is not used. Does nothing while the
    // program ends.
    void ReloadPanel();

private:
    void MakeTrees();
    void DropTree(const QString& tree);
    void LoadPanel();
    void ListenToOutside();
    void End();
    PlaceScene Scene() const;

    Platform platform_;
    QString executablePath_;
    std::function<void()> ending_;
    AppState state_;
    std::unique_ptr<QtPrompts> prompts_;
    std::unique_ptr<TreeDialogs> treeDialogs_;
    std::unique_ptr<TreeSatellite> satellites_;
    std::unique_ptr<PanelDialogs> dialogs_;
    std::unique_ptr<frmMain> panel_;
    bool isEnding_ = false;
};

} // namespace paneda
