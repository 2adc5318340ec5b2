#pragma once

#include "core/settings/app_state.h"
#include "platform/file_icons.h"
#include "ui/panel/drive_figures.h"
#include "ui/panel/panel_look.h"

namespace paneda {

// The built-in look, used when no skin can be read. It writes no picture files.
class PlainPanelLook : public PanelLook {
public:
    PlainPanelLook(const AppState& state, FileIcons& icons, DriveSpace& space);

    PanelMetrics Metrics() const override;
    void SetGeometry(const PanelGeometry& geometry) override;
    PictureRecord Record() const override { return {}; }
    void SetRatio(double ratio) override { ratio_ = ratio; }
    QImage Picture(int category) override;
    std::vector<QRect> FrameAreas() const override;
    QRect HideArea() const override;
    QRect MenuArea() const override;
    QRect LogoArea() const override { return {}; }
    void RefreshDrives() override { drives_.Read(*geometry_); }
    QString DriveTip(int controlIndex) const override { return drives_.TipOf(controlIndex); }
    // This look does not measure its labels, so every tool tip repeats the label.
    void RedrawBarTitles() override {}
    bool CutsLabel(const ButtonEntry&, const QSize&) override { return true; }
    std::vector<PictureError> TakeLeftOut() override { return {}; }
    bool PrepareNext() override { return false; }

private:
    const AppState& state_;
    FileIcons& icons_;
    DriveFigures drives_;
    const PanelGeometry* geometry_ = nullptr;
    double ratio_ = 1;
};

} // namespace paneda
