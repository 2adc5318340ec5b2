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

// The dialog for browser, hidden start and tray picture. The controls of the arrays optIcon and imgIcon are
// named by the array and an index: optIcon0 to optIcon11.
class frmSettingAdvance : public QDialog {
    Q_OBJECT

public:
    // `services` has to outlive the dialog. An option whose tray picture is missing there is shown without
    // one.
    frmSettingAdvance(AppState& state, const SettingServices& services, QWidget* parent = nullptr);
    ~frmSettingAdvance() override;

    // Fills the controls from the store. Call it once, before the first show.
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
