#pragma once

#include "platform/linux/x11_connection.h"
#include "platform/work_areas.h"

#include <QSize>

#include <array>
#include <memory>
#include <vector>

namespace paneda {

// What a window keeps free for itself at the edges of the display, in the window manager protocol's order:
// widths at the left, right, top and bottom, then for each of the four the begin and the end of the stretch,
// both included. Pixels.
using Strut = std::array<quint32, 12>;

// What the windows leave of one screen of a display. One that would leave nothing of it means another screen.
QRect WithoutStruts(const QRect& screen, const QSize& display, const std::vector<Strut>& struts);

// Of a single screen Qt knows the work area. For several the window manager tells one that is true of none of
// them, so there the windows themselves are asked.
class LinuxWorkAreas : public WorkAreas {
public:
    QRect Of(const QScreen& screen) override;

private:
    std::vector<Strut> Struts() const;
    QSize DisplaySize() const;

    std::unique_ptr<X11Connection> x11_;
};

} // namespace paneda
