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

// The list side of the paragraphs, which have to be given in their order: in the old \pn form, which every
// reader knows, and with the number of the note's own list table where the list is still what that says.
class RtfListWriter {
public:
    explicit RtfListWriter(RtfNumbers& numbers) : numbers_(numbers) {}

    struct Item {
        QByteArray Text;  // {\pntext...}, in front of every item
        QByteArray Group; // {\*\pn...} and words behind \pard
    };

    // An item without texts for a block that is in no list.
    Item Next(const QTextBlock& block);

private:
    QByteArray Form(const QTextListFormat& format, int start);
    QByteArray Marker(const QTextListFormat& format, int number);
    int BulletFont(const QTextListFormat& format);

    RtfNumbers& numbers_;
    // Counted here, as Qt looks for an item's place from the start of its list.
    QHash<const QTextList*, int> counts_;
    const QTextList* last_ = nullptr;
    int start_ = 1; // first number of the run of items that stand one behind the other
};

} // namespace paneda
