#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/fake_desktop.h"
#include "ui/notes/frmTree.h"
#include "ui/notes/tree_actions.h"
#include "ui/notes/tree_satellite.h"
#include "ui/notes/ucTree.h"

#include <QAccessible>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// Answers each question with a node of this name, and keeps what was asked.
class FakeDialogs : public NodeDialogs {
public:
    QString Name; // empty: cancelled
    QStringList Asked;
    QStringList Fetched;

    std::optional<PendingNode> Ask(const NodeQuestion& question) override {
        Asked.append((question.Node ? u"edit "_s + question.Node->Name : u"new"_s) +
                     (question.IsFirst ? u" first"_s : u""_s));
        if (Name.isEmpty())
            return std::nullopt;
        return PendingNode{Name,
                           question.Node ? kKeepIcon : QString(),
                           question.Position,
                           {},
                           question.Type,
                           question.Node ? question.Node->LinkData : NodeLink()};
    }
    void ShowTreeList(QWidget&, const QPoint&) override { Asked.append(u"trees"_s); }
    void FetchFavicon(QWidget&, const QString& address, const DiskPath&) override { Fetched.append(address); }
};

class FakeNotes : public NoteWindow {
public:
    QStringList Calls;

    void Open(const TreeModel&, const TreeNode& node) override { Calls.append(u"open "_s + node.Name); }
    void Close() override { Calls.append(u"close"_s); }
    void ShowName(const TreeModel&, const TreeNode& node) override { Calls.append(u"name "_s + node.Name); }
};

// Two trees in a store, and all that their window asks for.
struct Desk {
    StoreBuilder Store;
    AppState State = Store.State();
    FakePrompts Prompts;
    FakeIcons Icons;
    FakeOpener Opener;
    FakeVolumes Volumes;
    FakeDialogs Dialogs;
    FakeNotes Notes;
    TreeServices Services{Prompts, Icons, Opener, Volumes, &Dialogs, &Notes};
    std::unique_ptr<frmTree> Window;

    Desk() {
        for (const char* tree : {"Tree", "Other"})
            Store.AddFile(u"Setting2/"_s + QLatin1String(tree) + u".ini"_s,
                          "[Properties]\r\nPath=" +
                              QDir::toNativeSeparators(Store.Path(QLatin1String(tree))).toUtf8() + "\r\n");
        Put(u"Tree/000001"_s, "Alpha", "0001000000");
        Put(u"Tree/000001/000001"_s, "Inner", "0001000000");
        Put(u"Tree/000002"_s, "Editor", "0002000000", "[Link]\r\nType=File\r\nTarget=C:\\bin\\editor\r\n");
        Put(u"Tree/000003"_s, "Omega", "0003000000");
        Put(u"Other/000001"_s, "Far", "0001000000");
    }

    void Put(const QString& path, const QByteArray& name, const QByteArray& sort,
             const QByteArray& more = {}) const {
        Store.AddFile(path + u"/Properties.ini"_s,
                      "[Properties]\r\nName=" + name + "\r\nSort=" + sort + "\r\n" + more);
    }

    ucTree& Show(const QString& tree) {
        if (!Window)
            Window = std::make_unique<frmTree>(State, Services, QString());
        Window->resize(300, 300);
        Window->show();
        Window->RefreshTree(tree, {});
        return *Window->Current();
    }

    static QStringList Names(const ucTree& tree) {
        QStringList names;
        for (const TreeNode& node : tree.Model().Nodes())
            names.append(QString(node.Level, u' ') + node.Name);
        return names;
    }

    static QString Selected(const ucTree& tree) {
        const TreeNode* node = tree.Model().Find(tree.Model().SelectedRow());
        return node ? node->Name : QString();
    }

    // Where the icon or the text of a row is.
    static QPoint Icon(const ucTree& tree, int position) {
        return tree.RowRect(position).topLeft() + QPoint(8, 8);
    }
    static QPoint Label(const ucTree& tree, int position) {
        return tree.RowRect(position).topLeft() + QPoint(25, 8);
    }
};

// Chooses this item of the menu that opens next.
void ChooseNext(const QString& item) {
    QTimer::singleShot(0, qApp, [item] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        auto* action = menu->findChild<QAction*>(item);
        QVERIFY(action);
        menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
    });
}

} // namespace

class tst_tree_window : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pressesSelectStartAndOpen();
    void keysWalkAndChange();
    void movesBetweenTrees();
    void meetsTheDiskAsItIs();
    void findsInClosedBranches();
    void takesWhatIsDropped();
    void isReadRowByRow();
    void goesWithThePanel();
};

