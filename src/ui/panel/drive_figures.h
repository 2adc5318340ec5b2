#pragma once

#include "core/settings/app_state.h"
#include "platform/drive_space.h"
#include "skin/drive_painter.h"

#include <QString>

#include <vector>

namespace paneda {

// Label, size and free space of the drives that the first category shows, as of the last reading.
class DriveFigures {
public:
    DriveFigures(const AppState& state, DriveSpace& space);

    // Reads the figures of each drive whose button has room on the panel.
    const std::vector<DriveState>& Read(const PanelGeometry& geometry);

    // The tool tip of the drive button with this control index: drive, label, free percent. Empty for any
    // other button, and before the first reading.
    QString TipOf(int controlIndex) const;

private:
    const AppState& state_;
    DriveSpace& space_;
    std::vector<DriveState> drives_;
};

} // namespace paneda
