#pragma once

#include "core/prompts.h"
#include "core/settings/advance_form.h"

#include <QDialog>
#include <QIcon>

#include <memory>
#include <vector>

class QRadioButton;

namespace Ui {
class frmSettingAdvance;
} // namespace Ui

namespace paneda {

// Browser, hidden start and tray picture. Of the arrays optIcon and imgIcon each control is named by the
// array and its index: optIcon0 to optIcon11.
class frmSettingAdvance : public QDialog {
    Q_OBJECT

public:
    // `trayIcons`: the tray pictures, number 1 first; those that are missing leave their place empty.
    frmSettingAdvance(AppState& state, Prompts& messages, const std::vector<QIcon>& trayIcons,
                      QWidget* parent = nullptr);
    ~frmSettingAdvance() override;

    // Fills the controls. Once, before the first show.
    void Form_Load();

    void cmdSave_Click();

private:
    void AddIcons(const std::vector<QIcon>& trayIcons);
    QRadioButton* BrowserOption(BrowserChoice choice) const;
    AdvanceForm TypedForm() const;

    AppState& state_;
    Prompts& messages_;
    std::unique_ptr<Ui::frmSettingAdvance> ui_;
    std::vector<QRadioButton*> optIcon_;
};

} // namespace paneda
