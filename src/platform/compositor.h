#pragma once

#include <QRegion>

class QWindow;

namespace paneda {

// How the desktop shows a window that is not a rectangle.
class Compositor {
public:
    virtual ~Compositor() = default;

    // Whether windows are blended by their alpha. Also false when the desktop does not say.
    virtual bool IsActive() = 0;

    // Makes these device pixels of a window all that is shown of it and takes the mouse. (Qt's own masks are
    // regions of layout pixels, which leave gaps at fractional ratios.)
    virtual void SetShape(QWindow& window, const QRegion& pixels) = 0;
};

} // namespace paneda
