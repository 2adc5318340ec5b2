#include "ui/panel/drive_figures.h"

namespace paneda {

DriveFigures::DriveFigures(const AppState& state, DriveSpace& space) : state_(state), space_(space) {}

const std::vector<DriveState>& DriveFigures::Read(const PanelGeometry& geometry) {
    drives_.clear();
    for (const PlacedDrive& button : DriveButtonsOf(state_.Catalogue, geometry, state_.AppPath)) {
        const QString root = button.Drive.isEmpty() ? QString() : state_.Drives.RootOf(button.Drive[0]);
        const VolumeSpace space = space_.SpaceOf(root);
        drives_.push_back({button, {space.Label, space.TotalBytes, space.FreeBytes}});
    }
    return drives_;
}

QString DriveFigures::TipOf(int controlIndex) const {
    for (const DriveState& drive : drives_) {
        if (drive.Button.ControlIndex == controlIndex)
            return DriveToolTip(drive.Button.Drive, drive.Info);
    }
    return {};
}

} // namespace paneda
