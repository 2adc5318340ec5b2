#pragma once

#include "core/text/code_page_decoder.h"

namespace paneda {

// The system's own conversion of text in code pages. Empty where Qt can do it all, which is so on Linux.
CodePageDecoder SystemCodePages();

} // namespace paneda
