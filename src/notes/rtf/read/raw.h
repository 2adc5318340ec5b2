#pragma once

#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/tokens.h"

#include <QByteArray>
#include <QString>

namespace paneda {

// RTF source made fit to be kept: 7-bit, with binary data turned into hex digits (picture and object data
// read the same), and balanced where the end of the note was missing.
QByteArray KeptRtf(QByteArrayView source);

// Whether the group that the tokenizer has just entered is no part of the text around it: a starred one, a
// picture, or one that is kept and shown as something else (footnotes, drawings).
bool IsApartFromText(RtfTokenizer inside);

// Text of RTF source without its formatting, for labels and field instructions. At most `limit` characters.
// `encoding` is that of its 8-bit texts.
QString PlainTextOfRtf(QByteArrayView source, const RtfEncoding& encoding, qsizetype limit);

// RTF source of a text, one \u with a "?" behind it for each UTF-16 unit outside ASCII. Reads right under
// \uc1.
QByteArray RtfOfText(QStringView text);

} // namespace paneda
