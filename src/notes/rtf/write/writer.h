#pragma once

#include <QByteArray>

class QTextDocument;

namespace paneda {

enum class RtfExtent {
    Note,   // the last paragraph has its end, as a rich text control saves it
    Passage // it has none, so that what is pasted into a paragraph does not break it
};

// The document as RTF of 7 bits, in the forms that rich text controls, word processors and plain converters
// read alike: lists as \pn groups with their markers, characters outside ASCII as \u with a fallback of one
// character. What the document carries of the note that it was read from (RtfProperty) goes back to its
// place. Same document, same bytes.
//
// Layout: {\rtf1 with character set and default font; {\fonttbl}; {\colortbl}; {\*\generator}; the note's
// head; \uc1; paragraphs, each with its end on a line of its own; } and a line end.
QByteArray WriteRtf(const QTextDocument& document, RtfExtent extent = RtfExtent::Note);

} // namespace paneda
