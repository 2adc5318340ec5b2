#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

class QTextBlock;
class QTextList;
class QTextListFormat;

namespace paneda {

class RtfNumbers;
class RtfOutput;

// The item numbers as readers show them: "iv", "D", "4". Empty for a bullet.
QString ListNumberText(int number, int style);

// Makes what RTF has in front of the text of list items: the old \pn form, which every reader knows, and the
// number in the note's list table, if the list has not been changed since. The paragraphs have to come in
// their order.
class RtfListWriter {
public:
    explicit RtfListWriter(RtfNumbers& numbers) : numbers_(numbers) {}

    struct Item {
        QByteArray Text;  // {\pntext...}, in front of every item
        QByteArray Group; // {\*\pn...} and words behind \pard
    };

    // Both texts are empty for a block that is in no list.
    Item Next(const QTextBlock& block);

private:
    QByteArray Form(const QTextListFormat& format, int start);
    QByteArray Marker(const QTextListFormat& format, int number);
    int BulletFont(const QTextListFormat& format);

    RtfNumbers& numbers_;
    // Items so far in each list. Qt could say that too, but looks through the whole list each time.
    QHash<const QTextList*, int> counts_;
    const QTextList* last_ = nullptr;
    int start_ = 1; // number of the first item since the list was last interrupted
};

} // namespace paneda
