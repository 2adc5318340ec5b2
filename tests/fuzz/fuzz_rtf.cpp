// A note. What was read from it is written, and that can be read. With PANEDA_FUZZ_ROUND set in the
// environment, what is read the second time has to be the same text: for runs by hand, since a search that
// begins anywhere may come upon a note of a new kind at any time.

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
    if (!ReadRtf(written, second).IsRtf())
        std::abort();
    static const bool comparesTexts = qEnvironmentVariableIsSet("PANEDA_FUZZ_ROUND");
    if (comparesTexts && second.toRawText() != first.toRawText())
        std::abort();
    return 0;
}
