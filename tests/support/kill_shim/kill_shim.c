/* Ends a process, or lets a call fail, at its n-th change to a folder. Loaded with LD_PRELOAD into a child
 * process of a test, so that the test can look at what each moment of a change leaves on the disk.
 *
 * Environment of the child:
 *   PANEDA_KILL_FOLDER  folder that is watched; without it nothing is counted
 *   PANEDA_KILL_AT      number of the call, from 1; 0 or nothing: the calls are only counted
 *   PANEDA_KILL_MODE    "kill"    SIGKILL instead of the call; also when it is not set
 *                       "torn"    as "kill", but the first half of a write reaches the file
 *                       "ENOSPC"  that call alone fails, with this error ("EIO" and "EDQUOT" likewise)
 *                       "ENOSPC+" that call and all behind it fail ("EIO+" and "EDQUOT+" likewise)
 *   PANEDA_KILL_NAMED   any text: files without a name (O_TMPFILE) are refused, as on the file systems of
 *                       sticks
 *   PANEDA_KILL_SPARE   end of names on which calls are neither counted nor fail
 *   PANEDA_KILL_LOG     file outside of the folder, gets a line "number call path" for each counted call
 *
 * Counted are, on paths below the folder: open, openat and creat that make or empty a file; write, pwrite and
 * writev; copy_file_range, sendfile and ioctl(FICLONE); fsync, fdatasync and syncfs; truncate and ftruncate;
 * rename, renameat and renameat2; link, linkat, symlink and symlinkat; unlink, unlinkat, remove, rmdir, mkdir
 * and mkdirat; where calls fail, also close of a file that was open to be written. Not seen are writes
 * through stdio and through mapped memory, and paths with "..".
 *
 * What lies in a folder "volume" of the watched one counts as on another volume: renames and links into and
 * out of it are refused, and not counted.
 *
 * A killed process does not take with it what the system has in its caches, so this shows the order of the
 * steps and not what a power failure leaves.
 *
 * Each process counts for itself. The calls are made as system calls, for hosts of 64 bits. */

#define _GNU_SOURCE
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <linux/fs.h>
#include <sched.h>
#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

static char folder[PATH_MAX];
static size_t folder_length;
static long kill_at;
static int torn;
static int fail_with; /* 0: kill */
static int fail_on;   /* and let all later calls fail as well */
static int refuses_unnamed;
static const char* spared;
static int log_file = -1;
static long count;
static atomic_flag logging = ATOMIC_FLAG_INIT; /* guards count and the log */

__attribute__((constructor)) static void ReadEnvironment(void) {
    const char* watched = getenv("PANEDA_KILL_FOLDER");
    const char* at = getenv("PANEDA_KILL_AT");
    const char* mode = getenv("PANEDA_KILL_MODE");
    const char* log_path = getenv("PANEDA_KILL_LOG");
    if (watched == NULL || realpath(watched, folder) == NULL)
        return;
    kill_at = at == NULL ? 0 : atol(at);
    mode = mode == NULL ? "kill" : mode;
    torn = strcmp(mode, "torn") == 0;
    fail_with = strncmp(mode, "ENOSPC", 6) == 0   ? ENOSPC
                : strncmp(mode, "EDQUOT", 6) == 0 ? EDQUOT
                : strncmp(mode, "EIO", 3) == 0    ? EIO
                                                  : 0;
    fail_on = mode[strlen(mode) - 1] == '+';
    refuses_unnamed = getenv("PANEDA_KILL_NAMED") != NULL;
    spared = getenv("PANEDA_KILL_SPARE");
    if (log_path != NULL)
        log_file =
            (int)syscall(SYS_openat, AT_FDCWD, log_path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    folder_length = strlen(folder);
}

static int IsSpared(const char* path) {
    const size_t length = spared == NULL ? 0 : strlen(spared);
    const size_t path_length = strlen(path);
    return length > 0 && path_length >= length && strcmp(path + path_length - length, spared) == 0;
}

static int LiesInFolder(const char* path) {
    return folder_length > 0 && strncmp(path, folder, folder_length) == 0 &&
           (path[folder_length] == '/' || path[folder_length] == '\0') && !IsSpared(path);
}

static int IsOnVolume(const char* path) {
    static const char kVolume[] = "/volume/";
    return LiesInFolder(path) && strncmp(path + folder_length, kVolume, strlen(kVolume)) == 0;
}

/* The path of an open file or folder; empty when it has none. */
static void PathOf(int file, char path[PATH_MAX]) {
    char link[64];
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, PATH_MAX - 1);
    path[length < 0 ? 0 : length] = '\0';
}

