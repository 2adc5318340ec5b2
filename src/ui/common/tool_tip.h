#pragma once

#include <QString>

namespace paneda {

// A tool tip as rich text, since Qt breaks long lines in rich text alone and cannot say of an escaped text
// whether it is rich. Short lines are kept whole; Qt would break them too. Empty for an empty tip.
QString RichTip(const QString& tip);

} // namespace paneda
