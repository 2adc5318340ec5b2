#pragma once

#include "platform/drive_space.h"

namespace paneda {

// Label and space of a drive, asked now. An empty drive gives empty values; the system shows no message.
// Blocks as long as the drive does not answer.
VolumeSpace AskVolumeSpace(const QString& root);

} // namespace paneda
