#include "ui/settings/paper_look.h"

namespace paneda {

namespace {

constexpr int kDarkBelow = 128;        // lightness of the ground of a text
constexpr int kDarkPaper = 125;        // percent of the window's lightness
constexpr float kNoteStrength = 0.65F; // of the words beside the sentences
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
