#include "notes/node_icon.h"
#include "notes/node_menu.h"
#include "notes/open_trees.h"
#include "notes/shortcut_start.h"
#include "notes/tree_search.h"
#include "tree_desk.h"

#include <QDir>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// Follows the rows by what it is told alone.
class Follower : public TreeListener {
public:
    explicit Follower(TreeModel& tree) : tree_(tree) {
        tree.SetListener(this);
        TreeLoaded();
    }

    std::vector<int> Rows;
    QStringList Changed;

    void TreeLoaded() override {
        Rows.clear();
        RowsAdded(0, int(tree_.Nodes().size()));
    }

    void RowsAdded(int position, int count) override {
        for (int i = position; i < position + count; ++i)
            Rows.insert(Rows.begin() + i, tree_.Nodes()[std::size_t(i)].RowIndex);
    }

    void RowsRemoved(int position, const std::vector<int>& rows) override {
        for (const int row : rows) {
            if (Rows[std::size_t(position)] != row)
                qFatal("Another row stands there.");
            Rows.erase(Rows.begin() + position);
        }
    }

    void RowChanged(int row) override { Changed.append(tree_.Find(row)->Name); }

private:
    TreeModel& tree_;
};

std::vector<int> RowIndexes(const TreeModel& tree) {
    std::vector<int> rows;
    for (const TreeNode& node : tree.Nodes())
        rows.push_back(node.RowIndex);
    return rows;
}

} // namespace

class tst_tree_model : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void loadsOneLevel();
    void expandsAndCollapses();
    void refreshes();
    void switchesTrees();
    void startsLinks();
    void findsNodes();
    void findsIcons();
    void decodesMenus();
};

void tst_tree_model::loadsOneLevel() {
    TreeDesk desk;
    desk.Put(u"Tree/000001"_s, "late", "0003000000",
             "Description=d\r\n[Link]\r\nType=File\r\nTarget=..\\x.exe\r\n"
             "Parameter=p\r\nStart In=s\r\nWindow State=Maximized\r\n");
    desk.Put(u"Tree/000002"_s, "equal b", "0002000000");
    desk.Put(u"Tree/000003"_s, "equal a", "0002000000");
    desk.Put(u"Tree/000004"_s, "unsorted", "");
    desk.Put(u"Tree/000005"_s, "web", "A", "[Link]\r\nType=URL\r\nTarget=example.org\r\nParameter=no\r\n");
    desk.Put(u"Tree/000006"_s, "", "0000000001");
    desk.Put(u"Tree/.moving-1"_s, "hidden", "0000000001");
    desk.Put(u"Tree/000002/000001"_s, "child", "0001000000");
    desk.Store.AddFolder(u"Tree/000003/.deleted-1"_s);
    desk.Store.AddFile(u"Tree/000001 late.txt"_s);
    desk.Store.AddFile(u"Tree/000007/properties.INI"_s, "[properties]\nname=spelling\nSORT=C\n");
    const TreeModel& tree = desk.Open(u"Tree"_s);
    QCOMPARE(TreeDesk::Rows(tree),
             (QStringList{u"unsorted "_s, u"+equal b 0002000000"_s, u"equal a 0002000000"_s,
                          u"late 0003000000"_s, u"web A"_s, u"spelling C"_s}));
    QCOMPARE(RowIndexes(tree), (std::vector{1, 2, 3, 4, 5, 6}));
    const TreeNode expected{u"late"_s,
                            u"0003000000"_s,
                            u"000001"_s,
                            4,
                            u"\\"_s,
                            0,
                            BranchState::Leaf,
                            u"Tree"_s,
                            u"d"_s,
                            u"File"_s,
                            {u"E:\\x.exe"_s, u"p"_s, u"s"_s, u"Maximized"_s}};
    QCOMPARE(tree.Nodes()[3], expected);
    QCOMPARE(tree.Nodes()[4].LinkData, (NodeLink{u"example.org"_s, {}, {}, {}}));
    QCOMPARE(tree.LastTop(), 60 + 5 * 270);
}

