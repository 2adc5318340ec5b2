#pragma once

#include <functional>

namespace paneda {

// Requests of the system to end the program, for example at the end of the session.
class Termination {
public:
    virtual ~Termination() = default;

    // `end` is called from the event loop, once for each request. A second request, made before the program
    // has ended, may end it at once without this call.
    virtual void OnRequest(std::function<void()> end) = 0;
};

} // namespace paneda
