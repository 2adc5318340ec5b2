#pragma once

#include <QImage>
#include <QList>
#include <QPoint>

#include <memory>

#include <xcb/xcb.h>

namespace paneda::bench {

// Looks from outside at a window of another program, through the X server.
class XWindow {
public:
    XWindow();

    // Whether a mapped window of this process has the panel's title; remembers it for Pixels().
    bool Find(qint64 processId);

    // Colours at these places of the window found; empty while it cannot be read.
    QList<QRgb> Pixels(const QList<QPoint>& places) const;

private:
    bool FindBelow(xcb_window_t parent, qint64 processId, int depth);
    bool IsPanel(xcb_window_t window, qint64 processId) const;

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
    xcb_window_t root_ = XCB_NONE;
    xcb_window_t window_ = XCB_NONE;
    xcb_atom_t processAtom_ = XCB_NONE;
};

} // namespace paneda::bench
