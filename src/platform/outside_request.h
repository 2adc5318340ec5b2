#pragma once

#include <QString>

#include <functional>

namespace paneda {

// Requests that other programs send to this one.
class OutsideRequest {
public:
    virtual ~OutsideRequest() = default;

    // Begins to listen; `execute` is called from the event loop with the text of each request. Where another
    // instance listens already, this one waits for its turn. Returns at once; false when the desktop has
    // nothing to listen on.
    virtual bool Listen(std::function<void(const QString& text)> execute) = 0;
};

} // namespace paneda
