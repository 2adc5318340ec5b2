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
    bool OneLine = false;      // no line break; a text that is too wide runs on
};

// A text with smoothed letters, broken into lines and placed in a box: titles, and button labels of 8 and 9
// points. (Smaller labels are printed sharp, see sharp_label.h.) All measures are pixels. A sixth of the em
// size stays free at the left and right of the box. There are as many whole lines as the box has height for,
// at least one; the last one takes the rest of the text and runs on to the edge of the box, where it is cut.
class SmoothLabel {
public:
    // A box of no width holds nothing.
    SmoothLabel(const QString& text, const QRect& box, const LabelStyle& style);

    // Draws in the painter's pen colour, moved by an offset.
    void Draw(QPainter& painter, const QPoint& offset) const;

    // What the text must not leave.
    QRect Clip() const;

    // Whether a part of the text lies outside of the box.
    bool IsCut() const;

private:
    void BreakLines(double width);
    bool IsLastLine(double height, double lineHeight) const;
    void ShrinkTo(double width);
    double SideRoom() const;
    void PlaceLines();

    QRect box_;
    LabelStyle style_;
    QTextLayout layout_;
};

} // namespace paneda
