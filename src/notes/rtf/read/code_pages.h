#pragma once

#include "core/text/code_page_decoder.h"

namespace paneda {

inline constexpr int kRtfAnsiCodePage = 1252;
// Texts of symbol fonts: a byte is the character of the private area that Windows gives it.
inline constexpr int kRtfSymbolCodePage = 42;

// Code page of a font's \fcharset; `fallback` for the numbers that mean "the note's own".
int CodePageOfCharset(int charset, int fallback);

// What bytes of a note mean.
struct RtfEncoding {
    int CodePage = kRtfAnsiCodePage;
    // Asked about code pages that have no table here; may be null.
    const CodePageDecoder* System = nullptr;
};

// Text of bytes in a Windows or DOS code page. Nothing when neither the tables here nor the system nor Qt
// knows the code page, or when the bytes are no text in it.
std::optional<QString> DecodeBytes(QByteArrayView bytes, const RtfEncoding& encoding);

} // namespace paneda
