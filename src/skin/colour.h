#pragma once

#include <QString>
#include <QStringView>
#include <QtGlobal>

#include <array>

namespace paneda {

// The three forms of a colour. A skin's text RRGGBB is kept as QString; a ColorRef has red in its low byte,
// then green, then blue, and 0 above; an Argb has alpha in its high byte, then red, green, blue.
using ColorRef = quint32;
using Argb = quint32;

// The colour of a text RRGGBB. Red is its first two characters, green the third and fourth, blue the last
// two, so a short text is read overlapping; a pair that is not hexadecimal counts as 0. Empty is black.
ColorRef HexToColor(QStringView text);

// Six capital hexadecimal digits RRGGBB.
QString ColorToHex(ColorRef color);

// Each part is limited to 0 to 255.
Argb MakeArgb(int alpha, int red, int green, int blue);

Argb ColorToArgb(ColorRef color, int alpha);

// Red, green, blue.
std::array<int, 3> SplitArgb(Argb argb);

// The opaque colour of a text RRGGBB, as brushes take it; read by HexToColor.
Argb HexToArgb(QStringView text);

} // namespace paneda
