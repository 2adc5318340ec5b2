#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmWait;
} // namespace Ui

namespace paneda {

// A small window with a fixed message for an operation that blocks the event loop. Nothing could paint it
// later, so ShowNow paints it before it returns. It disappears when it is destroyed.
class frmWait : public QDialog {
    Q_OBJECT

public:
    explicit frmWait(QWidget* parent = nullptr);
    ~frmWait() override;

    // Shows the window in the middle of the screen. Waits for the desktop to show it, 0.3 seconds at most;
    // keys and mouse events that arrive meanwhile are handled later.
    void ShowNow();

private:
    std::unique_ptr<Ui::frmWait> ui_;
};

} // namespace paneda
