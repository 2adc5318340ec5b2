#pragma once

#include "core/panel/panel_geometry.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <vector>

namespace paneda {

// A place of the panel that answers to the mouse, in pixels of the window.
struct HitArea {
    enum class Kind { None, Bar, Header, Button, Hide, Menu, Logo, Frame };

    Kind What = Kind::None;
    int Category = -1;
    int Group = -1;  // subscript in the category; of a header or button
    int Button = -1; // subscript in the group; of a button
    QRect Rect;

    friend bool operator==(const HitArea&, const HitArea&) = default;
};

// The pieces of the frame (pixels) and above them every bar and the headers and buttons that the opened
// category shows: a piece that reaches into the panel leaves those to be pressed.
std::vector<HitArea> HitAreasOf(const std::vector<QRect>& frame, const PanelGeometry& geometry,
                                const OpenedCategory& opened);

// The tool tip of a sign or the logo; empty for every other area.
QString SignToolTip(HitArea::Kind area);

// The area at a point; one of kind None where there is none. A later area lies above an earlier one.
HitArea HitTest(const std::vector<HitArea>& areas, const QPoint& point);

} // namespace paneda
