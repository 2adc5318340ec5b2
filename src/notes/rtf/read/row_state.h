#pragma once

#include "notes/rtf/read/char_state.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace paneda {

// More cells than any program writes in a row; what comes behind them is put into the last one.
inline constexpr int kMaxRtfRowCells = 500;

// What the words of a border say.
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
    // Right edge in twips from the left margin; known when \cellx has been read.
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
    // As read, but for the words that merge cells.
    QByteArray Words;
};

// A row's definition, which begins with \trowd.
struct RtfRowDefinition {
    int Left = 0;
    bool IsHeader = false;
    Qt::Alignment Alignment = Qt::AlignLeft;
    QByteArray Words;
    std::vector<RtfCellDefinition> Cells;
};

// Reads the definitions of rows. Rows that follow each other share a definition until a word changes it.
class RtfRowState {
public:
    // Takes a word; false if it belongs to no row. Only \trowd begins a definition, and words that merely
    // look like a row's count only while a definition is open.
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
    // Side of the cell whose border the next words describe, as in Borders; -1 for none.
    int side_ = -1;
    bool borderIsCells_ = false;
    bool open_ = false;
    bool cut_ = false;
};

} // namespace paneda
