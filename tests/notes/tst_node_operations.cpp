#include "notes/node_properties.h"
#include "tree_desk.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class tst_node_operations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void adds();
    void addsWithIconAndLink();
    void takenNumbers();
    void renumbersAllSiblings();
    void movesWithinALevel();
    void twoTreesOnOneFolder();
    void rowsOutOfDate();
    void movesToAnotherVolume();
    void moveGesture();
    void edits();
    void turnsANoteIntoALink();
    void deletes();
    void deletesLinksAndLeftovers();
    void tellsFailures();
};

namespace {

using enum NodePosition;

// Rows a to c of one level, spaced evenly.
TreeModel& OpenThree(TreeDesk& desk, const QString& tree = u"Tree"_s) {
    desk.Put(tree + u"/000001"_s, "a", "0001000000");
    desk.Put(tree + u"/000002"_s, "b", "0002000000");
    desk.Put(tree + u"/000003"_s, "c", "0003000000");
    return desk.Open(tree);
}

} // namespace

void tst_node_operations::adds() {
    TreeDesk desk;
    TreeModel& tree = desk.Open(u"Tree"_s);
    const int first = desk.Add(tree, -1, Below, u"first: 1/2"_s);
    QCOMPARE(first, 1);
    QCOMPARE(desk.Store.Bytes(u"Tree/000001/Properties.ini"_s),
             "[Properties]\r\nName=first: 1/2\r\nDescription=\r\nSort=0001000000\r\n"_ba);
    const int child = desk.Add(tree, first, Child, u"child"_s);
    desk.Add(tree, child, Above, u"upper"_s);
    QCOMPARE(TreeDesk::Rows(tree),
             (QStringList{u"-first: 1/2 0001000000"_s, u"  upper 0000500000"_s, u"  child 0001000000"_s}));
    QCOMPARE(tree.Nodes()[2].PathLabel, u"Tree \\ first: 1/2"_s);
    QCOMPARE(desk.Store.Entries().filter(u".txt"_s),
             (QStringList{u"Tree/000001 first- 1-2.txt"_s, u"Tree/000001/000001 child.txt"_s,
                          u"Tree/000001/000002 upper.txt"_s}));
    QCOMPARE(desk.Add(tree, first, Below, u"  "_s), -1);
    QVERIFY(desk.Prompts.Shown.isEmpty());
}

void tst_node_operations::addsWithIconAndLink() {
    TreeDesk desk;
    TreeModel& tree = desk.Open(u"Tree"_s);
    desk.Store.AddFile(u"icon.PNG"_s, "png");
    desk.Transfer.Pending = PendingNode{u"f"_s,    desk.Store.Path(u"icon.PNG"_s),
                                        Below,     u"d"_s,
                                        kFileNode, {u"..\\x.exe"_s, u"p"_s, u"s"_s, u"Minimized"_s}};
    desk.Operations(tree).AddOrMoveNode(-1, NodeMode::Add);
    QCOMPARE(desk.Store.Bytes(u"Tree/000001/Image.PNG"_s), "png"_ba);
    QCOMPARE(tree.Nodes()[0].LinkData.Target, u"E:\\x.exe"_s);
    desk.Transfer.Pending = PendingNode{u"u"_s, {}, Below, {}, kUrlNode, {u"example.org"_s, {}, {}, {}}};
    desk.Operations(tree).AddOrMoveNode(1, NodeMode::Add);
    QCOMPARE(desk.Fetched, QStringList{u"example.org Tree/000002/Image.ico"_s});
}

