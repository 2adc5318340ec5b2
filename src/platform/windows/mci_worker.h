#pragma once

#include "platform/sound_worker.h"

#include <QHash>
#include <QTimer>

#include <memory>

namespace paneda {

// Plays sounds by the media control interface. A device belongs to the thread that opened it and needs the
// event loop of that thread; so one thread does everything.
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
    QHash<QString, int> tickets_; // of the aliases whose sounds play
    QTimer look_;
};

} // namespace paneda
