#pragma once

namespace paneda {

// Tells whether windows are blended by their alpha, or shown as they are.
class Compositor {
public:
    virtual ~Compositor() = default;

    // False too when it cannot be told.
    virtual bool IsActive() = 0;
};

} // namespace paneda
