#pragma once

#include "core/settings/app_state.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmAbout;
} // namespace Ui

namespace paneda {

// Shows product, version and date of the build. Only the other edition shows this window; this edition shows
// the credits instead.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    frmAbout(const AppState& state, std::function<void(const QString&)> openUrl, QWidget* parent = nullptr);
    ~frmAbout() override;

private:
    std::unique_ptr<Ui::frmAbout> ui_;
};

} // namespace paneda