// Names in the way that no scan of folders sees, numbers of folders that are no nodes, and odd names.
void tst_node_operations::takenNumbers() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    desk.Store.AddFolder(u"Tree/000011 mine"_s);
    desk.Store.AddFolder(u"Tree/mine 99"_s);
    desk.Store.AddFile(u"Tree/000012"_s, "file");
    const QString link = desk.Store.Path(u"Tree/000013"_s);
    if (!MakeSymbolicLink(desk.Store.Path(u"nowhere"_s), link))
        desk.Store.AddFile(u"Tree/000013"_s);
    const int row = desk.Add(tree, 3, Below, u"new"_s);
    QVERIFY(row > 0);
    QCOMPARE(tree.Find(row)->Folder, u"000014"_s);
    QCOMPARE(desk.Store.Bytes(u"Tree/000012"_s), "file"_ba);
    QVERIFY(EntryExists(link) && !QFileInfo(link).isDir());
}

void tst_node_operations::renumbersAllSiblings() {
    TreeDesk desk;
    desk.Put(u"Tree/000001"_s, "a", "0000000004");
    desk.Put(u"Tree/000002"_s, "b", "0000000005");
    TreeModel& tree = desk.Open(u"Tree"_s);
    // Added by somebody else since, and a folder that is no node.
    desk.Put(u"Tree/000003"_s, "other", "0000000004.5");
    desk.Put(u"Tree/000004"_s, "", "0000000006");
    desk.Put(u"Tree/000001/000001"_s, "below", "0000000001");
    desk.Add(tree, 2, Above, u"new"_s);
    QCOMPARE(TreeDesk::Rows(tree), (QStringList{u"a 0001000000"_s, u"new 0003000000"_s, u"b 0004000000"_s}));
    tree.LoadTree();
    QCOMPARE(TreeDesk::Rows(tree), (QStringList{u"+a 0001000000"_s, u"other 0002000000"_s,
                                                u"new 0003000000"_s, u"b 0004000000"_s}));
    QCOMPARE(ReadSort(ReadNodeIni(desk.Store.Path(u"Tree/000004"_s))), u"0000000006"_s);
    QCOMPARE(ReadSort(ReadNodeIni(desk.Store.Path(u"Tree/000001/000001"_s))), u"0000000001"_s);

    // Texts that are equal or no numbers: a new node stays where it was put when the tree is read again.
    desk.Put(u"Odd/000001"_s, "a", "0002000000");
    desk.Put(u"Odd/000002"_s, "b", "0002000000");
    desk.Put(u"Odd/000003"_s, "c", "zzz");
    TreeModel& odd = desk.Open(u"Odd"_s);
    desk.Add(odd, 3, Below, u"last"_s);
    QCOMPARE(odd.Nodes().back().Sort, u"0004000000"_s);
    desk.Put(u"Odd/000002"_s, "b", "0001000000");
    odd.LoadTree();
    desk.Add(odd, 1, Below, u"second"_s);
    odd.LoadTree();
    QCOMPARE(TreeDesk::Names(odd), (QStringList{u"a"_s, u"second"_s, u"b"_s, u"c"_s, u"last"_s}));
}

void tst_node_operations::movesWithinALevel() {
    TreeDesk desk;
    // No room: what is listed is numbered again, the moved one once; what has gone is left out.
    desk.Put(u"Tight/000001"_s, "a", "0000000001");
    desk.Put(u"Tight/000002"_s, "b", "0000000002");
    desk.Put(u"Tight/000003"_s, "c", "0000000003");
    desk.Put(u"Tight/000004"_s, "gone", "0000000004");
    TreeModel& tight = desk.Open(u"Tight"_s);
    TreeModel& twin = desk.Open(u"Tight"_s);
    QVERIFY(QDir(desk.Store.Path(u"Tight/000004"_s)).removeRecursively());
    desk.Move(twin, 3, tight, 1, MoveChoice::Below);
    for (const TreeModel* tree : {&tight, &twin})
        QCOMPARE(TreeDesk::Rows(*tree), (QStringList{u"a 0001000000"_s, u"c 0002000000"_s, u"b 0003000000"_s,
                                                     u"gone 0004000000"_s}));
    tight.LoadTree();
    QCOMPARE(TreeDesk::Names(tight), (QStringList{u"a"_s, u"c"_s, u"b"_s}));
}

