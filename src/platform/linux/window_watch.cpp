#include "platform/linux/window_watch.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace paneda {

namespace {

constexpr int kGiveUpAfter = 10'000; // ms
constexpr int kLookEvery = 30;       // ms
constexpr int kAskEvery = 300;       // ms
constexpr int kMaxAncestors = 64;
constexpr quint32 kMaxNumbers = 65'536;
// Window manager protocol: WM_STATE's iconic state, _NET_WM_STATE's add action, source "pager or the like".
constexpr quint32 kIconicState = 3;
constexpr quint32 kStateAdd = 1;
constexpr quint32 kSourceIsTool = 2;
constexpr char kMaximizedHorz[] = "_NET_WM_STATE_MAXIMIZED_HORZ";
constexpr char kMaximizedVert[] = "_NET_WM_STATE_MAXIMIZED_VERT";

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

class Display {
public:
    Display() : connection_(xcb_connect(nullptr, nullptr), &xcb_disconnect) {
        if (IsOpen())
            root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
    }

    bool IsOpen() const { return xcb_connection_has_error(connection_.get()) == 0; }

    std::vector<xcb_window_t> Windows() const {
        return Numbers(root_, Atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
    }

    // XCB_NONE while neither the process nor its descendants have a window.
    xcb_window_t FirstWindowOf(qint64 processId) const {
        for (const xcb_window_t window : Windows()) {
            if (DescendsFrom(ProcessOf(window), processId))
                return window;
        }
        return XCB_NONE;
    }

    // The process that made a window; 0 if unknown.
    qint64 ProcessOf(xcb_window_t window) const {
        const std::vector<quint32> process = Numbers(window, Atom("_NET_WM_PID"), XCB_ATOM_CARDINAL);
        if (process.size() == 1)
            return process.front();
        return ClientProcessOf(window);
    }

    void Ask(xcb_window_t window, ShowCommand show) const {
        if (show == ShowCommand::Minimized)
            Send(window, Atom("WM_CHANGE_STATE"), {kIconicState, 0, 0, 0, 0});
        else
            Send(window, Atom("_NET_WM_STATE"),
                 {kStateAdd, Atom(kMaximizedHorz), Atom(kMaximizedVert), kSourceIsTool, 0});
    }

    bool Has(xcb_window_t window, ShowCommand show) const {
        if (show == ShowCommand::Minimized) {
            const std::vector<quint32> state = Numbers(window, Atom("WM_STATE"), XCB_ATOM_ANY);
            return !state.empty() && state.front() == kIconicState;
        }
        const std::vector<quint32> states = Numbers(window, Atom("_NET_WM_STATE"), XCB_ATOM_ATOM);
        const auto holds = [&states](xcb_atom_t state) {
            return std::find(states.begin(), states.end(), state) != states.end();
        };
        return holds(Atom(kMaximizedHorz)) && holds(Atom(kMaximizedVert));
    }

private:
    xcb_atom_t Atom(const char* name) const {
        const auto cookie = xcb_intern_atom(connection_.get(), 0, quint16(qstrlen(name)), name);
        const ReplyPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    // The values of a property of 32-bit numbers; empty for any other property.
    std::vector<quint32> Numbers(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const {
        const auto cookie = xcb_get_property(connection_.get(), 0, window, name, type, 0, kMaxNumbers);
        const ReplyPointer<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(connection_.get(), cookie, nullptr));
        if (!reply || reply->format != 32)
            return {};
        const auto* first = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
        return {first, first + std::size_t(xcb_get_property_value_length(reply.get())) / sizeof(quint32)};
    }

    // The X server knows the process of a local client that does not set the property.
    qint64 ClientProcessOf(xcb_window_t window) const {
        const xcb_res_client_id_spec_t what{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        const auto cookie = xcb_res_query_client_ids(connection_.get(), 1, &what);
        const ReplyPointer<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(connection_.get(), cookie, nullptr));
        if (!reply)
            return 0;
        for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
             xcb_res_client_id_value_next(&ids)) {
            if (xcb_res_client_id_value_value_length(ids.data) > 0)
                return *xcb_res_client_id_value_value(ids.data);
        }
        return 0;
    }

    void Send(xcb_window_t window, xcb_atom_t type, const std::array<quint32, 5>& data) const {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = type;
        std::copy(data.begin(), data.end(), event.data.data32);
        xcb_send_event(connection_.get(), 0, root_,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&event));
        // Waits for an answer, because the server drops requests that it has not yet read when a client
        // disconnects.
        const ReplyPointer<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
    }

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
    xcb_window_t root_ = XCB_NONE;
};

qint64 ParentOf(qint64 processId) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(processId));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // "pid (name) state parent ...", where the name may contain blanks and brackets.
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    return fields.size() > 1 ? fields[1].toLongLong() : 0;
}

} // namespace

bool DescendsFrom(qint64 processId, qint64 ancestor) {
    for (int i = 0; i < kMaxAncestors && processId > 1; ++i) {
        if (processId == ancestor)
            return true;
        processId = ParentOf(processId);
    }
    return false;
}

void ShowFirstWindow(qint64 processId, ShowCommand show) {
    const Display display;
    const QDeadlineTimer end(kGiveUpAfter);
    xcb_window_t window = XCB_NONE;
    while (display.IsOpen() && window == XCB_NONE && !end.hasExpired()) {
        window = display.FirstWindowOf(processId);
        if (window == XCB_NONE)
            QThread::msleep(kLookEvery);
    }
    // A window manager that has not finished with the new window may ignore the first request.
    QDeadlineTimer nextAsk(0);
    while (display.IsOpen() && window != XCB_NONE && !end.hasExpired() && !display.Has(window, show)) {
        if (nextAsk.hasExpired()) {
            display.Ask(window, show);
            nextAsk.setRemainingTime(kAskEvery);
        }
        QThread::msleep(kLookEvery);
    }
}

} // namespace paneda