static void FullPath(int at, const char* name, char path[PATH_MAX]) {
    char base[PATH_MAX] = "";
    if (name[0] == '/')
        snprintf(path, PATH_MAX, "%s", name);
    else {
        if (at != AT_FDCWD)
            PathOf(at, base);
        else if (getcwd(base, sizeof base) == NULL)
            base[0] = '\0';
        if (snprintf(path, PATH_MAX, "%s/%s", base, name) >= PATH_MAX)
            path[0] = '\0';
    }
}

static void Log(long number, const char* call, const char* path) {
    char line[PATH_MAX + 64];
    const int length = snprintf(line, sizeof line, "%ld %s %s\n", number, call, path);
    if (log_file >= 0)
        (void)!syscall(SYS_write, log_file, line, (size_t)length);
}

static void Kill(void) {
    syscall(SYS_kill, getpid(), SIGKILL);
    for (;;)
        pause();
}

enum Verdict { kGoOn, kTear, kFail };

/* Counts a call on a path. Does not come back where the process is to end before the call. */
static enum Verdict Count(const char* call, const char* path) {
    if (!LiesInFolder(path))
        return kGoOn;
    /* Threads are logged in the order of their numbers, so that a kill leaves no number out. */
    while (atomic_flag_test_and_set(&logging))
        sched_yield();
    const long number = ++count;
    Log(number, call, path);
    atomic_flag_clear(&logging);
    if (kill_at == 0 || number < kill_at)
        return kGoOn;
    if (fail_with != 0) {
        errno = fail_with;
        return number == kill_at || fail_on ? kFail : kGoOn;
    }
    if (torn && strcmp(call, "write") == 0)
        return kTear;
    Kill();
    return kFail;
}

static enum Verdict CountName(const char* call, int at, const char* name) {
    char path[PATH_MAX];
    FullPath(at, name, path);
    return Count(call, path);
}

/* Of two names the one that lies in the folder. */
static enum Verdict CountNames(const char* call, int at, const char* name, int new_at, const char* new_name) {
    char path[PATH_MAX];
    char old_path[PATH_MAX];
    FullPath(new_at, new_name, path);
    FullPath(at, name, old_path);
    if (IsOnVolume(path) != IsOnVolume(old_path)) {
        errno = EXDEV;
        return kFail;
    }
    return LiesInFolder(path) ? Count(call, path) : CountName(call, at, name);
}

static enum Verdict CountFile(const char* call, int file) {
    char path[PATH_MAX];
    PathOf(file, path);
    return Count(call, path);
}

static int Open(int at, const char* name, int flags, mode_t mode) {
    const int unnamed = (flags & O_TMPFILE) == O_TMPFILE;
    const int changes = (flags & (O_CREAT | O_TRUNC)) != 0 || unnamed;
    if (unnamed && refuses_unnamed) {
        errno = EOPNOTSUPP;
        return -1;
    }
    if (changes && CountName("open", at, name) != kGoOn)
        return -1;
    return (int)syscall(SYS_openat, at, name, flags, mode);
}

