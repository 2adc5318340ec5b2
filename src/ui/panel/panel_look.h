#pragma once

#include "core/panel/panel_geometry.h"
#include "core/store/catalogue_cache.h"
#include "skin/picture_loader.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

namespace paneda {

// How the panel looks: the sizes that the layout needs, a picture of the window for each category, and the
// areas of the frame that react to the mouse.
class PanelLook {
public:
    virtual ~PanelLook() = default;

    // Margins and heights that the panel is laid out by.
    virtual PanelMetrics Metrics() const = 0;

    // Gives the look the finished layout. The functions below may be called only after this. The geometry has
    // to outlive the look.
    virtual void SetGeometry(const PanelGeometry& geometry) = 0;

    // Describes the picture files (skin, sizes) for the cache; empty for a look that writes no files.
    virtual PictureRecord Record() const = 0;

    // From now on the pictures are those for a screen of this ratio, 1 to 3 (see core/text/device_pixels.h).
    virtual void SetRatio(double ratio) = 0;

    // The panel with this category opened, as large as the window, in the screen's pixels: its
    // devicePixelRatio() is the ratio. -1: no category is opened.
    virtual QImage Picture(int category) = 0;

    // The pieces of the frame, which the user drags the panel by. All areas are in pixels of the window.
    virtual std::vector<QRect> FrameAreas() const = 0;

    // Areas that hide the panel and open its menu.
    virtual QRect HideArea() const = 0;
    virtual QRect MenuArea() const = 0;

    // Area of the logo; empty without one.
    virtual QRect LogoArea() const = 0;

    // Reads the drives again and draws the picture of the first category with the new figures.
    virtual void RefreshDrives() = 0;

    // The tool tip of a drive button; empty for any other button, and before the drives are read.
    virtual QString DriveTip(int controlIndex) const = 0;

    // Whether a button of this size, in layout pixels, has no room for all of its label.
    virtual bool CutsLabel(const ButtonEntry& button, const QSize& size) = 0;

    // The titles of the bars have changed.
    virtual void RedrawBarTitles() = 0;

    // The pictures of the skin and of buttons that have been left out since the last call. Some are named
    // again when a picture is drawn again.
    virtual std::vector<PictureError> TakeLeftOut() = 0;

    // Prepares one picture of a category that has not been opened yet. False when none is left to prepare.
    virtual bool PrepareNext() = 0;
};

} // namespace paneda
