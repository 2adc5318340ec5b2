#pragma once

#include "core/text/code_page_decoder.h"

#include <array>

namespace paneda {

inline constexpr int kRtfAnsiCodePage = 1252;
// Not a real code page: text in symbol fonts, where byte n is the character U+F000 + n, as on Windows.
inline constexpr int kRtfSymbolCodePage = 42;

// Code page of a font's \fcharset; `fallback` for the numbers that mean "the note's own".
int CodePageOfCharset(int charset, int fallback);

// How the bytes of a note are decoded.
struct RtfEncoding {
    int CodePage = kRtfAnsiCodePage;
    // Asked about code pages for which this program has no table; null or empty for none.
    const CodePageDecoder* System = nullptr;
};

// Text of bytes in a Windows or DOS code page. Nothing when neither the tables here nor the system nor Qt
// knows the code page, or when the bytes are no text in it.
std::optional<QString> DecodeBytes(QByteArrayView bytes, const RtfEncoding& encoding);

// Characters of the bytes 0x80 to 0xFF.
using RtfHighHalf = std::array<char16_t, 128>;

// The upper half of a single-byte code page whose lower half is ASCII (1250 to 1258 without 1252, 874, 437,
// 850, and 10000 for the Macintosh); nullptr for any other.
const RtfHighHalf* FindCodePageTable(int codePage);

} // namespace paneda