void tst_tree_window::pressesSelectStartAndOpen() {
    Desk desk;
    ucTree& tree = desk.Show(u"Tree"_s);
    QTest::mouseClick(&tree, Qt::LeftButton, {}, Desk::Label(tree, 1));
    QCOMPARE(desk.Opener.Requests.size(), std::size_t(1));
    QVERIFY(desk.Opener.Requests[0].Target.endsWith(u"editor"_s));
    QTest::mouseClick(&tree, Qt::LeftButton, {}, Desk::Icon(tree, 1));
    QCOMPARE(desk.Notes.Calls, QStringList{u"open Editor"_s});
    const QImage picture = tree.grab().toImage();
    const double ratio = picture.devicePixelRatio();
    const auto colourAt = [&](int position) {
        return picture.pixelColor(
            ((Desk::Label(tree, position) + QPoint(-5, 8)).toPointF() * ratio).toPoint());
    };
    QCOMPARE(colourAt(1), QColor(0, 0, 255));
    QCOMPARE(colourAt(0), QColor(0, 0, 0));
    // The icon of a shortcut's target comes from the desktop.
    QTRY_COMPARE(tree.grab().toImage().pixelColor((Desk::Icon(tree, 1).toPointF() * ratio).toPoint()),
                 QColor::fromRgb(FakeIcons::kColour));
    QTest::mouseClick(&tree, Qt::LeftButton, {}, {5, 12});
    QCOMPARE(Desk::Names(tree)[1], u" Inner"_s);
    QTest::mouseClick(&tree, Qt::LeftButton, {}, {5, 12});
    QCOMPARE(tree.Model().Nodes().size(), std::size_t(3));
    QTest::mouseClick(&tree, Qt::LeftButton, {}, {200, 250});
    QCOMPARE(desk.Dialogs.Asked, QStringList{u"trees"_s});
}

void tst_tree_window::keysWalkAndChange() {
    Desk desk;
    ucTree& tree = desk.Show(u"Tree"_s);
    QTest::keyClicks(&tree, u"a"_s);
    QCOMPARE(Desk::Selected(tree), u"Alpha"_s);
    QTest::keyClick(&tree, Qt::Key_End);
    QCOMPARE(Desk::Selected(tree), u"Omega"_s);
    QTest::keyClicks(&tree, u"al"_s);
    QCOMPARE(Desk::Selected(tree), u"Alpha"_s);
    QTest::keyClick(&tree, Qt::Key_Right);
    desk.Dialogs.Name = u"New"_s;
    QTest::keyClick(&tree, Qt::Key_Insert);
    QCOMPARE(Desk::Names(tree), (QStringList{u"Alpha"_s, u" Inner"_s, u"New"_s, u"Editor"_s, u"Omega"_s}));
    QCOMPARE(desk.Notes.Calls, QStringList{u"open New"_s});
    desk.Dialogs.Name = u"Newer"_s;
    QTest::keyClick(&tree, Qt::Key_F2);
    QCOMPARE(desk.Dialogs.Asked, (QStringList{u"new"_s, u"edit New"_s}));
    QCOMPARE(desk.Notes.Calls.last(), u"name Newer"_s);
    QTest::keyClick(&tree, Qt::Key_Delete);
    QCOMPARE(Desk::Names(tree)[2], u"Newer"_s);
    desk.Prompts.Answers = {true};
    QTest::keyClick(&tree, Qt::Key_Delete);
    QCOMPARE(Desk::Names(tree)[2], u"Editor"_s);
    // The rows are walked on from where the deleted one was.
    QTest::keyClick(&tree, Qt::Key_Up);
    QCOMPARE(Desk::Selected(tree), u" Inner"_s.trimmed());
}

