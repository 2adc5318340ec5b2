#pragma once

#include "core/text/timing.h"

#include <QHash>
#include <QIcon>
#include <QSet>
#include <QStringList>

namespace paneda {

// The icon theme, by the names of icons. Qt remembers the icons that the theme has. One that it lacks is
// looked for in every folder of the theme each time, which takes milliseconds, and a panel asks for many: few
// programs have an icon of their own name. So the names that are missing are remembered too, until one of the
// folders of themes changes, which whatever installs icons has to see to, but no longer than a minute.
class ThemeNames {
public:
    explicit ThemeNames(TickSource ticks = CurrentTick) : looked_(ticks), kept_(ticks) {}

    // The first icon that the theme has; null for none.
    QIcon FirstOf(const QStringList& names);

private:
    void ForgetOldOnes();

    QSet<QString> missing_;
    QHash<QString, qint64> folders_; // of themes, and when they were changed
    Timing looked_;                  // since the folders were looked at
    Timing kept_;                    // since the first name was missing
};

} // namespace paneda
