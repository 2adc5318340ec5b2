#include "notes/kills/note_texts.h"
#include "notes/kills/tree_ledger.h"
#include "notes/kills/tree_worker.h"
#include "support/kill_shim/interrupted_step.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <memory>

namespace paneda::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWorkBefore = 40;  // operations on a tree before a killed process comes to it
constexpr int kKilledWork = 12;  // operations of a process that is killed at each of its calls
constexpr int kSharedWork = 200; // operations of each of two processes

QString JournalOf(const QString& content) {
    return content + u".journal"_s;
}

TreeWork WorkOn(const QString& content, const QString& who, quint32 seed) {
    TreeWork work;
    work.Content = content;
    work.Journal = JournalOf(content);
    work.Who = who;
    work.Seed = seed;
    return work;
}

// A second process that does the work.
std::unique_ptr<QProcess> StartWork(const TreeWork& work) {
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(QCoreApplication::applicationFilePath(),
                   {u"--work"_s, work.Content, work.Journal, work.Who, QString::number(work.Seed),
                    QString::number(work.FirstNumber), QString::number(work.Operations),
                    QString::number(int(work.Shared))});
    process->waitForStarted();
    return process;
}

int RunStartedWork(const QStringList& words) {
    return RunTreeWork({words[2], words[3], words[4], words[5].toUInt(), words[6].toInt(), words[7].toInt(),
                        words[8] == u"1"_s});
}

} // namespace

class TestTreeKills : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryWriteRenameAndFlush_data() {
        QTest::addColumn<int>("seed");
        for (const int seed : {1, 2})
            QTest::addRow("seed %d", seed) << seed;
    }

    // A small piece of work, ended at each of its calls that change the disk.
    void EveryWriteRenameAndFlush() {
        QFETCH(const int, seed);
        const QTemporaryDir folder;
        const QString grown = folder.filePath(u"grown"_s);
        QVERIFY(QDir().mkdir(grown));
        TreeWork before = WorkOn(grown, u"b"_s, quint32(seed));
        before.Operations = kWorkBefore;
        QCOMPARE(RunTreeWork(before), 0);
        int kills = 0;
        const auto prepare = [&](const QString& content) {
            std::filesystem::copy(QFileInfo(grown).filesystemFilePath(),
                                  QFileInfo(content).filesystemFilePath(),
                                  std::filesystem::copy_options::recursive);
            QFile::remove(JournalOf(content));
        };
        const auto check = [&](const QString& content, const StepEnd& end) {
            kills += end.Killed ? 1 : 0;
            TreeLedger ledger;
            ledger.Restart(ReadNodes(grown));
            ledger.Read(JournalOf(content));
            return ledger.Objection(ReadNodes(content));
        };
        QCOMPARE(FirstObjection(u"work %1"_s.arg(seed), {}, prepare, check), QString());
        QVERIFY(kills > kKilledWork);
        qInfo("%d kills, each at another call", kills);
    }

    // Two users of one shared tree, who change what they like at the same time.
    void TwoProcesses() {
        const QTemporaryDir folder;
        const QString content = folder.filePath(u"tree"_s);
        QVERIFY(QDir().mkdir(content));
        TreeWork before = WorkOn(content, u"a"_s, 5);
        before.Operations = kWorkBefore;
        QCOMPARE(RunTreeWork(before), 0);
        std::vector<std::unique_ptr<QProcess>> processes;
        TreeLedger ledger;
        for (const QString& who : {u"b"_s, u"c"_s}) {
            TreeWork work = WorkOn(content, who, who.front().unicode());
            work.Journal = folder.filePath(who);
            work.FirstNumber = 100'000 * int(processes.size() + 1);
            work.Operations = kSharedWork;
            work.Shared = true;
            processes.push_back(StartWork(work));
        }
        for (const auto& process : processes) {
            QVERIFY(process->waitForFinished(60'000));
            QCOMPARE(process->exitCode(), 0);
        }
        for (const QString& journal : {JournalOf(content), folder.filePath(u"b"_s), folder.filePath(u"c"_s)})
            ledger.Read(journal);
        const QList<NodeOnDisk> nodes = ReadNodes(content);
        QCOMPARE(ledger.NodeObjection(nodes), QString());
        QCOMPARE(ledger.LostSave(nodes), QString());
        qInfo("%d nodes and %d saves, none lost", ledger.Nodes(), ledger.Saves());
    }
};

} // namespace paneda::test

int main(int argc, char** argv) {
    using namespace paneda::test;
    if (argc > 1 && qstrcmp(argv[1], "--work") == 0) {
        const QCoreApplication application(argc, argv);
        return RunStartedWork(QCoreApplication::arguments());
    }
    Steps steps;
    for (const int seed : {1, 2}) {
        steps[QStringLiteral("work %1").arg(seed)] = [seed](const QString& content) {
            TreeWork work = WorkOn(content, QStringLiteral("k"), quint32(seed * 1000));
            work.FirstNumber = 10'000;
            work.Operations = kKilledWork;
            return RunTreeWork(work);
        };
    }
    if (const auto status = RunAsChild(argc, argv, steps))
        return *status;
    const QCoreApplication application(argc, argv);
    TestTreeKills test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_tree_kills.moc"
