#pragma once

#include <QString>
#include <QtGlobal>

#include <array>
#include <vector>

namespace paneda {

// Translates keys and modifiers of the key table to those of the X server's keyboard. Pure functions of the
// server's tables.

// The X name of a virtual key.
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

// The key codes of a virtual key: those that have its keysym on the lowest level on which any key has it, so
// that a key with this character only under a modifier does not replace the key that is meant. For the
// numeric pad, all key codes with the keysym: its digits are on the second level, and the map also lists keys
// that no real keyboard has, some of them on the first. A letter that the layout does not have, such as K on
// a Greek keyboard, is the key at that place of a PC keyboard. Empty if no key has the keysym.
std::vector<quint8> KeycodesOf(int virtualKey, const KeyboardMap& map);

// The server's modifier map: key codes for each of Shift, Lock, Control and Mod1 to Mod5; 0 is no key code.
struct ModifierMap {
    int KeycodesPerModifier = 0;
    std::vector<quint8> Keycodes;
};

// The modifiers of a hotkey as masks of this keyboard.
struct ModifierMasks {
    bool Known = false; // false when the keyboard lacks one of the wanted modifiers
    quint16 Wanted = 0;
    // Every combination of the lock keys, because locks must not change whether a hotkey works; 0 is one of
    // them.
    std::vector<quint16> Locks;
};

// `modifiers` is made of HotkeyModifier bits.
ModifierMasks MasksOf(int modifiers, const ModifierMap& modifierMap, const KeyboardMap& keyboard);

} // namespace paneda
