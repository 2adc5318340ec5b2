#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmWait;
} // namespace Ui

namespace paneda {

// A small window with a fixed message. It stands while a long operation runs on the one thread, so it is
// painted before ShowNow returns, and shown no longer than its owner lives.
class frmWait : public QDialog {
    Q_OBJECT

public:
    explicit frmWait(QWidget* parent = nullptr);
    ~frmWait() override;

    // Centred on the screen. Serves no key and no mouse meanwhile.
    void ShowNow();

private:
    std::unique_ptr<Ui::frmWait> ui_;
};

} // namespace paneda
