#pragma once

#include "platform/drive_space.h"

#include <QHash>

#include <chrono>
#include <functional>
#include <memory>

namespace paneda {

// How long answers are waited for.
struct SpacePatience {
    // In the caller. Local disks answer within a tenth of a millisecond.
    std::chrono::milliseconds Wait{20};
    // Until a volume without an answer counts as one without media. Meanwhile its last figures are given.
    std::chrono::milliseconds Late{500};
    // Figures that came late are not asked for again within this time: two slow volumes, each of which calls
    // Watch's function when it answers, would keep each other busy.
    std::chrono::milliseconds Fresh{1000};
};

// Asks for the space of volumes on threads of its own, one for each volume, since the system gives no answer
// for a network place or a stick that is dead, for as long as it is dead. A volume that owes an answer is not
// asked again.
class PatientSpace : public DriveSpace {
public:
    // Asks the system. Called on several threads, which may outlive this object up to EndProcess.
    using Reader = std::function<VolumeSpace(const QString& root)>;

    explicit PatientSpace(Reader reader, const SpacePatience& patience = {});
    ~PatientSpace() override;
    Q_DISABLE_COPY_MOVE(PatientSpace)

    VolumeSpace SpaceOf(const QString& root) override;
    void Watch(std::function<void()> changed) override;

private:
    struct Answers;

    void Ask(const QString& root);

    const Reader reader_;
    const SpacePatience patience_;
    std::shared_ptr<Answers> answers_;
};

} // namespace paneda
