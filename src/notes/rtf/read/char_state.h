#pragma once

#include "notes/rtf/properties.h"
#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/fonts.h"
#include "notes/rtf/read/tokens.h"
#include "notes/rtf/read/words.h"

#include <QByteArray>

namespace paneda {

// The note's tables of fonts and colours, and what its bytes mean.
struct RtfTables {
    RtfFonts Fonts;
    QList<QColor> Colours;
    int DefaultFont = 0;
    int CodePage = kRtfAnsiCodePage;
    // See RtfEncoding.
    const CodePageDecoder* System = nullptr;

    RtfEncoding Encoding() const { return {CodePage, System}; }
};

// Formatting of the current text while a note is read.
struct RtfChar {
    int Font = 0;
    int HalfPoints = kRtfDefaultHalfPoints;
    bool Bold = false;
    bool Italic = false;
    bool Strike = false;
    bool SmallCaps = false;
    bool AllCaps = false;
    bool Hidden = false;
    // Positive above the line, in twips.
    int Shift = 0;
    QTextCharFormat::VerticalAlignment Vertical = QTextCharFormat::AlignNormal;
    // Numbers in the colour table. 0 is the automatic colour as a rule, and no background ever.
    int Fore = 0;
    int Back = 0;
    RtfBackground BackWord = RtfBackground::Highlight;
    // Twips.
    int Spacing = 0;
    // -1 for none.
    int Language = -1;
    // Number of the link that the text belongs to, from 1; 0 for none. No control word changes it.
    int Link = 0;
    // Empty for none.
    QByteArray Underline;
    QByteArray Words;

    friend bool operator==(const RtfChar&, const RtfChar&) = default;
};

size_t qHash(const RtfChar& state, size_t seed = 0);

// Takes a word that formats characters. False if it is none.
bool ApplyCharWord(RtfChar& state, RtfWord meaning, const RtfToken& token, const RtfTables& tables);

// Without the link.
QTextCharFormat ToCharFormat(const RtfChar& state, const RtfTables& tables);

// A colour of the table; invalid for the automatic colour and for numbers that are not in the table.
QColor RtfColour(const RtfTables& tables, int number);

} // namespace paneda
