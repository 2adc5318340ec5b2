#pragma once

#include "ui/common/scroll_pictures.h"

#include <QAbstractSlider>
#include <QColor>

#include <functional>

namespace paneda {

// A scroll bar that is drawn from pictures, to go with a skin. It is moved by its thumb, its arrows, the room
// before and behind the thumb, the wheel and the keys. Its thumb is as long as LargeChange is in proportion
// to the whole range, and never shorter than its picture.
class dtVisualScrollBar : public QAbstractSlider {
    Q_OBJECT

public:
    static constexpr int kHorizontal = 0;
    static constexpr int kVertical = 1;

    // Where a thumb lies that is narrower than the bar.
    enum class Alignment { Middle, Begin, End };

    explicit dtVisualScrollBar(QWidget* parent = nullptr);

    // Values that are refused leave the old one and are shown to the user by ShowError.
    int Max() const { return maximum(); }
    void SetMax(int value); // must be above Min, by at most 2147483647
    int Min() const { return minimum(); }
    void SetMin(int value); // at most 2147483647 below Max; one above Max lifts that
    int SmallChange() const { return singleStep(); }
    void SetSmallChange(int value); // 1 to 32767
    int LargeChange() const { return pageStep(); }
    void SetLargeChange(int value); // 1 to 32767

    int Value() const { return value(); }
    // Held to the range. Raises Change also when it is the old value.
    void SetValue(int value);

    bool ButtonsVisible() const { return buttonsVisible_; }
    void SetButtonsVisible(bool on);
    int Orientation() const { return orientation() == Qt::Vertical ? kVertical : kHorizontal; }
    void SetOrientation(int orientation); // kVertical; all others are horizontal
    Alignment ThumbAlignment() const { return thumbAlignment_; }
    void SetThumbAlignment(Alignment alignment);
    // What is seen through transparent parts of the pictures.
    QColor BackColor() const { return backColor_; }
    void SetBackColor(const QColor& color);
    // Whether the bar is as broad as its background picture.
    bool AutoSize() const { return autoSize_; }
    void SetAutoSize(bool on);
    bool Enabled() const { return isEnabled(); }
    void SetEnabled(bool on) { setEnabled(on); }

    const ScrollPicture& PictureBackground() const { return pictures_.Background; }
    const ScrollPicture& PictureThumb() const { return pictures_.Thumb; }
    const ScrollPicture& PictureUp() const { return pictures_.Up; }
    const ScrollPicture& PictureDown() const { return pictures_.Down; }
    const ScrollPicture& PictureLeft() const { return pictures_.Left; }
    const ScrollPicture& PictureRight() const { return pictures_.Right; }
    // All at once; a thumb that is higher than wide is drawn for a vertical bar and turned for the other, and
    // so is the background with it.
    void SetPictures(ScrollBarPictures pictures);

    // The places of its parts, in pixels. Empty for an arrow that is hidden.
    QRect FirstArrow() const;
    QRect LastArrow() const;
    QRect Thumb() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Tells the user about a refused value; a message box if it is not replaced.
    std::function<void(const QString& text)> ShowError;

Q_SIGNALS:
    // Each time the value is set.
    void Change();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void sliderChange(SliderChange change) override;

private:
    bool IsVertical() const { return orientation() == Qt::Vertical; }
    int Length() const { return IsVertical() ? height() : width(); }
    int Breadth() const { return IsVertical() ? width() : height(); }
    int Along(const QPoint& point) const { return IsVertical() ? point.y() : point.x(); }
    void StepBy(int change);
    int ArrowLength() const;
    int ThumbSide() const;
    QRect Part(int place, int length) const;
    void PictureHasChanged();
    void DrawPicture(QPainter& painter, const QRect& target, const ScrollPicture& picture) const;
    void DrawThumb(QPainter& painter) const;

    ScrollBarPictures pictures_;
    bool buttonsVisible_ = true;
    bool autoSize_ = false;
    Alignment thumbAlignment_ = Alignment::Middle;
    QColor backColor_{0xE0, 0xE0, 0xE0};
    bool dragging_ = false;
    int grip_ = 0; // pixels from the thumb's beginning to where it is held
};

} // namespace paneda
