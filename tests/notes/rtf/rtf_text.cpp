// Prints what the reader makes of each rich text file, a line of JSON for each: file, error, losses, the text
// with hidden text and with the labels of fields between U+E000 and U+E001, and that of the note as it is
// saved. For tools/rtf-corpus.

#include "notes/rtf/properties.h"
#include "notes/rtf/read/raw.h"
#include "notes/rtf/read/reader.h"
#include "notes/rtf/write/writer.h"

#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextBlock>
#include <QTextDocument>

#include <cstdio>

using namespace paneda;

namespace {

QString TextOf(const QTextFragment& fragment) {
    const QTextCharFormat format = fragment.charFormat();
    if (format.objectType() != kRtfObject)
        return fragment.text();
    const QByteArray raw = format.property(RtfRaw).toByteArray();
    if (raw.startsWith("{\\uc1\\v "))
        return PlainTextOfRtf(raw, {}, raw.size());
    const QString label = format.stringProperty(RtfObjectText);
    // The mark tells that another program may show something else here: a page number, today's date.
    return label.startsWith(u'[') || label == u"#" ? QStringLiteral("\uE000\uE001")
                                                   : u'\uE000' + label + u'\uE001';
}

QString TextOf(const QTextDocument& document) {
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it)
            text += TextOf(it.fragment());
        text += u'\n';
    }
    return text;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    for (int i = 1; i < argc; ++i) {
        QFile file(QString::fromLocal8Bit(argv[i]));
        QTextDocument document;
        const RtfReading reading = file.open(QIODevice::ReadOnly)
                                       ? ReadRtf(file.readAll(), document)
                                       : RtfReading{QStringLiteral("The file cannot be opened."), {}, {}};
        QTextDocument again;
        ReadRtf(WriteRtf(document), again);
        const QJsonObject line{{QStringLiteral("file"), file.fileName()},
                               {QStringLiteral("error"), reading.Error},
                               {QStringLiteral("losses"), QJsonArray::fromStringList(reading.Losses)},
                               {QStringLiteral("text"), TextOf(document)},
                               {QStringLiteral("again"), TextOf(again)}};
        std::puts(QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
    }
    return 0;
}
