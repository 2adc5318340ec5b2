#pragma once

#include <QString>

#include <functional>

namespace paneda {

// Requests to show the panel: from other programs, and from a second start of this one.
class OutsideRequest {
public:
    virtual ~OutsideRequest() = default;

    // Begins to listen as the running instance of this executable (host path); `execute` is called from the
    // event loop with the text of each request. Several copies of the program, in different folders, can
    // listen at the same time: a request from another program then goes to the copy that was started first.
    // Returns at once; false if the desktop has no way to receive requests.
    virtual bool Listen(const QString& executablePath, std::function<void(const QString& text)> execute) = 0;

    // Ends Listen: later requests get no answer, and `execute` is not called after this.
    virtual void Stop() = 0;

    // Asks the instance of this executable that listens in another process to show its panel, and lets it
    // come to the front. Waits at most a second; false if nobody answered.
    virtual bool Send(const QString& executablePath) = 0;
};

} // namespace paneda
