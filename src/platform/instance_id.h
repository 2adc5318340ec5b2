#pragma once

#include <QString>

namespace paneda {

// A name for all instances of one executable (host path): 16 hexadecimal digits, the same whatever links lead
// to the file. On Windows the case of the path makes no difference.
QString InstanceId(const QString& executablePath);

} // namespace paneda
