#pragma once

#include <QStringView>

namespace paneda {

enum class Column { Left, Centre, Right };
enum class Row { Top, Centre, Bottom };

// An alignment code is a digit 1 to 9 read as rows of three from top left. Any other code counts as 9, bottom
// right.
constexpr Column AlignColumn(int code) {
    if (code < 1 || code > 9 || code % 3 == 0)
        return Column::Right;
    return code % 3 == 1 ? Column::Left : Column::Centre;
}

constexpr Row AlignRow(int code) {
    if (code < 1 || code > 6)
        return Row::Bottom;
    return code <= 3 ? Row::Top : Row::Centre;
}

// The code of a skin's text; 0 if it is none.
inline int AlignmentCode(QStringView text) {
    return text.size() == 1 && text[0] >= u'1' && text[0] <= u'9' ? text[0].unicode() - u'0' : 0;
}

inline Column AlignColumn(QStringView text) {
    return AlignColumn(AlignmentCode(text));
}

inline Row AlignRow(QStringView text) {
    return AlignRow(AlignmentCode(text));
}

} // namespace paneda
