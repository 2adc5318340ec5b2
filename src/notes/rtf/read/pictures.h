#pragma once

#include <QByteArrayView>
#include <QTextImageFormat>

namespace paneda {

// Reads the inside of a {\pict ...} group: the picture's bytes, kind, words and shown size, and a name that
// tells it from others.
QTextImageFormat ReadRtfPicture(QByteArrayView source);

} // namespace paneda
