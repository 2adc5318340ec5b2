#include "core/files/file_guard.h"
#include "core/files/file_io.h"
#include "core/files/file_tree.h"
#include "support/store_builder.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <atomic>
#include <filesystem>
#include <functional>
#include <thread>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// What others may put into a folder that several users write to.
class tst_disk : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingThroughLinks_data();
    void nothingThroughLinks();
    void removalAgainstAnotherProcess();
    void readsRegularFilesOnly();
    void guardOfAnother_data();
    void guardOfAnother();
    void guardWaitsOnce();
};

namespace {

using Operation = std::function<FileResult(const DiskPath& entry)>;

FileResult Read(const DiskPath& file) {
    const auto bytes = ReadFileBytes(file, 100);
    return bytes ? FileResult() : tl::make_unexpected(bytes.error());
}

FileResult List(const DiskPath& folder) {
    const auto entries = ListEntries(folder);
    return entries ? FileResult() : tl::make_unexpected(entries.error().Error);
}

const GuardTimes kShort{20ms, 200ms};

} // namespace

void tst_disk::nothingThroughLinks_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<bool>("mayReplaceLink"); // the link itself, and not what it leads to

    const auto row = [](const char* name, const Operation& operation, bool mayReplaceLink = false) {
        QTest::newRow(name) << operation << mayReplaceLink;
    };
    const auto inTree = [](const DiskPath& entry) {
        return DiskPath::Below(entry.Root(), entry.Root()) / u"new"_s;
    };
    row("read", Read);
    row("list", List);
    row("replace", [](const DiskPath& path) { return ReplaceFile(path, "mine"); });
    row("copy from", [inTree](const DiskPath& path) { return CopyWholeFile(path, inTree(path)); });
    row("copy to",
        [inTree](const DiskPath& path) { return CopyWholeFile(inTree(path).Parent() / u"own"_s, path); });
    row("flush", [](const DiskPath& path) { return FlushFilesToDisk({path}); });
    row("flush folder", [](const DiskPath& path) { return WithoutProblem(FlushFolder(path)); });
    row("make folder", [](const DiskPath& path) { return WithoutProblem(MakeNewFolder(path)); });
    row(
        "rename from",
        [inTree](const DiskPath& path) { return WithoutProblem(RenameEntry(path, inTree(path))); }, true);
    row("rename to", [inTree](const DiskPath& path) {
        return WithoutProblem(RenameEntry(inTree(path).Parent() / u"own"_s, path));
    });
    row(
        "copy tree", [inTree](const DiskPath& path) { return CopyTree(path, inTree(path)); }, true);
    row(
        "remove file", [](const DiskPath& path) { return WithoutProblem(RemoveFile(path)); }, true);
    row("remove tree", RemoveTree, true);
}

void tst_disk::nothingThroughLinks() {
    QFETCH(const Operation, operation);
    QFETCH(const bool, mayReplaceLink);
    for (const QString& where :
         {u"file"_s, u"dangling"_s, u"folder"_s, u"folder/inner"_s, u"folder/none"_s}) {
        const StoreBuilder store;
        store.AddFile(u"outside/inner"_s, "private");
        store.AddFile(u"tree/own"_s, "own");
        store.AddFolder(u"tree/sub"_s);
        if (!MakeSymbolicLink(store.Path(u"outside"_s), store.Path(u"tree/sub/folder"_s)) ||
            !MakeSymbolicLink(store.Path(u"outside/inner"_s), store.Path(u"tree/sub/file"_s)) ||
            !MakeSymbolicLink(store.Path(u"outside/made"_s), store.Path(u"tree/sub/dangling"_s)))
            QSKIP("There are no links here.");
        const DiskPath entry = DiskPath::Below(store.Path(u"tree"_s), store.Path(u"tree/sub/"_s) + where);
        const FileResult result = operation(entry);
        const bool isThrough = where.contains(u'/');
        const QByteArray row = where.toUtf8();
        QVERIFY2(result ? mayReplaceLink && !isThrough : true, row.constData());
        if (isThrough)
            QCOMPARE(result.error().Path, QDir::toNativeSeparators(store.Path(u"tree/sub/folder"_s)));
        // What is outside is as it was, and nothing of it has come in.
        QCOMPARE(store.Bytes(u"outside/inner"_s), "private"_ba);
        QCOMPARE(ListFiles(store.Path(u"outside"_s)), QStringList(u"inner"_s));
        QVERIFY(ListEntries(store.Path(u"outside"_s))->size() == 1);
        QVERIFY(!QFileInfo(store.Path(u"tree/new/inner"_s)).isFile() || where == u"folder");
    }
}

