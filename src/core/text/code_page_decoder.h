#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <optional>

namespace paneda {

// Text of bytes in a Windows code page (932, 936, 949, 950, ...) as the system converts it. Nothing when the
// system does not know the code page, or when the bytes are no text in it. May be called on any thread.
using CodePageDecoder = std::function<std::optional<QString>(QByteArrayView bytes, int codePage)>;

} // namespace paneda
