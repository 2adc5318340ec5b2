#pragma once

#include <QString>

#include <vector>

namespace paneda {

// A key that the settings offer for the hotkey.
struct KeyRow {
    QString Text;
    int Key = 0; // virtual key code; 0 stands for no key
};

// The keys in the order of the list. The first one is a blank, for no key.
const std::vector<KeyRow>& KeyTable();

// The key of the row with exactly this text; 0 if there is none.
int KeyOfText(const QString& text);

// The text of the row of a key; empty if there is none.
QString TextOfKey(int key);

// True for the keys that are pressed while one types: letters, digits, the number pad, and those that move,
// delete or end a line. Without Ctrl, Alt or Win a hotkey takes such a key away from all programs.
bool KeyTypes(int key);

} // namespace paneda
