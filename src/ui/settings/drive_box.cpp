#include "ui/settings/drive_box.h"

#include "core/text/twips.h"

#include <QPainter>

#include <algorithm>

namespace paneda {

namespace {

constexpr QRgb kChosen = qRgb(0x80, 0xFF, 0x80);
constexpr QRgb kNotChosen = qRgb(0xFF, 0xFF, 0xFF);
constexpr QRgb kBorder = qRgb(0x8C, 0x8C, 0x8C);
// Grey letters tell the boxes apart for those who see no green.
constexpr QRgb kChosenText = qRgb(0x00, 0x00, 0x00);
constexpr QRgb kNotChosenText = qRgb(0x6A, 0x6A, 0x6A);
constexpr int kWidth = TwipsToPixels(270);

} // namespace

DriveBox::DriveBox(const QString& text, QWidget* parent) : QAbstractButton(parent) {
    setText(text);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DriveBox::sizeHint() const {
    // The design's width; a large font makes the box grow with its letter.
    const QFontMetrics metrics = fontMetrics();
    return {std::max(kWidth, metrics.horizontalAdvance(u'W') + 5), metrics.height() + 6};
}

QColor DriveBox::BackColour() const {
    return QColor(isChecked() ? kChosen : kNotChosen);
}

void DriveBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), BackColour());
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight) : QColor(kBorder));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (hasFocus())
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    painter.setPen(QColor(isChecked() ? kChosenText : kNotChosenText));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace paneda
