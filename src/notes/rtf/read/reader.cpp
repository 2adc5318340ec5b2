#include "notes/rtf/read/reader.h"

#include "notes/rtf/read/content.h"
#include "notes/rtf/read/parser.h"
#include "notes/rtf/view/view.h"

namespace paneda {

namespace {

// Blanks and a byte order mark in front do no harm.
qsizetype BeginOfRtf(const QByteArray& bytes) {
    qsizetype at = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (at < bytes.size() && QByteArrayView(" \t\r\n").contains(bytes[at]))
        ++at;
    return at;
}

} // namespace

RtfReading ReadRtf(const QByteArray& bytes, QTextDocument& document, const CodePageDecoder& system) {
    const QByteArrayView note = QByteArrayView(bytes).sliced(BeginOfRtf(bytes));
    if (!note.startsWith("{\\rtf"))
        return {QStringLiteral("This is not a rich text note."), {}};
    RtfContent content;
    content.Tables.System = &system;
    RtfParser(note, content).Run();
    BuildDocument(content, document);
    ShowRtfPictures(document);
    return {{}, content.Losses};
}

} // namespace paneda
