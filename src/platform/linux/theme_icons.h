#pragma once

#include "platform/file_icons.h"
#include "platform/linux/theme_names.h"

namespace paneda {

// Icons by the MIME database and the icon theme. For a desktop entry, the icon that it names.
class ThemeIcons : public FileIcons {
public:
    QImage IconOf(const QString& target, const LaunchPaths& paths, const IconSize& size) override;
    QString TypeNameOf(const QString& fileName) override;

private:
    ThemeNames names_;
};

} // namespace paneda
