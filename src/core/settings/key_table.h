#pragma once

#include <QString>

#include <vector>

namespace paneda {

// A key that the settings offer for the hotkey.
struct KeyRow {
    QString Text;
    int Key = 0; // virtual key code; 0 for no key
};

// The keys in the order of the list. The text of the first is one blank, for no key.
const std::vector<KeyRow>& KeyTable();

// The key with exactly this text; 0 if there is none.
int KeyOfText(const QString& text);

// The text of a key; empty if it is not in the table.
QString TextOfKey(int key);

// Whether a key is used for typing: letters, digits, the number pad, and the keys that move the cursor,
// delete or end a line. Such a key as a hotkey without Ctrl, Alt or Win can no longer be typed in any
// program.
bool KeyTypes(int key);

} // namespace paneda
