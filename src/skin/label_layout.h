#pragma once

#include "skin/alignment.h"
#include "skin/colour.h"
#include "skin/text_font.h"

#include <QPainter>
#include <QRect>
#include <QString>
#include <QTextLayout>

namespace paneda {

// How DrawLabel writes a text.
struct LabelStyle {
    TextFont Font;
    Argb Color = 0xFF000000;
    Column AtColumn = Column::Left;
    Row AtRow = Row::Top;
    bool Border = false; // an outline of one pixel
    Argb BorderColor = 0xFF000000;
    bool KeepVertical = false; // the box's height places the text but does not cut it
    bool ShrinkToFit = false;  // one line, written smaller when it is too wide; never larger
};

// A text broken into lines and placed in a box. All measures are pixels. A sixth of the em size stays free at
// the left and right of the box. Lines that the box has no height for are left out, except the first.
class LabelLayout {
public:
    // A box of no width holds nothing.
    LabelLayout(const QString& text, const QRect& box, const LabelStyle& style);

    // Draws in the painter's pen colour, moved by an offset.
    void Draw(QPainter& painter, const QPoint& offset) const;

    // What the text must not leave.
    QRect Clip() const;

private:
    void BreakLines(double width);
    void ShrinkTo(double width);
    double SideRoom() const;
    void PlaceLines();

    QRect box_;
    LabelStyle style_;
    QTextLayout layout_;
};

} // namespace paneda
