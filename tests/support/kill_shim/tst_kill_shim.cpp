#include "support/kill_shim/interrupted_step.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>
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
    void countedCalls_data();
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

int CallQt(const QString& folder) {
    const QDir place(folder);
    QSaveFile saved(place.filePath(u"saved"_s));
    QFile plain(place.filePath(u"plain"_s));
    bool done = saved.open(QIODevice::WriteOnly) && saved.write("x") == 1 && saved.commit();
    done = done && plain.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && plain.write("x") == 1;
    plain.close();
    done = done && place.mkdir(u"d"_s) && QFile::rename(plain.fileName(), place.filePath(u"d/moved"_s));
    done = done && QFile::copy(place.filePath(u"saved"_s), place.filePath(u"copy"_s));
    done = done && QDir(place.filePath(u"d"_s)).removeRecursively();
    return done ? 0 : 1;
}

const Steps kSteps{
    {u"folders"_s, MakeFolders}, {u"file"_s, WriteFile}, {u"system"_s, CallTheSystem}, {u"qt"_s, CallQt}};

bool HasUnnamedFiles() {
    const QTemporaryDir folder;
    const int file =
        ::open(QFile::encodeName(folder.path()).constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (file >= 0)
        ::close(file);
    return file >= 0;
}

QStringList NamesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

void tst_kill_shim::countedCalls_data() {
    QTest::addColumn<QString>("step");
    QTest::addColumn<bool>("namedFilesOnly");
    QTest::addColumn<QString>("calls");

    QTest::newRow("system") << u"system"_s << false
                            << u"open a, fsync a, ftruncate a, fdatasync a, write a, mkdir d, rename d/b, "
                               "rename d/c, link e, symlink f, truncate e, unlink f, unlink e, unlink d/c, "
                               "rmdir d"_s;
    const QString rest = u", open plain, write plain, mkdir d, rename d/moved, "_s;
    const QString end = u", unlink d/moved, rmdir d"_s;
    if (HasUnnamedFiles())
        QTest::newRow("qt") << u"qt"_s << false
                            << u"open ., write #, fdatasync #, link saved"_s + rest +
                                   u"open ., fill #, fdatasync #, link copy"_s + end;
    QTest::newRow("qt on a stick")
        << u"qt"_s << true
        << u"open saved.?, write saved.?, fdatasync saved.?, rename saved"_s + rest +
               u"open qt_temp.?, fill qt_temp.?, fdatasync qt_temp.?, rename copy"_s + end;
}

void tst_kill_shim::countedCalls() {
    QFETCH(QString, step);
    QFETCH(bool, namedFilesOnly);
    const QTemporaryDir folder;
    const StepEnd end = RunStep(step, folder.path(), {0, u"kill"_s, namedFilesOnly});
    QCOMPARE(end.Status, 0);
    QVERIFY(!end.Killed);
    QString calls = end.Calls.join(u", "_s);
    calls.remove(folder.path() + u"/"_s).replace(folder.path(), u"."_s);
    calls.replace(QRegularExpression(u"#[0-9]+ \\(deleted\\)"_s), u"#"_s);
    calls.replace(QRegularExpression(u"(saved|qt_temp)\\.[A-Za-z]{6}"_s), u"\\1.?"_s);
    // What a copy takes depends on the file system: blocks are shared, or else bytes are sent.
    calls.replace(QRegularExpression(u"clone ([^,]+)(, sendfile \\1)*"_s), u"fill \\1"_s);
    QTEST(calls, "calls");
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
