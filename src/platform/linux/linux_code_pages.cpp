#include "platform/code_pages.h"

namespace paneda {

CodePageDecoder SystemCodePages() {
    return {};
}

} // namespace paneda
