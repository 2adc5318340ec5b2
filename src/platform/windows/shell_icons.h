#pragma once

#include "platform/file_icons.h"

namespace paneda {

// Icons as the shell shows them, from the system's image lists.
class ShellIcons : public FileIcons {
public:
    QImage IconOf(const QString& target, const LaunchPaths& paths, int pixels) override;
};

} // namespace paneda
