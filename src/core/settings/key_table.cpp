#include "core/settings/key_table.h"

#include <algorithm>

namespace paneda {

namespace {

void AddRange(std::vector<KeyRow>& rows, const QString& prefix, QChar first, int count, int key) {
    for (int i = 0; i < count; ++i)
        rows.push_back({prefix + QChar(char16_t(first.unicode() + i)), key + i});
}

void AddNamed(std::vector<KeyRow>& rows) {
    static const KeyRow kNamed[] = {
        {QStringLiteral("Prt Scr"), 44},    {QStringLiteral("Scroll Lock"), 145},
        {QStringLiteral("Pause"), 19},      {QStringLiteral("Back"), 8},
        {QStringLiteral("Tab"), 9},         {QStringLiteral("Enter"), 13},
        {QStringLiteral("Caps Lock"), 20},  {QStringLiteral("Esc"), 27},
        {QStringLiteral("Space Bar"), 32},  {QStringLiteral("Page Up"), 33},
        {QStringLiteral("Page Down"), 34},  {QStringLiteral("End"), 35},
        {QStringLiteral("Home"), 36},       {QStringLiteral("Arrow Left"), 37},
        {QStringLiteral("Arrow Up"), 38},   {QStringLiteral("Arrow Right"), 39},
        {QStringLiteral("Arrow Down"), 40}, {QStringLiteral("Insert"), 45},
        {QStringLiteral("Delete"), 46},
    };
    rows.insert(rows.end(), std::begin(kNamed), std::end(kNamed));
}

void AddNumpad(std::vector<KeyRow>& rows) {
    AddRange(rows, QStringLiteral("Numpad "), u'0', 10, 96);
    rows.push_back({QStringLiteral("Numpad *"), 106});
    rows.push_back({QStringLiteral("Numpad +"), 107});
    rows.push_back({QStringLiteral("Numpad -"), 109});
    rows.push_back({QStringLiteral("Numpad ."), 110});
    rows.push_back({QStringLiteral("Numpad /"), 111});
}

// F12 is left out: Windows keeps it for debuggers.
std::vector<KeyRow> MakeTable() {
    std::vector<KeyRow> rows{{QStringLiteral(" "), 0}};
    AddRange(rows, {}, u'A', 26, 65);
    AddRange(rows, QStringLiteral("F"), u'1', 9, 112);
    AddRange(rows, QStringLiteral("F1"), u'0', 2, 121);
    AddNamed(rows);
    AddRange(rows, {}, u'0', 10, 48);
    rows.push_back({QStringLiteral("Num Lock"), 144});
    AddNumpad(rows);
    return rows;
}

} // namespace

const std::vector<KeyRow>& KeyTable() {
    static const std::vector<KeyRow> table = MakeTable();
    return table;
}

int KeyOfText(const QString& text) {
    const auto row = std::find_if(KeyTable().begin(), KeyTable().end(),
                                  [&text](const KeyRow& candidate) { return candidate.Text == text; });
    return row == KeyTable().end() ? 0 : row->Key;
}

QString TextOfKey(int key) {
    const auto row = std::find_if(KeyTable().begin(), KeyTable().end(),
                                  [key](const KeyRow& candidate) { return candidate.Key == key; });
    return row == KeyTable().end() ? QString() : row->Text;
}

bool KeyTypes(int key) {
    constexpr int kF1 = 112;
    constexpr int kF11 = 122;
    // No key, Pause, Caps Lock, Print Screen, Num Lock, Scroll Lock.
    constexpr int kOthers[] = {0, 19, 20, 44, 144, 145};
    return (key < kF1 || key > kF11) &&
           std::find(std::begin(kOthers), std::end(kOthers), key) == std::end(kOthers);
}

} // namespace paneda
