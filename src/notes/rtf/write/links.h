#pragma once

#include <QString>

class QTextCharFormat;

namespace paneda {

// Instruction of the field that a link is written as: the one that was read while it still tells the link's
// address, else a new one. A link "#name" leads to a bookmark of the same note.
QString LinkInstruction(const QTextCharFormat& format);

} // namespace paneda
