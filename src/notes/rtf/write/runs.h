#pragma once

#include "notes/rtf/write/words.h"

#include <QHash>

class QTextBlock;
class QTextCharFormat;
class QTextDocument;
class QTextFragment;
class QTextImageFormat;

namespace paneda {

class RtfOutput;

// Writes a picture: the bytes that it was read with, or those of the document's resource (as PNG, if they are
// neither PNG nor JPEG). Without any bytes its alternative text is written.
void WritePicture(RtfOutput& out, const QTextImageFormat& format, const QTextDocument& document);

class RtfNumbers;
class RtfOutput;

// Writes the inside of paragraphs: text, links, pictures and kept groups. Only changes of the look are
// written, so the paragraphs have to come in their order.
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
    RtfCharacters outerLook_; // the look before the open link began
    bool linkIsOpen_ = false;
};

} // namespace paneda
