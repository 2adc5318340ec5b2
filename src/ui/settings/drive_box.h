#pragma once

#include <QAbstractButton>

namespace paneda {

// A small box with one character that is chosen or not: light green or white, whatever the desktop's colours.
// A click or the space bar flips it. Boxes that share a QButtonGroup are one stop of the Tab key; the arrow
// keys, Home and End move among them. Of such boxes only the first is made with `tabStop`.
class DriveBox : public QAbstractButton {
    Q_OBJECT

public:
    DriveBox(const QString& text, bool tabStop, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    QColor BackColour() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace paneda
