#pragma once

#include "platform/linux/x11_connection.h"
#include "platform/work_areas.h"

#include <QSize>

#include <array>
#include <memory>
#include <vector>

namespace paneda {

// The space that a dock reserves at the edges of the display, in pixels and in the order of the window
// manager protocol: the widths at the left, right, top and bottom, then for each of the four its first and
// last pixel along the edge.
using Strut = std::array<quint32, 12>;

// The part of one screen of a display that the docks leave free. A dock that would leave nothing of the
// screen is ignored, because it belongs to another screen.
QRect WithoutStruts(const QRect& screen, const QSize& display, const std::vector<Strut>& struts);

// With a single screen, Qt's own work area is right. With several, the window manager reports one area for
// all of them together, which is right for none; so the reserved spaces of the docks are read instead.
class LinuxWorkAreas : public WorkAreas {
public:
    QRect Of(const QScreen& screen) override;

private:
    std::vector<Strut> Struts() const;
    QSize DisplaySize() const;

    std::unique_ptr<X11Connection> x11_;
};

} // namespace paneda
