#pragma once

#include "platform/autostart.h"

namespace paneda {

// Autostart by the file autostart/paneda.desktop in the user's configuration folder. A key of our own in the
// file shows that this program made it.
class DesktopAutostart : public Autostart {
public:
    FileResult Set(bool on, const QString& executablePath) override;
    bool IsSet(const QString& executablePath) const override;
};

// A path as the only word of an Exec line: quoted for the line, then escaped for the file.
QString QuotedExec(const QString& executablePath);

} // namespace paneda
