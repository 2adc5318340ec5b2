#include "platform/linux/instance_mark.h"
#include "platform/linux/linux_opener.h"
#include "platform/linux/watched_start.h"
#include "platform/linux/window_watch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

// Makes a forked process end with its parent, so that a test leaves none behind.
void EndWith(pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent)
        ::_exit(1);
}

// A forked process that answers with one number and then waits to be ended.
class Child {
public:
    template <class Body>
    explicit Child(Body body) {
        int ends[2];
        if (::pipe(ends) != 0)
            return;
        const pid_t self = ::getpid();
        id_ = ::fork();
        if (id_ == 0) {
            EndWith(self);
            const qint64 answer = body();
            (void)!::write(ends[1], &answer, sizeof answer);
            for (;;)
                ::pause();
        }
        ::close(ends[1]);
        (void)!::read(ends[0], &answer_, sizeof answer_);
        ::close(ends[0]);
    }
    ~Child() { End(); }
    Q_DISABLE_COPY_MOVE(Child)

    qint64 Answer() const { return answer_; }
    void End() {
        if (id_ > 0 && ::kill(id_, SIGKILL) == 0)
            ::waitpid(id_, nullptr, 0);
        id_ = 0;
    }

private:
    pid_t id_ = 0;
    qint64 answer_ = -1;
};

QByteArray StatusOf(qint64 processId) {
    QFile file(u"/proc/%1/status"_s.arg(processId));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_processes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void markOfOtherProcess();
    void startedProgram();
    void failedOpener();
    void descent();

private:
    QString File(const char* name) const { return folder_.filePath(QLatin1StringView(name)); }
    QList<QByteArray> Started(const QString& file) const;

    QTemporaryDir folder_;
    LaunchPaths paths_{DriveMap::FromMountPoints({}), u"C:\\"_s};
};

void tst_processes::initTestCase() {
    QVERIFY(QDir(folder_.path()).mkdir(u"run"_s));
    QVERIFY(QDir(folder_.path()).mkdir(u"start in"_s));
    QVERIFY(QFile::setPermissions(File("run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(File("run")));
    QCOMPARE(::mkfifo(QFile::encodeName(File("end")).constData(), 0600), 0);
    QFile script(File("program"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    // Tells about itself, then lives until the pipe "end" is written to. The first argument names its file.
    script.write("#!/bin/sh\nout=$1; shift\n"
                 "{ printf '%s\\0' $$ \"$PWD\"; for a; do printf '%s\\0' \"$a\"; done; } >\"$out.part\"\n"
                 "mv \"$out.part\" \"$out\"\n"
                 "read -r line <\"${0%/*}/end\"\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// Lets a started program go on to its end.
void tst_processes::cleanup() {
    const int end = ::open(QFile::encodeName(File("end")).constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (end < 0)
        return;
    (void)!::write(end, "\n", 1);
    ::close(end);
}

// Process id, working folder and arguments that the program wrote; empty as long as there is no such file.
QList<QByteArray> tst_processes::Started(const QString& file) const {
    QFile record(file);
    if (!record.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> fields = record.readAll().split('\0');
    fields.removeLast();
    return fields;
}

void tst_processes::markOfOtherProcess() {
    QVERIFY(QFile::link(File("program"), File("alias")));
    const auto lock = [](const QString& path) {
        InstanceMark mark;
        return mark.TryLock(path);
    };
    {
        InstanceMark* kept = nullptr;
        Child other([&] {
            kept = new InstanceMark;
            return qint64(kept->TryLock(File("program")));
        });
        QCOMPARE(other.Answer(), 1);
        QVERIFY(!lock(File("program")));
        QVERIFY(!lock(File("alias"))); // another name of the same file
        QVERIFY(lock(File("elsewhere/program")));
        other.End();
    }
    QVERIFY2(lock(File("program")), "a killed process leaves a stale mark");
    // A child that has not become another program yet has the mark's file open as well.
    InstanceMark own;
    QVERIFY(own.TryLock(File("program")));
    const Child starting([] { return qint64(0); });
    QVERIFY(!lock(File("program")));
    own.Release();
    QVERIFY(lock(File("program")));
}

void tst_processes::startedProgram() {
    const QString record = File("started");
    auto mark = std::make_unique<InstanceMark>();
    QVERIFY(mark->TryLock(File("program")));
    {
        LinuxOpener opener;
        opener.Open({LaunchRequest::Action::OpenTarget, File("program"),
                     u'"' + record + u"\" \"a b\" \"\" %f $HOME * \\n"_s, File("start in"),
                     ShowCommand::Normal},
                    paths_);
        QTRY_VERIFY(!Started(record).isEmpty());
    }
    const QList<QByteArray> fields = Started(record);
    const qint64 processId = fields[0].toLongLong();
    QCOMPARE(fields.mid(1),
             (QList<QByteArray>{QFile::encodeName(File("start in")), "a b", "", "%f", "$HOME", "*", "\\n"}));
    QVERIFY(StatusOf(processId).contains("State:\tS"));
    QVERIFY(!DescendsFrom(processId, ::getpid()));
    // Neither a child nor a zombie of this process.
    QVERIFY(::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD);

    // The program runs on, and the mark has gone with its owner all the same.
    mark.reset();
    InstanceMark next;
    QVERIFY(next.TryLock(File("program")));
    cleanup();
    QTRY_VERIFY(!StatusOf(processId).contains("State:\tS"));
}

// Only the opener's exit status says that nothing could open an address.
void tst_processes::failedOpener() {
    QFile script(File("xdg-open"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\ncase $1 in https:*) exit 3;; esac\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    script.close();
    qputenv("PATH", QFile::encodeName(folder_.path()));
    qunsetenv("DBUS_SESSION_BUS_ADDRESS"); // notices go to the standard error
    static std::atomic<bool> told;
    const auto former = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        told = text.startsWith(u"\"Help\" cannot be opened.\nhttps://a: The desktop"_s);
    });
    LinuxOpener opener;
    opener.Open({LaunchRequest::Action::OpenTarget, u"https://a"_s, {}, {}, ShowCommand::Normal, u"Help"_s},
                paths_);
    QTRY_VERIFY(told);
    qInstallMessageHandler(former);
    QCOMPARE(StartWatched(u"xdg-open"_s, {u"mailto:a"_s}, {}), QString());
    QVERIFY(::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD);
}

void tst_processes::descent() {
    Child child([] {
        ::prctl(PR_SET_NAME, "a) S 1 (b"); // would mislead a reader of the process table
        const pid_t self = ::getpid();
        const pid_t grandchild = ::fork();
        if (grandchild == 0) {
            EndWith(self);
            for (;;)
                ::pause();
        }
        return qint64(grandchild);
    });
    const qint64 self = ::getpid();
    QVERIFY(DescendsFrom(child.Answer(), self) && DescendsFrom(child.Answer(), child.Answer()));
    QVERIFY(!DescendsFrom(self, child.Answer()));
    QVERIFY(!DescendsFrom(-5, 0) && !DescendsFrom(0x7fffffff, self));
}

QTEST_GUILESS_MAIN(tst_processes)
#include "tst_processes.moc"
