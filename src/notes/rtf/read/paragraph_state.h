#pragma once

#include "notes/rtf/read/char_state.h"
#include "notes/rtf/read/lists.h"

#include <QTextBlockFormat>
#include <QTextOption>

#include <memory>

namespace paneda {

// Tab stops of a paragraph that are kept at most.
inline constexpr qsizetype kMaxRtfTabs = 64;

// Formatting of the current paragraph while a note is read. Measures are twips.
struct RtfParagraphState {
    Qt::Alignment Alignment = Qt::AlignLeft;
    int Left = 0;
    int Right = 0;
    int First = 0;
    int Before = 0;
    int After = 0;
    int Line = 0;
    bool LineIsMultiple = false;
    bool PageBreak = false;
    bool RightToLeft = false;
    bool Keep = false;
    // Number in the colour table; 0 for none.
    int Back = 0;
    QList<QTextOption::Tab> Tabs;
    // Kind of the next tab stop.
    QTextOption::TabType TabType = QTextOption::LeftTab;
    QByteArray TabWords;
    // TabWords say more than Tabs can.
    bool TabWordsCount = false;
    QByteArray Words;
    // How many tables the paragraph is in; 0 for none.
    int Depth = 0;
    // \ls and \ilvl, and the old form of a list; 0 and null for none.
    int ListNumber = 0;
    int ListLevel = 0;
    std::shared_ptr<const RtfOldList> OldList;

    friend bool operator==(const RtfParagraphState&, const RtfParagraphState&) = default;
};

// Takes a word that formats paragraphs. False if it is none.
bool ApplyParagraphWord(RtfParagraphState& state, RtfWord meaning, const RtfToken& token);

// `inList`: the paragraph is a list item.
QTextBlockFormat ToBlockFormat(const RtfParagraphState& state, const RtfTables& tables, bool inList);

} // namespace paneda
