#pragma once

#include "core/panel/panel_geometry.h"
#include "core/store/catalogue.h"
#include "skin/button_painter.h"

#include <QString>

#include <vector>

namespace paneda {

// The figures of a drive. A total of 0 means that there is no medium in it.
struct DriveInfo {
    QString Label; // of the volume; empty for none
    quint64 TotalBytes = 0;
    quint64 FreeBytes = 0;
};

// A drive button that the panel shows.
struct PlacedDrive {
    int ControlIndex = 0;
    QString Drive; // "C:"
    TwipsRect Box;
};

// The drive buttons of the first category that have room on the panel. `appPath` is in the stored form: the
// button of the program's own drive stands for its letter.
std::vector<PlacedDrive> DriveButtonsOf(const CatalogueList& catalogue, const PanelGeometry& geometry,
                                        const QString& appPath);

// "C:(System) Free 42%"; "-" for the share when there is no medium.
QString DriveToolTip(const QString& drive, const DriveInfo& info);

// A size in units of 1024^3 bytes with as many decimals as make three digits or more: 0.512, 12.50, 931.5.
QString GigabytesText(quint64 bytes);

// Draws a drive's free space, capacity, bar and letter on its button.
void DrawDrive(DrawingSurface& surface, const PlacedDrive& button, const DriveInfo& info, PaintTools& tools);

// A drive button with the present figures of its drive.
struct DriveState {
    PlacedDrive Button;
    DriveInfo Info;
};

} // namespace paneda
