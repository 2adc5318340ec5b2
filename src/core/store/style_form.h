#pragma once

#include <QChar>
#include <QString>
#include <QStringView>

#include <array>

namespace paneda {

// A style code taken apart into what the style dialog shows. Codes of positions are single characters.
struct StyleForm {
    QChar WidthCode = u'1';   // "0" for half a unit, "1" to "9", "A" for 10
    bool WidthIsHalf = false; // half a unit more; never with "0" or "A"
    QChar HeightCode = u'1';  // "0" or "1"
    bool Icon = true;
    bool IconIsBig = true;
    int IconAlignment = 1; // 1 to 9, rows of three from top left
    int LabelFont = 3;     // 1 to 4
    bool Border = false;
    bool Bold = false;
    int LabelPosition = 1;  // 1 to 3
    int LabelAlignment = 1; // as IconAlignment
    bool Label = true;
    bool Background = true;

    friend bool operator==(const StyleForm&, const StyleForm&) = default;
};

// What a code means; a character that means nothing gives the usual value of its place.
StyleForm DecodeStyleForm(QStringView code);

// The eleven characters.
QString EncodeStyle(const StyleForm& form);

// What a click on a width (0 for half a unit, 1 to 10), on "half a unit more" and on a height (0 or 1) does.
// The smallest sizes take the small icon.
StyleForm WithWidth(StyleForm form, int units);
StyleForm WithWidthHalf(StyleForm form);
StyleForm WithHeight(StyleForm form, int units);

// The cell of the width that the form shows, 0 to 10; -1 for a width that none has.
int WidthCell(const StyleForm& form);

// A look to begin with.
struct StyleTemplate {
    const char* Name; // of its picture, behind "picTemplate"
    const char* Style;
    const char* Caption; // on its picture; empty for none
    const char* Spoken;  // for screen readers and tool tips
};

inline constexpr std::array<StyleTemplate, 9> kStyleTemplates{{
    {"SmallIcon", "0021300110", "", "Small icon"},
    {"BigIcon", "11113001100", "", "Big icon"},
    {"ShortName", "1111111351", "overlap", "Big icon with a short name over it"},
    {"3XList", "30213001411", "3x List", "Line of a list, three units wide"},
    {"25List", "C0213001411", "2.5x List", "Line of a list, two and a half units wide"},
    {"SmallIconName", "11223003811", "Short", "Small icon with a short name below it"},
    {"25Button", "C1113001411", "2.5x Button", "Button with a big icon"},
    {"25SmallIcon", "C1243001411", "2.5x Small Icon Button", "Button with a small icon"},
    {"25FlatList", "C0213001410", "2.5x Flat List", "Line of a list without background"},
}};

} // namespace paneda
