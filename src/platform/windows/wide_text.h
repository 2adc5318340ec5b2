#pragma once

#include <QString>

namespace paneda {

// A text as the system's wide calls take it; valid as long as `text` is there and unchanged.
inline const wchar_t* Wide(const QString& text) {
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

} // namespace paneda