// Two trees on one content folder, one of them by way of a link: each shows the node once.
void tst_node_operations::twoTreesOnOneFolder() {
    TreeDesk desk;
    TreeModel& one = OpenThree(desk);
    desk.Put(u"Tree/000003/000001"_s, "c1", "0001000000");
    one.LoadTree();
    const bool linked = MakeSymbolicLink(desk.Store.Path(u"Tree"_s), desk.Store.Path(u"Link"_s));
    TreeModel& other = desk.Open(linked ? u"Link"_s : u"Tree"_s);
    for (TreeModel* tree : {&one, &other})
        tree->ExpandNode(TreeDesk::Row(*tree, u"c"_s));
    const QStringList moved{u"b"_s, u"c"_s, u"c1"_s, u"a"_s};
    QVERIFY(desk.Move(one, 1, other, TreeDesk::Row(other, u"c1"_s), MoveChoice::Below) > 0);
    QCOMPARE(TreeDesk::Names(one), moved);
    QCOMPARE(TreeDesk::Names(other), moved);
    desk.Move(other, TreeDesk::Row(other, u"c"_s), one, TreeDesk::Row(one, u"a"_s), MoveChoice::Child);
    QCOMPARE(desk.Prompts.Shown, QStringList{u"|Cannot Place to Child Node"_s});
}

// Behind the row's back its node has gone, and another one has got the number of its folder.
void tst_node_operations::rowsOutOfDate() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    TreeModel& stale = desk.Open(u"Tree"_s);
    desk.Move(tree, 3, tree, 1, MoveChoice::Child);
    desk.Add(tree, 2, Below, u"new"_s);
    const QStringList entries = desk.Store.Entries();
    desk.Prompts.Answers = {true};
    desk.Transfer.Pending = PendingNode{u"x"_s, kKeepIcon, Below, {}, {}, {}};
    QVERIFY(!desk.Operations(stale).EditNode(3));
    QCOMPARE(TreeDesk::Names(stale), (QStringList{u"a"_s, u"b"_s, u"new"_s}));
    for (const bool deletes : {true, false}) {
        desk.Put(u"Tree/000003"_s, deletes ? "other" : "yet another", "0003000000");
        if (deletes)
            QVERIFY(!desk.Operations(stale).DeleteNode(3, DeleteMode::AskAndDelete));
        else
            QCOMPARE(desk.Move(stale, 3, stale, 1, MoveChoice::Child), -1);
    }
    QCOMPARE(desk.Store.Entries(), entries);
    QCOMPARE(desk.Prompts.Shown.filter(u"has changed since it was listed"_s).size(), 3);

    // The tree that the node comes from has been closed.
    desk.Operations(tree).StartMove(1);
    NodeOperations operations(tree, desk.Transfer, {desk.Prompts, [](int) { return nullptr; }, {}, {}});
    QCOMPARE(operations.FinishMove(2, MoveChoice::Below), -1);
    QCOMPARE(desk.Prompts.Shown.last(), u"|'a' was not moved, since its tree has been closed."_s);
}

