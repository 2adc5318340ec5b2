#include "platform/code_pages.h"

#include <windows.h>

#include <limits>

namespace paneda {

namespace {

std::optional<QString> Decode(QByteArrayView bytes, int codePage) {
    if (bytes.isEmpty())
        return QString();
    if (bytes.size() > std::numeric_limits<int>::max())
        return std::nullopt;
    const auto convert = [&](wchar_t* text, int size) {
        return MultiByteToWideChar(UINT(codePage), MB_ERR_INVALID_CHARS, bytes.data(), int(bytes.size()),
                                   text, size);
    };
    const int size = convert(nullptr, 0);
    if (size <= 0)
        return std::nullopt;
    QString text(size, Qt::Uninitialized);
    if (convert(reinterpret_cast<wchar_t*>(text.data()), size) != size)
        return std::nullopt;
    return text;
}

} // namespace

CodePageDecoder SystemCodePages() {
    return Decode;
}

} // namespace paneda
