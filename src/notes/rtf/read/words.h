#pragma once

#include <QByteArrayView>

namespace paneda {

// What a control word means to the reader. The order matters where meanings are compared: characters,
// paragraphs, rows of tables, text, groups of other kinds, the rest.
// clang-format off
enum class RtfWord {
    Unknown,
    // Characters
    Plain, Font, FontSize, Bold, Italic, Strike, Underline, UnderlineNone, Super, Sub, NoSuperSub, Up, Down,
    ForeColour, Highlight, BackColour, CharBackColour, SmallCaps, AllCaps, Spacing, SpacingTwips, Hidden,
    Language, Tracked, KeptChar, KeptCharToggle, CharBorder,
    // Paragraphs
    ParagraphDefault, AlignLeft, AlignRight, AlignCentre, AlignJustify, LeftIndent, RightIndent, FirstIndent,
    SpaceBefore, SpaceAfter, LineSpacing, LineMultiple, TabStop, TabBar, TabKind, TabLeader, ParagraphColour,
    PageBreakBefore, RightToLeft, LeftToRight, Keep, InTable, NestLevel, ListNumber, ListLevel, KeptParagraph,
    ParagraphBorder, BorderDetail,
    // Rows
    RowDefault, CellRight, MergeFirst, MergeNext, MergeRowsFirst, MergeRowsNext, CellColour, CellTop,
    CellMiddle, CellBottom, RowLeft, RowHeader, RowCentre, RowRight, KeptRow, KeptCell, RowBorder, CellBorder,
    // Text
    Paragraph, Cell, NestedCell, Row, NestedRow, Line, Tab, Section, PageBreak, Character, Unicode, UnicodeSkip,
    KeptCharacter,
    // Destinations
    Ignorable, FontTable, ColourTable, ListTable, ListOverrides, Head, Dropped, OldList, ListText, Transparent,
    Picture, ShapePicture, OtherPicture, Field, FieldInstruction, Kept, NestedRowDefinition, Upr, UprUnicode,
    // The note as a whole, and words that may be ignored
    Version, Ansi, Macintosh, Dos, DosMultilingual, AnsiCodePage, DefaultFont, Ignored
};
// clang-format on

// Meaning of a word without backslash and number.
RtfWord FindRtfWord(QByteArrayView word);

// The character for a word or sign of the meaning Character; 0 for any other word.
char16_t CharacterOfRtfWord(QByteArrayView word);

} // namespace paneda