void tst_node_operations::movesToAnotherVolume() {
    const QTemporaryDir volume(u"/dev/shm/paneda-XXXXXX"_s);
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    desk.Put(u"Tree/000002/000001"_s, "below", "0001000000");
    desk.Store.AddFile(u"Tree/000002/content.rtf"_s, "text");
    desk.Store.AddFile(u"Tree/000002 b.txt"_s);
    tree.LoadTree();
    const bool linked = MakeSymbolicLink(volume.path(), desk.Store.Path(u"Far"_s));
    const EntryResult across = RenameEntry(desk.Store.Path(u"Tree/000002 b.txt"_s), volume.filePath(u"b"_s));
    if (!volume.isValid() || !linked || across || across.error().Problem != EntryProblem::OtherVolume)
        QSKIP("There is no second file system here.");
    desk.Put(u"Far/000005"_s, "far", "0001000000");
    TreeModel& far = desk.Open(u"Far"_s);
    const int row = desk.Move(tree, 2, far, 1, MoveChoice::Above);
    TreeDesk::ExpandAll(far);
    QCOMPARE(TreeDesk::Rows(far),
             (QStringList{u"-b 0000500000"_s, u"  below 0001000000"_s, u"far 0001000000"_s}));
    QCOMPARE(far.Find(row)->Folder, u"000006"_s);
    QCOMPARE(desk.Store.Bytes(u"Far/000006/content.rtf"_s), "text"_ba);
    QCOMPARE(TreeDesk::Names(tree), (QStringList{u"a"_s, u"c"_s}));
    QVERIFY(desk.Store.Entries().filter(QRegularExpression(u"000002|/\\.(moving|deleted)"_s)).isEmpty());
    QCOMPARE(QDir(volume.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             (QStringList{u"000005"_s, u"000006"_s, u"000006 b.txt"_s}));
    QVERIFY(desk.Prompts.Shown.isEmpty());
}

void tst_node_operations::moveGesture() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    desk.Add(tree, 1, Child, u"a1"_s);
    const QStringList before = TreeDesk::Rows(tree);
    QCOMPARE(desk.Move(tree, 1, tree, 3, MoveChoice::None), -1);
    QVERIFY(desk.Transfer.Moving);
    QCOMPARE(desk.Operations(tree).FinishMove(3, MoveChoice::Cancel), -1);
    QVERIFY(!desk.Transfer.Moving);
    desk.Move(tree, 1, tree, 1, MoveChoice::Child);
    desk.Move(tree, 1, tree, TreeDesk::Row(tree, u"a1"_s), MoveChoice::Below);
    QCOMPARE(desk.Prompts.Shown,
             (QStringList{u"|Cannot Place to Same Node"_s, u"|Cannot Place to Child Node"_s}));
    QCOMPARE(TreeDesk::Rows(tree), before);

    // Between picking up and placing, the row number may come to stand for another node.
    desk.Operations(tree).StartMove(TreeDesk::Row(tree, u"a1"_s));
    tree.CollapseNode(1);
    desk.Add(tree, 3, Below, u"d"_s);
    desk.Operations(tree).FinishMove(2, MoveChoice::Below);
    QCOMPARE(TreeDesk::Names(tree), (QStringList{u"a"_s, u"b"_s, u"a1"_s, u"c"_s, u"d"_s}));
}

void tst_node_operations::edits() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    const int child = desk.Add(tree, 1, Child, u"child"_s);
    desk.Add(tree, child, Child, u"grandchild"_s);
    desk.Store.AddFile(u"Tree/000001/image.png"_s, "old");
    desk.Store.AddFile(u"Tree/000001/Properties.ini"_s, "[Properties]\nEditing=x\nName=a\nSort=0001000000\n");
    desk.Store.AddFile(u"Tree/000001 a.txt"_s, "kept");
    desk.Store.AddFile(u"new.ico"_s, "ico");
    const auto edit = [&](const QString& name, const QString& icon) {
        desk.Transfer.Pending = PendingNode{name, icon, Below, u"d"_s, {}, {}};
        return desk.Operations(tree).EditNode(1);
    };
    QVERIFY(edit(u"A?"_s, kKeepIcon));
    QCOMPARE(desk.Store.Bytes(u"Tree/000001/Properties.ini"_s),
             "[Properties]\nEditing=x\nName=A?\nSort=0001000000\nDescription=d\n"_ba);
    QCOMPARE(desk.Store.Bytes(u"Tree/000001 A-.txt"_s), "kept"_ba);
    QCOMPARE(tree.Nodes()[2].PathLabel, u"Tree \\ A? \\ child"_s);
    QCOMPARE(desk.Store.Bytes(u"Tree/000001/image.png"_s), "old"_ba);
    QVERIFY(edit(u"A?"_s, desk.Store.Path(u"new.ico"_s)));
    QCOMPARE(desk.Store.Entries().filter(u"mage"_s), QStringList{u"Tree/000001/Image.ico"_s});
    QVERIFY(edit(u"A?"_s, {}));
    QVERIFY(desk.Store.Entries().filter(u"mage"_s).isEmpty());
}

