#pragma once

#include <QTextFormat>

namespace paneda {

// What a note's QTextDocument carries beside Qt's own properties, so that RTF that was read can be written
// back. The reader sets them, the writer looks for them; all are optional. Measures in Qt's own properties
// are pixels as real numbers (twips / 15), so twips survive.
enum RtfProperty : int {
    // --- Characters
    // int: number of the run's font in the note's own font table. Good while fontFamilies() still names that
    // font; else the writer looks the family up or appends it.
    RtfFontNumber = QTextFormat::UserProperty + 0x100,
    // QString: the RTF underline word without its backslash ("uldb", "ulth", "ulwave"...) where underline
    // style alone does not tell it. Good while fontUnderline() is on.
    RtfUnderlineWord,
    // int, RtfBackground: which word told the run's background.
    RtfBackgroundWord,
    // int, twips: how far the run is raised (positive) or lowered (negative). Set and read it with the
    // functions
    // below. RTF has only half-points (10 twips), so it is rounded when it is written.
    RtfBaselineShift,
    // int: \lang.
    RtfLanguage,
    // QString: further character words, with backslashes, as they stood ("\outl\animtext2").
    RtfCharWords,
    // QString: the whole instruction of the HYPERLINK field that the anchor was read from. Good while the
    // address in it is the anchor's.
    RtfLinkInstruction,

    // --- Inline objects (object type kRtfObject, text U+FFFC)
    // QByteArray: a balanced 7-bit group (or several) to be written at this place under the run's font.
    RtfRaw,
    // QString: what the user sees in its place, empty for nothing (a bookmark, hidden text).
    RtfObjectText,
    // QSizeF, pixels: room that the object takes. None: as its text needs.
    RtfObjectSize,

    // --- Pictures (QTextImageFormat; name "rtf-picture:" and a number that tells the picture)
    // QByteArray: the picture's bytes as read.
    RtfPictureBytes,
    // QByteArray: its kind, the RTF word with parameter and without backslash: "pngblip", "jpegblip",
    // "dibitmap0", "wmetafile8", "emfblip", "wbitmap0", "macpict"...
    RtfPictureKind,
    // QByteArray: all other words and groups of its \pict group as read ("\picw10\pich10\picwgoal150...").
    RtfPictureWords,
    // QSizeF, pixels: shown size as those words tell it. Where width() and height() of the format differ
    // from it, the writer writes \picwgoal and \pichgoal from the format and leaves the scale out.
    RtfPictureShown,
    // QByteArray: the {\nonshppict...} group behind a picture that stood in {\*\shppict...}; such a picture
    // is written back into one. Empty when it stood there alone.
    RtfPictureFallback,

    // --- Blocks
    // QString: further paragraph words, with backslashes, as they stood: style number, borders...
    RtfParagraphWords = QTextFormat::UserProperty + 0x140,
    // QString: the words of the tab stops where they say more than tabPositions() can (leaders, bars).
    RtfTabWords,
    // int, twips: \fi of a list item. (A list block's text indent in Qt stays 0, since Qt hangs the marker
    // into the margin by itself.)
    RtfListFirstIndent,
    // bool: a block that Qt needs in front of or behind a table, and that no RTF paragraph stands for. Not
    // written while it is empty; once it holds text, it is an ordinary paragraph.
    RtfFiller,

    // --- Lists (QTextListFormat, indent() 0: the block's own left margin is the item's whole \li. A list of
    // other origin adds indent() * 40 pixels.)
    // int, 1 and up: \ls, for a list of the note's list tables; none for a list of the old \pn form. Good
    // while
    // style() is RtfListReadStyle.
    RtfListNumber = QTextFormat::UserProperty + 0x180,
    // int: \ilvl.
    RtfListLevel,
    // int: number of the first item when it is not 1.
    RtfListStart,
    // QByteArray: the inner part of the {\*\pn ...} group as read, for a list of the old form. Good while
    // style() is RtfListReadStyle.
    RtfListPn,
    // int: style() at reading.
    RtfListReadStyle,
    // QString: bullet of its own that Qt cannot show; font number of it in RtfFontNumber.
    RtfListBullet,

    // --- Tables (QTextTableCellFormat of each cell; row properties on the row's first cell)
    // int, twips: the cell's \cellx.
    RtfCellRight = QTextFormat::UserProperty + 0x1c0,
    // QByteArray: all other words of the cell's definition, without the merge words, as read.
    RtfCellWords,
    // QByteArray: the words of the row's definition (from \trowd on, without it) as read.
    RtfRowWords,
    // int, twips: \trleft of the row.
    RtfRowLeft,

    // --- Document (frame format of the root frame)
    // QByteArray: words and groups of the note's head as read, in order, without \rtf, character set, font
    // and colour tables and generator.
    RtfHead = QTextFormat::UserProperty + 0x200,
    // QByteArray: the {\fonttbl...} and {\colortbl...} groups as read. Raw groups refer to their numbers, so
    // the writer keeps them and appends behind.
    RtfFontTable,
    RtfColourTable,
    // QVariantMap, number to name: the families in that font table, where the system's own conversion read
    // them.
    RtfFontFamilies,
    // int: \deff.
    RtfDefaultFont,
    // int: the note's code page (\ansicpg; 10000, 437, 850 for \mac, \pc, \pca). Raw groups are in it.
    RtfCodePage,
};

enum class RtfBackground : int { Highlight, Cb, Chcbpat };

// Object type of inline objects.
inline constexpr int kRtfObject = QTextFormat::UserObject + 1;

// Raises a run's text by so many twips (negative: lowers it; 0: back to the line). Sets RtfBaselineShift and
// Qt's own offset, a share of the font's size; `points` is that size.
void SetBaselineShift(QTextCharFormat& format, int twips, qreal points);
// By how many twips a run is raised: what SetBaselineShift set, or else what Qt's own offset means.
int BaselineShiftOf(const QTextCharFormat& format, qreal points);

inline constexpr qreal kRtfTwipsPerPixel = 15;
// Size of text that no \fs was told for, half-points.
inline constexpr int kRtfDefaultHalfPoints = 24;

} // namespace paneda
