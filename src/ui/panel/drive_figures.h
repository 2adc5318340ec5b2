#pragma once

#include "core/settings/app_state.h"
#include "platform/drive_space.h"
#include "skin/drive_painter.h"

#include <QString>

#include <vector>

namespace paneda {

// The figures of the drives that the first category shows, as they were when they were last read.
class DriveFigures {
public:
    DriveFigures(const AppState& state, DriveSpace& space);

    // Asks each drive that has room on the panel.
    const std::vector<DriveState>& Read(const PanelGeometry& geometry);

    // Tool tip of a drive button by its control index: drive, label, free percent. Empty for any other button
    // and before the first reading.
    QString TipOf(int controlIndex) const;

private:
    const AppState& state_;
    DriveSpace& space_;
    std::vector<DriveState> drives_;
};

} // namespace paneda
