#pragma once

#include <QString>

namespace paneda {

// The address in a HYPERLINK field's instruction (`HYPERLINK "https://..."`), with "#" and the bookmark
// where the instruction has \l. Empty for any other instruction.
QString LinkAddress(QStringView instruction);

} // namespace paneda
