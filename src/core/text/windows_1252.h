#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace paneda {

// The single-byte encoding of western Windows texts. All 256 bytes have a character (the five that the code
// page leaves open stand for the control characters of the same number), so decoding and encoding lose
// nothing.
QString DecodeWindows1252(QByteArrayView bytes);

// No value if the text holds a character that the code page lacks.
std::optional<QByteArray> EncodeWindows1252(QStringView text);

} // namespace paneda
