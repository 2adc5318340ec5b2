#include "ui/settings/paper_look.h"

namespace paneda {

namespace {

constexpr int kDarkBelow = 128; // lightness of the ground of a text
constexpr int kDarkPaper = 125; // percent of the window's lightness
constexpr QRgb kWarmPaper = qRgb(0xFF, 0xFD, 0xF6);

} // namespace

QPalette PaperPalette(const QPalette& desktop) {
    QPalette palette = desktop;
    const bool dark = desktop.color(QPalette::Base).lightness() < kDarkBelow;
    palette.setColor(kPaperRole,
                     dark ? desktop.color(QPalette::Window).lighter(kDarkPaper) : QColor(kWarmPaper));
    palette.setColor(QPalette::WindowText, desktop.color(QPalette::Text));
    return palette;
}

QFont PaperFont(const QFont& desktop, double scale) {
    QFont font = desktop;
    font.setPointSizeF(desktop.pointSizeF() * scale);
    return font;
}

} // namespace paneda
