#include "ui/common/dtVisualScrollBar.h"

#include "ui/common/scroll_track.h"

#include <QLocale>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <limits>
#include <utility>

namespace paneda {

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kMostChange = 32767;
constexpr int kUsualBreadth = 16; // pixels, without pictures
constexpr int kCap = 4;           // pixels at both ends of a thumb that are not stretched
constexpr double kDisabledOpacity = 0.45;

bool IsTooWide(int min, int max) {
    return qint64(max) - min > kMost;
}

QString WidthProblem() {
    return QStringLiteral("Invalid property value. Difference between Min and Max values cannot exceed ") +
           QLocale(QLocale::English, QLocale::UnitedStates).toString(kMost);
}

// The part of a picture between two places along it, both from 0 for its beginning to 1 for its end.
QRectF Slice(const QRectF& whole, bool vertical, double from, double to) {
    return vertical ? QRectF(whole.x(), whole.y() + from * whole.height(), whole.width(),
                             (to - from) * whole.height())
                    : QRectF(whole.x() + from * whole.width(), whole.y(), (to - from) * whole.width(),
                             whole.height());
}

} // namespace

dtVisualScrollBar::dtVisualScrollBar(QWidget* parent) : QAbstractSlider(parent) {
    ShowError = [this](const QString& text) { QMessageBox::critical(this, QStringLiteral("Error"), text); };
    setOrientation(Qt::Vertical);
    // As everywhere: the wheel turned down and the keys Down and Page Down lead to higher values.
    setInvertedControls(true);
    setFocusPolicy(Qt::StrongFocus);
    setRange(0, kMost);
    setSingleStep(1);
    setPageStep(10);
    connect(this, &QAbstractSlider::valueChanged, this, &dtVisualScrollBar::Change);
}

void dtVisualScrollBar::SetMax(int value) {
    if (value <= Min())
        ShowError(QStringLiteral("Invalid property value. Max property must be larger than Min property."));
    else if (IsTooWide(Min(), value))
        ShowError(WidthProblem());
    else
        setMaximum(value);
}

void dtVisualScrollBar::SetMin(int value) {
    if (IsTooWide(value, Max()))
        ShowError(WidthProblem());
    else
        setMinimum(value);
}

void dtVisualScrollBar::SetSmallChange(int value) {
    if (value < 1 || value > kMostChange)
        ShowError(QStringLiteral("Invalid property value"));
    else
        setSingleStep(value);
}

void dtVisualScrollBar::SetLargeChange(int value) {
    if (value < 1 || value > kMostChange)
        ShowError(QStringLiteral("Invalid property value"));
    else
        setPageStep(value);
}

void dtVisualScrollBar::SetValue(int value) {
    const int before = Value();
    setValue(value);
    if (Value() == before)
        Q_EMIT Change();
}

void dtVisualScrollBar::StepBy(int change) {
    SetValue(int(std::clamp<qint64>(qint64(Value()) + change, Min(), Max())));
}

void dtVisualScrollBar::SetButtonsVisible(bool on) {
    buttonsVisible_ = on;
    update();
}

void dtVisualScrollBar::SetOrientation(int orientation) {
    setOrientation(orientation == kVertical ? Qt::Vertical : Qt::Horizontal);
    PictureHasChanged();
}

void dtVisualScrollBar::SetThumbAlignment(Alignment alignment) {
    thumbAlignment_ = alignment;
    update();
}

void dtVisualScrollBar::SetBackColor(const QColor& color) {
    backColor_ = color;
    update();
}

void dtVisualScrollBar::SetAutoSize(bool on) {
    autoSize_ = on;
    PictureHasChanged();
}

void dtVisualScrollBar::SetPictures(ScrollBarPictures pictures) {
    pictures_ = std::move(pictures);
    PictureHasChanged();
}

void dtVisualScrollBar::PictureHasChanged() {
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    if (autoSize_ && IsVertical())
        setFixedWidth(sizeHint().width());
    else if (autoSize_)
        setFixedHeight(sizeHint().height());
    updateGeometry();
    update();
}

QSize dtVisualScrollBar::sizeHint() const {
    const QSize picture = SizeOf(pictures_.Background);
    const int breadth = picture.isEmpty() ? kUsualBreadth : picture.width();
    constexpr int kUsualLength = 100;
    return IsVertical() ? QSize(breadth, kUsualLength) : QSize(kUsualLength, breadth);
}

QSize dtVisualScrollBar::minimumSizeHint() const {
    const QSize usual = sizeHint();
    constexpr int kArrowsAndThumb = 3;
    const int breadth = IsVertical() ? usual.width() : usual.height();
    return IsVertical() ? QSize(breadth, kArrowsAndThumb * breadth)
                        : QSize(kArrowsAndThumb * breadth, breadth);
}

