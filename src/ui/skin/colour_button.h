#pragma once

#include "skin/colour.h"

#include <QPixmap>
#include <QToolButton>

#include <vector>

namespace paneda {

class LastColours;

// A rectangle of one or several colours side by side, with a thin frame. `size` is layout pixels.
QPixmap SwatchOf(const std::vector<ColorRef>& colors, const QSize& size, double ratio);

// Shows a colour. A click opens the colour dialog, the arrow beside it a menu of the colours chosen last.
// What is chosen is never the key colour of a skin.
class ColourButton : public QToolButton {
    Q_OBJECT

public:
    explicit ColourButton(QWidget* parent = nullptr);

    // `last` outlives the button. `title` is that of the colour dialog.
    void SetUp(const QString& title, LastColours& last);

    void SetColour(ColorRef color);
    ColorRef Colour() const { return color_; }

Q_SIGNALS:
    void Chosen();

protected:
    bool event(QEvent* event) override;

private:
    void OpenDialog();
    void FillMenu();
    void Choose(ColorRef color);

    LastColours* last_ = nullptr;
    QString title_;
    ColorRef color_ = 0;
};

} // namespace paneda
