#pragma once

#include "core/settings/app_state.h"
#include "platform/platform.h"
#include "ui/common/qt_prompts.h"
#include "ui/panel/frmMain.h"
#include "ui/panel/panel_dialogs.h"

#include <QObject>

#include <memory>

namespace paneda {

// Fills the part of the state that never changes while the program runs. `executableFolder` is a host path.
void FillAppState(AppState& state, const QString& executableFolder, Volumes& volumes);

// The program from its start to its end: the single-instance test, the panel and its reload.
class MainProgram : public QObject {
    Q_OBJECT

public:
    MainProgram(Platform platform, const QString& executablePath);
    ~MainProgram() override;

    // The exit status of the process. Returns when the panel has been closed; at once for a second instance
    // (0), and with a message in a folder in which nothing can be started (1).
    int Run();

    // Tears the panel down and builds it again from the store, whatever the cache holds.
    void ReloadPanel();

private:
    void LoadPanel();
    void ListenToOutside();
    PlaceScene Scene() const;

    Platform platform_;
    QString executablePath_;
    AppState state_;
    std::unique_ptr<QtPrompts> prompts_;
    NoSatellites satellites_;
    std::unique_ptr<PanelDialogs> dialogs_;
    std::unique_ptr<frmMain> panel_;
};

} // namespace paneda
