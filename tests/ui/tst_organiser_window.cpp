#include "core/settings/startup.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/common/busy_work.h"
#include "ui/fake_desktop.h"
#include "ui/fake_places.h"
#include "ui/organiser/frmButton.h"
#include "ui/organiser/store_list.h"
#include "ui/panel/frmWait.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QThread>
#include <QUrl>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// A store of three categories, the last one of notes, and the window on it.
struct Scene {
    StoreBuilder Store;
    AppState State = Store.State();
    FakePrompts Prompts;
    FakeOpener Opener;
    FakeIcons Icons;
    FakeVolumes Volumes;
    std::shared_ptr<FakePlaces> Places = std::make_shared<FakePlaces>();
    QStringList Typed; // the answers to the next questions for a text
    int Reloads = 0;
    QStringList* Fetched = nullptr;
    std::unique_ptr<frmButton> Dialog;

    explicit Scene(int buttons = 3) {
        for (const char* folder : {"[001] A/[001] G", "[001] A/[002] H", "[002] B", "[003] Dynamic Category"})
            Store.AddFolder(u"Setting/"_s + QLatin1String(folder));
        for (int i = 1; i <= buttons; ++i)
            Store.AddFile(u"Setting/[001] A/[001] G/[%1] b%1 [].url"_s.arg(i, 3, 10, QLatin1Char('0')));
        LoadPanelState(State);
        State.Drives = DrivesOfHost();
        OrganiserDialogs dialogs;
        dialogs.AskText = [this](const QString& title, const QString&, const QString& text) {
            Prompts.Shown.append(title);
            return Typed.isEmpty() ? text : Typed.takeFirst();
        };
        dialogs.FetchIcon = [this](const DiskPath& file) { Fetched->append(file.Name()); };
        Dialog = std::make_unique<frmButton>(
            State, OrganiserServices{.Prompts = Prompts,
                                     .Opener = Opener,
                                     .FileIcons = Icons,
                                     .ReloadPanel = [this] { ++Reloads; },
                                     .Scene =
                                         [] {
                                             return PlaceScene{{}, {15'000, 12'000}, 12'000};
                                         },
                                     .OpenHelp = [] {},
                                     .Sources = {Places, Icons, Opener, Volumes},
                                     .Dialogs = dialogs});
        Dialog->Form_Load();
        Dialog->show();
        Dialog->activateWindow();
        if (!QTest::qWaitForWindowActive(Dialog.get()))
            qFatal("The window does not become active.");
    }
    template <class Control = QAbstractButton>
    Control* Get(const char* name) const {
        auto* control = Dialog->findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("There is no %s", name);
        return control;
    }
    void Press(const char* name) const { QTest::mouseClick(Get(name), Qt::LeftButton); }
    QStringList Names(const QString& below = {}) const {
        return QDir(Store.Path(u"Setting"_s) + below).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    QString Disabled() const {
        QStringList names;
        for (const QWidget* control : Dialog->findChildren<QWidget*>(QRegularExpression(u"^(cmd|lst)"_s))) {
            const bool isOfSources = Dialog->findChild<SourceList*>()->isAncestorOf(control);
            if (!control->isEnabled() && !isOfSources)
                names.append(control->objectName().mid(3));
        }
        names.sort();
        return names.join(u' ');
    }
};

} // namespace

class tst_organiser_window : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void folders();
    void buttonsByKeys();
    void droppedFiles();
    void disabledControls();
    void applies();
    void slowWork();
};

void tst_organiser_window::folders() {
    Scene scene;
    scene.Typed = {u" I "_s, u"i"_s, u"a:b"_s, u"  "_s};
    for (int i = 0; i < 4; ++i)
        scene.Press("cmdGroupAdd");
    QCOMPARE(scene.Names(u"/[001] A"_s), QStringList({u"[001] G"_s, u"[002] H"_s, u"[003] I"_s}));
    QCOMPARE(scene.Prompts.Shown.filter(u"|"_s).size(), 2);
    QCOMPARE(scene.Get<StoreList>("lstGroups")->currentRow(), 2);
    scene.Press("cmdGroupMoveUp");
    scene.Press("cmdGroupRename"); // as it is called already
    scene.Prompts.Answers = {true};
    scene.Press("cmdGroupDelete");
    QCOMPARE(scene.Prompts.Shown.last(),
             u"Delete Confirmation|Are you sure you want to delete the group 'I' and all its buttons ?"_s);
    QCOMPARE(scene.Names(u"/[001] A"_s), QStringList({u"[001] G"_s, u"[003] H"_s}));
    QCOMPARE(scene.Get<StoreList>("lstGroups")->currentItem()->text(), u"H"_s);
    // The second kind of category has its name already.
    QTimer::singleShot(0, qApp, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().last()).center());
    });
    scene.Press("cmdCategoryAdd");
    QCOMPARE(scene.Names().last(), u"[004] Dynamic Category"_s);
}

