#include "ui/organiser/path_label.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace paneda {

namespace {

constexpr int kMargin = 3; // pixels around the text
constexpr int kUsualWidth = 320;
constexpr int kSmallestWidth = 60;

} // namespace

PathLabel::PathLabel(QWidget* parent) : QAbstractButton(parent) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void PathLabel::ShowPath(const QString& path) {
    setText(path);
    setToolTip(path);
    setAccessibleDescription(path);
    setEnabled(!path.isEmpty());
    update();
}

QSize PathLabel::sizeHint() const {
    return {kUsualWidth, fontMetrics().height() + 2 * kMargin};
}

QSize PathLabel::minimumSizeHint() const {
    return {kSmallestWidth, sizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect room = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter.setPen(palette().color(group, isEnabled() ? QPalette::Link : QPalette::WindowText));
    QFont lined = font();
    lined.setUnderline(isEnabled() && underMouse());
    painter.setFont(lined);
    // A path reads from left to right in every language.
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

bool PathLabel::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

} // namespace paneda
