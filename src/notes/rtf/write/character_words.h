#pragma once

#include <QByteArray>
#include <QFont>

class QTextCharFormat;

namespace paneda {

class RtfNumbers;
class RtfOutput;

// How a run looks, in the terms of RTF. As it is made, it is the look of text behind \plain, but for the font
// and the size, which differ from any, so that they are always told.
struct RtfCharacters {
    int Font = -1;
    int HalfPoints = -1;
    bool Bold = false;
    bool Italic = false;
    bool StrikeOut = false;
    bool Capitals = false;
    bool SmallCapitals = false;
    QByteArray Underline; // the word; empty for none
    QByteArray Script;    // "super", "sub" or empty
    int Shift = 0;        // half-points up
    int Spacing = 0;      // twips
    int Colour = 0;
    QByteArray BackgroundWord; // "highlight", "cb", "chcbpat"; empty for no background
    int Background = 0;
    int Language = -1; // -1: as before
    QByteArray Words;  // kept ones, which can only be taken back by \plain

    bool operator==(const RtfCharacters&) const = default;
};

// `defaults` stands in for a family or size that the format lacks.
RtfCharacters CharactersOf(const QTextCharFormat& format, RtfNumbers& numbers, const QFont& defaults);

// Writes the words that lead from one look to the other, and returns the look that is then reached.
RtfCharacters WriteChange(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to);

} // namespace paneda
