#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmWait;
} // namespace Ui

namespace paneda {

// A small window that says what is being waited for. It disappears when it is destroyed.
class frmWait : public QDialog {
    Q_OBJECT

public:
    explicit frmWait(QWidget* parent = nullptr);
    // With a text of its own, in which carriage returns end lines.
    explicit frmWait(const QString& text, QWidget* parent = nullptr);
    ~frmWait() override;

    // For an operation that blocks the event loop: nothing could paint the window later, so it is painted
    // before this returns. For others show() will do.
    //
    // Shows the window in the middle of the screen. Waits for the desktop to show it, 0.3 seconds at most;
    // keys and mouse events that arrive meanwhile are handled later.
    void ShowNow();

private:
    std::unique_ptr<Ui::frmWait> ui_;
};

} // namespace paneda
