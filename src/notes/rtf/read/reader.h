#pragma once

#include "core/text/code_page_decoder.h"

#include <QByteArray>
#include <QStringList>

class QTextDocument;

namespace paneda {

struct RtfReading {
    // Why nothing was read, for the user; empty after success.
    QString Error;
    // What a save of the document would lose, in short words ("tracked changes"). Unless this is empty, the
    // note should be opened read-only.
    QStringList Losses;
    // Why the document holds no more than the note's text ("more than 20,000 table cells"); empty when it
    // holds its look too. Such a note has losses.
    QString PlainReason;
    // The document holds only the beginning of that text.
    bool IsCut = false;

    bool IsRtf() const { return Error.isEmpty(); }
};

// Replaces the document's content by a note in RTF (1.0 to 1.9). Damaged RTF is read as far as it makes
// sense; of one that a window could not show within two seconds the text is read, up to a length that it can.
// If the bytes are no RTF at all, the document is not changed. Pictures are decoded when they are
// first drawn. properties.h describes what the document holds beside its text.
// `system` reads code pages that have no table here, the East Asian ones; without it Qt is asked, which knows
// them on Linux only.
RtfReading ReadRtf(const QByteArray& bytes, QTextDocument& document, const CodePageDecoder& system = {});

} // namespace paneda
