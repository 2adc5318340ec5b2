#pragma once

#include <QString>

namespace paneda {

// A text as an argument of the system's wide functions; valid while `text` exists unchanged.
inline const wchar_t* Wide(const QString& text) {
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

} // namespace paneda
