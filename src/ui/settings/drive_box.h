#pragma once

#include <QAbstractButton>

namespace paneda {

// A small box with one character, light green when it is chosen and white when it is not, in any colours of
// the desktop. A click or the space bar switches it. The Tab key stops once at all boxes of a QButtonGroup;
// the arrow keys, Home and End move inside the group. Only the first box of a group is made with `tabStop`.
class DriveBox : public QAbstractButton {
    Q_OBJECT

public:
    DriveBox(const QString& text, bool tabStop, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    // The colour that the box is filled with.
    QColor BackColour() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace paneda
