#pragma once

class QTextDocument;
class QTextImageFormat;

namespace paneda {

class RtfOutput;

// Writes a picture of the text: the bytes that it was read with, or those of the document's resource, as PNG
// where they are neither PNG nor JPEG. A picture whose bytes nobody has is written as its alternative text.
void WritePicture(RtfOutput& out, const QTextImageFormat& format, const QTextDocument& document);

} // namespace paneda
