#include "notes/rtf/write/writer.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/write/body.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"

#include <QTextDocument>
#include <QTextFrame>

namespace paneda {

namespace {

void WriteCharacterSet(RtfOutput& out, int codePage) {
    if (codePage == 10000) {
        out.Word("mac");
    } else if (codePage == 437) {
        out.Word("pc");
    } else if (codePage == 850) {
        out.Word("pca");
    } else {
        out.Word("ansi");
        out.Word("ansicpg", codePage);
    }
}

void WriteHead(RtfOutput& out, const RtfNumbers& numbers, const QTextFormat& root, int codePage) {
    out.Word("rtf1");
    WriteCharacterSet(out, codePage);
    out.Word("deff", numbers.DefaultFont());
    numbers.WriteTables(out);
    out.Raw("{\\*\\generator Paneda Launcher;}");
    out.Raw(root.hasProperty(RtfHead) ? root.property(RtfHead).toByteArray() : QByteArray("\\viewkind4"));
    out.Word("uc1");
    out.LineEnd();
}

} // namespace

QByteArray WriteRtf(const QTextDocument& document, RtfExtent extent) {
    const QTextFormat root = document.rootFrame()->frameFormat();
    const int codePage = root.hasProperty(RtfCodePage) ? root.intProperty(RtfCodePage) : kRtfAnsiCodePage;
    RtfNumbers numbers(document);
    RtfOutput body(codePage);
    body.Reserve(qsizetype(document.characterCount()) * 2);
    RtfBodyWriter(body, numbers, document, extent).Write();
    // The tables stand in front, but what they hold is only known now.
    RtfOutput out(codePage);
    out.Reserve(body.Bytes().size() + 4096);
    out.Open();
    WriteHead(out, numbers, root, codePage);
    out.Raw(body.Bytes());
    out.Close();
    out.LineEnd();
    return out.Bytes();
}

} // namespace paneda
