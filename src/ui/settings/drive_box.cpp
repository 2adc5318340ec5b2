#include "ui/settings/drive_box.h"

#include "core/text/twips.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace paneda {

namespace {

constexpr QRgb kChosen = qRgb(0x80, 0xFF, 0x80);
constexpr QRgb kNotChosen = qRgb(0xFF, 0xFF, 0xFF);
constexpr QRgb kBorder = qRgb(0x8C, 0x8C, 0x8C);
// The letters differ too, for users who do not see the green.
constexpr QRgb kChosenText = qRgb(0x00, 0x00, 0x00);
constexpr QRgb kNotChosenText = qRgb(0x6A, 0x6A, 0x6A);
constexpr int kWidth = TwipsToPixels(270);

} // namespace

DriveBox::DriveBox(const QString& text, bool tabStop, QWidget* parent) : QAbstractButton(parent) {
    setText(text);
    setCheckable(true);
    setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DriveBox::sizeHint() const {
    // kWidth, or more where a large font needs it.
    const QFontMetrics metrics = fontMetrics();
    return {std::max(kWidth, metrics.horizontalAdvance(u'W') + 5), metrics.height() + 6};
}

QColor DriveBox::BackColour() const {
    return QColor(isChecked() ? kChosen : kNotChosen);
}

void DriveBox::keyPressEvent(QKeyEvent* event) {
    const QList<QAbstractButton*> boxes = group() ? group()->buttons() : QList<QAbstractButton*>{this};
    qsizetype to = boxes.indexOf(this);
    if (event->key() == Qt::Key_Left)
        --to;
    else if (event->key() == Qt::Key_Right)
        ++to;
    else if (event->key() == Qt::Key_Home)
        to = 0;
    else if (event->key() == Qt::Key_End)
        to = boxes.size() - 1;
    else
        return QAbstractButton::keyPressEvent(event);
    // Qt makes the box with the focus the one that Tab stops at.
    boxes[std::clamp<qsizetype>(to, 0, boxes.size() - 1)]->setFocus(Qt::OtherFocusReason);
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
