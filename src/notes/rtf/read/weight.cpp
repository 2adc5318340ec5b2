#include "notes/rtf/read/weight.h"

#include "notes/rtf/read/content.h"

#include <QLocale>

#include <algorithm>

namespace paneda {

namespace {

// Words of fewer letters cost nothing that could be measured.
constexpr qsizetype kShort = 200;
// Microseconds, to be multiplied by the square of the word's letters, and of the pieces in it that are shaped
// each for itself.
constexpr double kLetterPair = 6e-5;
constexpr double kPiecePair = 7e-3;

// Between these a line may be broken anywhere.
bool IsIdeograph(QChar::Script script) {
    return script == QChar::Script_Han || script == QChar::Script_Hiragana ||
           script == QChar::Script_Katakana || script == QChar::Script_Hangul ||
           script == QChar::Script_Bopomofo;
}

// Adds up the words of a paragraph while their letters come.
class Words {
public:
    void Take(QChar c, bool beginsRun) {
        const QChar::Script script = c.script();
        if (c.isSpace() || c == u'-' || c == QChar::ObjectReplacementCharacter || IsIdeograph(script)) {
            End();
            return;
        }
        ++letters_;
        const bool isOther = script > QChar::Script_Common && script != script_;
        if (isOther)
            script_ = script;
        pieces_ += int(beginsRun || isOther);
    }

    RtfBreaking Result() {
        End();
        return result_;
    }

private:
    void End() {
        if (letters_ > kShort) {
            result_.Cost += double(letters_) * double(letters_) * kLetterPair +
                            double(pieces_) * double(pieces_) * kPiecePair;
            result_.Letters += letters_;
        }
        letters_ = 0;
        pieces_ = 0;
    }

    qsizetype letters_ = 0;
    qsizetype pieces_ = 0;
    QChar::Script script_ = QChar::Script_Common;
    RtfBreaking result_;
};

QString Name(RtfBurden burden) {
    switch (burden) {
    case RtfBurden::Paragraphs:
        return QStringLiteral("%1 paragraphs");
    case RtfBurden::Characters:
        return QStringLiteral("%1 characters");
    case RtfBurden::LongWords:
        return QStringLiteral("%1 letters without a blank");
    case RtfBurden::Cells:
        return QStringLiteral("%1 table cells");
    case RtfBurden::Items:
        return QStringLiteral("%1 list items");
    case RtfBurden::Formatting:
        return QStringLiteral("%1 kinds of formatting");
    case RtfBurden::Fonts:
        return QStringLiteral("%1 fonts and sizes");
    case RtfBurden::Things:
        return QStringLiteral("%1 pictures and embedded things");
    case RtfBurden::Source:
    case RtfBurden::Count:
        break;
    }
    return QStringLiteral("%1 steps of formatting");
}

// The last letter before the blocks that few fonts have.
constexpr char16_t kLastNear = 0x58F;

} // namespace

void RtfWeight::AddText(QStringView text) {
    const auto isFar = [](QChar c) { return c.unicode() > kLastNear && c != QChar::LineSeparator; };
    const auto far = std::count_if(text.begin(), text.end(), isFar);
    Add(RtfBurden::Characters, text.size() - far, rtf_cost::kCharacter);
    Add(RtfBurden::Characters, far, rtf_cost::kFarCharacter);
    Add(RtfBurden::Paragraphs, text.count(QChar::LineSeparator), rtf_cost::kParagraph);
}

QString RtfWeight::Reason() const {
    const auto heaviest = std::max_element(entries_.begin(), entries_.end(),
                                           [](const Entry& a, const Entry& b) { return a.Cost < b.Cost; });
    const QString number = QLocale(QLocale::English, QLocale::UnitedStates).toString(heaviest->Count - 1);
    return QStringLiteral("more than ") + Name(RtfBurden(heaviest - entries_.begin())).arg(number);
}

RtfBreaking BreakingOf(QStringView text, const std::vector<RtfRun>& runs) {
    if (text.size() < kShort)
        return {};
    Words words;
    qsizetype at = 0;
    for (const RtfRun& run : runs) {
        for (qsizetype i = 0; i < run.Length; ++i)
            words.Take(text[at + i], i == 0);
        at += run.Length;
    }
    return words.Result();
}

} // namespace paneda
