#pragma once

#include "core/panel/panel_geometry.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <vector>

namespace paneda {

// A part of the panel that reacts to the mouse, in pixels of the window.
struct HitArea {
    enum class Kind { None, Bar, Header, Button, Hide, Menu, Logo, Frame };

    Kind What = Kind::None;
    int Category = -1; // index in the catalogue; -1 for other areas than a bar, header or button
    int Group = -1;    // index in the category; -1 for other areas than a header or button
    int Button = -1;   // index in the group; -1 for other areas than a button
    QRect Rect;

    friend bool operator==(const HitArea&, const HitArea&) = default;
};

// The pieces of the frame (rectangles in pixels), every bar, and the headers and buttons that the opened
// category shows. Where they overlap, the frame lies below the others.
std::vector<HitArea> HitAreasOf(const std::vector<QRect>& frame, const PanelGeometry& geometry,
                                const OpenedCategory& opened);

// The tool tip of the logo and of the signs that hide the panel and open its menu; empty for other areas.
QString SignToolTip(HitArea::Kind area);

// The area at a point. Where areas overlap it is the one that comes last in the list; of kind None where
// there is none.
HitArea HitTest(const std::vector<HitArea>& areas, const QPoint& point);

} // namespace paneda
