#include "ui/settings/setting_words.h"

#include "core/settings/key_table.h"

#include <QStringList>

namespace paneda {

namespace {

// "Ctrl + Alt + A"; without a key "Ctrl + Alt".
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

QString LinkText(const QString& text) {
    return QStringLiteral("<a href=\"#\">") + text.toHtmlEscaped() + QStringLiteral("</a>");
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

QString HotkeyProblem(const SettingForm& form, Hotkey::Answer answer) {
    if (!form.HotkeyEnabled)
        return {};
    QString why;
    switch (answer) {
    case Hotkey::Answer::Taken:
        why = QStringLiteral(" belongs to another program");
        break;
    case Hotkey::Answer::NoSuchKey:
        why =
            form.HotkeyKey == 0 ? QStringLiteral(" has no key") : QStringLiteral(" is not on this keyboard");
        break;
    case Hotkey::Answer::Refused:
        why = QStringLiteral(" was refused by the desktop");
        break;
    case Hotkey::Answer::Registered:
    case Hotkey::Answer::Asked:
        return {};
    }
    return QStringLiteral("The settings are saved, but the hotkey ") + CombinationText(form) + why +
           QStringLiteral(". It will not call the panel; please choose another one.");
}

} // namespace paneda
