#include "ui/panel/frmWait.h"

#include "ui_frmWait.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScreen>
#include <QWindow>

namespace paneda {

namespace {

// Milliseconds to wait at most until the desktop shows the window.
constexpr int kPatience = 300;

} // namespace

frmWait::frmWait(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , ui_(std::make_unique<Ui::frmWait>()) {
    ui_->setupUi(this);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

frmWait::frmWait(const QString& text, QWidget* parent) : frmWait(parent) {
    ui_->lblWait->setText(QString(text).replace(u'\r', u'\n'));
}

frmWait::~frmWait() = default;

void frmWait::ShowNow() {
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
    show();
    QElapsedTimer clock;
    clock.start();
    while (!windowHandle()->isExposed() && clock.elapsed() < kPatience)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kPatience / 10);
    repaint();
    // The painted window is sent to the desktop by the event loop.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace paneda
