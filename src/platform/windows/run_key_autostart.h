#pragma once

#include "platform/autostart.h"

namespace paneda {

// Autostart by the value "Paneda Launcher" of the current user's Run key: the path of paneda.exe in the
// executable's folder, without quotes. An executable with another name is not started. If the user has
// disabled the entry in the task manager, it counts as not set; to set it again enables it.
class RunKeyAutostart : public Autostart {
public:
    FileResult Set(bool on, const QString& executablePath) override;
    bool IsSet(const QString& executablePath) const override;
};

} // namespace paneda
