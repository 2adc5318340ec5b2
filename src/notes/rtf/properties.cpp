#include "notes/rtf/properties.h"

namespace paneda {

namespace {

constexpr int kTwipsPerPoint = 20;

} // namespace

void SetBaselineShift(QTextCharFormat& format, int twips, qreal points) {
    if (twips == 0) {
        format.clearProperty(RtfBaselineShift);
        format.clearProperty(QTextFormat::TextBaselineOffset);
        return;
    }
    format.setProperty(RtfBaselineShift, twips);
    format.setBaselineOffset(100.0 * twips / (points * kTwipsPerPoint));
}

int BaselineShiftOf(const QTextCharFormat& format, qreal points) {
    if (format.hasProperty(RtfBaselineShift))
        return format.intProperty(RtfBaselineShift);
    return qRound(format.baselineOffset() / 100 * points * kTwipsPerPoint);
}

} // namespace paneda
