#include "ui/common/busy_work.h"

#include "ui/panel/frmWait.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <memory>

namespace paneda {

namespace {

constexpr int kPatience = 300; // milliseconds

class InputDropper : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Wheel:
        case QEvent::Close:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }
};

void DropInput() {
    InputDropper dropper;
    QCoreApplication::instance()->installEventFilter(&dropper);
    QCoreApplication::processEvents();
}

void RunShown(QWidget* window, const std::function<void()>& work) {
    const std::unique_ptr<QThread> thread(QThread::create(work));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    std::unique_ptr<frmWait> wait;
    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, &loop, [&wait, window] {
        wait = std::make_unique<frmWait>(window);
        wait->ShowNow();
    });
    patience.start(kPatience);
    thread->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread->wait();
    if (wait) {
        DropInput();
        wait.reset();
    }
}

} // namespace

DiskWork WorkShownBy(QWidget& window) {
    return [&window](const std::function<void()>& work) { RunShown(&window, work); };
}

} // namespace paneda
