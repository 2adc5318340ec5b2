#pragma once

#include "platform/compositor.h"

namespace paneda {

// The system blends a layered window by its alpha whether or not the desktop is composited.
class LayeredCompositor : public Compositor {
public:
    bool IsActive() override { return true; }
};

} // namespace paneda
