#pragma once

#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/tokens.h"

#include <QByteArray>
#include <QString>

namespace paneda {

// RTF source in a form that can be kept and written back: in 7 bits, with hex digits in place of binary data
// (pictures and objects may have either), and with the closing braces that a cut note lacks.
QByteArray KeptRtf(QByteArrayView source);

// Whether the group that the tokenizer has just entered is no part of the text around it: a starred one, a
// picture, or one that is kept and shown as something else (footnotes, drawings).
bool IsApartFromText(RtfTokenizer inside);

// Text of RTF source without its formatting, for labels and field instructions. At most `limit` characters.
// `encoding` is that of its 8-bit texts.
QString PlainTextOfRtf(QByteArrayView source, const RtfEncoding& encoding, qsizetype limit);

// RTF source of a text: \u and "?" for each UTF-16 unit outside ASCII. To be written where \uc1 holds.
QByteArray RtfOfText(QStringView text);

// Words that are kept for one place, in bytes at most. Nobody has so much formatting; what goes beyond is a
// loss.
inline constexpr qsizetype kMaxKeptWords = 2000;

// A token's word as it is written, with backslash and number.
QByteArray SourceOfWord(const RtfToken& token);

// Adds a word to a list of words ("\outl\kerning10"). It replaces a word of the same name; a toggle that is
// turned off ("\outl0") is only removed.
void KeepWord(QByteArray& words, const RtfToken& token, bool isToggle);

} // namespace paneda
