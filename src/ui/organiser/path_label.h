#pragma once

#include <QAbstractButton>

namespace paneda {

// A path as a line that can be clicked, with its middle left out where it does not fit.
class PathLabel : public QAbstractButton {
    Q_OBJECT

public:
    explicit PathLabel(QWidget* parent = nullptr);

    // The tool tip shows the whole path. An empty one cannot be clicked.
    void ShowPath(const QString& path);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace paneda
