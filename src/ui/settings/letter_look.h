#pragma once

#include <QFont>
#include <QPalette>

namespace paneda {

// The role of the paper in PaperPalette. None of the letter's controls paints with it, so that boxes and
// lines keep the contrast that the desktop's style gives them.
inline constexpr QPalette::ColorRole kPaperRole = QPalette::AlternateBase;

// The colours of a letter on this desktop: warm white paper among light windows, and among dark ones a paper
// that is a little lighter than they are.
QPalette PaperPalette(const QPalette& desktop);

// A font for the words of a letter, `scale` times the size of the given one.
QFont LetterFont(const QFont& desktop, double scale);

} // namespace paneda
