#pragma once

#include <functional>

namespace paneda {

// The system's wish that the program ends, at the end of the session for example.
class Termination {
public:
    virtual ~Termination() = default;

    // `end` is called from the event loop, once for each wish. A wish that is repeated before the program has
    // ended may end it at once.
    virtual void OnRequest(std::function<void()> end) = 0;
};

} // namespace paneda
