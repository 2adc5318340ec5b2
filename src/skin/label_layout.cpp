#include "skin/label_layout.h"

#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace paneda {

namespace {

// No label is longer, and laying out more would only take time.
constexpr int kMaxLabelLength = 1024;
constexpr double kUnlimited = 1e6;
constexpr int kShrinkRounds = 3;

// File names may hold line breaks and other controls; a label shows them as blanks.
QString WithoutControls(QString text) {
    text.truncate(kMaxLabelLength);
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return text;
}

} // namespace

LabelLayout::LabelLayout(const QString& text, const QRect& box, const LabelStyle& style)
    : box_(box), style_(style) {
    if (box.width() <= 0 || text.isEmpty())
        return;
    layout_.setText(WithoutControls(text));
    layout_.setFont(MakeFont(style_.Font));
    layout_.setCacheEnabled(true);
    QTextOption option;
    option.setWrapMode(style.ShrinkToFit ? QTextOption::NoWrap : QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    if (style.ShrinkToFit)
        ShrinkTo(box.width());
    else
        BreakLines(std::max(box.width() - 2 * SideRoom(), 1.0));
    PlaceLines();
}

void LabelLayout::BreakLines(double width) {
    layout_.beginLayout();
    double height = 0;
    while (true) {
        QTextLine line = layout_.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += std::ceil(line.height());
        // The line that is left out would have shown its upper part only.
        if (!style_.KeepVertical && height + std::ceil(line.height()) > box_.height())
            break;
    }
    layout_.endLayout();
}

// Hinting rounds the widths of letters, so that one step may fall short of the wanted width.
void LabelLayout::ShrinkTo(double width) {
    for (int round = 0; round < kShrinkRounds; ++round) {
        BreakLines(kUnlimited);
        const double measured = layout_.lineAt(0).naturalTextWidth() + 2 * SideRoom();
        if (measured <= width || style_.Font.EmSize <= 1)
            return;
        style_.Font.EmSize = std::max(style_.Font.EmSize * width / measured, 1.0);
        layout_.setFont(MakeFont(style_.Font));
    }
    BreakLines(kUnlimited);
}

double LabelLayout::SideRoom() const {
    return style_.Font.EmSize / 6;
}

void LabelLayout::PlaceLines() {
    double total = 0;
    for (int i = 0; i < layout_.lineCount(); ++i)
        total += std::ceil(layout_.lineAt(i).height());
    double top = box_.top();
    if (style_.AtRow == Row::Centre)
        top += std::floor((box_.height() - total) / 2);
    else if (style_.AtRow == Row::Bottom)
        top += box_.height() - total;
    for (int i = 0; i < layout_.lineCount(); ++i) {
        QTextLine line = layout_.lineAt(i);
        const double spare = box_.width() - line.naturalTextWidth();
        double left = SideRoom();
        if (style_.AtColumn == Column::Centre)
            left = spare / 2;
        else if (style_.AtColumn == Column::Right)
            left = spare - SideRoom();
        line.setPosition({box_.left() + std::round(left), top});
        top += std::ceil(line.height());
    }
}

void LabelLayout::Draw(QPainter& painter, const QPoint& offset) const {
    if (layout_.lineCount() > 0)
        layout_.draw(&painter, offset);
}

QRect LabelLayout::Clip() const {
    QRect clip = box_;
    if (style_.KeepVertical) {
        clip.setTop(box_.top() - box_.height() - int(style_.Font.EmSize) * 2);
        clip.setBottom(box_.bottom() + box_.height() + int(style_.Font.EmSize) * 2);
    }
    return clip;
}

} // namespace paneda
