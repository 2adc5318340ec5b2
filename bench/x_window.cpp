#include "x_window.h"

#include <cstdlib>

namespace paneda::bench {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

constexpr int kDeepest = 3; // root, the window manager's frame, the window

} // namespace

XWindow::XWindow() : connection_(xcb_connect(nullptr, nullptr), &xcb_disconnect) {
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
    const auto cookie = xcb_intern_atom(connection_.get(), 0, 11, "_NET_WM_PID");
    const ReplyPointer<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
    processAtom_ = atom ? atom->atom : XCB_NONE;
}

bool XWindow::Find(qint64 processId) {
    return FindBelow(root_, processId, 0);
}

bool XWindow::FindBelow(xcb_window_t parent, qint64 processId, int depth) {
    if (IsPanel(parent, processId)) {
        window_ = parent;
        return true;
    }
    if (depth == kDeepest)
        return false;
    const auto cookie = xcb_query_tree(connection_.get(), parent);
    const ReplyPointer<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(connection_.get(), cookie, nullptr));
    const int count = tree ? xcb_query_tree_children_length(tree.get()) : 0;
    for (int i = 0; i < count; ++i) {
        if (FindBelow(xcb_query_tree_children(tree.get())[i], processId, depth + 1))
            return true;
    }
    return false;
}

bool XWindow::IsPanel(xcb_window_t window, qint64 processId) const {
    xcb_connection_t* c = connection_.get();
    const auto property = xcb_get_property(c, 0, window, processAtom_, XCB_ATOM_CARDINAL, 0, 1);
    const auto attributes = xcb_get_window_attributes(c, window);
    const auto geometry = xcb_get_geometry(c, window);
    const ReplyPointer<xcb_get_property_reply_t> process(xcb_get_property_reply(c, property, nullptr));
    const ReplyPointer<xcb_get_window_attributes_reply_t> state(
        xcb_get_window_attributes_reply(c, attributes, nullptr));
    const ReplyPointer<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(c, geometry, nullptr));
    if (!process || !state || !size || xcb_get_property_value_length(process.get()) != 4)
        return false;
    // Helper windows of the toolkit are tiny.
    return *static_cast<const quint32*>(xcb_get_property_value(process.get())) == processId &&
           state->map_state == XCB_MAP_STATE_VIEWABLE && size->width > 50 && size->height > 50;
}

QList<QRgb> XWindow::Pixels(const QList<QPoint>& places) const {
    QList<QRgb> colours;
    for (const QPoint& place : places) {
        const auto cookie = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window_,
                                          qint16(place.x()), qint16(place.y()), 1, 1, ~0U);
        const ReplyPointer<xcb_get_image_reply_t> image(
            xcb_get_image_reply(connection_.get(), cookie, nullptr));
        if (!image || xcb_get_image_data_length(image.get()) < 4)
            return {};
        colours.append(*reinterpret_cast<const QRgb*>(xcb_get_image_data(image.get())) & 0xFFFFFF);
    }
    return colours;
}

} // namespace paneda::bench
