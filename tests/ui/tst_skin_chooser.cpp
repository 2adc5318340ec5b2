#include "archive/zip_class.h"
#include "core/settings/config_settings.h"
#include "skin/skin_maker.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/fake_desktop.h"
#include "ui/skin/frmSkin.h"
#include "ui/skin/screenshot_view.h"

#include <QApplication>
#include <QBuffer>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray Jpeg(const QColor& color, const QSize& size = {100, 200}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, "JPG", 100);
    return buffer.data();
}

// The skins A, B with two options, and Broken; the panel shows A.
struct Scene {
    StoreBuilder Store;
    AppState State = Store.State();
    FakePrompts Prompts;
    FakeOpener Opener;
    QStringList Addresses;
    int Reloads = 0;
    std::unique_ptr<frmSkin> Dialog;

    Scene() {
        for (const auto* skin : {"A", "B"}) {
            AddFile(skin, "bottom.png", "b");
            AddFile(skin, "skin.ini", SkinMaker::Places());
        }
        AddFile("Broken", "bottom.png", "b");
        AddFile("A", "screenshot.jpg", Jpeg(Qt::red));
        AddFile("B", "readme.txt", "Dear user");
        AddFile("B", "Green/screenshot.jpg", Jpeg(Qt::green, {200, 100}));
        AddFile("B", "Green/top.png", "green");
        AddFile("B", "Plain/DELETE top.png.txt", {});
        if (!SaveSkinName(State.AppFolder, u"a"_s)) // in any case
            qFatal("no config");
        LoadConfig(State);
        State.Drives = DrivesOfHost();
        Dialog = std::make_unique<frmSkin>(
            State,
            SkinServices{.Prompts = Prompts,
                         .Opener = Opener,
                         .ReloadPanel =
                             [this] {
                                 LoadConfig(State);
                                 ++Reloads;
                             },
                         .Scene =
                             [] {
                                 return PlaceScene{{}, {15'000, 12'000}, 12'000};
                             },
                         .OpenUrl = [this](const QString& url, const QString&) { Addresses.append(url); }});
        Dialog->Form_Load();
        Dialog->show();
        Dialog->activateWindow();
        if (!QTest::qWaitForWindowActive(Dialog.get()))
            qFatal("The window does not become active.");
    }
    void AddFile(const char* skin, const char* name, const QByteArray& bytes) const {
        Store.AddFile(u"skin/%1/%2"_s.arg(QLatin1String(skin), QLatin1String(name)), bytes);
    }
    template <class Control = QPushButton>
    Control* Get(const char* name) const {
        auto* control = Dialog->findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("There is no %s", name);
        return control;
    }
    void Press(const char* name) const { QTest::mouseClick(Get(name), Qt::LeftButton); }
    QStringList Names(const char* list) const {
        QStringList names;
        for (int i = 0; i < Get<QListWidget>(list)->count(); ++i)
            names.append(Get<QListWidget>(list)->item(i)->text());
        return names;
    }
    void Click(const char* list, int row, bool twice = false) const {
        auto* rows = Get<QListWidget>(list);
        const QPoint place = rows->visualItemRect(rows->item(row)).center();
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, place);
        if (twice)
            QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, place);
    }
    QColor Shown() const {
        const DensePicture& picture = Get<ScreenshotView>("imgScreenshot")->Picture();
        return picture.IsNull() ? QColor() : picture.Image.pixelColor(50, 50);
    }
};

} // namespace

class tst_SkinChooser : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void skinsByKeys();
    void options();
    void opens();
    void lastOfMany();
    void installs();
};

void tst_SkinChooser::skinsByKeys() {
    const Scene scene;
    QCOMPARE(scene.Names("lstSkin"), QStringList({u"A"_s, u"B"_s, u"Broken"_s}));
    QCOMPARE(scene.Get<QListWidget>("lstSkin")->currentRow(), 0);
    QTRY_VERIFY(scene.Shown().red() > 250 && scene.Shown().green() < 5);
    QVERIFY(!scene.Get("imgReadme")->isVisible());
    QTest::keyClick(scene.Dialog->focusWidget(), Qt::Key_Down);
    QTRY_COMPARE(scene.Names("lstOption"), QStringList({u"Green"_s, u"Plain"_s}));
    QVERIFY(scene.Get("imgReadme")->isVisible() && !scene.Shown().isValid());
    QTest::keyClick(scene.Dialog->focusWidget(), Qt::Key_Return);
    QCOMPARE(scene.Reloads, 1);
    QCOMPARE(scene.State.SkinName, u"B"_s);
    // One that the panel could not show keeps the skin that it has.
    scene.Click("lstSkin", 2, true);
    QVERIFY(scene.Prompts.Shown.value(0).contains(u"skin.ini"_s));
    QCOMPARE(scene.Reloads, 1);
    QTest::keyClick(scene.Dialog->focusWidget(), Qt::Key_Escape);
    QVERIFY(!scene.Dialog->isVisible());
}

