#include "platform/linux/instance_mark.h"
#include "platform/linux/linux_opener.h"
#include "platform/linux/mounted_volumes.h"
#include "platform/linux/theme_icons.h"
#include "platform/linux/volume_space.h"
#include "platform/linux/x11_compositor.h"
#include "platform/platform.h"

namespace paneda {

Platform MakePlatform() {
    return {std::make_unique<LinuxOpener>(),      std::make_unique<MountedVolumes>(),
            std::make_unique<InstanceMark>(),     std::make_unique<ThemeIcons>(),
            std::make_unique<LinuxVolumeSpace>(), std::make_unique<X11Compositor>()};
}

} // namespace paneda
