#pragma once

#include "platform/linux/x11_connection.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace paneda {

// Whether a program on the X display embeds tray icons as windows. That program owns the display's tray
// selection.
class EmbedHosts : public QObject {
    Q_OBJECT

public:
    EmbedHosts();

    bool IsThere() const { return owner_ != XCB_NONE; }

Q_SIGNALS:
    void Changed();

private:
    void FindOwner();
    void ReadLater();
    void ReadEvents();
    bool IsNews(const xcb_generic_event_t& event) const;

    X11Connection x11_;
    std::unique_ptr<QSocketNotifier> socket_;
    xcb_atom_t selection_ = XCB_ATOM_NONE;
    xcb_atom_t manager_ = XCB_ATOM_NONE;
    xcb_window_t owner_ = XCB_NONE;
};

} // namespace paneda
