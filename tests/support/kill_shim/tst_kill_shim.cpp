#include "support/kill_shim/interrupted_step.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace paneda::test;
using namespace Qt::StringLiterals;

// What the shim counts, and that it interrupts a child at the call it was told, neither before nor behind it.
class tst_kill_shim : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void countedCalls();
    void killsAtTheCall();
    void tornWrite();
    void failingCalls_data();
    void failingCalls();
};

namespace {

constexpr int kFolders = 4;

// Folders "0", "1", ...; the status has a bit for each that could not be made for want of space.
int MakeFolders(const QString& folder) {
    int failures = 0;
    for (int i = 0; i < kFolders; ++i) {
        if (::mkdir(QFile::encodeName(folder + u'/' + QString::number(i)).constData(), 0700) != 0)
            failures |= errno == ENOSPC ? 1 << i : 128;
    }
    return failures;
}

int WriteFile(const QString& folder) {
    QFile file(folder + u"/file"_s);
    return file.open(QIODevice::WriteOnly) && file.write("12345678") == 8 ? 0 : 1;
}

// One call of each kind, with full names, names from an open folder, and names from the current one.
int CallTheSystem(const QString& folder) {
    int failures = ::chdir(QFile::encodeName(folder).constData());
    const int at = ::open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const int file = ::openat(at, "a", O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    const int reader = ::open("a", O_RDONLY | O_CLOEXEC);
    const int elsewhere = ::open("/dev/null", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    failures += ::write(elsewhere, "x", 1) != 1;
    failures += ::fsync(reader) + ::ftruncate(file, 3) + ::fdatasync(file);
    failures += ::pwrite(file, "x", 1, 2) != 1;
    failures += ::mkdirat(at, "d", 0700) + ::renameat(at, "a", at, "d/b");
    failures += ::renameat2(AT_FDCWD, "d/b", AT_FDCWD, "d/c", RENAME_NOREPLACE);
    failures += ::linkat(at, "d/c", at, "e", 0) + ::symlink("e", "f") + ::truncate("e", 0);
    failures += ::unlinkat(at, "f", 0) + ::unlink("e") + ::remove("d/c");
    failures += ::unlinkat(at, "d", AT_REMOVEDIR);
    return failures;
}

const Steps kSteps{{u"folders"_s, MakeFolders}, {u"file"_s, WriteFile}, {u"system"_s, CallTheSystem}};

QStringList NamesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

void tst_kill_shim::countedCalls() {
    const QTemporaryDir folder;
    const StepEnd end = RunStep(u"system"_s, folder.path(), {0, u"kill"_s, false});
    QCOMPARE(end.Status, 0);
    QVERIFY(!end.Killed);
    QCOMPARE(end.Calls.join(u", "_s).remove(folder.path() + u"/"_s),
             u"open a, fsync a, ftruncate a, fdatasync a, write a, mkdir d, rename d/b, rename d/c, link e, "
             "symlink f, truncate e, unlink f, unlink e, unlink d/c, rmdir d"_s);
}

void tst_kill_shim::killsAtTheCall() {
    QStringList made;
    for (int at = 1; at <= kFolders; ++at) {
        const QTemporaryDir folder;
        const StepEnd end = RunStep(u"folders"_s, folder.path(), {at, u"kill"_s, false});
        QVERIFY(end.Killed);
        QCOMPARE(end.Calls.size(), at);
        QCOMPARE(NamesIn(folder.path()), made);
        made.append(QString::number(at - 1));
    }
    const QTemporaryDir folder;
    const StepEnd end = RunStep(u"folders"_s, folder.path(), {kFolders + 1, u"kill"_s, false});
    QVERIFY(!end.Killed);
    QCOMPARE(end.Status, 0);
    QCOMPARE(NamesIn(folder.path()), made);
}

void tst_kill_shim::tornWrite() {
    const QTemporaryDir folder;
    QVERIFY(RunStep(u"file"_s, folder.path(), {2, u"torn"_s, false}).Killed);
    QFile file(folder.filePath(u"file"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("1234"));
}

void tst_kill_shim::failingCalls_data() {
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("made");

    QTest::newRow("one") << u"ENOSPC"_s << 0b0010 << QStringList{u"0"_s, u"2"_s, u"3"_s};
    QTest::newRow("all behind it") << u"ENOSPC+"_s << 0b1110 << QStringList{u"0"_s};
    QTest::newRow("another error") << u"EIO"_s << 128 << QStringList{u"0"_s, u"2"_s, u"3"_s};
}

void tst_kill_shim::failingCalls() {
    QFETCH(QString, mode);
    const QTemporaryDir folder;
    const StepEnd end = RunStep(u"folders"_s, folder.path(), {2, mode, false});
    QVERIFY(!end.Killed);
    QTEST(end.Status, "status");
    QTEST(NamesIn(folder.path()), "made");
}

int main(int argc, char** argv) {
    if (const std::optional<int> status = RunAsChild(argc, argv, kSteps))
        return *status;
    QCoreApplication application(argc, argv);
    tst_kill_shim test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kill_shim.moc"
