#pragma once

#include "platform/drive_space.h"

namespace paneda {

// The space of a mounted volume, asked now. Blocks as long as the volume does not answer.
VolumeSpace AskVolumeSpace(const QString& root);

} // namespace paneda
