#pragma once

#include <QString>

namespace paneda {

// Shows a text to the user as a notification of the desktop. Where the session has nothing that shows them,
// the text goes to the standard error. Waits for an answer, up to 2 s, so it is not for the panel's thread.
void TellSession(const QString& text);

} // namespace paneda
