#pragma once

#include <QString>
#include <QStringList>

namespace paneda {

// Starts the desktop's opener and waits up to 10 s for its end, since only its exit status says whether
// anything could be opened. One that runs longer, as openers do that show the document themselves, is left
// alone: it lives on when the panel ends, and leaves no zombie while the panel runs. Returns why nothing was
// opened, for the user; empty when it was, or nobody knows yet. `folder` may be empty.
QString StartWatched(const QString& program, const QStringList& arguments, const QString& folder);

} // namespace paneda
