#pragma once

#include "platform/compositor.h"

namespace paneda {

// By the owner of the screen's compositing manager selection.
class X11Compositor : public Compositor {
public:
    bool IsActive() override;
};

} // namespace paneda
