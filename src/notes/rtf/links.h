#pragma once

#include <QString>

class QTextCharFormat;

namespace paneda {

// The address in a HYPERLINK field's instruction (`HYPERLINK "https://..."`), with "#" and the bookmark
// where the instruction has \l. Empty for any other instruction.
QString LinkAddress(QStringView instruction);

// Instruction of the field that a link is written as: the one that was read if it still leads to the link's
// address, otherwise a new one. The address "#name" is a bookmark of the same note.
QString LinkInstruction(const QTextCharFormat& format);

} // namespace paneda
