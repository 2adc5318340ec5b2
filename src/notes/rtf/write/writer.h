#pragma once

#include <QByteArray>

class QTextDocument;

namespace paneda {

enum class RtfExtent {
    Note,   // with an end of the last paragraph, as a rich text control saves it
    Passage // without, so that pasting it into a paragraph does not split that paragraph
};

// The document as RTF in 7 bits, in forms that rich text controls, word processors and converters all read:
// lists as \pn groups with their markers, characters outside ASCII as \u with a fallback of one character.
// What was kept of the note that was read (RtfProperty) is written back at its place. The same document
// always gives the same bytes.
//
// Layout: {\rtf1 with character set and default font; {\fonttbl}; {\colortbl}; {\*\generator}; the note's
// head; \uc1; paragraphs, each with its end on a line of its own; } and a line end.
QByteArray WriteRtf(const QTextDocument& document, RtfExtent extent = RtfExtent::Note);

} // namespace paneda
