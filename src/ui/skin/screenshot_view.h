#pragma once

#include "skin/dense_picture.h"

#include <QPixmap>
#include <QWidget>

namespace paneda {

// Shows a picture in the middle, in proportion, as large as it is or as the room allows, in the pixels of the
// screen.
class ScreenshotView : public QWidget {
    Q_OBJECT

public:
    explicit ScreenshotView(QWidget* parent = nullptr);

    // A null one empties the view.
    void SetPicture(const DensePicture& picture);
    const DensePicture& Picture() const { return picture_; }

    QSize sizeHint() const override { return {300, 480}; }
    QSize minimumSizeHint() const override { return {240, 300}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    DensePicture picture_;
    QPixmap scaled_; // null until it is painted
};

} // namespace paneda
