#pragma once

#include "desktop/installed_program.h"
#include "support/fake_prompts.h"
#include "ui/fake_services.h"
#include "ui/settings/frmSetting.h"

#include <memory>

namespace paneda::test {

// The settings dialog of a running program, used with mouse and keys. Where its controls lie is told by a
// dialog of this process on the same store, which is never seen.
class SettingWindow {
public:
    explicit SettingWindow(InstalledProgram& program) : program_(program) {}

    // Opens the dialog by the panel's menu. The functions that return false have waited for 10 s.
    bool Open();
    const QString& Window() const { return window_; }

    void Click(const QString& control) const;
    // Replaces the text of a line.
    void Type(const QString& control, const QString& text) const;

    // Saves, and waits for the panel that the save builds.
    bool Save();
    // Saves what cannot be saved, or what is told of: waits for a message box with this text and confirms it.
    bool SaveAndBeTold(const QString& text);

private:
    void MakeTwin();

    InstalledProgram& program_;
    QString window_;
    AppState state_;
    FakePrompts messages_;
    FakeAutostart session_;
    FakeHotkey keys_;
    std::unique_ptr<frmSetting> twin_;
};

} // namespace paneda::test
