#include "platform/process_end.h"

#include <QThread>

namespace paneda {

void EndProcessWithin(int milliseconds) {
    // Never deleted, since it runs as long as the process does.
    QThread* clock = QThread::create([milliseconds] {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        EndProcess(0);
    });
    clock->start();
}

} // namespace paneda