void tst_node_operations::turnsANoteIntoALink() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    const auto edit = [&](const QString& icon, const QString& type, const QString& target) -> QString {
        desk.Transfer.Pending = PendingNode{u"a"_s, icon, Below, {}, type, {target, {}, {}, {}}};
        desk.Operations(tree).EditNode(1);
        return tree.Find(1)->Type + u' ' + tree.Find(1)->LinkData.Target;
    };
    QCOMPARE(edit(kKeepIcon, kUrlNode, u"one.example"_s), u"URL one.example"_s);
    QCOMPARE(edit(kKeepIcon, kUrlNode, u"two.example"_s), u"URL one.example"_s);
    QCOMPARE(edit(kKeepIcon, {}, {}), u" "_s);
    QCOMPARE(desk.Fetched, QStringList{u"one.example Tree/000001/Image.ico"_s});
}

void tst_node_operations::deletes() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    const int child = desk.Add(tree, 1, Child, u"child"_s);
    const int below = desk.Add(tree, child, Child, u"below"_s);
    desk.Add(tree, child, Below, u"second"_s);
    desk.Prompts.Answers = {false, true, true};
    NodeOperations operations = desk.Operations(tree);
    QVERIFY(!operations.DeleteNode(child, DeleteMode::AskAndDelete));
    QCOMPARE(desk.NotesClosed, 0);
    tree.SelectRow(below);
    QVERIFY(operations.DeleteNode(child, DeleteMode::AskAndDelete));
    QCOMPARE(desk.NotesClosed, 1);
    QCOMPARE(tree.SelectedRow(), -1);
    QCOMPARE(TreeDesk::Names(tree), (QStringList{u"a"_s, u"second"_s, u"b"_s, u"c"_s}));
    QCOMPARE(tree.Nodes()[0].ExpandState, BranchState::Expanded);
    // Another user was faster.
    QVERIFY(QDir(desk.Store.Path(u"Tree/000001/000002"_s)).removeRecursively());
    QVERIFY(operations.DeleteNode(TreeDesk::Row(tree, u"second"_s), DeleteMode::AskAndDelete));
    QCOMPARE(tree.Nodes()[0].ExpandState, BranchState::Leaf);
    QVERIFY(desk.Store.Entries().filter(QRegularExpression(u"child|second|deleted"_s)).isEmpty());
}

void tst_node_operations::deletesLinksAndLeftovers() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    desk.Store.AddFile(u"outside/kept"_s);
    desk.Store.AddFile(u"Tree/.deleted-1/node/file"_s);
    desk.Store.AddFile(u"Tree/.moving-new/node/file"_s);
    desk.Store.AddFile(u"Tree/.moving-old/node/file"_s);
    const auto path = [&](const QString& name) {
        return QFileInfo(desk.Store.Path(name)).filesystemFilePath();
    };
    for (const QString& link : {u"Tree/000002/link"_s, u"Tree/.deleted-link"_s})
        MakeSymbolicLink(desk.Store.Path(u"outside"_s), desk.Store.Path(link));
    const auto threeDays = std::chrono::hours(72);
    std::error_code timeless;
    std::filesystem::last_write_time(path(u"Tree/.moving-old"_s),
                                     std::filesystem::file_time_type::clock::now() - threeDays, timeless);
    desk.Prompts.Answers = {true};
    QVERIFY(desk.Operations(tree).DeleteNode(2, DeleteMode::AskAndDelete));
    QVERIFY(desk.Store.Entries().contains(u"outside/kept"_s));
    QVERIFY(desk.Store.Entries().contains(u"Tree/.moving-new/node/file"_s));
    const QStringList rest =
        desk.Store.Entries().filter(QRegularExpression(u"deleted-1|moving-old|000002"_s));
    // Where a folder cannot be made old, its copy may still be going on.
    QCOMPARE(rest.isEmpty(), !timeless);
}

