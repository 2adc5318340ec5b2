#pragma once

#include <QImage>
#include <QObject>
#include <QStringList>

#include <memory>

namespace paneda {

// Reads the icons of a folder on a thread of its own. The files may be anybody's: each may take a part of a
// second to decode, and all together five.
class IconThumbnails : public QObject {
    Q_OBJECT

public:
    IconThumbnails() = default;
    // Does not wait for a disk that hangs.
    ~IconThumbnails() override;

    // Reads these files of a folder, host path with a separator at its end, in their order. What an earlier
    // call asked for comes no more.
    void Load(const QString& folder, const QStringList& files, int pixels);

Q_SIGNALS:
    // A picture of at most so many pixels, wide and high. None comes for a file that is no icon.
    void Arrived(int index, const QImage& picture);

private:
    struct Mailbox;

    void Stop();

    std::shared_ptr<Mailbox> mailbox_; // of the thread that runs
};

} // namespace paneda