void tst_tree_window::movesBetweenTrees() {
    Desk desk;
    ucTree& tree = desk.Show(u"Tree"_s);
    ChooseNext(u"mnuMove"_s);
    QTest::mouseClick(&tree, Qt::RightButton, {}, Desk::Label(tree, 0));
    QCOMPARE(tree.cursor().shape(), Qt::DragMoveCursor);
    ChooseNext(u"mnuMoveEnd1"_s);
    QTest::mouseClick(&tree, Qt::LeftButton, {}, Desk::Label(tree, 0));
    QCOMPARE(desk.Prompts.Shown, QStringList{u"|Cannot Place to Same Node"_s});
    QVERIFY(tree.cursor().shape() != Qt::DragMoveCursor);

    ChooseNext(u"mnuMove"_s);
    QTest::mouseClick(&tree, Qt::RightButton, {}, Desk::Label(tree, 0));
    ucTree& other = desk.Show(u"Other"_s);
    // A note that is added meanwhile is no place for it.
    desk.Dialogs.Name = u"New"_s;
    other.SelectRow(1);
    QTest::keyClick(&other, Qt::Key_Insert);
    desk.Prompts.Answers = {true};
    QTest::keyClick(&other, Qt::Key_Delete);
    ChooseNext(u"mnuMoveEnd2"_s);
    QTest::mouseClick(&other, Qt::LeftButton, {}, Desk::Label(other, 0));
    QCOMPARE(Desk::Names(other), (QStringList{u"Far"_s, u" Alpha"_s}));
    QCOMPARE(Desk::Names(tree), (QStringList{u"Editor"_s, u"Omega"_s}));
    // A tree without rows takes a node, too.
    ChooseNext(u"mnuMove"_s);
    QTest::mouseClick(&other, Qt::RightButton, {}, Desk::Label(other, 1));
    desk.Store.AddFolder(u"Empty"_s);
    desk.Store.AddFile(
        u"Setting2/Empty.ini"_s,
        "[Properties]\r\nPath=" + QDir::toNativeSeparators(desk.Store.Path(u"Empty"_s)).toUtf8() + "\r\n");
    ucTree& empty = desk.Show(u"Empty"_s);
    ChooseNext(u"mnuMoveEnd1"_s);
    QTest::mouseClick(&empty, Qt::LeftButton, {}, {100, 100});
    QCOMPARE(Desk::Names(empty), QStringList{u"Alpha"_s});
    QCOMPARE(Desk::Names(other), QStringList{u"Far"_s});
    desk.Show(u"Other"_s);
    // A closed tree takes its pending move along.
    ChooseNext(u"mnuMove"_s);
    QTest::mouseClick(&other, Qt::RightButton, {}, Desk::Label(other, 0));
    desk.Window->RefreshTree({}, u"Other"_s);
    desk.Show(u"Tree"_s);
    ChooseNext(u"mnuMoveEnd1"_s);
    QTest::mouseClick(&tree, Qt::LeftButton, {}, Desk::Label(tree, 0));
    QVERIFY(desk.Prompts.Shown.last().contains(u"its tree has been closed"_s));
}

void tst_tree_window::meetsTheDiskAsItIs() {
    Desk desk;
    ucTree& tree = desk.Show(u"Tree"_s);
    // Another machine deletes what is shown here.
    QVERIFY(QDir(desk.Store.Path(u"Tree/000003"_s)).removeRecursively());
    tree.SelectRow(tree.Model().Nodes()[2].RowIndex);
    desk.Dialogs.Name = u"Renamed"_s;
    QTest::keyClick(&tree, Qt::Key_F2);
    QCOMPARE(desk.Prompts.Shown.size(), 1);
    QCOMPARE(Desk::Names(tree), (QStringList{u"Alpha"_s, u"Editor"_s}));
    QVERIFY(QDir(desk.Store.Path(u"Tree"_s)).removeRecursively());
    QTest::mouseClick(&tree, Qt::RightButton, {}, {200, 250});
    QVERIFY(desk.Prompts.Shown.last().endsWith(u"Not Found!"_s));
    desk.Store.AddFolder(u"Tree"_s);
    QTest::mouseClick(&tree, Qt::RightButton, {}, {200, 250});
    QCOMPARE(desk.Dialogs.Asked.last(), u"new first"_s);
    QCOMPARE(Desk::Names(tree), QStringList{u"Renamed"_s});
}

void tst_tree_window::findsInClosedBranches() {
    Desk desk;
    ucTree& tree = desk.Show(u"Tree"_s);
    QTest::keyClick(&tree, Qt::Key_F, Qt::ControlModifier);
    auto* line = tree.findChild<QLineEdit*>();
    QTest::keyClicks(line, u"e"_s);
    QTRY_COMPARE(Desk::Selected(tree), u"Inner"_s);
    QTest::keyClick(line, Qt::Key_F3);
    QCOMPARE(Desk::Selected(tree), u"Editor"_s);
    // A branch that is opened or closed by hand does not lead back to the first hit, a new name does not
    // hide.
    QTest::mouseClick(&tree, Qt::LeftButton, {}, Desk::Icon(tree, 0) - QPoint(18, 0));
    QCOMPARE(Desk::Names(tree).size(), 3);
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(Desk::Selected(tree), u"Omega"_s);
    desk.Dialogs.Name = u"Bell"_s;
    QTest::keyClick(&tree, Qt::Key_F2);
    QTest::keyClicks(line, u"ll"_s);
    QTRY_COMPARE(Desk::Selected(tree), u"Bell"_s);
    // So does what others have added, when the line is opened.
    QTest::keyClick(line, Qt::Key_Escape);
    QVERIFY(line->parentWidget()->isHidden());
    desk.Put(u"Tree/000002/000001"_s, "Bells", "0001000000");
    QTest::keyClick(&tree, Qt::Key_F, Qt::ControlModifier);
    QTRY_COMPARE(tree.findChild<QLabel*>()->text(), u"1 of 2"_s);
}