void tst_tree_model::expandsAndCollapses() {
    TreeDesk desk;
    desk.Put(u"Tree/000001"_s, "a", "1");
    desk.Put(u"Tree/000002"_s, "b", "2");
    desk.Put(u"Tree/000001/000003"_s, "a1", "1");
    desk.Put(u"Tree/000001/000001"_s, "a2", "2");
    desk.Put(u"Tree/000001/000001/000001"_s, "a2x", "1");
    desk.Put(u"Tree/000002/000001"_s, "b1", "1");
    TreeModel& tree = desk.Open(u"Tree"_s);
    Follower follower(tree);
    tree.ToggleNode(1);
    tree.ToggleNode(TreeDesk::Row(tree, u"a2"_s));
    QCOMPARE(TreeDesk::Rows(tree),
             (QStringList{u"-a 1"_s, u"  a1 1"_s, u"  -a2 2"_s, u"    a2x 1"_s, u"+b 2"_s}));
    QCOMPARE(RowIndexes(tree), (std::vector{1, 3, 4, 5, 2}));
    QCOMPARE(follower.Rows, RowIndexes(tree));
    const TreeNode& deep = tree.Nodes()[3];
    QCOMPARE(deep.RelativePath, u"\\000001\\000001\\"_s);
    QCOMPARE(deep.PathLabel, u"Tree \\ a \\ a2"_s);
    QCOMPARE(deep.Level, 2);
    QCOMPARE(tree.NodeFolder(deep).Text(), desk.Store.Path(u"Tree/000001/000001/000001"_s));

    tree.SelectRow(5);
    tree.ToggleNode(1);
    QCOMPARE(tree.SelectedRow(), -1);
    QCOMPARE(TreeDesk::Rows(tree), (QStringList{u"+a 1"_s, u"+b 2"_s}));
    QCOMPARE(tree.FreeRows(), (std::vector{3, 4, 5}));
    tree.SelectRow(2);
    tree.ToggleNode(2);
    tree.ToggleNode(1);
    // Released rows come first, and what was expanded below is not.
    QCOMPARE(TreeDesk::Rows(tree),
             (QStringList{u"-a 1"_s, u"  a1 1"_s, u"  +a2 2"_s, u"-b 2"_s, u"  b1 1"_s}));
    QCOMPARE(RowIndexes(tree), (std::vector{1, 4, 3, 2, 5}));
    QVERIFY(tree.FreeRows().empty());
    QCOMPARE(tree.SelectedRow(), 2);
    QCOMPARE(follower.Rows, RowIndexes(tree));
    QCOMPARE(follower.Changed, (QStringList{u"a"_s, u"a2"_s, u"a"_s, u"b"_s, u"a"_s}));
}

void tst_tree_model::refreshes() {
    TreeDesk desk;
    TreeModel& tree = desk.Open(u"Tree"_s);
    Follower follower(tree);
    QVERIFY(tree.CanvasTip().startsWith(u"Right click to add first note in this tree, subsequents "));
    QCOMPARE(tree.Refresh(), RefreshOutcome::OfferFirstNote);
    desk.Put(u"Tree/000001"_s, "a", "1");
    desk.Put(u"Tree/000001/000001"_s, "a1", "1");
    QVERIFY(tree.Nodes().empty());
    QCOMPARE(tree.Refresh(), RefreshOutcome::Shown);
    QVERIFY(tree.CanvasTip().isEmpty());
    const TreeNode only = tree.Nodes()[0];
    tree.RemoveNode(1);
    QVERIFY(!tree.CanvasTip().isEmpty());
    tree.EnterNode(only, -1, NodePosition::Below);
    QVERIFY(tree.CanvasTip().isEmpty());
    tree.ToggleNode(1);
    tree.SelectRow(1);
    QCOMPARE(tree.Refresh(), RefreshOutcome::Shown);
    QVERIFY(tree.FreeRows().empty() && tree.SelectedRow() == -1);
    QCOMPARE(TreeDesk::Rows(tree), QStringList{u"+a 1"_s});
    QCOMPARE(follower.Rows, std::vector{1});
    QVERIFY(QDir(desk.Store.Path(u"Tree"_s)).removeRecursively());
    QCOMPARE(tree.Refresh(), RefreshOutcome::FolderNotFound);
    QCOMPARE(tree.NotFoundText(), u"Folder  '"_s + desk.Store.Path(u"Tree"_s) + u"'  Not Found!"_s);
}

void tst_tree_model::switchesTrees() {
    OpenTrees trees;
    QCOMPARE(trees.RefreshTree(u"A"_s, {}), (TreeSwitch{{}, 1, 1}));
    QCOMPARE(trees.RefreshTree(u"B"_s, {}), (TreeSwitch{{}, 2, 2}));
    QCOMPARE(trees.RefreshTree(u"A"_s, {}), (TreeSwitch{{}, {}, 1}));
    QCOMPARE(trees.RefreshTree({}, u"A"_s), (TreeSwitch{1, {}, {}}));
    QCOMPARE(trees.RefreshTree(u"A"_s, {}), (TreeSwitch{{}, 3, 3}));
    // Loaded anew behind the others.
    QCOMPARE(trees.RefreshTree(u"B"_s, u"B"_s), (TreeSwitch{2, 4, {}}));
    QCOMPARE(trees.Names(), (QStringList{u"XXDELETED TREEXX"_s, u"XXDELETED TREEXX"_s, u"A"_s, u"B"_s}));
}

