#pragma once

namespace paneda {

// Tells whether windows are blended by their alpha, or shown as they are.
class Compositor {
public:
    virtual ~Compositor() = default;

    // Also false when the desktop does not say.
    virtual bool IsActive() = 0;
};

} // namespace paneda
