#pragma once

#include <QByteArray>
#include <QString>

namespace paneda::test {

// Looks at RTF with eyes of its own, apart from the reader. The empty text when nothing is wrong, or what is
// wrong and at which byte. It holds the writer to more than a reader asks for: 7 bits, one outermost group
// with nothing but a line end behind it, as many fallback characters behind \u as \uc says, surrogates in
// pairs, font and colour numbers that the tables have, as many cells in a row as the row defines, hex digits
// in pairs, and outside groups that a reader may skip no word but those that old readers know.
QString RtfFault(const QByteArray& rtf);

} // namespace paneda::test
