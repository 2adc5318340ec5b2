#include "organiser/link_editing.h"
#include "organiser/organiser.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/fake_desktop.h"
#include "ui/fake_places.h"
#include "ui/organiser/frmLink.h"
#include "ui/organiser/source_list.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

// The shortcut dialog and the browser of sources, pressed and typed into.
class tst_source_windows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newShortcut();
    void editedShortcut();
    void sources();
};

namespace {

template <class Control>
Control* Get(const QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    if (!control)
        qFatal("There is no %s", name);
    return control;
}

void Press(const QWidget& window, const char* name) {
    QTest::mouseClick(Get<QWidget>(window, name), Qt::LeftButton);
}

} // namespace

void tst_source_windows::newShortcut() {
    AppState state;
    state.AppPath = kAppPath;
    state.UserName = u"Ada"_s;
    FakePrompts prompts;
    frmLink dialog({.LinkSource = u"E:\\Apps\\x.y.exe"_s}, state, prompts);
    dialog.Form_Load();
    dialog.show();
    QCOMPARE(dialog.windowTitle(), u"  New Shortcut"_s);
    QCOMPARE(Get<QLineEdit>(dialog, "txtName")->text(), u"x.y"_s);
    QCOMPARE(Get<QAbstractButton>(dialog, "lblPathRelative")->text(), u"..\\Apps\\x.y.exe"_s);
    QTest::keyClicks(Get<QLineEdit>(dialog, "txtTarget"), u"z"_s);
    QCOMPARE(Get<QAbstractButton>(dialog, "lblPathAbsolute")->text(), u"E:\\Paneda\\zE:\\Apps\\x.y.exe"_s);

    prompts.File = u"E:/Paneda/bin/tool.sh"_s;
    Press(dialog, "lblSelect");
    QCOMPARE(prompts.Shown.first().section(u'|', 0, 0), u"Hi, Ada\rPlease Select a File to be Linked to"_s);
    Press(dialog, "lblPathAbsoluteNoDrive");
    QTest::keyClicks(Get<QLineEdit>(dialog, "txtDescription"), u"d"_s);
    QTest::keyClick(Get<QLineEdit>(dialog, "txtDescription"), Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    const LinkResult link = dialog.Result().value();
    QCOMPARE(link.Name + u'|' + link.Target + u'|' + link.WindowState + u'|' + link.Description,
             u"tool|\\Paneda\\bin\\tool.sh|Normal Window|d"_s);

    frmLink closed({.LinkSource = u"E:\\Apps\\"_s, .LinkType = u"Folder"_s}, state, prompts);
    closed.Form_Load();
    closed.CompactLayout();
    closed.show();
    QCOMPARE(Get<QLineEdit>(closed, "txtName")->text(), u"Apps"_s);
    QVERIFY(Get<QAbstractButton>(closed, "chkFolder")->isChecked());
    QVERIFY(!Get<QWidget>(closed, "cboRun")->isVisible());
    QTest::keyClick(&closed, Qt::Key_Escape);
    QVERIFY(!closed.isVisible() && !closed.Result());
}

void tst_source_windows::editedShortcut() {
    StoreBuilder store;
    store.AddFile(u"Setting/[001] A/[001] G/[001] B [].pnd"_s, "[Properties]\nTarget=x\nWindow State=Odd\n");
    store.AddFile(u"Setting/[001] A/[001] G/[002] C [].pnd"_s);
    const AppState state = store.State();
    Organiser organiser(store.Path(u"Setting"_s));
    organiser.Load();
    FakePrompts prompts;
    frmLink dialog({.LinkMode = 1,
                    .LinkFolder = organiser.GroupFolder().Text(),
                    .LinkFileName = u"[001] B [].pnd"_s,
                    .LinkName = u"B"_s,
                    .Accept = [&](const LinkResult& typed) { return EditLink(organiser, typed, prompts); }},
                   state, prompts);
    dialog.Form_Load();
    dialog.show();
    QCOMPARE(dialog.windowTitle(), u"  Edit Shortcut"_s);
    QCOMPARE(Get<QComboBox>(dialog, "cboRun")->currentIndex(), -1);
    Get<QLineEdit>(dialog, "txtName")->setText(u"c"_s);
    Press(dialog, "lblOK");
    QVERIFY(dialog.isVisible());
    QCOMPARE(prompts.Shown, QStringList{u"|Duplicate Name"_s});
    Get<QLineEdit>(dialog, "txtName")->setText(u"D"_s);
    Press(dialog, "lblOK");
    QVERIFY(!dialog.isVisible() && !dialog.Result());
    QCOMPARE(organiser.Buttons().front().Title, u"D"_s);
}

void tst_source_windows::sources() {
    AppState state;
    FakeVolumes volumes;
    volumes.Refresh(state.Drives);
    FakeIcons icons;
    FakeOpener opener;
    auto places = std::make_shared<FakePlaces>();
    const QString root = QDir::rootPath();
    places->Listings[u"1:"_s] = {{},
                                 {{u"a.lnk"_s, false, root + u"a.lnk"_s},
                                  {u"b"_s, false, root + u"b"_s},
                                  {u"Games"_s, true, root + u"Games"_s}}};
    places->Listings[u"1:Games\\"_s] = {{}, {{u"Deep"_s, true, root + u"Games/Deep"_s}}};
    SourceList list(state, {places, icons, opener, volumes});
    auto* lines = Get<QListWidget>(list, "lstWindows");
    auto* mode = Get<QComboBox>(list, "cboFolderMode");
    QSignalSpy filled(&list, &SourceList::Filled);
    const auto click = [&](int row, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(lines->viewport(), Qt::LeftButton, keys,
                          lines->visualItemRect(lines->item(row)).center());
    };
    const auto choose = [&](int index) {
        mode->setCurrentIndex(index);
        list.cboFolderMode_Click();
    };
    list.resize(400, 400);
    list.Form_Load();
    list.show();
    QVERIFY(filled.wait());
    QCOMPARE(lines->item(1)->text(), u"a"_s);
    QVERIFY(!Get<QWidget>(list, "optFolderLink")->isEnabled());

    const int place = Get<QWidget>(list, "optButtonCopy")->x();
    click(1);
    QCOMPARE(Get<QWidget>(list, "optButtonCopy")->x(), place);
    click(2);
    QCOMPARE(int(list.Selection().Option), int(SourceOption::LinkFile));
    QTRY_COMPARE(icons.Targets.size(), 1);
    click(1, Qt::ControlModifier);
    QCOMPARE(list.Selection().Entries.size(), 2U);
    QTest::keyClick(lines, Qt::Key_Return);
    QCOMPARE(opener.Requests.size(), 1U);

    QTest::keyClicks(lines, u"ga"_s);
    QCOMPARE(lines->currentItem()->text(), u"> Games"_s);

    // The second click of a double click lands on the folder's own list, and enters nothing.
    click(0);
    QVERIFY(filled.wait());
    QTest::mouseDClick(lines->viewport(), Qt::LeftButton, {}, lines->visualItemRect(lines->item(0)).center());
    QCOMPARE(Get<QLineEdit>(list, "txtFolder")->text(), u"Games"_s);
    QTest::keyClick(lines, Qt::Key_Backspace);
    QVERIFY(filled.wait());
    QCOMPARE(lines->currentItem()->text(), u"> Games"_s);

    // What comes late belongs to a source that is no longer shown.
    choose(1);
    QTRY_COMPARE(lines->count(), 1);
    QCOMPARE(lines->item(0)->text(), u"Reading..."_s);
    choose(2);
    QVERIFY(filled.wait());
    QVERIFY(lines->item(0)->text().startsWith(u"> C:"_s));
    places->Menu.release();
    QVERIFY(!filled.wait(200));
    QVERIFY(list.Selection().OpenFolder.isEmpty());
    QTest::keyClick(lines, Qt::Key_Space);
    QCOMPARE(list.Selection().OpenFolder, u"C:\\"_s);
    click(0);
    QVERIFY(filled.wait());
    QCOMPARE(int(list.Selection().Option), int(SourceOption::LinkFolder));
    QCOMPARE(list.Selection().OpenFolder, u"C:\\"_s);
}

QTEST_MAIN(tst_source_windows)
#include "tst_source_windows.moc"
