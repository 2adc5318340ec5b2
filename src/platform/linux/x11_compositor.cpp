#include "platform/linux/x11_compositor.h"

#include <QGuiApplication>
#include <QTransform>
#include <QWindow>

#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace paneda {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

// The first screen of the display: nearly every desktop has only one.
constexpr char kSelection[] = "_NET_WM_CM_S0";

// Null for another window system, and for Qt's platform without windows, which offers the interface.
xcb_connection_t* ConnectionOfQt() {
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

} // namespace

bool X11Compositor::IsActive() {
    // Other window systems of a Linux desktop always composite.
    xcb_connection_t* connection = ConnectionOfQt();
    if (!connection)
        return QGuiApplication::platformName().startsWith(u"wayland");
    const auto atomCookie = xcb_intern_atom(connection, 0, sizeof(kSelection) - 1, kSelection);
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> atom(
        xcb_intern_atom_reply(connection, atomCookie, nullptr));
    if (!atom)
        return false;
    const auto ownerCookie = xcb_get_selection_owner(connection, atom->atom);
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> owner(
        xcb_get_selection_owner_reply(connection, ownerCookie, nullptr));
    return owner && owner->owner != XCB_NONE;
}

void X11Compositor::SetShape(QWindow& window, const QRegion& pixels) {
    xcb_connection_t* connection = ConnectionOfQt();
    if (!connection) {
        const double ratio = window.devicePixelRatio();
        window.setMask(QTransform::fromScale(1 / ratio, 1 / ratio).map(pixels));
        return;
    }
    std::vector<xcb_rectangle_t> rects;
    for (const QRect& rect : pixels)
        rects.push_back({qint16(rect.x()), qint16(rect.y()), quint16(rect.width()), quint16(rect.height())});
    xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_YX_BANDED,
                         xcb_window_t(window.winId()), 0, 0, quint32(rects.size()), rects.data());
    xcb_flush(connection);
}

} // namespace paneda
