#include "platform/linux/watched_start.h"

#include <QFile>

#include <csignal>
#include <cstring>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// This header does not say itself that its functions are those of a C library.
extern "C" {
#include <sys/pidfd.h>
}

namespace paneda {

namespace {

constexpr int kPatience = 10'000; // ms

// What a new process starts with: the folder, no input, the default signals, a session of its own, so that a
// signal to the terminal of the panel does not reach it.
class SpawnSettings {
public:
    explicit SpawnSettings(const QString& folder) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        if (!folder.isEmpty())
            posix_spawn_file_actions_addchdir_np(&actions_, QFile::encodeName(folder).constData());
        posix_spawnattr_init(&attributes_);
        sigset_t pipe;
        sigemptyset(&pipe);
        sigaddset(&pipe, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes_, &pipe);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&actions_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    const posix_spawn_file_actions_t* Actions() const { return &actions_; }
    const posix_spawnattr_t* Attributes() const { return &attributes_; }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

// 0, or the number of the error.
int Spawn(pid_t& process, const QString& program, const QStringList& arguments, const QString& folder) {
    std::vector<QByteArray> words{QFile::encodeName(program)};
    for (const QString& argument : arguments)
        words.push_back(QFile::encodeName(argument));
    std::vector<char*> pointers;
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const SpawnSettings settings(folder);
    return posix_spawnp(&process, words[0].constData(), settings.Actions(), settings.Attributes(),
                        pointers.data(), environ);
}

// False when it still runs. A kernel that cannot tell counts as that.
bool EndsInTime(pid_t process) {
    const int handle = pidfd_open(process, 0);
    if (handle < 0)
        return false;
    pollfd look{handle, POLLIN, 0};
    const bool ended = poll(&look, 1, kPatience) > 0;
    close(handle);
    return ended;
}

} // namespace

QString StartWatched(const QString& program, const QStringList& arguments, const QString& folder) {
    pid_t process = 0;
    const int error = Spawn(process, program, arguments, folder);
    if (error != 0)
        return QString::fromLocal8Bit(std::strerror(error));
    if (!EndsInTime(process)) {
        // A thread that only sleeps, until there is something to clean up.
        std::thread([process] { waitpid(process, nullptr, 0); }).detach();
        return {};
    }
    int status = 0;
    waitpid(process, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
        return {};
    return QStringLiteral("The desktop has no program that opens this, or the program has failed.");
}

} // namespace paneda
