#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace paneda {

inline constexpr int kRtfAnsiCodePage = 1252;
// Texts of symbol fonts: a byte is the character of the private area that Windows gives it.
inline constexpr int kRtfSymbolCodePage = 42;

// Code page of a font's \fcharset; `fallback` for the numbers that mean "the note's own".
int CodePageOfCharset(int charset, int fallback);

// Text of bytes in a Windows or DOS code page. Nothing when this system cannot tell: the code page is
// unknown, or it is an East Asian one and Qt was built without tables for it.
std::optional<QString> DecodeCodePage(QByteArrayView bytes, int codePage);

} // namespace paneda
