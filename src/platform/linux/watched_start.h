#pragma once

#include <QString>
#include <QStringList>

namespace paneda {

// Starts the desktop's opener and waits up to 10 s for its end, because only its exit status says whether it
// could open anything. An opener that runs longer, because it shows the document itself, keeps running when
// the panel ends, and leaves no zombie while the panel runs. Returns why nothing was opened, as a text for
// the user; empty if it was opened or is not known after 10 s. `folder` may be empty.
QString StartWatched(const QString& program, const QStringList& arguments, const QString& folder);

} // namespace paneda
