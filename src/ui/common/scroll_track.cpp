#include "ui/common/scroll_track.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace paneda {

ScrollTrack ScrollTrack::Of(int length, int arrow, int thumb, int min, int max) {
    return {arrow, std::max(arrow, length - arrow - thumb), min, max};
}

int ScrollTrack::PlaceOf(int value) const {
    if (Max <= Min)
        return Start;
    const double part = (double(value) - Min) / (double(Max) - Min);
    return Start + qRound(part * (End - Start));
}

int ScrollTrack::ValueAt(int place) const {
    if (End <= Start || Max <= Min)
        return Min;
    const double part = double(std::clamp(place, Start, End) - Start) / (End - Start);
    return int(std::llround(Min + part * (double(Max) - Min)));
}

int ThumbLength(int room, int shortest, int page, int min, int max) {
    const double whole = double(max) - min + page;
    return std::clamp(qRound(whole > 0 ? room * (page / whole) : 0.0), std::min(shortest, room),
                      std::max(room, 0));
}

} // namespace paneda
