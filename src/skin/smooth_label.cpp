#include "skin/smooth_label.h"

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

SmoothLabel::SmoothLabel(const QString& text, const QRect& box, const LabelStyle& style)
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

void SmoothLabel::BreakLines(double width) {
    layout_.beginLayout();
    double height = 0;
    while (true) {
        QTextLine line = layout_.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width); // before this it has no height
        const double lineHeight = std::ceil(line.height());
        if (IsLastLine(height, lineHeight))
            line.setLineWidth(kUnlimited);
        line.setPosition({0, height});
        height += lineHeight;
    }
    layout_.endLayout();
}

// A line below it would show its upper part only.
bool SmoothLabel::IsLastLine(double height, double lineHeight) const {
    return style_.OneLine || (!style_.KeepVertical && height + 2 * lineHeight > box_.height());
}

// Hinting rounds the widths of letters, so that one step may fall short of the wanted width.
void SmoothLabel::ShrinkTo(double width) {
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

double SmoothLabel::SideRoom() const {
    return style_.Font.EmSize / 6;
}

void SmoothLabel::PlaceLines() {
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
        // Of a line that is too wide the beginning says most.
        line.setPosition({box_.left() + std::round(std::max(left, SideRoom())), top});
        top += std::ceil(line.height());
    }
}

void SmoothLabel::Draw(QPainter& painter, const QPoint& offset) const {
    if (layout_.lineCount() > 0)
        layout_.draw(&painter, offset);
}

bool SmoothLabel::IsCut() const {
    double height = 0;
    for (int i = 0; i < layout_.lineCount(); ++i) {
        const QTextLine line = layout_.lineAt(i);
        height += std::ceil(line.height());
        if (line.naturalTextWidth() > box_.width() - SideRoom())
            return true;
    }
    return height > Clip().height() || (layout_.lineCount() == 0 && !layout_.text().isEmpty());
}

QRect SmoothLabel::Clip() const {
    QRect clip = box_;
    if (style_.KeepVertical) {
        clip.setTop(box_.top() - box_.height() - int(style_.Font.EmSize) * 2);
        clip.setBottom(box_.bottom() + box_.height() + int(style_.Font.EmSize) * 2);
    }
    return clip;
}

} // namespace paneda