// Told with the path, and the list shows what the disk holds.
void tst_node_operations::tellsFailures() {
    TreeDesk desk;
    TreeModel& tree = OpenThree(desk);
    NodeOperations operations = desk.Operations(tree);
    const auto told = [&](const QString& path) {
        return desk.Prompts.Shown.size() == 1 &&
               desk.Prompts.Shown.takeFirst().startsWith(
                   u'|' + QDir::toNativeSeparators(desk.Store.Path(path)) + u": "_s);
    };
    // A picture that is not there; no folder is left.
    desk.Transfer.Pending = PendingNode{u"n"_s, desk.Store.Path(u"none.png"_s), Below, {}, {}, {}};
    QCOMPARE(operations.AddOrMoveNode(3, NodeMode::Add), -1);
    QVERIFY(told(u"none.png"_s));
    QCOMPARE(TreeDesk::Names(tree), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    QVERIFY(desk.Store.Entries().filter(u"000004"_s).isEmpty());

    // A text that no value can hold: nothing is written, and the error names key and limit.
    const PendingNode tooLong{u"n"_s, {}, Below, {}, kUrlNode, {QString(255, u'x'), {}, {}, {}}};
    const QStringList entries = desk.Store.Entries();
    desk.Transfer.Pending = tooLong;
    QCOMPARE(operations.AddOrMoveNode(3, NodeMode::Add), -1);
    QVERIFY(!operations.EditNode(1));
    QVERIFY(desk.Prompts.Shown.first().contains(u"\"Target\" has 255 characters; at most 254"_s));
    QCOMPARE(desk.Prompts.Shown.size(), 2);
    desk.Prompts.Shown.clear();
    QCOMPARE(desk.Store.Entries(), entries);

    // Nodes that another user has deleted.
    QVERIFY(QDir(desk.Store.Path(u"Tree/000002"_s)).removeRecursively());
    QCOMPARE(desk.Add(tree, 2, Child, u"n"_s), -1);
    QVERIFY(told(u"Tree/000002"_s));
    QCOMPARE(TreeDesk::Names(tree), (QStringList{u"a"_s, u"c"_s}));
    QVERIFY(QDir(desk.Store.Path(u"Tree/000003"_s)).removeRecursively());
    desk.Transfer.Pending = PendingNode{u"n"_s, kKeepIcon, Below, {}, {}, {}};
    operations.StartMove(2);
    QVERIFY(!operations.EditNode(2));
    QVERIFY(told(u"Tree/000003/Properties.ini"_s));
    QCOMPARE(operations.FinishMove(1, MoveChoice::Child), -1);
    QVERIFY(told(u"Tree/000003"_s));
    QVERIFY(!QFileInfo::exists(desk.Store.Path(u"Tree/000003"_s)));

    // A content folder that cannot take the hidden folder: the node stays, on the disk and on the list.
    desk.Prompts.Answers = {true};
    const QString content = desk.Store.Path(u"Tree"_s);
    QVERIFY(QFile::setPermissions(content, QFile::ReadOwner | QFile::ExeOwner));
    const bool sealed = !MakeNewFolder(content + u"/probe"_s);
    if (sealed) {
        QVERIFY(!operations.DeleteNode(1, DeleteMode::AskAndDelete));
        QCOMPARE(desk.Prompts.Shown.size(), 2);
        QCOMPARE(TreeDesk::Names(tree), QStringList{u"a"_s});
    }
    QVERIFY(QFile::setPermissions(content, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

QTEST_GUILESS_MAIN(tst_node_operations)
#include "tst_node_operations.moc"