void tst_organiser_window::buttonsByKeys() {
    Scene scene(200);
    auto* list = scene.Get<StoreList>("lstButtons");
    list->setFocus();
    list->setCurrentRow(150);
    const int place = list->verticalScrollBar()->value();
    QTest::keyClick(list, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(list->currentItem()->text(), u"b151.url"_s);
    QCOMPARE(list->currentRow(), 149);
    scene.Typed = {u"New"_s, u"b001"_s};
    QTest::keyClick(list, Qt::Key_F2);
    QTest::keyClick(list, Qt::Key_Return); // no record, so that its name is what can be edited
    QCOMPARE(scene.Prompts.Shown.last(), u"|Duplicate Name"_s);
    QTest::keyClick(list, Qt::Key_Delete);
    QVERIFY(scene.Names(u"/[001] A/[001] G"_s).contains(u"[150] New [].url"_s));
    QCOMPARE(list->verticalScrollBar()->value(), place);
    QVERIFY(list->hasFocus());
    QTRY_COMPARE(scene.Icons.Targets.size(), 1); // not one for each key
}

void tst_organiser_window::droppedFiles() {
    Scene scene(1);
    const auto drop = [&scene](const QStringList& names) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& name : names)
            urls.append(QUrl::fromLocalFile(scene.Store.Path(name)));
        data.setUrls(urls);
        QWidget* list = scene.Get<StoreList>("lstButtons")->viewport();
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter({5, 5}, actions, &data, Qt::LeftButton, {});
        QApplication::sendEvent(list, &enter);
        QDropEvent event({5, 5}, actions, &data, Qt::LeftButton, {});
        event.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(list, &event);
        QCoreApplication::processEvents();
        // After a move the giver of the files would delete them.
        QCOMPARE(event.dropAction(), Qt::CopyAction);
    };
    for (const char* name : {"b001.url", "Site.url", "Tool.exe", "icon.png"})
        scene.Store.AddFile(QLatin1String(name), name);
    QStringList fetched;
    scene.Fetched = &fetched;
    // What is dropped while the first files are looked at is not taken.
    scene.Places->Look = [&drop, first = true]() mutable {
        if (std::exchange(first, false))
            QMetaObject::invokeMethod(
                qApp, [&] { drop({u"Late.exe"_s}); }, Qt::BlockingQueuedConnection);
    };
    drop({u"b001.url"_s, u"Site.url"_s, u"Tool.exe"_s});
    QCOMPARE(scene.Names(u"/[001] A/[001] G"_s),
             QStringList({u"[001] b001 [].url"_s, u"[002] Site [].url"_s, u"[003] Tool [].pnd"_s}));
    QCOMPARE(fetched, QStringList{u"[002] Site [].url"_s});
    QVERIFY(scene.Prompts.Shown.join(u' ').contains(u"Duplicate Name"_s));
    scene.Store.AddFile(u"More.exe"_s);
    scene.Prompts.Answers = {true};
    drop({u"More.exe"_s, u"icon.png"_s});
    QCOMPARE(scene.Store.Bytes(u"Setting/[001] A/[001] G/[003] Tool [].png"_s), QByteArray("icon.png"));
    // One that fails does not keep back those behind it.
    drop({u"Gone.url"_s, u"Site2.exe"_s});
    QVERIFY(scene.Prompts.Shown.last().contains(u"1 of 2 failed"_s));
    QVERIFY(scene.Names(u"/[001] A/[001] G"_s).contains(u"[005] Site2 [].pnd"_s));
}

void tst_organiser_window::disabledControls() {
    Scene scene;
    const QString always = u"ButtonStyle Link"_s;
    QCOMPARE(scene.Disabled(), always);
    auto* categories = scene.Get<StoreList>("lstCategories");
    categories->setCurrentRow(2);
    QCOMPARE(scene.Disabled(),
             u"ButtonAdd ButtonDelete ButtonMoveDown ButtonMoveUp ButtonSort ButtonStyle Buttons "
             "CategoryRename GroupAdd GroupDelete GroupMoveDown GroupMoveUp GroupRename GroupSort "
             "Groups Link"_s);
    scene.Press("cmdCategoryMoveUp");
    scene.Press("cmdCategoryMoveUp");
    QCOMPARE(scene.Prompts.Shown, QStringList(u"|'Dynamic Category' cannot be first category"_s));
    categories->setCurrentRow(0);
    QCOMPARE(scene.Disabled(), always);
    scene.Press("cmdOrganiseButton");
    QCOMPARE(scene.Opener.Requests.size(), 1);
    categories->setCurrentRow(1);
    QCOMPARE(scene.Disabled().count(u' '), 21);
    QVERIFY(scene.Get("cmdApply")->isEnabled());
}

void tst_organiser_window::applies() {
    Scene scene;
    scene.State.SelectedCategory = 1;
    scene.Press("cmdCategoryMoveDown");
    scene.Press("cmdApply");
    QCOMPARE(scene.State.SelectedCategory, 0);
    QCOMPARE(scene.Reloads, 1);
    LoadPanelState(scene.State);
    scene.Prompts.Answers = {true};
    scene.Press("cmdCategorySort");
    QTest::keyClick(scene.Dialog.get(), Qt::Key_Escape);
    QCOMPARE(scene.State.SelectedCategory, 1);
    QVERIFY(!scene.Dialog->isVisible());
    QCOMPARE(scene.Reloads, 2);
}

void tst_organiser_window::slowWork() {
    QLineEdit window;
    window.show();
    window.setFocus();
    const DiskWork work = WorkShownBy(window);
    bool isShown = false;
    QTimer::singleShot(500, &window, [&] {
        for (const QWidget* each : QApplication::topLevelWidgets())
            isShown = isShown || (each->isVisible() && qobject_cast<const frmWait*>(each));
    });
    work([] { QThread::msleep(700); });
    QVERIFY(isShown);
    QVERIFY(QApplication::topLevelWidgets().size() == 1);
}

QTEST_MAIN(tst_organiser_window)
#include "tst_organiser_window.moc"
