#include "ui/organiser/icon_thumbnails.h"

#include "organiser/icon_library.h"
#include "skin/picture_loader.h"

#include <QMutex>
#include <QThread>

#include <algorithm>
#include <utility>
#include <vector>

namespace paneda {

namespace {

constexpr quint32 kTimeForOne = 300;  // milliseconds
constexpr quint32 kTimeForAll = 5000; // milliseconds

QImage ReadIcon(const QString& path, int pixels, quint32& left) {
    DecodingTime time{std::min(kTimeForOne, left)};
    const quint32 given = time.Left;
    auto picture = ReadPicture(path, {.Width = pixels, .Small = true}, time);
    left -= given - time.Left;
    if (!picture)
        return {};
    return picture->size() == QSize(pixels, pixels)
               ? std::move(*picture)
               : picture->scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

// What the thread and the object share; the object may be gone before the thread.
struct IconThumbnails::Mailbox : std::enable_shared_from_this<Mailbox> {
    QMutex Lock;
    IconThumbnails* Receiver = nullptr; // null when nobody waits any more; changed by its own thread alone
    std::vector<std::pair<int, QImage>> Ready;

    // False when nobody waits.
    bool Put(int index, QImage picture) {
        const QMutexLocker locker(&Lock);
        if (!Receiver)
            return false;
        Ready.emplace_back(index, std::move(picture));
        // One event for all that has come until it is handled.
        if (Ready.size() == 1)
            QMetaObject::invokeMethod(
                Receiver, [self = shared_from_this()] { self->Deliver(); }, Qt::QueuedConnection);
        return true;
    }

    void Deliver() {
        std::vector<std::pair<int, QImage>> ready;
        {
            const QMutexLocker locker(&Lock);
            ready.swap(Ready);
        }
        for (const auto& [index, picture] : ready) {
            if (Receiver)
                Q_EMIT Receiver->Arrived(index, picture);
        }
    }
};

IconThumbnails::~IconThumbnails() {
    Stop();
}

void IconThumbnails::Stop() {
    if (!mailbox_)
        return;
    const QMutexLocker locker(&mailbox_->Lock);
    mailbox_->Receiver = nullptr;
}

void IconThumbnails::Load(const QString& folder, const QStringList& files, int pixels) {
    Stop();
    auto mailbox = std::make_shared<Mailbox>();
    mailbox->Receiver = this;
    mailbox_ = mailbox;
    QThread* worker = QThread::create([mailbox, folder, files, pixels] {
        quint32 left = kTimeForAll;
        for (qsizetype i = 0; i < files.size() && left > 0; ++i) {
            if (!IsIconFile(files[i]))
                continue;
            QImage picture = ReadIcon(folder + files[i], pixels, left);
            if (!picture.isNull() && !mailbox->Put(int(i), std::move(picture)))
                return;
        }
    });
    connect(worker, &QThread::finished, worker, &QObject::deleteLater);
    worker->start(QThread::LowPriority);
}

} // namespace paneda