void tst_tree_window::takesWhatIsDropped() {
    Desk desk;
    ucTree& tree = desk.Show(u"Tree"_s);
    QMimeData data;
    data.setUrls({QUrl(u"javascript:alert(1)"_s)});
    const QPointF place = tree.RowRect(2).center();
    QDragEnterEvent refused(place.toPoint(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    refused.ignore();
    QCoreApplication::sendEvent(&tree, &refused);
    QVERIFY(!refused.isAccepted());
    data.setUrls({QUrl::fromLocalFile(desk.Store.Path(u"Tree"_s)), QUrl(u"https://example.com/a"_s)});
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&tree, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&tree, &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    QTRY_COMPARE(Desk::Names(tree),
                 (QStringList{u"Alpha"_s, u"Editor"_s, u"Omega"_s, u" Tree"_s, u" example.com"_s}));
    QCOMPARE(tree.Model().Nodes()[3].Type, kFileNode);
    QCOMPARE(tree.Model().Nodes()[4].LinkData.Target, u"https://example.com/a"_s);
    QCOMPARE(desk.Dialogs.Fetched, QStringList{u"https://example.com/a"_s});
}

void tst_tree_window::isReadRowByRow() {
    Desk desk;
    ucTree& tree = desk.Show(u"Tree"_s);
    QAccessibleInterface* shown = QAccessible::queryAccessibleInterface(&tree);
    QCOMPARE(shown->role(), QAccessible::Tree);
    QCOMPARE(shown->childCount(), 3);
    QAccessibleInterface* row = shown->child(0);
    QCOMPARE(row->text(QAccessible::Name), u"Alpha"_s);
    QVERIFY(row->state().collapsed && !row->state().selected);
    QCOMPARE(row->parent(), shown);
    QAccessibleActionInterface* actions = row->actionInterface();
    actions->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(shown->childCount(), 4);
    QCOMPARE(shown->indexOfChild(shown->child(1)), 1);
    QAccessibleInterface* inner = shown->child(1);
    QCOMPARE(inner->text(QAccessible::Value), u"2"_s);
    actions->doAction(QAccessibleActionInterface::toggleAction());
    // A reader may hold a row that is gone.
    QVERIFY(!inner->isValid());
    QVERIFY(inner->text(QAccessible::Name).isEmpty());
    shown->child(2)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(Desk::Selected(tree), u"Omega"_s);
}

void tst_tree_window::goesWithThePanel() {
    Desk desk;
    TreeSatellite satellite(desk.State, desk.Services);
    auto panel = std::make_unique<QWidget>(nullptr, Qt::FramelessWindowHint);
    panel->setGeometry(100, 50, 200, 300);
    const TreeOnPanel tree{u"Tree"_s, {150, 300, 2400, 3000}, {}, panel.get(), false};
    satellite.OpenTree(tree);
    QVERIFY(!satellite.Window());
    satellite.Show(false);
    QVERIFY(!satellite.Window());
    panel->show();
    satellite.Show(true);
    QCOMPARE(satellite.Window()->geometry(), QRect(110, 70, 160, 200));
    QVERIFY(satellite.Owns(satellite.Window()->winId()));
    QVERIFY(!satellite.Owns(panel->winId()));
    satellite.Follow({1500, 1500, 3000, 4500}, nullptr);
    QCOMPARE(satellite.Window()->pos(), QPoint(110, 120));
    // Keys that the panel gets go to the tree.
    QTest::keyClick(panel.get(), Qt::Key_End);
    QCOMPARE(Desk::Selected(*satellite.Window()->Current()), u"Omega"_s);
    satellite.OpenTree(std::nullopt);
    QVERIFY(!satellite.Window()->isVisible());
    satellite.Show(true);
    QVERIFY(!satellite.Window()->isVisible());
    // A reload of the panel takes the tree along, even in the middle of reading a branch.
    satellite.OpenTree(tree);
    satellite.Show(true);
    const QPointer<frmTree> window = satellite.Window();
    QTimer::singleShot(0, qApp, [&] { panel.reset(); });
    window->Current()->Actions().ToggleNode(1);
    QTRY_VERIFY(!window);
    QVERIFY(!satellite.Window());
    satellite.Follow({}, nullptr);
}

QTEST_MAIN(tst_tree_window)
#include "tst_tree_window.moc"
