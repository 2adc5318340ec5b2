#pragma once

#include "notes/rtf/read/fonts.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QList>
#include <QString>

class QTextDocument;
class QTextFormat;

namespace paneda {

class RtfOutput;

// Numbers of fonts and colours while a note is being written. The tables that the note was read with stay as
// they are; what they lack goes behind.
class RtfNumbers {
public:
    explicit RtfNumbers(const QTextDocument& document);

    // Font that a format names, for its family alone or for RtfFontNumber; the document's own for one that
    // names none.
    int Font(const QTextFormat& format);
    int FontNamed(const QString& family);

    // 0, the automatic colour, for an invalid one. Colours are opaque.
    int Colour(const QColor& colour);

    int DefaultFont() const { return defaultFont_; }

    // Once all numbers have been asked for.
    void WriteTables(RtfOutput& out) const;

private:
    int AddFont(const QString& family);

    // The groups as read, still open.
    QByteArray fontTable_;
    QByteArray colourTable_;
    RtfFonts fonts_;
    QHash<QString, int> fontNumbers_; // by family in lower case
    QList<int> newFonts_;
    QHash<QRgb, int> colourNumbers_;
    QList<QColor> newColours_;
    int colourCount_ = 0;
    int nextFont_ = 0;
    int defaultFont_ = 0;
    QString defaultFamily_;
};

} // namespace paneda
