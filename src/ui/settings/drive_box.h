#pragma once

#include <QAbstractButton>

namespace paneda {

// A small box with one character that is chosen or not: light green or white, whatever the desktop's colours.
class DriveBox : public QAbstractButton {
    Q_OBJECT

public:
    explicit DriveBox(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    QColor BackColour() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace paneda
