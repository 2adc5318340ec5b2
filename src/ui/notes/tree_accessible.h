#pragma once

namespace paneda {

class ucTree;

// Makes trees readable for screen readers, row by row. Call it once before the first tree is made.
void RegisterTreeAccessibility();

// Tells a screen reader that this row, by its position, has the focus.
void AnnounceTreeRow(ucTree& tree, int position);

} // namespace paneda
