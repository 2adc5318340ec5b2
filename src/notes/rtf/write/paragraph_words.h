#pragma once

#include <QByteArray>

class QTextBlock;

namespace paneda {

class RtfNumbers;

// The words that tell a paragraph's look from that behind \pard, without list and table words.
QByteArray ParagraphWords(const QTextBlock& block, RtfNumbers& numbers);

} // namespace paneda
