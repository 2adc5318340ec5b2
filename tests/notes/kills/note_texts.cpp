#include "notes/kills/note_texts.h"

#include <QList>

namespace paneda::test {

QByteArray TextOfSave(const QString& node, int save, int base) {
    const QByteArray mark = node.toUtf8() + ' ' + QByteArray::number(save) + ' ' + QByteArray::number(base);
    const QByteArray line = "line of " + mark + "\\par ";
    // Every other save is above the limit.
    const int lines = save % 2 == 0 ? 10 : 400;
    return "{\\rtf1 " + mark + ' ' + line.repeated(lines) + "}";
}

SaveFound FindSave(const QString& node, const QByteArray& text) {
    if (text.isEmpty())
        return {};
    const QList<QByteArray> words = text.left(200).split(' ');
    const int save = words.value(2).toInt();
    const int base = words.value(3).toInt();
    return text == TextOfSave(node, save, base) ? SaveFound{save, base} : SaveFound{-1, 0};
}

} // namespace paneda::test
