#include "ui/skin/colour_button.h"

#include "core/text/device_pixels.h"
#include "skin/key_colour.h"
#include "ui/skin/last_colours.h"

#include <QColorDialog>
#include <QEvent>
#include <QMenu>
#include <QPainter>

namespace paneda {

namespace {

constexpr QSize kSwatch(36, 14);

QColor ColorOf(ColorRef color) {
    return QColor::fromRgba(ColorToArgb(color, 255));
}

} // namespace

QPixmap SwatchOf(const std::vector<ColorRef>& colors, const QSize& size, double ratio) {
    QPixmap swatch(DeviceSize(size, ratio));
    swatch.fill(QColor(0x80, 0x80, 0x80));
    QPainter painter(&swatch);
    const int line = DeviceLength(1, ratio);
    const QRect inside = swatch.rect().adjusted(line, line, -line, -line);
    const int count = int(colors.size());
    for (int i = 0; i < count; ++i) {
        const int left = inside.width() * i / count;
        const int right = inside.width() * (i + 1) / count;
        painter.fillRect(inside.left() + left, inside.top(), right - left, inside.height(),
                         ColorOf(colors[std::size_t(i)]));
    }
    painter.end();
    swatch.setDevicePixelRatio(ratio);
    return swatch;
}

ColourButton::ColourButton(QWidget* parent) : QToolButton(parent) {
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setPopupMode(QToolButton::MenuButtonPopup);
    setFocusPolicy(Qt::StrongFocus);
    setIconSize(kSwatch);
    setMenu(new QMenu(this));
    connect(menu(), &QMenu::aboutToShow, this, &ColourButton::FillMenu);
    connect(this, &QToolButton::clicked, this, &ColourButton::OpenDialog);
}

void ColourButton::SetUp(const QString& title, LastColours& last) {
    title_ = title;
    last_ = &last;
    setAccessibleName(title);
    setToolTip(title + QStringLiteral("; the arrow shows the last ones"));
}

void ColourButton::SetColour(ColorRef color) {
    color_ = color;
    setIcon(SwatchOf({color}, kSwatch, devicePixelRatioF()));
}

bool ColourButton::event(QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal)
        SetColour(color_);
    return QToolButton::event(event);
}

void ColourButton::FillMenu() {
    menu()->clear();
    for (const ColorRef color : last_->Colours()) {
        auto* action =
            menu()->addAction(QIcon(SwatchOf({color}, {16, 16}, devicePixelRatioF())), ColorToHex(color));
        connect(action, &QAction::triggered, this, [this, color] { Choose(color); });
    }
    if (menu()->isEmpty())
        menu()->addAction(QStringLiteral("No colour has been chosen yet"))->setEnabled(false);
}

void ColourButton::OpenDialog() {
    QColorDialog dialog(ColorOf(color_), this);
    // The same one on every desktop.
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(title_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QColor chosen = dialog.selectedColor();
    Choose(ColorRef(chosen.red()) | ColorRef(chosen.green()) << 8 | ColorRef(chosen.blue()) << 16);
}

void ColourButton::Choose(ColorRef color) {
    SetColour(AwayFromKeyColours(color));
    last_->Add(color_);
    Q_EMIT Chosen();
}

} // namespace paneda
