#include "tree_desk.h"

#include <QCoreApplication>
#include <QMap>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <atomic>
#include <cstdio>
#include <thread>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// Somebody who works on a tree that others change at the same time. What is added is known by its
// description, which never changes; the nodes that are deleted again have no children.
class Worker {
public:
    static constexpr int kMostKept = 40; // a larger tree takes longer and meets nothing new

    Worker(const QString& content, const QString& who, quint32 seed)
        : who_(who), random_(seed), tree_(kAppPath) {
        settings_.ContentFolder = content;
        tree_.Open(u"Tree"_s, settings_, 1);
    }

    QStringList Kept;
    int Done = 0; // operations that were not refused

    void Step(int number) {
        if (random_.bounded(4) == 0)
            Refresh();
        prompts_.Answers = {true};
        transfer_ = {};
        NodeServices services{prompts_, {}, {}, {}};
        services.TreeOf = [this](int) { return &tree_; };
        NodeOperations operations(tree_, transfer_, services);
        const int row = Pick(true);
        const int target = Pick(false); // one that will be deleted gets no children
        const auto position = NodePosition(1 + random_.bounded(3));
        const int kind = random_.bounded(12);
        const TreeNode* node = tree_.Find(row);
        const bool isKept = node && !node->Description.endsWith(u'd');
        bool done = false;
        if (kind < 3 || !node) {
            Add(operations, target, position, number);
            return;
        }
        if (kind < 6) {
            operations.StartMove(row);
            done = operations.FinishMove(target, MoveChoice(position)) > 0;
        } else if (kind < 8) {
            transfer_.Pending =
                PendingNode{node->Name + u'x', kKeepIcon, position, node->Description, {}, {}};
            done = operations.EditNode(row);
        } else if (!isKept) {
            done = operations.DeleteNode(row, DeleteMode::AskAndDelete);
        }
        Done += done ? 1 : 0;
    }

    // Each node with its level, as a fresh look shows them.
    QStringList View() {
        tree_.LoadTree();
        TreeDesk::ExpandAll(tree_);
        QStringList lines;
        for (const TreeNode& node : tree_.Nodes())
            lines.append(node.RelativePath + node.Folder + u' ' + node.Name + u' ' + node.Sort + u' ' +
                         node.Description);
        return lines;
    }

private:
    void Add(NodeOperations& operations, int target, NodePosition position, int number) {
        const bool goes = Kept.size() >= kMostKept || random_.bounded(3) == 0;
        const QString id = who_ + QString::number(number) + (goes ? u'd' : u'k');
        transfer_.Pending = PendingNode{id, {}, position, id, {}, {}};
        if (operations.AddOrMoveNode(target, NodeMode::Add) < 0)
            return;
        ++Done;
        if (!goes)
            Kept.append(id);
    }

    int Pick(bool mayGo) {
        for (int i = 0; i < 5 && !tree_.Nodes().empty(); ++i) {
            const TreeNode& node = tree_.Nodes()[std::size_t(random_.bounded(int(tree_.Nodes().size())))];
            if (mayGo || !node.Description.endsWith(u'd'))
                return node.RowIndex;
        }
        return -1;
    }

    void Refresh() {
        tree_.LoadTree();
        for (int i = 0; i < 10 && !tree_.Nodes().empty(); ++i)
            tree_.ExpandNode(tree_.Nodes()[std::size_t(random_.bounded(int(tree_.Nodes().size())))].RowIndex);
    }

    QString who_;
    QRandomGenerator random_;
    FakePrompts prompts_;
    NodeTransfer transfer_;
    TreeSettings settings_;
    TreeModel tree_;
};

// The second process: works until its input ends, then tells what it has kept and what it sees.
int RunOther(const QString& content) {
    std::atomic<bool> stop = false;
    std::thread reader([&stop] {
        while (std::getchar() != EOF) {
        }
        stop = true;
    });
    Worker worker(content, u"b"_s, 2);
    for (int step = 0; !stop; ++step)
        worker.Step(step);
    reader.join();
    std::printf("%d\n%s\n", worker.Done, qPrintable(worker.Kept.join(u' ')));
    for (const QString& line : worker.View())
        std::printf("%s\n", qPrintable(line));
    return 0;
}

} // namespace

class tst_tree_sharing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsLost();
};

void tst_tree_sharing::nothingIsLost() {
    const StoreBuilder store;
    store.AddFolder(u"Tree"_s);
    const QString content = store.Path(u"Tree"_s);
    QProcess other;
    other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    other.start(QCoreApplication::applicationFilePath(), {u"--other"_s, content});
    QVERIFY(other.waitForStarted());
    Worker worker(content, u"a"_s, 1);
    // 2000 take a minute and a half where two cores do more than this.
    const int asked = qEnvironmentVariableIntValue("PANEDA_STEPS");
    const int steps = asked > 0 ? asked : qEnvironmentVariableIsSet("PANEDA_RUNS") ? 100 : 500;
    for (int step = 0; step < steps; ++step)
        worker.Step(step);
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished());
    QCOMPARE(other.exitStatus(), QProcess::NormalExit);
    QStringList told =
        QString::fromUtf8(other.readAllStandardOutput()).remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
    const int otherDone = told.takeFirst().toInt();
    const QStringList kept = worker.Kept + told.takeFirst().split(u' ');
    const QStringList view = worker.View();
    QCOMPARE(view, told);
    qInfo("%d and %d operations", worker.Done, otherDone);
    QVERIFY(worker.Done > steps / 4 && otherDone > steps / 4);
    QMap<QString, int> found;
    for (const QString& line : view)
        ++found[line.section(u' ', -1)];
    for (const QString& id : kept)
        QVERIFY2(found.value(id) == 1, qPrintable(id + u" is there %1 times"_s.arg(found.value(id))));
}

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == u"--other")
        return RunOther(application.arguments().value(2));
    tst_tree_sharing test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_tree_sharing.moc"
