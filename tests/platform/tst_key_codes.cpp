#include "core/panel/triggers.h"
#include "core/settings/key_table.h"
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
    void everyRowHasAName();
    void keycodes_data();
    void keycodes();
    void masks_data();
    void masks();
    void shortcutText();
};

void tst_key_codes::everyRowHasAName() {
    for (const KeyRow& row : KeyTable())
        QCOMPARE(NameOfKey(row.Key).Symbol == 0, row.Key == 0);
    QVERIFY(NameOfKey(123).Name.isEmpty());
}

void tst_key_codes::keycodes_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<KeyboardMap>("map");
    QTest::addColumn<std::vector<quint8>>("expected");
    using Codes = std::vector<quint8>;

    QTest::newRow("own key before a shifted one") << int('1') << kKeyboard << Codes{10};
    QTest::newRow("shifted alone") << 96 << kKeyboard << Codes{12};
    QTest::newRow("letter by its place") << int('Q') << kKeyboard << Codes{24};
    QTest::newRow("no key") << 0 << kKeyboard << Codes{};
    QTest::newRow("two keys") << 13 << KeyboardMap{8, 1, {XK_Return, XK_a, XK_Return}} << Codes{8, 10};
    QTest::newRow("comma on the pad")
        << 110 << KeyboardMap{8, 2, {XK_KP_Delete, XK_KP_Separator}} << Codes{8};
    QTest::newRow("pad, on two levels")
        << 110 << KeyboardMap{8, 2, {XK_KP_Delete, XK_KP_Decimal, XK_KP_Decimal, XK_KP_Decimal}}
        << Codes{9, 8};
    QTest::newRow("cut map") << int('A') << KeyboardMap{8, 2, {XK_b, XK_B, XK_a}} << Codes{38};
}

void tst_key_codes::keycodes() {
    QFETCH(int, key);
    QFETCH(KeyboardMap, map);
    QTEST(KeycodesOf(key, map), "expected");
}

void tst_key_codes::masks_data() {
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<std::vector<quint8>>("modifierKeys"); // two to a modifier
    QTest::addColumn<bool>("known");
    QTest::addColumn<int>("wanted");
    QTest::addColumn<std::vector<quint16>>("locks");
    using Keys = std::vector<quint8>;
    using Masks = std::vector<quint16>;

    // Key codes: 1 Alt, 2 Super, 3 Num Lock, 4 Scroll Lock. Modifiers: Shift, Lock, Control, Mod1 to Mod5.
    const Keys usual{0, 0, 0, 0, 0, 0, 1, 0, 3, 0, 0, 0, 2, 0, 0, 0};
    const Keys moved{0, 0, 0, 0, 0, 0, 2, 0, 0, 4, 1, 0, 0, 0, 0, 3};
    const Keys poor{0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    QTest::newRow("usual") << 15 << usual << true << 1 + 4 + 8 + 64 << Masks{0, 2, 16, 18};
    QTest::newRow("alt on Mod3, all locks")
        << 1 << moved << true << 32 << Masks{0, 2, 128, 130, 16, 18, 144, 146};
    QTest::newRow("no Win key, wanted") << 8 << poor << false << 0 << Masks{0, 2};
}

void tst_key_codes::masks() {
    QFETCH(int, modifiers);
    QFETCH(std::vector<quint8>, modifierKeys);
    const KeyboardMap keyboard{1, 1, {XK_Alt_L, XK_Super_L, XK_Num_Lock, XK_Scroll_Lock}};
    const ModifierMasks masks = MasksOf(modifiers, {2, modifierKeys}, keyboard);
    QTEST(masks.Known, "known");
    QTEST(int(masks.Wanted), "wanted");
    QTEST(masks.Locks, "locks");
}

void tst_key_codes::shortcutText() {
    QCOMPARE(ShortcutText(kHotkeyCtrl | kHotkeyAlt, 32), QStringLiteral("CTRL+ALT+space"));
    QCOMPARE(ShortcutText(kHotkeyShift | kHotkeyWin, 105), QStringLiteral("SHIFT+LOGO+KP_9"));
    QCOMPARE(ShortcutText(0, 122), QStringLiteral("F11"));
    QCOMPARE(ShortcutText(kHotkeyCtrl, 0), QString());
}

QTEST_GUILESS_MAIN(tst_key_codes)
#include "tst_key_codes.moc"