void tst_SkinChooser::options() {
    Scene scene;
    const QString top = u"skin/B/top.png"_s;
    scene.Click("lstSkin", 1);
    QTRY_COMPARE(scene.Names("lstOption").size(), 2);
    scene.Get<QListWidget>("lstOption")->setFocus();
    QTest::keyClick(scene.Dialog->focusWidget(), Qt::Key_Down);
    QTRY_VERIFY(scene.Shown().green() > 250);
    QVERIFY(!scene.Get("cmdRestore")->isVisible());
    scene.Press("imgOption");
    QTRY_VERIFY(!scene.Shown().isValid());
    // A double click on the skin leaves options alone.
    scene.Click("lstOption", 0);
    scene.Click("lstSkin", 1, true);
    QCOMPARE(scene.State.SkinName, u"B"_s);
    QVERIFY(scene.Store.Bytes(top).isNull());
    QTRY_COMPARE(scene.Names("lstOption").size(), 2);
    scene.Click("lstOption", 0);
    scene.Get<QListWidget>("lstOption")->setFocus();
    QTest::keyClick(scene.Dialog->focusWidget(), Qt::Key_Return);
    QCOMPARE(scene.Store.Bytes(top), "green");
    QCOMPARE(scene.Reloads, 2);
    QTRY_VERIFY(scene.Get("cmdRestore")->isVisible());
    // The next option is one key away.
    QTest::keyClick(scene.Dialog->focusWidget(), Qt::Key_Down);
    QCOMPARE(scene.Get<QListWidget>("lstOption")->selectedItems().value(0)->text(), u"Plain"_s);
    // Of another skin nothing may be left to apply.
    scene.Click("lstOption", 1);
    scene.Click("lstSkin", 0);
    scene.Press("imgAutoChange");
    QCOMPARE(scene.State.SkinName, u"A"_s);
    scene.Click("lstSkin", 1);
    QTRY_COMPARE(scene.Names("lstOption").size(), 2);
    scene.Click("lstOption", 1, true);
    QVERIFY(scene.Store.Bytes(top).isNull());
    scene.Prompts.Answers = {true};
    scene.Press("cmdRestore");
    QTRY_VERIFY(!scene.Get("cmdRestore")->isVisible());
    QCOMPARE(scene.Reloads, 5);
    // What cannot be applied is told, and the panel stays.
    scene.Store.AddFolder(u"skin/B/top.png/x"_s);
    scene.Click("lstOption", 0, true);
    QVERIFY(scene.Prompts.Shown.last().contains(u"as it was"));
    QCOMPARE(scene.Reloads, 5);
}

void tst_SkinChooser::opens() {
    const Scene scene;
    scene.Click("lstSkin", 1);
    QTRY_VERIFY(scene.Get("imgReadme")->isVisible());
    for (const char* button : {"imgReadme", "imgFolder", "lblWebInfo", "lblDonate"})
        scene.Press(button);
    QCOMPARE(scene.Opener.Requests.size(), 2U);
    QVERIFY(scene.Opener.Requests[0].Target.endsWith(u"\\skin\\B\\readme.txt"));
    QVERIFY(scene.Opener.Requests[1].Target.endsWith(u"\\skin\\B\\"));
    QVERIFY(scene.Addresses.value(0).endsWith(u"/skin.htm") &&
            scene.Addresses.value(1).endsWith(u"/donate.htm"));
}

// A held arrow key in a long list: no reading waits behind those that nobody wants any more.
void tst_SkinChooser::lastOfMany() {
    const Scene scene;
    SkinPreview preview;
    QList<SkinFacts> arrived;
    connect(&preview, &SkinPreview::Arrived, this, [&](const SkinFacts& facts) { arrived.append(facts); });
    for (int i = 0; i <= 200; ++i)
        preview.Show({scene.State.AppFolder, i < 200 ? u"A"_s : u"B"_s, {}, 1, 100});
    QTRY_COMPARE(arrived.size(), 1);
    QCOMPARE(arrived.front().Options.size(), 2);
}

// Dropped, and chosen.
void tst_SkinChooser::installs() {
    Scene scene;
    ZipClass zip;
    for (const auto& [name, bytes] :
         {std::pair{"New/skin.ini", SkinMaker::Places()}, {"New/bottom.png", "b"}}) {
        scene.Store.AddFile(QLatin1String(name), bytes);
        QVERIFY(zip.AddFile(scene.Store.Path(QLatin1String(name)), QLatin1String(name)));
    }
    const QString path = scene.Store.Path(u"x.ZIP"_s);
    QVERIFY(zip.WriteZip(path, false));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const auto drop = [&] {
        QDropEvent event(QPointF(50, 50), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QWidget* list = scene.Get<QListWidget>("lstSkin")->viewport();
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(list, &enter);
        QVERIFY(enter.isAccepted() && enter.dropAction() == Qt::CopyAction);
        QApplication::sendEvent(list, &event);
        QCOMPARE(event.dropAction(), Qt::CopyAction);
    };
    drop();
    QTRY_VERIFY(scene.Prompts.Shown.value(0).contains(u"\"New\""_s) && scene.Names("lstSkin").size() == 3);
    scene.Prompts.Answers = {true};
    drop();
    QTRY_COMPARE(scene.Names("lstSkin"), QStringList({u"A"_s, u"B"_s, u"Broken"_s, u"New"_s}));
    QCOMPARE(scene.Get<QListWidget>("lstSkin")->currentRow(), 3);
    for (const QString& file : {path, scene.Store.Path(u"config"_s), scene.Store.Path(u"none.zip"_s)}) {
        scene.Prompts.File = file;
        scene.Press("cmdInstall");
    }
    const QStringList words = scene.Prompts.Shown.filter(QRegularExpression(u"already|not a zip|none.zip"_s));
    QCOMPARE(words.size(), 3);
}

QTEST_MAIN(tst_SkinChooser)
#include "tst_skin_chooser.moc"
