#pragma once

#include "platform/file_icons.h"

namespace paneda {

// The shell's icons, from the system's image lists.
class ShellIcons : public FileIcons {
public:
    QImage IconOf(const QString& target, const LaunchPaths& paths, const IconSize& size) override;
    QString TypeNameOf(const QString& fileName) override;
};

} // namespace paneda
