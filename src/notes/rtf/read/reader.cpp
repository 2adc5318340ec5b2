#include "notes/rtf/read/reader.h"

#include "notes/rtf/read/content.h"
#include "notes/rtf/read/parser.h"
#include "notes/rtf/view/view.h"

namespace paneda {

namespace {

// Microseconds: together with the attempt to read the whole note less than two seconds.
constexpr double kPlainWeight = 500'000;

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
        return {QStringLiteral("This is not a rich text note."), {}, {}};
    RtfReading reading;
    RtfContent content;
    content.Tables.System = &system;
    RtfParser(note, content).Run();
    if (content.Weight.IsTooMuch()) {
        reading.PlainReason = content.Weight.Reason();
        content = RtfContent();
        content.Tables.System = &system;
        content.IsPlain = true;
        content.Weight = RtfWeight(kPlainWeight);
        content.Lose(QStringLiteral("the look of a note with ") + reading.PlainReason);
        RtfParser(note, content).Run();
        reading.IsCut = content.Weight.IsTooMuch();
    }
    BuildDocument(content, document);
    ShowRtfPictures(document);
    reading.Losses = content.Losses;
    return reading;
}

} // namespace paneda
