#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace paneda {

// The lines of a sharp label, which is one of 6 or 7 points: letters that small cannot be read when they are
// smoothed, so they are printed line by line. (Larger labels and titles are broken in smooth_label.h.)
// Breaks at blanks, into `maxLines` lines at most. A word joins its line while the line stays narrower than
// `maxWidth` pixels. The last line takes all words that are left and may thus be wider. `measure` gives the
// width of a text in pixels. An empty text is one empty line.
QStringList WrapLabel(const QString& text, double maxWidth, int maxLines,
                      const std::function<double(const QString&)>& measure);

} // namespace paneda
