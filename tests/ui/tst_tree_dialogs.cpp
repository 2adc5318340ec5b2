#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/fake_desktop.h"
#include "ui/fake_downloader.h"
#include "ui/notes/frmDynamicCat.h"
#include "ui/notes/tree_dialogs.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QTimer>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

// The dialogs of nodes and of trees, typed into while they wait for the user.
class tst_tree_dialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newNote();
    void editedLinks();
    void trees();
};

namespace {

// Acts on the dialog that comes next, which may wait for the disk first.
void OnDialog(const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(5, qApp, [act] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->findChild<QLineEdit*>()) {
            OnDialog(act);
            return;
        }
        act(*dialog);
        if (dialog->isVisible())
            dialog->close();
    });
}

QLineEdit& Box(const QWidget& dialog, const char* name) {
    return *dialog.findChild<QLineEdit*>(QLatin1String(name));
}

void Enter(const QWidget& dialog, const char* name, const QString& text) {
    Box(dialog, name).setText(text);
    QTest::keyClick(&Box(dialog, name), Qt::Key_Return);
}

struct Desk {
    StoreBuilder Store;
    AppState State = Store.State();
    FakePrompts Prompts;
    FakeIcons Icons;
    FakeOpener Opener;
    FakeDownloader Downloader;
    QWidget Window;
    TreeDialogs Dialogs{TreeDialogServices{State, Prompts, Icons, Opener, Downloader}};
};

} // namespace

void tst_tree_dialogs::newNote() {
    Desk desk;
    NodeQuestion question{.Window = &desk.Window, .Position = NodePosition::Child};
    OnDialog([&desk](QWidget& dialog) {
        for (const QString& name : {u"  "_s, u""_s, u"n"_s.repeated(255)}) {
            Enter(dialog, "txtName", name);
            QVERIFY(dialog.isVisible());
        }
        QCOMPARE(desk.Prompts.Shown.takeFirst(), u"|Name cannot be empty"_s);
        QVERIFY(desk.Prompts.Shown.last().contains(u"at most 254"_s));
        Box(dialog, "txtDescription").setText(u"d"_s);
        Enter(dialog, "txtName", u"a/b"_s);
    });
    const auto note = desk.Dialogs.Ask(question);
    QVERIFY(note && note->Name == u"a/b" && note->Description == u"d" && note->Type.isEmpty() &&
            note->IconSource.isEmpty() && note->Position == NodePosition::Child);
    OnDialog([](QWidget& dialog) { Box(dialog, "txtName").setText(u"n"_s); });
    QVERIFY(!desk.Dialogs.Ask(question));
}

void tst_tree_dialogs::editedLinks() {
    Desk desk;
    desk.Store.AddFile(u"n/Properties.ini"_s,
                       "[Link]\nType=File\nTarget=..\\x.exe\nWindow State=Maximized\n");
    TreeNode node;
    node.Name = u"n"_s;
    node.Type = kFileNode;
    node.LinkData.Target = u"E:\\x.exe"_s;
    const NodeQuestion question{.Window = &desk.Window, .Node = &node, .NodeFolder = desk.Store.Path(u"n"_s)};
    OnDialog([](QWidget& dialog) {
        QCOMPARE(Box(dialog, "txtTarget").text(), u"..\\x.exe"_s);
        Enter(dialog, "txtParameter", u"-p"_s);
    });
    const auto file = desk.Dialogs.Ask(question);
    QVERIFY(file && file->IconSource != kKeepIcon);
    QCOMPARE(file->LinkData, (NodeLink{u"..\\x.exe"_s, u"-p"_s, {}, u"Maximized"_s}));

    // The icon of a favorite is fetched again for another address, and where it has none.
    node.Type = kUrlNode;
    desk.Store.AddFile(u"n/Properties.ini"_s, "[Link]\nType=URL\nTarget=http://a/\n");
    const auto iconAfter = [&](const QString& address) {
        OnDialog([address](QWidget& dialog) { Enter(dialog, "txtURL", address); });
        return desk.Dialogs.Ask(question)->IconSource;
    };
    QCOMPARE(iconAfter(u"http://a/"_s), QString());
    desk.Store.AddFile(u"n/image.ICO"_s);
    QCOMPARE(iconAfter(u" http://a/ "_s), kKeepIcon);
    QCOMPARE(iconAfter(u"http://b/"_s), QString());
}

