// A note. What was read from it, unless something was lost, is written; what is read from that is the same
// text, and nothing is lost.

#include "notes/rtf/read/reader.h"
#include "notes/rtf/write/writer.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace paneda;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    QTextDocument first;
    const RtfReading reading = ReadRtf(bytes, first);
    // A note that would lose something is never written.
    if (!reading.IsRtf() || !reading.Losses.isEmpty())
        return 0;
    const QByteArray written = WriteRtf(first);
    QTextDocument second;
    const RtfReading again = ReadRtf(written, second);
    // The writer's own words can make a note too heavy that was just light enough.
    if (!again.PlainReason.isEmpty())
        return 0;
    if (!again.IsRtf() || !again.Losses.isEmpty() || second.toRawText() != first.toRawText())
        std::abort();
    return 0;
}
