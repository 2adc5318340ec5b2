#pragma once

#include <QByteArray>
#include <QFont>

class QTextBlock;
class QTextCharFormat;

namespace paneda {

class RtfNumbers;
class RtfOutput;

// How text looks, in the terms of RTF. The default values are the look after \plain, but for font and size,
// which are always written since no value equals them.
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
    QByteArray Words;  // kept ones; only \plain ends them

    bool operator==(const RtfCharacters&) const = default;
};

// `defaults` is used for a family or size that the format does not have.
RtfCharacters CharactersOf(const QTextCharFormat& format, RtfNumbers& numbers, const QFont& defaults);

// Writes the words that change one look to the other. Returns the look that a reader then has: `to`, with the
// language before where it has none.
RtfCharacters WriteChange(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to);

class RtfNumbers;

// The words that make a paragraph's look from that after \pard, without words of lists and tables.
QByteArray ParagraphWords(const QTextBlock& block, RtfNumbers& numbers);

} // namespace paneda