// Another user's process puts a link in the place of a folder while that is being removed.
void tst_disk::removalAgainstAnotherProcess() {
    const StoreBuilder store;
    store.AddFile(u"outside/kept"_s, "kept");
    if (!MakeSymbolicLink(store.Path(u"outside"_s), store.Path(u"link"_s)))
        QSKIP("There are no links here.");
    const std::filesystem::path base = QFileInfo(store.AppFolder()).filesystemFilePath();
    for (int run = 0; run < 40; ++run) {
        for (int i = 0; i < 20; ++i)
            store.AddFile(u"tree/sub/%1"_s.arg(i));
        std::atomic<bool> ends = false;
        std::thread swapper([&] {
            std::error_code ignored;
            while (!ends) {
                std::filesystem::rename(base / "tree/sub", base / "aside", ignored);
                std::filesystem::rename(base / "link", base / "tree/sub", ignored);
                std::filesystem::rename(base / "tree/sub", base / "link", ignored);
                std::filesystem::rename(base / "aside", base / "tree/sub", ignored);
            }
        });
        (void)RemoveTree(DiskPath::Below(store.AppFolder(), store.Path(u"tree"_s)));
        ends = true;
        swapper.join();
        QCOMPARE(store.Bytes(u"outside/kept"_s), "kept"_ba);
        (void)RemoveTree(store.Path(u"tree"_s));
        (void)RemoveTree(store.Path(u"aside"_s));
        MakeSymbolicLink(store.Path(u"outside"_s), store.Path(u"link"_s));
    }
}

void tst_disk::readsRegularFilesOnly() {
    const StoreBuilder store;
    store.AddFile(u"ten"_s, "0123456789");
    QCOMPARE(ReadFileBytes(store.Path(u"ten"_s), 10).value(), "0123456789"_ba);
    QVERIFY(!ReadFileBytes(store.Path(u"ten"_s), 9));
    QVERIFY(!ReadFileBytes(store.AppFolder(), 9));
    // Where there are such things.
    const QString pipe = store.Path(u"pipe"_s);
    if (QProcess::execute(u"mkfifo"_s, {pipe}) == 0) {
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(ReadFileBytes(pipe, 9).error().Reason, u"This is not a file."_s);
        QCOMPARE(ReadFileBytes(u"/dev/zero"_s, 9).error().Reason, u"This is not a file."_s);
        // Says that it is empty, and is not.
        QVERIFY(ReadFileBytes(u"/proc/self/maps"_s, 1'000'000)->size() > 100);
        QVERIFY(!ReadFileBytes(u"/proc/self/maps"_s, 100));
        QVERIFY(timer.elapsed() < 2000);
    }
}

void tst_disk::guardOfAnother_data() {
    QTest::addColumn<QByteArray>("host"); // empty: this one
    QTest::addColumn<bool>("isTaken");
    QTest::addColumn<int>("most"); // ms that it takes

    QTest::newRow("dead process of this host") << QByteArray() << true << 150;
    QTest::newRow("left over on another host") << QByteArray("elsewhere") << true << 2000;
}

void tst_disk::guardOfAnother() {
    QFETCH(const QByteArray, host);
    QFETCH(const bool, isTaken);
    QFETCH(const int, most);
    const StoreBuilder store;
    const QString file = store.Path(u"content"_s);
    const QString lock = store.Path(u".content.lock"_s);
    QList<QByteArray> lines;
    {
        GuardWait wait(kShort);
        const FileGuard guard(DiskPath(file), wait);
        lines = store.Bytes(u".content.lock"_s).split('\n');
    }
    QVERIFY(lines.size() >= 3 && !QFile::exists(lock));
    lines[0] = host.isEmpty() ? lines[0] : host;
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {u"-version"_s});
    const QByteArray dead = QByteArray::number(child.processId());
    QVERIFY(child.waitForFinished());
    lines[1] = dead;
    store.AddFile(u".content.lock"_s, lines.join('\n'));
    // Another clock is ahead.
    QFile touched(lock);
    QVERIFY(touched.open(QIODevice::ReadWrite) &&
            touched.setFileTime(QDateTime::currentDateTime().addSecs(20), QFileDevice::FileModificationTime));
    touched.close();
    QElapsedTimer timer;
    timer.start();
    GuardWait wait(kShort);
    const FileGuard guard(DiskPath(file), wait);
    QCOMPARE(guard.IsHeld(), isTaken);
    QVERIFY(timer.elapsed() <= most);
    QVERIFY(host.isEmpty() || timer.elapsed() >= kShort.Longest.count());
}

// A holder that is alive keeps its lock however long it holds it, and one operation waits once for it.
void tst_disk::guardWaitsOnce() {
    const StoreBuilder store;
    const DiskPath file = store.Path(u"content"_s);
    GuardWait holders(kShort);
    const FileGuard holder(file, holders);
    QVERIFY(holder.IsHeld());
    QElapsedTimer timer;
    timer.start();
    GuardWait wait(kShort);
    const FileGuard first(file, wait);
    const FileGuard second(file, wait);
    QVERIFY(!first.IsHeld() && !second.IsHeld());
    QVERIFY(timer.elapsed() >= kShort.Longest.count() && timer.elapsed() < 3 * kShort.Longest.count());
    GuardWait another(kShort);
    const FileGuard elsewhere(store.Path(u"other"_s), another);
    QVERIFY(elsewhere.IsHeld());
}

QTEST_GUILESS_MAIN(tst_disk)
#include "tst_disk.moc"
