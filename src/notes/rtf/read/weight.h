#pragma once

#include <QString>
#include <QStringView>

#include <array>

namespace paneda {

struct RtfRun;

// What costs time and memory when a note is shown. Without a bound a small file could keep the window busy
// for minutes: Qt's layout takes a time that grows with the square of a word's letters and of a list's items,
// and twice as long for each level that a table lies deeper.
enum class RtfBurden {
    Paragraphs,
    Characters,
    LongWords,  // letters in words, and changes of look within them
    Cells,      // of tables
    Items,      // of lists
    Formatting, // different looks, and what is kept of unknown ones
    Fonts,      // different fonts, sizes among them
    Things,     // pictures and what else stands in a line
    Source,     // steps of reading
    Count
};

// Adds up what a note costs, in microseconds of the machine on which docs/limits.md was measured. One sum
// for all, so that a note which nearly reaches several limits takes no longer than one that reaches one.
class RtfWeight {
public:
    // One second and a half leaves room within two seconds for the disk and the first picture; by then no
    // more than some 200 MB are taken.
    explicit RtfWeight(double limit = 1'500'000) : left_(limit) {}

    void Add(RtfBurden burden, qint64 count, double each) {
        const double cost = double(count) * each;
        Entry& entry = entries_[std::size_t(burden)];
        entry.Count += count;
        entry.Cost += cost;
        left_ -= cost;
    }

    void AddText(QStringView text);

    bool IsTooMuch() const { return left_ < 0; }

    // What the note has most of, for the user: "more than 20,000 table cells".
    QString Reason() const;

private:
    struct Entry {
        qint64 Count = 0;
        double Cost = 0;
    };

    double left_;
    std::array<Entry, std::size_t(RtfBurden::Count)> entries_;
};

// Microseconds, measured as docs/limits.md says.
namespace rtf_cost {
inline constexpr double kParagraph = 4;
inline constexpr double kCharacter = 0.3;    // also stands for their 50 bytes
inline constexpr double kFarCharacter = 0.8; // of scripts that the note's own font may not have
inline constexpr double kCell = 75;          // doubled for each table around the cell's table
inline constexpr double kItem = 0.046;       // for each item that the list has already
inline constexpr double kFormat = 50;        // also stands for its 1.5 kB
inline constexpr double kFont = 400;
inline constexpr double kThing = 50;
inline constexpr double kKeptByte = 0.02; // stands for two bytes in each look that has the word
inline constexpr double kTab = 0.6;
inline constexpr double kCellDefinition = 2; // stands for 80 bytes
inline constexpr double kToken = 0.05;
inline constexpr double kLookedAhead = 0.002; // for each byte
} // namespace rtf_cost

// What breaking a paragraph into lines costs beyond what its characters and its end do.
struct RtfBreaking {
    double Cost = 0;    // microseconds
    qint64 Letters = 0; // in long words
};
RtfBreaking BreakingOf(QStringView text, const std::vector<RtfRun>& runs);

} // namespace paneda
