#pragma once

#include <array>

namespace paneda {

// Characters of the bytes 0x80 to 0xFF.
using RtfHighHalf = std::array<char16_t, 128>;

// The upper half of a single-byte code page whose lower half is ASCII (1250 to 1258 without 1252, 874, 437,
// 850, and 10000 for the Macintosh); nullptr for any other.
const RtfHighHalf* FindCodePageTable(int codePage);

} // namespace paneda
