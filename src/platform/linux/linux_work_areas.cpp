#include "platform/linux/linux_work_areas.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace paneda {

namespace {

constexpr std::size_t kPlainStrut = 4; // numbers of the older form, which has no stretches
constexpr quint32 kEndless = 0x7FFF;

// In the older form a dock reserves the whole length of its edge.
Strut StrutOf(const std::vector<quint32>& partial, const std::vector<quint32>& plain) {
    Strut strut{0, 0, 0, 0, 0, kEndless, 0, kEndless, 0, kEndless, 0, kEndless};
    const std::vector<quint32>& values = partial.size() == strut.size() ? partial : plain;
    if (values.size() == strut.size() || values.size() == kPlainStrut)
        std::copy(values.begin(), values.end(), strut.begin());
    return strut;
}

// The four strips of the display that a dock reserves: left, right, top, bottom.
std::array<QRect, 4> StripsOf(const Strut& strut, const QSize& display) {
    // Larger values than any screen has could overflow an int.
    const auto at = [&strut](std::size_t i) { return int(std::min(strut[i], kEndless)); };
    return {QRect(QPoint(0, at(4)), QPoint(at(0) - 1, at(5))),
            QRect(QPoint(display.width() - at(1), at(6)), QPoint(display.width() - 1, at(7))),
            QRect(QPoint(at(8), 0), QPoint(at(9), at(2) - 1)),
            QRect(QPoint(at(10), display.height() - at(3)), QPoint(at(11), display.height() - 1))};
}

QRect WithoutStrip(QRect area, const QRect& strip, std::size_t side) {
    if (!strip.intersects(area))
        return area;
    switch (side) {
    case 0:
        area.setLeft(strip.right() + 1);
        break;
    case 1:
        area.setRight(strip.left() - 1);
        break;
    case 2:
        area.setTop(strip.bottom() + 1);
        break;
    default:
        area.setBottom(strip.top() - 1);
        break;
    }
    return area;
}

} // namespace

QRect WithoutStruts(const QRect& screen, const QSize& display, const std::vector<Strut>& struts) {
    QRect area = screen;
    for (const Strut& strut : struts) {
        const std::array<QRect, 4> strips = StripsOf(strut, display);
        for (std::size_t side = 0; side < strips.size(); ++side) {
            const QRect left = WithoutStrip(area, strips[side], side);
            if (!left.isEmpty())
                area = left;
        }
    }
    return area;
}

QRect LinuxWorkAreas::Of(const QScreen& screen) {
    if (QGuiApplication::screens().size() < 2)
        return screen.availableGeometry();
    if (!x11_)
        x11_ = std::make_unique<X11Connection>();
    if (!x11_->IsOpen())
        return screen.availableGeometry();
    // Qt scales a screen's size and leaves its corner where it is on the display.
    const double scale = screen.devicePixelRatio();
    const QRect whole = screen.geometry();
    const QRect native(whole.topLeft(), (QSizeF(whole.size()) * scale).toSize());
    const QRect area = WithoutStruts(native, DisplaySize(), Struts());
    const auto scaled = [scale](int pixels) { return int(std::ceil(pixels / scale)); };
    return whole.adjusted(scaled(area.left() - native.left()), scaled(area.top() - native.top()),
                          -scaled(native.right() - area.right()), -scaled(native.bottom() - area.bottom()));
}

std::vector<Strut> LinuxWorkAreas::Struts() const {
    constexpr quint32 kManyWindows = 4096;
    const xcb_atom_t partial = x11_->Atom("_NET_WM_STRUT_PARTIAL");
    const xcb_atom_t plain = x11_->Atom("_NET_WM_STRUT");
    const std::vector<quint32> windows =
        x11_->Values(x11_->Root(), x11_->Atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, kManyWindows);
    std::vector<Strut> struts;
    for (const xcb_window_t window : windows)
        struts.push_back(StrutOf(x11_->Values(window, partial, XCB_ATOM_CARDINAL, Strut().size()),
                                 x11_->Values(window, plain, XCB_ATOM_CARDINAL, kPlainStrut)));
    return struts;
}

QSize LinuxWorkAreas::DisplaySize() const {
    const XcbPointer<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(x11_->Get(), xcb_get_geometry(x11_->Get(), x11_->Root()), nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

} // namespace paneda
