#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace paneda {

// Breaks a label at its blanks. A word joins its line while the line stays narrower than `maxWidth` pixels,
// and in the last line that `maxLines` allows whatever its width; that one may thus overflow. A second line
// is not opened when maxLines is 2 or less, a third one not when it is 3, and so on. `measure` gives the
// width of a text in pixels. An empty text is one empty line.
QStringList WrapLabel(const QString& text, double maxWidth, int maxLines,
                      const std::function<double(const QString&)>& measure);

} // namespace paneda
