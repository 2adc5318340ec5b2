// How long it takes to read and to write a note, against two floors: cutting the note into tokens, and giving
// its bare text to a document. Prints a table; judges nothing.

#include "notes/rtf/read/reader.h"
#include "notes/rtf/read/tokens.h"
#include "notes/rtf/write/writer.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace paneda;

namespace {

constexpr int kRuns = 5;

const QByteArray kHead =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Verdana;}{\\f1\\fnil Arial;}}"
    "{\\colortbl ;\\red255\\green0\\blue0;}\\viewkind4\\uc1\\pard\\f0\\fs20 ";

// Paragraphs of some ten words with a few changes of look, as notes have them.
QByteArray TextNote(qsizetype bytes) {
    QByteArray note = kHead;
    for (int i = 0; note.size() < bytes; ++i)
        note += "A line of a note, number " + QByteArray::number(i) +
                ", with \\b bold\\b0  and {\\cf1 red} words and \\'e4\\u1078 ? in it.\\par\r\n";
    return note + '}';
}

// Nine tenths of the bytes are pictures of 100 kB.
QByteArray PictureNote(qsizetype bytes) {
    QByteArray note = TextNote(bytes / 10);
    note.chop(1);
    for (int i = 0; note.size() < bytes; ++i) {
        QByteArray picture(100000, char(i));
        note += "{\\pict\\pngblip\\picwgoal1500\\pichgoal1500\r\n" + picture.toHex() + "}\\par\r\n";
    }
    return note + '}';
}

// Milliseconds.
template <class Function>
double TimeOf(Function function) {
    const auto begin = std::chrono::steady_clock::now();
    function();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

qsizetype CountTokens(const QByteArray& note) {
    RtfTokenizer tokens(note);
    qsizetype count = 0;
    while (tokens.Next().Kind != RtfToken::Type::End)
        ++count;
    return count;
}

void Measure(const char* name, const QByteArray& note) {
    std::vector<double> cuts;
    std::vector<double> plains;
    std::vector<double> reads;
    std::vector<double> writes;
    qsizetype found = 0;
    // In turns, so that a slow moment of the machine falls on all.
    for (int run = 0; run < kRuns; ++run) {
        QTextDocument document;
        QTextDocument plain;
        plain.setUndoRedoEnabled(false);
        cuts.push_back(TimeOf([&] { found += CountTokens(note); }));
        reads.push_back(TimeOf([&] { ReadRtf(note, document); }));
        const QString text = document.toPlainText();
        plains.push_back(TimeOf([&] { plain.setPlainText(text); }));
        writes.push_back(TimeOf([&] { found += WriteRtf(document).size(); }));
    }
    if (found == 0)
        qFatal("Nothing was read.");
    const double cut = Median(cuts);
    const double plain = Median(plains);
    const double read = Median(reads);
    const double write = Median(writes);
    std::printf("%-16s %8.1f %8.1f %8.1f %8.1f %8.2f %8.2f\n", name, cut, plain, read, write,
                read / (cut + plain), write / (cut + plain));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    std::printf("%-16s %8s %8s %8s %8s %8s %8s\n", "note", "tokens", "plain", "read", "write", "read/fl",
                "write/fl");
    Measure("1 MB text", TextNote(1000000));
    Measure("1 MB pictures", PictureNote(1000000));
    Measure("20 MB text", TextNote(20000000));
    Measure("20 MB pictures", PictureNote(20000000));
    return 0;
}