void tst_tree_dialogs::trees() {
    Desk desk;
    AppState& state = desk.State;
    state.Drives = DrivesOfHost();
    state.AppPath = state.Drives.ToStored(state.AppFolder);
    for (const QString& folder : {u"[001] Dynamic Category"_s, u"[002] Dynamic Category"_s}) {
        desk.Store.AddFolder(u"Setting/"_s + folder);
        state.Catalogue.push_back(
            {.FolderName = folder, .Groups = {}, .Kind = u"T"_s, .TreeNumber = 0, .TreeName = {}});
    }
    QStringList dropped;
    int bound = 0;
    const QPointer made(new frmDynamicCat({.State = state,
                                           .Prompts = desk.Prompts,
                                           .Opener = desk.Opener,
                                           .DropTree = [&](const QString& tree) { dropped.append(tree); },
                                           .TreesBound = [&] { ++bound; }},
                                          0, &desk.Window));
    made->setAttribute(Qt::WA_DeleteOnClose);
    frmDynamicCat& list = *made;
    list.Form_Load();
    list.show();
    auto* lines = list.findChild<QListWidget*>();
    list.lblDelete_Click();
    list.lblEdit_Click();
    QCOMPARE(desk.Prompts.Shown,
             (QStringList{u"|Please select a Tree to Delete"_s, u"|Please select a Tree to Edit"_s}));
    // A press on the empty list makes a tree.
    OnDialog([](QWidget& dialog) { Enter(dialog, "txtName", u"a.b"_s); });
    QTest::mouseClick(lines->viewport(), Qt::LeftButton);
    QTRY_COMPARE(bound, 1);
    QVERIFY(desk.Store.Entries().contains(u"Data/a.b/"_s));
    QCOMPARE(state.Catalogue[0].TreeName, u"a.b"_s);
    QVERIFY(desk.Store.Bytes(u"Setting/[001] Dynamic Category/Properties.ini"_s).contains("Category=a.b"));

    // The other category follows a new name, and loses a tree that is removed; its content stays.
    state.Catalogue[1].TreeName = u"a.b"_s;
    OnDialog([](QWidget& dialog) {
        QVERIFY(!dialog.findChild<QCheckBox*>()->isVisible() && Box(dialog, "txtTarget").isEnabled());
        QCOMPARE(Box(dialog, "txtTarget").text(), u"Data\\a.b"_s);
        Enter(dialog, "txtName", u"c"_s);
    });
    QTest::keyClick(lines, Qt::Key_F2);
    QCOMPARE(state.Catalogue[1].TreeName, u"c"_s);
    desk.Prompts.Answers = {true};
    QTest::keyClick(lines, Qt::Key_Delete);
    QCOMPARE(dropped, (QStringList{u"a.b"_s, u"c"_s}));
    QVERIFY(state.Catalogue[0].TreeName.isEmpty() && state.Catalogue[1].TreeName.isEmpty());
    QVERIFY(lines->count() == 0 && desk.Store.Entries().contains(u"Data/a.b/"_s));
    // It goes with its window, but not before its own dialog.
    desk.Window.show();
    OnDialog([&](QWidget& dialog) {
        desk.Window.hide();
        QTest::qWait(0);
        QVERIFY(made);
        Enter(dialog, "txtName", u"d"_s);
    });
    list.lblAdd_Click();
    QCOMPARE(state.Catalogue[0].TreeName, u"d"_s);
    QTRY_VERIFY(!made);
}

QTEST_MAIN(tst_tree_dialogs)
#include "tst_tree_dialogs.moc"