void tst_tree_model::startsLinks() {
    using Action = LaunchRequest::Action;
    TreeNode node;
    node.LinkData = {u"E:\\a\\x.exe"_s, u"-p"_s, u"F:\\in"_s, u"Minimized"_s};
    QVERIFY(DecideNodeStart(node, kAppPath, u"b.exe"_s) == LaunchRequest());
    node.Type = kFileNode;
    QVERIFY(
        DecideNodeStart(node, kAppPath, u"b.exe"_s) ==
        (LaunchRequest{Action::OpenTarget, u"E:\\a\\x.exe"_s, u"-p"_s, u"F:\\in"_s, ShowCommand::Minimized}));
    node.Type = kUrlNode;
    QVERIFY(DecideNodeStart(node, kAppPath, u"b.exe"_s).What == Action::Refuse);
    node.LinkData.Target = u"http://x/"_s;
    QVERIFY(DecideNodeStart(node, kAppPath, u"b.exe"_s) ==
            (LaunchRequest{Action::OpenBrowser, u"b.exe"_s, node.LinkData.Target, {}, ShowCommand::Normal}));
}

void tst_tree_model::findsNodes() {
    TreeDesk desk;
    desk.Put(u"Tree/000001"_s, "Beta", "0002000000");
    desk.Put(u"Tree/000001/000001"_s, "alpha", "0001000000", "Description=Old Note\r\n");
    desk.Put(u"Tree/000002"_s, "Alps", "0001000000");
    const TreeModel& tree = desk.Open(u"Tree"_s);
    const TreeIndex index = ReadTreeIndex(tree.TreePath(), kAppPath);
    const TreeHit alps{u"\\"_s, u"000002"_s};
    const TreeHit alpha{u"\\000001\\"_s, u"000001"_s};
    QCOMPARE(FindInTree(index, u"ALP"_s), (std::vector{alps, alpha}));
    QCOMPARE(FindInTree(index, u" note  alp"_s), std::vector{alpha});
    QVERIFY(FindInTree(index, u"  "_s).empty());
    QCOMPARE(ReadTreeIndex(tree.TreePath(), kAppPath, [] { return true; }).Entries.size(), 2U);

    TreeNodeList rows(4);
    const QStringList names{u"alpha"_s, u"Alps"_s, u"beta"_s, u"aaron"_s};
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].Name = names[qsizetype(i)];
    const auto next = [&rows](int from, const QString& typed) {
        return NextByFirstLetters(rows, from, typed);
    };
    QCOMPARE(next(0, u"a"_s), 1);   // goes on
    QCOMPARE(next(0, u"al"_s), 0);  // stays
    QCOMPARE(next(1, u"aA"_s), 3);  // a name first,
    QCOMPARE(next(3, u"aaa"_s), 0); // then a letter typed again
    QCOMPARE(next(-1, u"b"_s), 2);
    QCOMPARE(next(2, u"x"_s), -1);
}

void tst_tree_model::findsIcons() {
    const StoreBuilder store;
    const auto icon = [&store] { return FindNodeIcon(store.Path(u"n"_s)).section(u'/', -1); };
    QCOMPARE(icon(), QString());
    store.AddFolder(u"n/image.png"_s);
    store.AddFile(u"n/IMAGE.Ico"_s);
    QCOMPARE(icon(), u"IMAGE.Ico"_s);
    QVERIFY(QDir(store.Path(u"n"_s)).rmdir(u"image.png"_s));
    store.AddFile(u"n/Image.PNG"_s);
    QCOMPARE(icon(), u"Image.PNG"_s);
    QCOMPARE(DecideNodeIcon(kFileNode, true), NodeIconKind::OwnPicture);
}

void tst_tree_model::decodesMenus() {
    QCOMPARE(DecodeNodeMenu(300), (NodeMenuChoice{NodeCommand::Add, {}, NodePosition::Above}));
    QCOMPARE(DecodeNodeMenu(201), (NodeMenuChoice{NodeCommand::Add, u"File"_s, NodePosition::Child}));
    QCOMPARE(DecodeNodeMenu(102), (NodeMenuChoice{NodeCommand::Add, u"URL"_s, NodePosition::Below}));
    for (const int none : {-300, -1, 0, 1, 98, 103, 400})
        QCOMPARE(DecodeNodeMenu(none), NodeMenuChoice());
    QCOMPARE(DecodeMoveMenu(4), MoveChoice::None);
}

QTEST_GUILESS_MAIN(tst_tree_model)
#include "tst_tree_model.moc"
