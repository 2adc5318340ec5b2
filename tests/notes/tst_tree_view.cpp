#include "notes/tree_geometry.h"
#include "notes/tree_input.h"
#include "notes/tree_model.h"

#include <QTest>

using namespace paneda;

Q_DECLARE_METATYPE(paneda::TreeKey)

namespace {

TreeNode Node(int level, BranchState state = BranchState::Leaf) {
    TreeNode node;
    node.Level = level;
    node.ExpandState = state;
    return node;
}

// a, an open branch of b (closed) and c, and d below.
TreeNodeList Nodes() {
    return {Node(0), Node(0, BranchState::Expanded), Node(1, BranchState::Collapsed), Node(1), Node(0)};
}

} // namespace

class tst_tree_view : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void placesRows();
    void pullsTheIndicatorIntoView_data();
    void pullsTheIndicatorIntoView();
    void scrolls();
    void decidesPresses_data();
    void decidesPresses();
    void stepsByKeys_data();
    void stepsByKeys();
    void dropsBetweenAndIntoRows_data();
    void dropsBetweenAndIntoRows();
};

void tst_tree_view::placesRows() {
    const TreeRowPlace first = PlaceOfRow(0, 0, true, 900);
    QCOMPARE(first.Box, (TwipsRect{15, 60, 240, 240}));
    QCOMPARE(first.Icon, (TwipsRect{270, 60, 240, 240}));
    QCOMPARE(first.Strip, (TwipsRect{540, 45, 900, 270}));
    QCOMPARE(PlaceOfRow(2, 0, false, 900).Box.Left, 0);
    const TreeRowPlace child = PlaceOfRow(2, 2, true, 900);
    QCOMPARE(child.Box.Left, 480);
    QCOMPARE(child.Icon, (TwipsRect{750, 600, 240, 240}));
    QCOMPARE(StripWidth(50.2, false), 765);
    QCOMPARE(StripWidth(50, true), 1000);
    QCOMPARE(PlaceOfIndicator(100, 9).NumberLeft, 205);
    QCOMPARE(PlaceOfIndicator(100, 10).NumberLeft, 160);
}

void tst_tree_view::pullsTheIndicatorIntoView_data() {
    QTest::addColumn<int>("strip");
    QTest::addColumn<int>("left");
    // In a view of 3000 the indicator's end stays at 2750.
    QTest::newRow("short") << 1000 << 750;
    QTest::newRow("just in view") << 2205 << 1955;
    QTest::newRow("one further") << 2206 << 1955;
    QTest::newRow("very long") << 90000 << 1955;
}

void tst_tree_view::pullsTheIndicatorIntoView() {
    QFETCH(int, strip);
    QTEST(IndicatorLeft(strip, 540, 3000), "left");
}

void tst_tree_view::scrolls() {
    const TreeView fits{10, 60 + 10 * 270};
    QCOMPARE(fits.MostScrolled(), 0);
    const TreeView view{11, 60 + 10 * 270};
    QCOMPARE(view.MostScrolled(), 270);
    QCOMPARE(view.SeenRows(0), std::pair(0, 10));
    QCOMPARE(view.ScrolledTo(10, 0), 270);
    QCOMPARE(view.ScrolledTo(0, 270), 0);
    QCOMPARE(view.ScrolledTo(5, 100), 100);
    QCOMPARE(view.PositionAt(44), -1);
    QCOMPARE(view.PositionAt(45), 0);
    QCOMPARE(view.PositionAt(45 + 11 * 270), -1);
    QCOMPARE((TreeView{0, 900}.SeenRows(0)), std::pair(0, -1));
}

void tst_tree_view::decidesPresses_data() {
    QTest::addColumn<int>("origin");
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("isMoving");
    QTest::addColumn<int>("action");
    const auto row = [](const char* name, PressOrigin origin, PressButton button, const QString& type,
                        bool isMoving, PressAction action) {
        QTest::newRow(name) << int(origin) << int(button) << type << isMoving << int(action);
    };
    using O = PressOrigin;
    using B = PressButton;
    using A = PressAction;
    row("note", O::Label, B::Left, {}, false, A::OpenNote);
    row("label of a shortcut", O::Label, B::Left, kFileNode, false, A::Start);
    row("label of a favorite", O::Label, B::Left, kUrlNode, false, A::Start);
    row("icon of a shortcut", O::Icon, B::Left, kFileNode, false, A::OpenNote);
    row("right", O::Icon, B::Right, kUrlNode, false, A::ShowNodeMenu);
    row("middle", O::Label, B::Other, kFileNode, false, A::SelectOnly);
    row("target of a move", O::Label, B::Left, kFileNode, true, A::ShowMoveMenu);
    row("any button places", O::Icon, B::Other, {}, true, A::ShowMoveMenu);
    row("added link", O::NewLink, B::Left, kUrlNode, true, A::SelectOnly);
}

void tst_tree_view::decidesPresses() {
    QFETCH(int, origin);
    QFETCH(int, button);
    QFETCH(QString, type);
    QFETCH(bool, isMoving);
    QTEST(int(DecidePress(PressOrigin(origin), PressButton(button), type, isMoving)), "action");
}

void tst_tree_view::stepsByKeys_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<TreeKey>("key");
    QTest::addColumn<int>("to");
    QTest::addColumn<bool>("toggle");
    QTest::newRow("nothing selected") << -1 << TreeKey::Down << 0 << false;
    QTest::newRow("to the end") << -1 << TreeKey::End << 4 << false;
    QTest::newRow("not beyond the end") << 4 << TreeKey::Down << 4 << false;
    QTest::newRow("page") << 4 << TreeKey::PageUp << 2 << false;
    QTest::newRow("close") << 1 << TreeKey::Left << 1 << true;
    QTest::newRow("to the parent") << 3 << TreeKey::Left << 1 << false;
    QTest::newRow("no parent") << 4 << TreeKey::Left << 4 << false;
    QTest::newRow("open") << 2 << TreeKey::Right << 2 << true;
    QTest::newRow("into the branch") << 1 << TreeKey::Right << 2 << false;
    QTest::newRow("leaf") << 3 << TreeKey::Right << 3 << false;
}

void tst_tree_view::stepsByKeys() {
    QFETCH(int, from);
    QFETCH(TreeKey, key);
    QFETCH(int, to);
    QFETCH(bool, toggle);
    QCOMPARE(DecideKey(Nodes(), from, key, 2), (KeyStep{to, toggle}));
    QCOMPARE(DecideKey({}, -1, key, 2), KeyStep());
}

void tst_tree_view::dropsBetweenAndIntoRows_data() {
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("where");
    const auto row = [](const char* name, int top, int position, NodePosition where) {
        QTest::newRow(name) << top << position << int(where);
    };
    row("above all rows", 10, 0, NodePosition::Above);
    row("upper edge", 45 + 270 + 66, 1, NodePosition::Above);
    row("middle", 45 + 100, 0, NodePosition::Child);
    row("lower edge", 45 + 203, 0, NodePosition::Below);
    row("lower edge of an open branch", 45 + 270 + 260, 1, NodePosition::Child);
    row("below all rows", 45 + 5 * 270, 4, NodePosition::Below);
}

void tst_tree_view::dropsBetweenAndIntoRows() {
    QFETCH(int, top);
    QFETCH(int, position);
    QFETCH(int, where);
    QCOMPARE(DropGoalAt(Nodes(), top), (DropGoal{position, NodePosition(where)}));
    QCOMPARE(DropGoalAt({}, top), DropGoal());
}

QTEST_GUILESS_MAIN(tst_tree_view)
#include "tst_tree_view.moc"
