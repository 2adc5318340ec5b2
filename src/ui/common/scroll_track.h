#pragma once

namespace paneda {

// What a scroll bar's thumb slides along. Lengths and places are pixels from the bar's beginning.
struct ScrollTrack {
    int Start = 0;
    int End = 0; // of the thumb's beginning: where it is for the highest value
    int Min = 0;
    int Max = 0;

    // The track of a bar of this length with two arrows, or with none of length 0.
    static ScrollTrack Of(int length, int arrow, int thumb, int min, int max);

    int PlaceOf(int value) const;
    // The value whose place is nearest, within the range.
    int ValueAt(int place) const;
};

// Length of the thumb: that part of the room which `page` is of the whole, at least `shortest`.
int ThumbLength(int room, int shortest, int page, int min, int max);

} // namespace paneda
