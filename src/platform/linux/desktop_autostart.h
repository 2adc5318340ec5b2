#pragma once

#include "platform/autostart.h"

namespace paneda {

// Autostart by an entry file in the user's configuration folder: autostart/paneda.desktop, with a key of its
// own that tells who made it.
class DesktopAutostart : public Autostart {
public:
    FileResult Set(bool on, const QString& executablePath) override;
    bool IsSet(const QString& executablePath) const override;
};

// A path as the one word of an entry's Exec line, with the quotes of the line and the escapes of the file.
QString QuotedExec(const QString& executablePath);

} // namespace paneda
