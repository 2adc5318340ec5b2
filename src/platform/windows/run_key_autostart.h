#pragma once

#include "platform/autostart.h"

namespace paneda {

// Autostart by the value "Paneda Launcher" of the current user's Run key: the path of paneda.exe in the
// executable's folder, without quotes. An executable that has another name is not started. The task manager's
// switch for it counts too, and is taken back when the entry is made anew.
class RunKeyAutostart : public Autostart {
public:
    FileResult Set(bool on, const QString& executablePath) override;
    bool IsSet(const QString& executablePath) const override;
};

} // namespace paneda
