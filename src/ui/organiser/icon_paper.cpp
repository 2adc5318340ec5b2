#include "ui/organiser/icon_paper.h"

#include "core/store/names.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <optional>
#include <utility>

namespace paneda {

namespace {

constexpr int kSheetColumns = 520; // pixels of width that the dialog asks for
constexpr int kHalo = 3;           // pixels around thumbnail and caption that belong to them
constexpr int kDarkBelow = 140;    // lightness, 0 to 255, of a ground with white captions

std::optional<SheetMove> MoveOfKey(int key) {
    switch (key) {
    case Qt::Key_Left:
        return SheetMove::Left;
    case Qt::Key_Right:
        return SheetMove::Right;
    case Qt::Key_Up:
        return SheetMove::Up;
    case Qt::Key_Down:
        return SheetMove::Down;
    case Qt::Key_Home:
        return SheetMove::First;
    case Qt::Key_End:
        return SheetMove::Last;
    case Qt::Key_PageUp:
        return SheetMove::PageUp;
    case Qt::Key_PageDown:
        return SheetMove::PageDown;
    default:
        return std::nullopt;
    }
}

} // namespace

IconPaper::IconPaper(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picPaper"));
    setAccessibleName(QStringLiteral("Icons"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumWidth(kSheetColumns / 2);
    setFixedHeight(TwipsToPixels(kSheetHeight));
}

QSize IconPaper::sizeHint() const {
    return {kSheetColumns, TwipsToPixels(kSheetHeight)};
}

void IconPaper::SetFiles(const QStringList& files) {
    files_ = files;
    pictures_.assign(std::size_t(files.size()), {});
    top_ = 0;
    current_ = hovered_ = pressed_ = -1;
    LayOut();
}

void IconPaper::LayOut() {
    const QFontMetrics metrics(font());
    sheet_ = LayOutIcons(files_, PixelsToTwips(width()), [&metrics](const QString& caption) {
        return PixelsToTwips(metrics.horizontalAdvance(caption));
    });
    update();
    Q_EMIT LaidOut();
}

void IconPaper::SetPicture(int index, const QImage& picture) {
    pictures_[std::size_t(index)] = picture;
    update(PlaceOf(index));
}

void IconPaper::SetColor(const QColor& color) {
    color_ = color;
    update();
}

void IconPaper::SetTop(int top) {
    top_ = top;
    update();
}

bool IconPaper::CanPick(int index) const {
    return index >= 0 && IsIconFile(files_[index]);
}

QRect IconPaper::PlaceOf(int index) const {
    const QRect icon = ToPixels(sheet_.Icons[std::size_t(index)]);
    const QRect label = ToPixels(sheet_.Labels[std::size_t(index)]);
    return icon.united(label).adjusted(-kHalo, -kHalo, kHalo, kHalo).translated(0, -TwipsToPixels(top_));
}

int IconPaper::IndexAt(const QPoint& point) const {
    for (int i = 0; i < int(sheet_.Icons.size()); ++i) {
        if (PlaceOf(i).contains(point))
            return i;
    }
    return -1;
}

void IconPaper::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), color_);
    for (int i = 0; i < int(sheet_.Icons.size()); ++i) {
        if (PlaceOf(i).intersects(event->rect()))
            DrawIcon(painter, i);
    }
}

void IconPaper::DrawIcon(QPainter& painter, int index) const {
    const QColor ink = color_.lightness() < kDarkBelow ? Qt::white : Qt::black;
    const QRect place = PlaceOf(index);
    if (index == hovered_ && CanPick(index)) {
        QColor veil = ink;
        veil.setAlphaF(0.15F);
        painter.fillRect(place, veil);
    }
    if (index == current_ && hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(place.adjusted(0, 0, -1, -1));
    }
    const int shift = -TwipsToPixels(top_);
    const QImage& picture = pictures_[std::size_t(index)];
    if (!picture.isNull()) {
        const QRect box = ToPixels(sheet_.Icons[std::size_t(index)]).translated(0, shift);
        QRectF target({}, QSizeF(picture.size()).scaled(box.size(), Qt::KeepAspectRatio));
        target.moveCenter(QRectF(box).center());
        painter.drawImage(target, picture);
    }
    const QRect label = ToPixels(sheet_.Labels[std::size_t(index)]).translated(0, shift);
    QColor caption = ink;
    caption.setAlphaF(CanPick(index) ? 1.0F : 0.5F);
    painter.setPen(caption);
    // Room for what a letter may reach beyond its width.
    painter.drawText(
        label.adjusted(0, -kHalo, 1, kHalo), Qt::AlignVCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(WithoutExtension(files_[index]), Qt::ElideRight, label.width() + 1));
}

void IconPaper::resizeEvent(QResizeEvent*) {
    LayOut();
}

void IconPaper::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        Q_EMIT ColorAsked();
    } else if (event->button() == Qt::LeftButton) {
        pressed_ = IndexAt(event->position().toPoint());
        if (pressed_ >= 0)
            MakeCurrent(pressed_);
    }
}

void IconPaper::mouseMoveEvent(QMouseEvent* event) {
    SetHovered(IndexAt(event->position().toPoint()));
}

void IconPaper::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const int index = std::exchange(pressed_, -1);
    if (CanPick(index) && index == IndexAt(event->position().toPoint()))
        Q_EMIT Picked(index);
}

void IconPaper::leaveEvent(QEvent*) {
    SetHovered(-1);
}

void IconPaper::SetHovered(int index) {
    if (index == hovered_)
        return;
    hovered_ = index;
    setCursor(CanPick(index) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void IconPaper::keyPressEvent(QKeyEvent* event) {
    const auto move = MoveOfKey(event->key());
    const bool picks =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (move)
        MakeCurrent(MoveOnSheet(sheet_, current_, *move));
    else if (picks && CanPick(current_))
        Q_EMIT Picked(current_);
    else if (event->key() == Qt::Key_Menu)
        Q_EMIT ColorAsked();
    else
        QWidget::keyPressEvent(event);
}

void IconPaper::MakeCurrent(int index) {
    if (index < 0)
        return;
    current_ = index;
    const TwipsRect& icon = sheet_.Icons[std::size_t(index)];
    // A row's step leaves room above and below.
    const int lowest = icon.Top + kIconRowHeight - kSheetHeight;
    const int highest = std::max(0, icon.Top - (kIconRowHeight - kIconSide));
    if (top_ < lowest || top_ > highest)
        Q_EMIT TopWanted(std::clamp(top_, std::max(0, lowest), std::max(highest, lowest)));
    setAccessibleDescription(QStringLiteral("%1, %2 of %3")
                                 .arg(WithoutExtension(files_[index]))
                                 .arg(index + 1)
                                 .arg(files_.size()));
    update();
}

bool IconPaper::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int index = IndexAt(help->pos());
        QToolTip::showText(help->globalPos(), index < 0 ? QString() : files_[index], this);
        return true;
    }
    if (event->type() == QEvent::FocusIn && current_ < 0 && !files_.isEmpty())
        MakeCurrent(0);
    return QWidget::event(event);
}

} // namespace paneda
