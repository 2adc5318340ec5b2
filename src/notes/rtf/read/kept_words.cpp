#include "notes/rtf/read/kept_words.h"

#include <QStringBuilder>

namespace paneda {

namespace {

bool IsName(char c) {
    return c >= 'A';
}

void DropWord(QByteArray& words, QByteArrayView name) {
    const QByteArray start = "\\" + name.toByteArray();
    for (qsizetype at = words.indexOf(start); at >= 0; at = words.indexOf(start, at + 1)) {
        qsizetype end = at + start.size();
        if (end < words.size() && IsName(words[end]) && words[end] != '\\')
            continue;
        end = words.indexOf('\\', end);
        words.remove(at, (end < 0 ? words.size() : end) - at);
        return;
    }
}

} // namespace

QByteArray SourceOfWord(const RtfToken& token) {
    QByteArray source = "\\" + token.Text.toByteArray();
    if (token.HasNumber)
        source += QByteArray::number(token.Number);
    return source;
}

void KeepWord(QByteArray& words, const RtfToken& token, bool isToggle) {
    DropWord(words, token.Text);
    if (isToggle && token.HasNumber && token.Number == 0)
        return;
    if (words.size() < kMaxKeptWords)
        words += SourceOfWord(token);
}

} // namespace paneda
