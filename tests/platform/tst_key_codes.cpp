#include "core/panel/triggers.h"
#include "platform/linux/key_codes.h"
#include "platform/linux/portal_hotkey.h"

#include <QTest>

#include <X11/keysym.h>

using namespace paneda;

// A keyboard of four keys with two levels each, from key code 10 on.
static const KeyboardMap kKeyboard{
    10, 2, {XK_1, XK_ampersand, XK_a, XK_A, XK_KP_Insert, XK_KP_0, XK_b, XK_1}};

class tst_key_codes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keycodes();
    void masks();
    void shortcutText();
};

void tst_key_codes::keycodes() {
    using Codes = std::vector<quint8>;
    QCOMPARE(KeycodesOf('1', kKeyboard), Codes{10}); // not the key that has it with Shift
    QCOMPARE(KeycodesOf(96, kKeyboard), Codes{12});  // on a second level alone
    QCOMPARE(KeycodesOf('Q', kKeyboard), Codes{24}); // a letter by its place
    QCOMPARE(KeycodesOf(0, kKeyboard), Codes{});
    QCOMPARE(KeycodesOf(110, {8, 2, {XK_KP_Delete, XK_KP_Separator}}), Codes{8});
    QCOMPARE(KeycodesOf(110, {8, 2, {XK_KP_Delete, XK_KP_Decimal, XK_KP_Decimal, XK_KP_Decimal}}),
             (Codes{9, 8}));
}

void tst_key_codes::masks() {
    // Key codes: 1 Alt, 2 Super, 3 Num Lock, 4 Scroll Lock. Modifiers, two keys each: Shift, Lock, Control,
    // Mod1 to Mod5.
    const KeyboardMap keyboard{1, 1, {XK_Alt_L, XK_Super_L, XK_Num_Lock, XK_Scroll_Lock}};
    const ModifierMasks usual = MasksOf(15, {2, {0, 0, 0, 0, 0, 0, 1, 0, 3, 0, 0, 0, 2, 0, 0, 0}}, keyboard);
    QCOMPARE(usual.Wanted, 1 + 4 + 8 + 64);
    QCOMPARE(usual.Locks, (std::vector<quint16>{0, 2, 16, 18}));
    const ModifierMasks moved = MasksOf(1, {2, {0, 0, 0, 0, 0, 0, 2, 0, 0, 4, 1, 0, 0, 0, 0, 3}}, keyboard);
    QCOMPARE(moved.Wanted, 32);
    QCOMPARE(moved.Locks, (std::vector<quint16>{0, 2, 128, 130, 16, 18, 144, 146}));
    QVERIFY(usual.Known && !MasksOf(8, {2, {0, 0, 0, 0, 0, 0, 1, 0}}, keyboard).Known);
}

void tst_key_codes::shortcutText() {
    QCOMPARE(ShortcutText(kHotkeyCtrl | kHotkeyAlt, 32), QStringLiteral("CTRL+ALT+space"));
    QCOMPARE(ShortcutText(kHotkeyShift | kHotkeyWin, 105), QStringLiteral("SHIFT+LOGO+KP_9"));
    QCOMPARE(ShortcutText(0, 122), QStringLiteral("F11"));
    QCOMPARE(ShortcutText(kHotkeyCtrl, 0), QString());
}

QTEST_GUILESS_MAIN(tst_key_codes)
#include "tst_key_codes.moc"
