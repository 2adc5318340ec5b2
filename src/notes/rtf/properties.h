#pragma once

#include <QTextFormat>

namespace paneda {

// Properties that a note's QTextDocument has beside Qt's own, so that what was read from RTF can be written
// back. The reader sets them and the writer uses them; all are optional. Measures in Qt's own properties are
// pixels as real numbers (twips / 15), so no twip is lost.
enum RtfProperty : int {
    // --- Characters
    // int: number of the run's font in the note's font table. Valid as long as fontFamilies() names that
    // font; otherwise the writer looks for the family in the table, or adds it.
    RtfFontNumber = QTextFormat::UserProperty + 0x100,
    // QString: the RTF word of the underline without its backslash ("uldb", "ulth", "ulwave"...), where it
    // cannot be seen from Qt's underline style. Valid as long as fontUnderline() is on.
    RtfUnderlineWord,
    // int, RtfBackground: the word that the run's background was read from.
    RtfBackgroundWord,
    // int, twips: how far the run is raised (positive) or lowered (negative). Set and read it with the
    // functions below. RTF has only half-points (10 twips), so it is rounded when it is written.
    RtfBaselineShift,
    // int: \lang.
    RtfLanguage,
    // QString: further character words as read, with backslashes ("\outl\animtext2").
    RtfCharWords,
    // QString: the whole instruction of the HYPERLINK field that the anchor was read from. Valid as long as
    // the anchor has the address in it.
    RtfLinkInstruction,

    // --- Inline objects (object type kRtfObject, text U+FFFC)
    // QByteArray: one or more complete groups in 7 bits, which are written at this place in the object's own
    // look.
    RtfRaw,
    // QString: what the user sees there ("[footnote]"); empty where nothing is shown (a bookmark, hidden
    // text).
    RtfObjectText,
    // QSizeF, pixels: room that the object takes. Without it: as much as its text needs.
    RtfObjectSize,

    // --- Pictures (QTextImageFormat; its name is "rtf-picture:" and a hash of the bytes. An inline object
    // that has a picture has the name, the bytes and the kind too.)
    // QByteArray: the picture's bytes as read.
    RtfPictureBytes,
    // QByteArray: its kind, the RTF word with parameter and without backslash: "pngblip", "jpegblip",
    // "dibitmap0", "wmetafile8", "emfblip", "wbitmap0", "macpict"...
    RtfPictureKind,
    // QByteArray: all other words and groups of its \pict group as read ("\picw10\pich10\picwgoal150...").
    RtfPictureWords,
    // QSizeF, pixels: the shown size that follows from those words. Where the format's width() and height()
    // differ from it, the user has resized the picture: the writer then writes the size of the format and no
    // scale.
    RtfPictureShown,
    // QByteArray: the {\nonshppict...} group that followed a picture in {\*\shppict...}. The picture is
    // written back into such a group, and this one behind it. Empty for other pictures.
    RtfPictureFallback,

    // --- Blocks
    // QString: further paragraph words as read, with backslashes: style number, borders...
    RtfParagraphWords = QTextFormat::UserProperty + 0x140,
    // QString: the words of the tab stops, where they say more than tabPositions() can (leaders, bars).
    RtfTabWords,
    // int, twips: \fi of a list item. (The text indent of a list's block in Qt stays 0, since Qt puts the
    // marker into the margin by itself.)
    RtfListFirstIndent,
    // bool: a block that the RTF does not have, but that Qt needs in front of or behind a table. It is not
    // written while it is empty; with text in it, it is an ordinary paragraph.
    RtfFiller,

    // --- Lists (QTextListFormat. Lists that were read have indent() 0, since the left margin of a block is
    // its whole \li; any other list adds indent() * 40 pixels.)
    // int, from 1: \ls, the number in the note's list tables. Lists of the old \pn form have none. Valid as
    // long as style() is RtfListReadStyle.
    RtfListNumber = QTextFormat::UserProperty + 0x180,
    // int: \ilvl.
    RtfListLevel,
    // int: number of the first item when it is not 1.
    RtfListStart,
    // QByteArray: the inside of the {\*\pn ...} group as read, for a list of the old form. Valid as long as
    // style() is RtfListReadStyle.
    RtfListPn,
    // int: what style() was when the list was read.
    RtfListReadStyle,
    // QString: the bullet, where Qt cannot show it; its font is in RtfFontNumber.
    RtfListBullet,

    // --- Tables (QTextTableCellFormat of each cell; row properties on the row's first cell)
    // int, twips: the cell's \cellx.
    RtfCellRight = QTextFormat::UserProperty + 0x1c0,
    // QByteArray: all other words of the cell's definition as read, but for those that merge cells.
    RtfCellWords,
    // QByteArray: the words of the row's definition behind \trowd, as read.
    RtfRowWords,
    // int, twips: \trleft of the row.
    RtfRowLeft,

    // --- Document (frame format of the root frame)
    // QByteArray: the words and groups in front of the text as read, but for \rtf, character set, font table,
    // colour table and generator.
    RtfHead = QTextFormat::UserProperty + 0x200,
    // QByteArray: the {\fonttbl...} and {\colortbl...} groups as read. Groups that are kept refer to their
    // numbers, so the writer keeps the tables too and adds new entries at the end.
    RtfFontTable,
    RtfColourTable,
    // QVariantMap, number to name: the families in that font table, where the system's own conversion read
    // them.
    RtfFontFamilies,
    // int: \deff.
    RtfDefaultFont,
    // int: the note's code page (\ansicpg; 10000, 437, 850 for \mac, \pc, \pca), which kept groups are
    // written in.
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
// Size of text without \fs, in half-points.
inline constexpr int kRtfDefaultHalfPoints = 24;

} // namespace paneda
