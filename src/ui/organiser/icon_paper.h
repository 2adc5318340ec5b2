#pragma once

#include "organiser/icon_library.h"

#include <QImage>
#include <QWidget>

#include <vector>

namespace paneda {

// The visible part of a sheet of icons with captions. It paints them all itself, however many there are.
class IconPaper : public QWidget {
    Q_OBJECT

public:
    explicit IconPaper(QWidget* parent = nullptr);

    // Shows these files, without pictures and from the top.
    void SetFiles(const QStringList& files);
    void SetPicture(int index, const QImage& picture);
    void SetColor(const QColor& color);

    // The place of the visible part on the sheet, in twips.
    void SetTop(int top);

    const IconSheet& Sheet() const { return sheet_; }
    int Current() const { return current_; } // -1 for none

    QSize sizeHint() const override;

Q_SIGNALS:
    // The sheet has got another height.
    void LaidOut();
    void Picked(int index);
    // The user wants another colour.
    void ColorAsked();
    // The icon with the focus lies outside of the visible part, which should begin here, in twips.
    void TopWanted(int top);
    // The wheel was turned; for what scrolls the sheet.
    void Wheeled(QWheelEvent* event);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override { Q_EMIT Wheeled(event); }
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void LayOut();
    int IndexAt(const QPoint& point) const; // -1 for none
    QRect PlaceOf(int index) const;         // of thumbnail and caption, in pixels of the widget
    bool CanPick(int index) const;
    void MakeCurrent(int index);
    void SetHovered(int index);
    void DrawIcon(QPainter& painter, int index) const;

    QStringList files_;
    std::vector<QImage> pictures_; // null until they arrive
    IconSheet sheet_;
    int top_ = 0;      // twips
    int current_ = -1; // with the focus
    int hovered_ = -1;
    int pressed_ = -1;
    QColor color_ = Qt::black;
};

} // namespace paneda
