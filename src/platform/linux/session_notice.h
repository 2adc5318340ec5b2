#pragma once

#include <QString>

namespace paneda {

// Shows a text to the user as a notification of the desktop. If the session shows no notifications, the text
// goes to the standard error. Waits so many milliseconds at most for an answer; do not call it on the panel's
// thread while the panel is there.
void TellSession(const QString& text, int wait = 2000);

} // namespace paneda
