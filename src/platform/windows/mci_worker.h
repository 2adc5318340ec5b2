#pragma once

#include "platform/sound_worker.h"

#include <QHash>
#include <QTimer>

#include <memory>

namespace paneda {

// Sounds by the media control interface. It belongs to the thread that opens a device, whose event loop the
// devices need; so there is one thread for all of it.
class MciWorker final : public SoundWorker {
public:
    explicit MciWorker(std::shared_ptr<SoundBoard> board);
    ~MciWorker() override;

    void Play(const QString& path, const QString& alias, int ticket) override;
    void Stop(const QString& alias) override;
    void Close(const QString& alias) override;
    void CloseAll() override;

private:
    void Look();

    std::shared_ptr<SoundBoard> board_;
    QHash<QString, int> tickets_; // of the aliases that play
    QTimer look_;
};

} // namespace paneda
