#pragma once

#include "core/settings/app_state.h"
#include "platform/file_icons.h"
#include "ui/panel/panel_look.h"

namespace paneda {

// The built-in look, for a program whose skins are all broken. Nothing is kept on disk.
class PlainPanelLook : public PanelLook {
public:
    PlainPanelLook(const AppState& state, FileIcons& icons);

    PanelMetrics Metrics() const override;
    void SetGeometry(const PanelGeometry& geometry) override;
    QImage Picture(int category) override;
    QRect HideArea() const override;
    QRect MenuArea() const override;
    QRect LogoArea() const override { return {}; }
    void RefreshDrives() override {}
    QString DriveTip(int) const override { return {}; }
    // Texts without room are cut everywhere in this look; a caption too many does no harm in a tip.
    bool CutsLabel(const ButtonEntry&, const QSize&) override { return true; }
    bool PrepareNext() override { return false; }

private:
    const AppState& state_;
    FileIcons& icons_;
    const PanelGeometry* geometry_ = nullptr;
};

} // namespace paneda
