#pragma once

#include "notes/rtf/read/code_pages.h"

#include <QByteArrayView>
#include <QColor>
#include <QList>
#include <QString>

#include <unordered_map>

namespace paneda {

struct RtfFont {
    // Name without the semicolon; empty where the table has none.
    QString Family;
    // \fcharset; -1 where the table has none.
    int Charset = -1;
    int CodePage = 0;
};

// Fonts by their numbers, which need not be in order.
using RtfFonts = std::unordered_map<int, RtfFont>;

// Reads a whole {\fonttbl...} group. `encoding` is the note's own.
RtfFonts ReadFontTable(QByteArrayView group, const RtfEncoding& encoding);

// Reads a whole {\colortbl...} group: the colours by their number. The automatic colour is invalid.
QList<QColor> ReadColourTable(QByteArrayView group);

} // namespace paneda
