#pragma once

#include <QFont>
#include <QPalette>

namespace paneda {

// The colour role in PaperPalette that holds the colour of the paper. No control of the settings dialog
// paints with this role, so that boxes and lines keep the contrast that the desktop's style gives them.
inline constexpr QPalette::ColorRole kPaperRole = QPalette::AlternateBase;

// The colours of the settings dialog, which looks like a sheet of paper: warm white on a light desktop, and a
// little lighter than the windows on a dark one.
QPalette PaperPalette(const QPalette& desktop);

// The desktop's font, with its size multiplied by `scale`.
QFont PaperFont(const QFont& desktop, double scale);

} // namespace paneda
