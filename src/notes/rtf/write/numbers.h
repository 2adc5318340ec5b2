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

// Numbers of fonts and colours while a note is being written. The tables that were read stay as they are; new
// fonts and colours are added at their end.
class RtfNumbers {
public:
    explicit RtfNumbers(const QTextDocument& document);

    // Number of a format's font, by RtfFontNumber or by its family; without either, of the document's font.
    int Font(const QTextFormat& format);
    int FontNamed(const QString& family);

    // Number of a colour, whose alpha is not used; 0, the automatic colour, for an invalid one.
    int Colour(const QColor& colour);

    int DefaultFont() const { return defaultFont_; }

    // To be called when all numbers have been asked for, since those are the entries.
    void WriteTables(RtfOutput& out) const;

private:
    int AddFont(const QString& family);

    // The groups as read, without the closing brace.
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
