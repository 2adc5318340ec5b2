#include "platform/linux/key_codes.h"

#include "core/panel/triggers.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include <X11/keysym.h>
#include <xcb/xproto.h>

namespace paneda {

namespace {

struct NamedKey {
    int VirtualKey;
    quint32 Symbol;
    const char* Name;
};

constexpr NamedKey kNamedKeys[] = {
    {8, XK_BackSpace, "BackSpace"},
    {9, XK_Tab, "Tab"},
    {13, XK_Return, "Return"},
    {19, XK_Pause, "Pause"},
    {20, XK_Caps_Lock, "Caps_Lock"},
    {27, XK_Escape, "Escape"},
    {32, XK_space, "space"},
    {33, XK_Prior, "Prior"},
    {34, XK_Next, "Next"},
    {35, XK_End, "End"},
    {36, XK_Home, "Home"},
    {37, XK_Left, "Left"},
    {38, XK_Up, "Up"},
    {39, XK_Right, "Right"},
    {40, XK_Down, "Down"},
    {44, XK_Print, "Print"},
    {45, XK_Insert, "Insert"},
    {46, XK_Delete, "Delete"},
    {106, XK_KP_Multiply, "KP_Multiply"},
    {107, XK_KP_Add, "KP_Add"},
    {109, XK_KP_Subtract, "KP_Subtract"},
    {110, XK_KP_Decimal, "KP_Decimal"},
    {111, XK_KP_Divide, "KP_Divide"},
    {144, XK_Num_Lock, "Num_Lock"},
    {145, XK_Scroll_Lock, "Scroll_Lock"},
};

// The places of A to Z on a PC keyboard, as key codes.
constexpr quint8 kLetterPlaces[] = {38, 56, 54, 40, 26, 41, 42, 43, 31, 44, 45, 46, 58,
                                    57, 32, 33, 24, 27, 39, 28, 30, 55, 25, 53, 29, 52};

bool IsLetter(int virtualKey) {
    return virtualKey >= 'A' && virtualKey <= 'Z';
}

bool IsOnPad(quint32 symbol) {
    return symbol >= XK_KP_Space && symbol <= XK_KP_9;
}

// Some keyboards have a comma instead of the numeric pad's point, or list only the capital of a letter.
std::vector<quint32> SymbolsOf(int virtualKey) {
    const quint32 symbol = NameOfKey(virtualKey).Symbol;
    if (symbol == XK_KP_Decimal)
        return {symbol, XK_KP_Separator};
    if (IsLetter(virtualKey))
        return {symbol, quint32(virtualKey)};
    return {symbol};
}

std::vector<quint8> KeycodesWith(const std::vector<quint32>& symbols, int level, const KeyboardMap& map) {
    std::vector<quint8> found;
    const std::size_t step = std::size_t(map.SymbolsPerKeycode);
    for (std::size_t at = 0; at + step <= map.Symbols.size(); at += step) {
        const quint32 symbol = map.Symbols[at + std::size_t(level)];
        if (std::find(symbols.begin(), symbols.end(), symbol) != symbols.end())
            found.push_back(quint8(map.FirstKeycode + at / step));
    }
    return found;
}

// The first modifier that a key with one of the symbols sets; 0 for none.
quint16 MaskOf(const std::vector<quint32>& symbols, const ModifierMap& modifiers, const KeyboardMap& map) {
    quint16 mask = 0;
    for (int level = 0; level < map.SymbolsPerKeycode; ++level) {
        for (const quint8 keycode : KeycodesWith(symbols, level, map)) {
            for (std::size_t i = 0; i < modifiers.Keycodes.size(); ++i) {
                if (modifiers.Keycodes[i] == keycode)
                    mask |= quint16(1U << (i / std::size_t(modifiers.KeycodesPerModifier)));
            }
        }
    }
    return quint16(mask & (~unsigned(mask) + 1));
}

std::vector<quint16> Combinations(const std::vector<quint16>& masks) {
    std::vector<quint16> all{0};
    for (const quint16 mask : masks) {
        if (mask == 0 || std::find(all.begin(), all.end(), mask) != all.end())
            continue;
        const std::vector<quint16> before = all;
        std::transform(before.begin(), before.end(), std::back_inserter(all),
                       [mask](quint16 other) { return quint16(other | mask); });
    }
    return all;
}

} // namespace

KeyName NameOfKey(int virtualKey) {
    if (IsLetter(virtualKey))
        return {quint32(virtualKey - 'A' + XK_a), QString(QChar(virtualKey - 'A' + 'a'))};
    if (virtualKey >= '0' && virtualKey <= '9')
        return {quint32(virtualKey), QString(QChar(virtualKey))};
    if (virtualKey >= 96 && virtualKey <= 105)
        return {quint32(virtualKey - 96 + XK_KP_0), QStringLiteral("KP_%1").arg(virtualKey - 96)};
    if (virtualKey >= 112 && virtualKey <= 122)
        return {quint32(virtualKey - 112 + XK_F1), QStringLiteral("F%1").arg(virtualKey - 111)};
    const auto key = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                  [virtualKey](const NamedKey& row) { return row.VirtualKey == virtualKey; });
    return key == std::end(kNamedKeys) ? KeyName() : KeyName{key->Symbol, QString::fromLatin1(key->Name)};
}

std::vector<quint8> KeycodesOf(int virtualKey, const KeyboardMap& map) {
    const std::vector<quint32> symbols = SymbolsOf(virtualKey);
    if (symbols.front() == 0)
        return {};
    std::vector<quint8> found;
    for (int level = 0; level < map.SymbolsPerKeycode; ++level) {
        for (const quint8 keycode : KeycodesWith(symbols, level, map)) {
            if (std::find(found.begin(), found.end(), keycode) == found.end())
                found.push_back(keycode);
        }
        if (!found.empty() && !IsOnPad(symbols.front()))
            return found;
    }
    if (!found.empty())
        return found;
    if (IsLetter(virtualKey) && !map.Symbols.empty())
        return {kLetterPlaces[virtualKey - 'A']};
    return {};
}

ModifierMasks MasksOf(int modifiers, const ModifierMap& modifierMap, const KeyboardMap& keyboard) {
    const quint16 alt = MaskOf({XK_Alt_L, XK_Alt_R}, modifierMap, keyboard);
    const quint16 win = MaskOf({XK_Super_L, XK_Super_R}, modifierMap, keyboard);
    ModifierMasks masks;
    masks.Known = (!(modifiers & kHotkeyAlt) || alt != 0) && (!(modifiers & kHotkeyWin) || win != 0);
    masks.Wanted = quint16((modifiers & kHotkeyCtrl ? XCB_MOD_MASK_CONTROL : 0) |
                           (modifiers & kHotkeyShift ? XCB_MOD_MASK_SHIFT : 0) |
                           (modifiers & kHotkeyAlt ? alt : 0) | (modifiers & kHotkeyWin ? win : 0));
    masks.Locks = Combinations({XCB_MOD_MASK_LOCK, MaskOf({XK_Num_Lock}, modifierMap, keyboard),
                                MaskOf({XK_Scroll_Lock}, modifierMap, keyboard)});
    return masks;
}

} // namespace paneda
