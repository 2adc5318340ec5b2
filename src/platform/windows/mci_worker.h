#pragma once

#include "platform/sound_board.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <memory>

namespace paneda {

// Speaks to the media control interface, on a thread of its own whose event loop the devices need.
class MciWorker : public QObject {
public:
    explicit MciWorker(std::shared_ptr<SoundBoard> board);
    ~MciWorker() override;

    void Play(const QString& path, const QString& alias, int ticket);
    void Stop(const QString& alias);
    void Close(const QString& alias);
    void CloseAll();

private:
    void Look();

    std::shared_ptr<SoundBoard> board_;
    QHash<QString, int> tickets_; // of the aliases that play
    QTimer look_;
};

} // namespace paneda
