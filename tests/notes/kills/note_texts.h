#pragma once

#include <QByteArray>
#include <QString>

namespace paneda::test {

// The text of one save, which tells the node, the save, and the save whose text it was made from. Long enough
// to be compressed for some saves and not for others.
QByteArray TextOfSave(const QString& node, int save, int base);

// The number of the save that a text is, with its base; 0 for no text at all; -1 for a text that no save
// wrote for this node.
struct SaveFound {
    int Save = 0;
    int Base = 0;
};
SaveFound FindSave(const QString& node, const QByteArray& text);

// The limit above which the notes of these tests are compressed, in kilobytes.
inline constexpr int kCompressAbove = 2;

} // namespace paneda::test
