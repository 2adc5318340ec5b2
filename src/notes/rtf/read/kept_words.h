#pragma once

#include "notes/rtf/read/tokens.h"

#include <QByteArray>

namespace paneda {

// Kept words are few; what goes beyond this many bytes is no formatting that anybody made, and is dropped.
inline constexpr qsizetype kMaxKeptWords = 2000;

// A token's word as it is written, with backslash and number.
QByteArray SourceOfWord(const RtfToken& token);

// Puts a word at the end of a list of words ("\outl\kerning10"). A word of that name that stands there is
// replaced; a toggle that is turned off only goes.
void KeepWord(QByteArray& words, const RtfToken& token, bool isToggle);

} // namespace paneda
