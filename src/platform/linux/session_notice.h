#pragma once

#include <QString>

namespace paneda {

// Shows a text to the user as a notification of the desktop. If the session shows no notifications, the text
// goes to the standard error. Waits up to 2 s for an answer; do not call it on the panel's thread.
void TellSession(const QString& text);

} // namespace paneda
