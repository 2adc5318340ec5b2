#include "ui/settings/setting_words.h"

#include "core/panel/panel_geometry.h"
#include "core/settings/key_table.h"
#include "core/text/text_rules.h"

#include <QStringList>

namespace paneda {

namespace {

// Buttons in a row. A panel of 20 is 720 pixels wide, which fits on most screens.
constexpr double kWidest = 20;

// For example "Ctrl + Alt + A"; "Ctrl + Alt" if no key is chosen.
QString CombinationText(const SettingForm& form) {
    QStringList keys;
    const auto add = [&keys](bool on, const QString& name) {
        if (on)
            keys.append(name);
    };
    add(form.HotkeyCtrl, QStringLiteral("Ctrl"));
    add(form.HotkeyAlt, QStringLiteral("Alt"));
    add(form.HotkeyShift, QStringLiteral("Shift"));
    add(form.HotkeyWin, QStringLiteral("Win"));
    add(form.HotkeyKey != 0, TextOfKey(form.HotkeyKey));
    return keys.join(QStringLiteral(" + "));
}

} // namespace

NumberHint ButtonsPerRowHint(const QString& typed) {
    const QString advice =
        QStringLiteral("Use a number from %1 to %2.").arg(kFewestButtonsPerRow).arg(kWidest);
    const double number = LeadingNumber(typed);
    bool whole = false;
    const double exact = typed.trimmed().toDouble(&whole);
    whole = whole && exact == number;
    if (whole && number >= kFewestButtonsPerRow && number <= kWidest)
        return {advice, true};
    QString meaning;
    if (number < kFewestButtonsPerRow)
        meaning = QStringLiteral("This counts as %1, the narrowest panel. ").arg(kFewestButtonsPerRow);
    else if (number > kWidest)
        meaning = QStringLiteral("The panel may become as wide as the screen. ");
    else
        meaning = QStringLiteral("This counts as %1. ").arg(number);
    return {meaning + advice, false};
}

QString DriveToolTip(const QString& letter, const QString& root) {
    const QString drive = QStringLiteral("Drive ") + letter;
    return root.isEmpty() ? drive : drive + QStringLiteral(": ") + root;
}

QString NoHotkeyText() {
    return QStringLiteral(
        "This desktop gives no program a hotkey. Let a key of the desktop call me over D-Bus "
        "instead: local.paneda.Launcher, path /Panel, method Execute.");
}

QString HotkeyQuestion(const SettingForm& form) {
    const bool guarded = form.HotkeyCtrl || form.HotkeyAlt || form.HotkeyWin;
    if (!form.HotkeyEnabled || guarded || !KeyTypes(form.HotkeyKey))
        return {};
    return QStringLiteral("The hotkey has no Ctrl, Alt or Win: %1 can then not be typed in any program.\n\n"
                          "Do you want this hotkey all the same?")
        .arg(CombinationText(form));
}

QString HotkeyProblem(const SettingForm& form, Hotkey::Answer answer) {
    if (!form.HotkeyEnabled || answer == Hotkey::Answer::Registered || answer == Hotkey::Answer::Asked)
        return {};
    const QString saved = QStringLiteral("The settings are saved, but ");
    if (form.HotkeyKey == 0)
        return saved + QStringLiteral("no key is chosen for the hotkey. It will not call the panel; please "
                                      "choose a key.");
    QString why = QStringLiteral(" was refused by the desktop");
    if (answer == Hotkey::Answer::Taken)
        why = QStringLiteral(" belongs to another program");
    else if (answer == Hotkey::Answer::NoSuchKey)
        why = QStringLiteral(" is not on this keyboard");
    return saved + QStringLiteral("the hotkey ") + CombinationText(form) + why +
           QStringLiteral(". It will not call the panel; please choose another one.");
}

QString SaveProblem(const SettingOutcome& outcome, bool autostart) {
    if (!outcome.Written)
        return QStringLiteral("The settings could not be saved:\n\n") + FailureText(outcome.Failures);
    QStringList lines;
    if (outcome.Autostart)
        lines.append(
            QStringLiteral("The start along with your desktop could not be switched %1:\n%2")
                .arg(autostart ? QStringLiteral("on") : QStringLiteral("off"), outcome.Autostart->Text()));
    if (!outcome.Failures.empty())
        lines.append(QStringLiteral("These files could not be written:\n") + FailureText(outcome.Failures));
    return lines.isEmpty() ? QString()
                           : QStringLiteral("The settings are saved, but not all of them took effect.\n\n") +
                                 lines.join(QStringLiteral("\n\n"));
}

} // namespace paneda