int dtVisualScrollBar::ArrowLength() const {
    if (!buttonsVisible_)
        return 0;
    const QSize picture = SizeOf(IsVertical() ? pictures_.Up : pictures_.Left);
    const int own = IsVertical() ? picture.height() : picture.width();
    return std::min(picture.isEmpty() ? Breadth() : own, Length() / 2);
}

int dtVisualScrollBar::ThumbSide() const {
    const QSize picture = SizeOf(pictures_.Thumb);
    const int shortest = picture.isEmpty() ? kUsualBreadth : std::max(picture.width(), picture.height());
    return ThumbLength(Length() - 2 * ArrowLength(), shortest, LargeChange(), Min(), Max());
}

QRect dtVisualScrollBar::Part(int place, int length) const {
    return IsVertical() ? QRect(0, place, width(), length) : QRect(place, 0, length, height());
}

QRect dtVisualScrollBar::FirstArrow() const {
    return Part(0, ArrowLength());
}

QRect dtVisualScrollBar::LastArrow() const {
    return Part(Length() - ArrowLength(), ArrowLength());
}

QRect dtVisualScrollBar::Thumb() const {
    const int side = ThumbSide();
    return Part(ScrollTrack::Of(Length(), ArrowLength(), side, Min(), Max()).PlaceOf(Value()), side);
}

void dtVisualScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    const QPoint point = event->position().toPoint();
    const QRect thumb = Thumb();
    if (thumb.contains(point)) {
        dragging_ = true;
        grip_ = Along(point) - Along(thumb.topLeft());
        setSliderDown(true);
    } else if (FirstArrow().contains(point)) {
        StepBy(-SmallChange());
    } else if (LastArrow().contains(point)) {
        StepBy(SmallChange());
    } else {
        StepBy(Along(point) < Along(thumb.topLeft()) ? -LargeChange() : LargeChange());
    }
}

void dtVisualScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_)
        return;
    const ScrollTrack track = ScrollTrack::Of(Length(), ArrowLength(), ThumbSide(), Min(), Max());
    const int place = Along(event->position().toPoint()) - grip_;
    // Several values share a place; without a movement the thumb keeps its own.
    if (place != track.PlaceOf(Value()))
        SetValue(track.ValueAt(place));
}

void dtVisualScrollBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    dragging_ = false;
    setSliderDown(false);
}

void dtVisualScrollBar::sliderChange(SliderChange change) {
    QAbstractSlider::sliderChange(change);
    update();
}

void dtVisualScrollBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), backColor_);
    DrawPicture(painter, rect(), pictures_.Background);
    if (isEnabled())
        DrawThumb(painter);
    else
        painter.setOpacity(kDisabledOpacity);
    if (buttonsVisible_) {
        DrawPicture(painter, FirstArrow(), IsVertical() ? pictures_.Up : pictures_.Left);
        DrawPicture(painter, LastArrow(), IsVertical() ? pictures_.Down : pictures_.Right);
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void dtVisualScrollBar::DrawPicture(QPainter& painter, const QRect& target,
                                    const ScrollPicture& picture) const {
    const QPixmap pixmap = ForRatio(picture, devicePixelRatioF());
    if (!pixmap.isNull() && !target.isEmpty())
        painter.drawPixmap(target, pixmap);
}

void dtVisualScrollBar::DrawThumb(QPainter& painter) const {
    const QSize size = SizeOf(pictures_.Thumb);
    QPixmap pixmap = ForRatio(pictures_.Thumb, devicePixelRatioF());
    QRectF target = Thumb();
    if (pixmap.isNull() || target.isEmpty())
        return;
    const bool vertical = IsVertical();
    if (!vertical && size.height() > size.width())
        pixmap = pixmap.transformed(QTransform().rotate(-90));
    const int own = std::min(size.width(), size.height());
    if (own < Breadth()) {
        const int free = Breadth() - own;
        const int before = thumbAlignment_ == Alignment::Begin ? 0
                           : thumbAlignment_ == Alignment::End ? free
                                                               : free / 2;
        target = vertical ? QRectF(before, target.y(), own, target.height())
                          : QRectF(target.x(), before, target.width(), own);
    }
    const QRectF source(QPointF(), QSizeF(pixmap.size()));
    const double length = vertical ? target.height() : target.width();
    const double natural = std::max(size.width(), size.height());
    const double capOfTarget = std::min(kCap / length, 0.5);
    const double capOfSource = std::min(kCap / natural, 0.5);
    const auto draw = [&](double from, double to, double sourceFrom, double sourceTo) {
        painter.drawPixmap(Slice(target, vertical, from, to), pixmap,
                           Slice(source, vertical, sourceFrom, sourceTo));
    };
    draw(0, capOfTarget, 0, capOfSource);
    draw(capOfTarget, 1 - capOfTarget, capOfSource, 1 - capOfSource);
    draw(1 - capOfTarget, 1, 1 - capOfSource, 1);
}

} // namespace paneda
