#pragma once

#include "core/panel/panel_geometry.h"
#include "core/store/catalogue_cache.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

namespace paneda {

// How the panel looks: what it gives to the layout, a picture of the window for each category, and the areas
// of its frame that answer to the mouse.
class PanelLook {
public:
    virtual ~PanelLook() = default;

    // Margins and heights that the panel is laid out by.
    virtual PanelMetrics Metrics() const = 0;

    // The panel has been laid out; all that follows is asked for from now on. The geometry outlives the look.
    virtual void SetGeometry(const PanelGeometry& geometry) = 0;

    // What the pictures on file show, for the cache.
    virtual PictureRecord Record() const = 0;

    // The panel with this category opened, of the window's pixel size; with no category for -1.
    virtual QImage Picture(int category) = 0;

    // The pieces of the frame, by which the panel is dragged. All areas are in pixels of the window.
    virtual std::vector<QRect> FrameAreas() const = 0;

    // Areas that hide the panel and open its menu.
    virtual QRect HideArea() const = 0;
    virtual QRect MenuArea() const = 0;

    // Area of the logo; empty without one.
    virtual QRect LogoArea() const = 0;

    // Asks the drives again. The picture of the first category is another one afterwards.
    virtual void RefreshDrives() = 0;

    // Tool tip of a drive button; empty if nothing is known of its drive.
    virtual QString DriveTip(int controlIndex) const = 0;

    // Whether a button of this size, in pixels, has no room for all of its label.
    virtual bool CutsLabel(const ButtonEntry& button, const QSize& size) = 0;

    // Prepares one more picture that will be asked for some time. False when there is none left to prepare.
    virtual bool PrepareNext() = 0;
};

} // namespace paneda
