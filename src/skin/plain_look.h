#pragma once

#include "core/panel/panel_geometry.h"
#include "core/text/device_pixels.h"

#include <QImage>
#include <QRect>
#include <QString>

#include <functional>

namespace paneda {

// The built-in look of the panel: flat colours, the file's icon, its label. It needs no file.

// Margins, header and bar height of the built-in look.
PanelMetrics PlainMetrics();

// Hot rectangles in the bottom margin, in pixels of the window.
struct PlainChrome {
    QRect Hide;
    QRect Menu;
};

PlainChrome PlainChromeOf(const PanelGeometry& geometry);

// Gives a button's icon at a size; a null image for none.
using ButtonIconSource = std::function<QImage(const ButtonEntry&, const IconSize&)>;

// The whole panel with one category opened, as large as the window, for a screen of that ratio
// (core/text/device_pixels.h), which is the picture's devicePixelRatio().
QImage PaintPlainPanel(const CatalogueList& catalogue, const PanelGeometry& geometry,
                       const OpenedCategory& opened, const ButtonIconSource& icons, double ratio = 1);

} // namespace paneda
