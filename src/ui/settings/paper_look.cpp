#include "ui/settings/paper_look.h"

namespace paneda {

namespace {

constexpr int kDarkBelow = 128;        // lightness, 0 to 255; a background below this is dark
constexpr int kDarkPaper = 125;        // percent of the lightness of the window's colour
constexpr float kNoteStrength = 0.65F; // opacity, 0 to 1, of hints and notes
constexpr QRgb kWarmPaper = qRgb(0xFF, 0xFD, 0xF6);

} // namespace

QPalette PaperPalette(const QPalette& desktop) {
    QPalette palette = desktop;
    const bool dark = desktop.color(QPalette::Base).lightness() < kDarkBelow;
    palette.setColor(kPaperRole,
                     dark ? desktop.color(QPalette::Window).lighter(kDarkPaper) : QColor(kWarmPaper));
    QColor text = desktop.color(QPalette::Text);
    palette.setColor(QPalette::WindowText, text);
    text.setAlphaF(kNoteStrength);
    palette.setColor(QPalette::PlaceholderText, text);
    return palette;
}

QFont PaperFont(const QFont& desktop, double scale) {
    QFont font = desktop;
    font.setPointSizeF(desktop.pointSizeF() * scale);
    return font;
}

} // namespace paneda
