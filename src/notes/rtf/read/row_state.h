#pragma once

#include "notes/rtf/read/char_state.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace paneda {

// More cells than any program writes in a row; what comes behind them is put into the last one.
inline constexpr int kMaxRtfRowCells = 500;

// A border's words in short.
struct RtfBorder {
    bool IsSet = false;
    // Twips.
    int Width = 15;
    int Colour = 0;
    bool IsDouble = false;
    bool IsDotted = false;
    bool IsDashed = false;
};

struct RtfCellDefinition {
    // Twips from the left margin; of use from \cellx on.
    int Right = 0;
    bool MergeFirst = false;
    bool MergeNext = false;
    bool MergeRowsFirst = false;
    bool MergeRowsNext = false;
    // Number in the colour table; 0 for none.
    int Back = 0;
    QTextCharFormat::VerticalAlignment Vertical = QTextCharFormat::AlignTop;
    // Top, left, bottom, right.
    RtfBorder Borders[4];
    // As they stood, without the merge words.
    QByteArray Words;
};

// The definition of a row as \trowd begins it.
struct RtfRowDefinition {
    int Left = 0;
    bool IsHeader = false;
    Qt::Alignment Alignment = Qt::AlignLeft;
    QByteArray Words;
    std::vector<RtfCellDefinition> Cells;
};

// Takes the words of row definitions. What a finished row refers to is not changed by a later word.
class RtfRowState {
public:
    // False if the word has nothing to do with rows here: only \trowd begins a definition, and words that
    // merely look like it are a row's while one is open.
    bool Apply(RtfWord meaning, const RtfToken& token);

    // The definition ends where text or a paragraph's words begin.
    void Close() { open_ = false; }

    std::shared_ptr<const RtfRowDefinition> Definition() const { return row_; }

    // A row has more cells, or more words, than are kept.
    bool IsCut() const { return cut_; }

private:
    RtfRowDefinition& Row();
    bool ApplyCellWord(RtfWord meaning, const RtfToken& token);
    bool ApplyRowWord(RtfWord meaning, const RtfToken& token);
    void ApplyBorder(RtfWord meaning, const RtfToken& token);
    void EndCell(int right);
    void Keep(QByteArray& words, const RtfToken& token);

    std::shared_ptr<RtfRowDefinition> row_ = std::make_shared<RtfRowDefinition>();
    RtfCellDefinition cell_;
    // Side of the cell whose border is told; -1 for none.
    int side_ = -1;
    bool borderIsCells_ = false;
    bool open_ = false;
    bool cut_ = false;
};

} // namespace paneda
