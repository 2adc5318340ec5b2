#pragma once

#include "core/settings/advance_form.h"

#include <QDialog>

#include <memory>
#include <vector>

class QRadioButton;
class QToolButton;

namespace Ui {
class frmSettingAdvance;
} // namespace Ui

namespace paneda {

struct SettingServices;

// Browser, hidden start and tray picture. Of the arrays optIcon and imgIcon each control is named by the
// array and its index: optIcon0 to optIcon11.
class frmSettingAdvance : public QDialog {
    Q_OBJECT

public:
    // `services` has to outlive the dialog. Tray pictures that are missing there leave their places empty.
    frmSettingAdvance(AppState& state, const SettingServices& services, QWidget* parent = nullptr);
    ~frmSettingAdvance() override;

    // Fills the controls. Once, before the first show.
    void Form_Load();

    void cmdBrowse_Click();
    void cmdSave_Click();

private:
    void AddIcons();
    QToolButton* AddPicture(int index, QRadioButton& option);
    QRadioButton* BrowserOption(BrowserChoice choice) const;
    AdvanceForm TypedForm() const;

    AppState& state_;
    const SettingServices& services_;
    std::unique_ptr<Ui::frmSettingAdvance> ui_;
    std::vector<QRadioButton*> optIcon_;
};

} // namespace paneda
