#pragma once

#include "notes/rtf/read/reader.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

namespace paneda::test {

// A document read from RTF.
struct ReadNote {
    explicit ReadNote(const QByteArray& rtf) { Reading = ReadRtf(rtf, Document); }

    // The blocks' texts with "|" between them.
    QString Text() const {
        QStringList texts;
        for (QTextBlock block = Document.begin(); block.isValid(); block = block.next())
            texts.append(block.text());
        return texts.join(u'|');
    }

    // The fragment whose text begins with this; an invalid one where there is none.
    QTextFragment Fragment(const QString& text) const {
        for (QTextBlock block = Document.begin(); block.isValid(); block = block.next())
            for (auto it = block.begin(); !it.atEnd(); ++it)
                if (it.fragment().text().startsWith(text))
                    return it.fragment();
        return {};
    }

    QTextCharFormat Look(const QString& text) const { return Fragment(text).charFormat(); }

    QTextBlock Block(const QString& text) const {
        for (QTextBlock block = Document.begin(); block.isValid(); block = block.next())
            if (block.text().contains(text))
                return block;
        return {};
    }

    QTextFormat Root() const { return Document.rootFrame()->frameFormat(); }

    QTextDocument Document;
    RtfReading Reading;
};

} // namespace paneda::test