static int TakesMode(int flags) {
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

/* The mode that open's last argument may hold. */
#define MODE_ARGUMENT(flags, mode)                                                                           \
    mode_t mode = 0;                                                                                         \
    if (TakesMode(flags)) {                                                                                  \
        va_list arguments;                                                                                   \
        va_start(arguments, flags);                                                                          \
        mode = va_arg(arguments, mode_t);                                                                    \
        va_end(arguments);                                                                                   \
    }

int open(const char* name, int flags, ...) {
    MODE_ARGUMENT(flags, mode)
    return Open(AT_FDCWD, name, flags, mode);
}

int open64(const char* name, int flags, ...) {
    MODE_ARGUMENT(flags, mode)
    return Open(AT_FDCWD, name, flags, mode);
}

int openat(int at, const char* name, int flags, ...) {
    MODE_ARGUMENT(flags, mode)
    return Open(at, name, flags, mode);
}

int openat64(int at, const char* name, int flags, ...) {
    MODE_ARGUMENT(flags, mode)
    return Open(at, name, flags, mode);
}

int creat(const char* name, mode_t mode) {
    return Open(AT_FDCWD, name, O_WRONLY | O_CREAT | O_TRUNC, mode);
}

int creat64(const char* name, mode_t mode) {
    return creat(name, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
    const enum Verdict verdict = CountFile("write", file);
    if (verdict == kFail)
        return -1;
    const ssize_t written = syscall(SYS_write, file, bytes, verdict == kTear ? size / 2 : size);
    if (verdict == kTear)
        Kill();
    return written;
}

ssize_t pwrite(int file, const void* bytes, size_t size, off_t offset) {
    const enum Verdict verdict = CountFile("write", file);
    if (verdict == kFail)
        return -1;
    const ssize_t written = syscall(SYS_pwrite64, file, bytes, verdict == kTear ? size / 2 : size, offset);
    if (verdict == kTear)
        Kill();
    return written;
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
    return pwrite(file, bytes, size, offset);
}

ssize_t writev(int file, const struct iovec* parts, int number) {
    return CountFile("writev", file) != kGoOn ? -1 : syscall(SYS_writev, file, parts, number);
}

ssize_t copy_file_range(int from, off64_t* from_offset, int to, off64_t* to_offset, size_t size,
                        unsigned flags) {
    if (CountFile("copy_file_range", to) != kGoOn)
        return -1;
    return syscall(SYS_copy_file_range, from, from_offset, to, to_offset, size, flags);
}

ssize_t sendfile(int to, int from, off_t* offset, size_t size) {
    return CountFile("sendfile", to) != kGoOn ? -1 : syscall(SYS_sendfile, to, from, offset, size);
}

ssize_t sendfile64(int to, int from, off64_t* offset, size_t size) {
    return sendfile(to, from, offset, size);
}

int ioctl(int file, unsigned long request, ...) {
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (request == FICLONE && CountFile("clone", file) != kGoOn)
        return -1;
    return (int)syscall(SYS_ioctl, file, request, argument);
}

int fsync(int file) {
    return CountFile("fsync", file) != kGoOn ? -1 : (int)syscall(SYS_fsync, file);
}

int fdatasync(int file) {
    return CountFile("fdatasync", file) != kGoOn ? -1 : (int)syscall(SYS_fdatasync, file);
}

int syncfs(int file) {
    return CountFile("syncfs", file) != kGoOn ? -1 : (int)syscall(SYS_syncfs, file);
}

/* Closes the file in any case, as the system does. */
int close(int file) {
    const int flags = fail_with == 0 ? O_RDONLY : (int)syscall(SYS_fcntl, file, F_GETFL);
    const int writes = flags != -1 && (flags & O_ACCMODE) != O_RDONLY;
    const int fails = writes && CountFile("close", file) != kGoOn;
    const int error = errno;
    const int closed = (int)syscall(SYS_close, file);
    if (!fails)
        return closed;
    errno = error;
    return -1;
}

int truncate(const char* name, off_t size) {
    return CountName("truncate", AT_FDCWD, name) != kGoOn ? -1 : (int)syscall(SYS_truncate, name, size);
}

int truncate64(const char* name, off64_t size) {
    return truncate(name, size);
}

int ftruncate(int file, off_t size) {
    return CountFile("ftruncate", file) != kGoOn ? -1 : (int)syscall(SYS_ftruncate, file, size);
}

int ftruncate64(int file, off64_t size) {
    return ftruncate(file, size);
}

int renameat2(int at, const char* name, int new_at, const char* new_name, unsigned flags) {
    if (CountNames("rename", at, name, new_at, new_name) != kGoOn)
        return -1;
    return (int)syscall(SYS_renameat2, at, name, new_at, new_name, flags);
}

int renameat(int at, const char* name, int new_at, const char* new_name) {
    return renameat2(at, name, new_at, new_name, 0);
}

int rename(const char* name, const char* new_name) {
    return renameat2(AT_FDCWD, name, AT_FDCWD, new_name, 0);
}

int linkat(int at, const char* name, int new_at, const char* new_name, int flags) {
    if (CountNames("link", at, name, new_at, new_name) != kGoOn)
        return -1;
    return (int)syscall(SYS_linkat, at, name, new_at, new_name, flags);
}

int link(const char* name, const char* new_name) {
    return linkat(AT_FDCWD, name, AT_FDCWD, new_name, 0);
}

int symlinkat(const char* target, int at, const char* name) {
    return CountName("symlink", at, name) != kGoOn ? -1 : (int)syscall(SYS_symlinkat, target, at, name);
}

int symlink(const char* target, const char* name) {
    return symlinkat(target, AT_FDCWD, name);
}

int unlinkat(int at, const char* name, int flags) {
    const char* call = (flags & AT_REMOVEDIR) != 0 ? "rmdir" : "unlink";
    return CountName(call, at, name) != kGoOn ? -1 : (int)syscall(SYS_unlinkat, at, name, flags);
}

int unlink(const char* name) {
    return unlinkat(AT_FDCWD, name, 0);
}

int rmdir(const char* name) {
    return unlinkat(AT_FDCWD, name, AT_REMOVEDIR);
}

int remove(const char* name) {
    struct stat status;
    const int is_folder = lstat(name, &status) == 0 && S_ISDIR(status.st_mode);
    return is_folder ? rmdir(name) : unlink(name);
}

int mkdirat(int at, const char* name, mode_t mode) {
    return CountName("mkdir", at, name) != kGoOn ? -1 : (int)syscall(SYS_mkdirat, at, name, mode);
}

int mkdir(const char* name, mode_t mode) {
    return mkdirat(AT_FDCWD, name, mode);
}
