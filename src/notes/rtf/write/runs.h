#pragma once

#include "notes/rtf/write/character_words.h"

#include <QHash>

class QTextBlock;
class QTextCharFormat;
class QTextDocument;
class QTextFragment;

namespace paneda {

class RtfNumbers;
class RtfOutput;

// Writes what stands in paragraphs: runs, links, pictures and kept groups. Looks are written as changes, so
// the paragraphs have to come in their order.
class RtfRunWriter {
public:
    RtfRunWriter(RtfOutput& out, RtfNumbers& numbers, const QTextDocument& document)
        : out_(out), numbers_(numbers), document_(document) {}

    void Write(const QTextBlock& block);

private:
    void Fragment(const QTextFragment& fragment);
    void Objects(const QTextFragment& fragment, const QTextCharFormat& format);
    void OpenLink(const QTextCharFormat& format);
    void CloseLink();
    void Change(const QTextCharFormat& format, int formatIndex);

    RtfOutput& out_;
    RtfNumbers& numbers_;
    const QTextDocument& document_;
    QHash<int, RtfCharacters> looks_; // by index of the format in the document
    RtfCharacters look_;
    RtfCharacters outerLook_; // in front of the link that is open
    bool linkIsOpen_ = false;
};

} // namespace paneda
