#pragma once

#include "platform/volumes.h"
#include "platform/windows/message_window.h"

#include <memory>

namespace paneda {

// The host's own drive letters; the drive map needs no list of them.
class LetterVolumes : public Volumes {
public:
    void Refresh(DriveMap&) override {}
    void Watch(std::function<void()> changed) override;

private:
    std::unique_ptr<MessageWindow> window_; // exists while there is a watch
};

} // namespace paneda
