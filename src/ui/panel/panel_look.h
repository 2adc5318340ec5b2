#pragma once

#include "core/panel/panel_geometry.h"
#include "core/store/catalogue.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

namespace paneda {

// How the panel looks: what it gives to the layout, and a picture of the window for each category.
class PanelLook {
public:
    virtual ~PanelLook() = default;

    // Margins and heights that the panel is laid out by.
    virtual PanelMetrics Metrics() const = 0;

    // The panel has been laid out; pictures are asked for from now on. The geometry outlives the look.
    virtual void SetGeometry(const PanelGeometry& geometry) = 0;

    // The panel with this category opened, of the window's pixel size; with no category for -1.
    virtual QImage Picture(int category) = 0;

    // Areas that hide the panel and open its menu, in pixels of the window.
    virtual QRect HideArea() const = 0;
    virtual QRect MenuArea() const = 0;

    // Area of the logo; empty without one.
    virtual QRect LogoArea() const = 0;

    // Reads the drives anew. The picture of the first category has changed then.
    virtual void RefreshDrives() = 0;

    // What is told of a drive button besides its letter; empty if nothing is known.
    virtual QString DriveTip(int controlIndex) const = 0;

    // Whether a button of this size, in pixels, has no room for all of its label.
    virtual bool CutsLabel(const ButtonEntry& button, const QSize& size) = 0;

    // Prepares one more picture that will be asked for some time. False when there is none left to prepare.
    virtual bool PrepareNext() = 0;
};

} // namespace paneda
