#pragma once

#include <QString>
#include <QtGlobal>

#include <array>
#include <vector>

namespace paneda {

// Keys and modifiers of the key table as the X server's keyboard has them. Pure functions of the tables that
// the server gives out.

// What a virtual key is called here.
struct KeyName {
    quint32 Symbol = 0; // keysym; 0 for a key that is not in the table
    QString Name;       // its name without "XK_", as shortcut texts of the desktop have it
};

KeyName NameOfKey(int virtualKey);

// The server's keyboard map: for each key code, from the first one on, the same number of keysyms.
struct KeyboardMap {
    quint8 FirstKeycode = 8;
    int SymbolsPerKeycode = 0;
    std::vector<quint32> Symbols;
};

// The key codes that a virtual key stands for: those with its keysym on the lowest level that has it at all,
// so that a key which bears it only with a modifier does not come before its own. Of the numeric pad all that
// have it count: its digits stand on the second level, and keyboards that the map allows for but that nobody
// has got bear some on the first. A letter that the layout lacks altogether, as a Greek or Cyrillic one does,
// is the key at that place of a PC keyboard.
std::vector<quint8> KeycodesOf(int virtualKey, const KeyboardMap& map);

// The server's modifier map: key codes for each of Shift, Lock, Control and Mod1 to Mod5; 0 is no key code.
struct ModifierMap {
    int KeycodesPerModifier = 0;
    std::vector<quint8> Keycodes;
};

// What the modifiers of a hotkey are on this keyboard.
struct ModifierMasks {
    bool Known = false; // false when the keyboard lacks one of the wanted modifiers
    quint16 Wanted = 0;
    // Every combination of the locks, which make no difference to a hotkey; 0 among them.
    std::vector<quint16> Locks;
};

// `modifiers` is made of HotkeyModifier bits.
ModifierMasks MasksOf(int modifiers, const ModifierMap& modifierMap, const KeyboardMap& keyboard);

} // namespace paneda
