#pragma once

#include "notes/rtf/read/code_pages.h"

#include <QByteArray>
#include <QTextListFormat>

#include <unordered_map>
#include <vector>

namespace paneda {

inline constexpr int kMaxRtfListLevel = 8;

// One {\*\pn ...} group: a list of the old form.
struct RtfOldList {
    // The group without "{\*\pn" and "}".
    QByteArray Source;
    QTextListFormat Format;
    // \pnlvlcont: the paragraph continues an item and has no marker.
    bool IsContinued = false;
};

// Reads the inner part of a {\*\pn ...} group.
RtfOldList ReadOldList(QByteArrayView source, const RtfEncoding& encoding);

// The note's list tables: formats by \ls and \ilvl.
class RtfListTables {
public:
    // A whole {\*\listtable...} or {\*\listoverridetable...} group.
    void ReadTable(QByteArrayView group, const RtfEncoding& encoding);
    void ReadOverrides(QByteArrayView group);

    // nullptr for a list that the tables lack, and for a level without marker.
    const QTextListFormat* Find(int listNumber, int level) const;

private:
    // By list id, then level.
    std::unordered_map<int, std::vector<QTextListFormat>> lists_;
    std::unordered_map<int, int> idOfNumber_;
};

} // namespace paneda
