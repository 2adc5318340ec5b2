#pragma once

#include <QString>
#include <QStringView>

namespace paneda {

// The number that a text begins with: optional blanks, sign, digits, a point and digits, an exponent.
// 0 if it does not begin with a number. Never NaN or infinite.
double LeadingNumber(QStringView text);

// LeadingNumber cut to a whole number and held to the range of int.
int LeadingInt(QStringView text);

// The value, or the fallback if the value is the empty text.
QString IfEmpty(const QString& value, const QString& fallback);

// Without blanks (U+0020 alone) at both ends.
QString TrimBlanks(QStringView text);

// Whole number nearest to the value; a half goes to the even neighbour.
int RoundHalfEven(double value);

// How often `what` stands in `text`, counted without overlap. 0 for an empty `what`.
int CountOccurrences(QStringView text, QStringView what);

// The position, from 1, of the n-th occurrence of `what` counted from the end. 0 if there are fewer than n.
int FindFromEnd(QStringView text, QStringView what, int n);

// Text order of the store: byte order of UTF-8. Negative, 0 or positive, as a comes before, with or after b.
int CompareText(QStringView a, QStringView b);

// Whether two names are the same when the case of letters is ignored, as the store does.
bool SameName(QStringView a, QStringView b);

} // namespace paneda
