#include "skin/skin_maker.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/fake_desktop.h"
#include "ui/fake_downloader.h"
#include "ui/organiser/frmButtonStyle.h"

#include <QBuffer>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class tst_ButtonStyle : public QObject {
    Q_OBJECT

    // A dialog on one button of a store.
    struct Scene {
        explicit Scene(const QString& file, const QByteArray& skin = {}) {
            Store.AddFile(Group + file, "[InternetShortcut]\nURL=http://site.test/\n");
            Store.AddFile(Group + u"[002] Other [1].pnd"_s);
            Store.AddFile(u"skin/Own/skin.ini"_s, SkinMaker::Places() + skin);
            State = Store.State();
            State.Drives = DrivesOfHost();
            State.SkinName = u"Own"_s;
            Window = std::make_unique<frmButtonStyle>(State, ButtonStyleServices{Prompts, Icons, Web},
                                                      Store.Path(Group + file));
            Window->Form_Load();
            Window->show();
        }

        template <class Control>
        Control& Get(const QString& name) {
            return *Window->findChild<Control*>(name);
        }
        void Click(const QString& name) { Get<QAbstractButton>(name).click(); }
        QString Style() const { return Window->EncodeStyle(); }
        QStringList Files() const {
            QStringList files = Store.Entries().filter(u"Setting/C/G/"_s);
            files.removeFirst();
            return files.replaceInStrings(Group, QString());
        }

        const QString Group = u"Setting/C/G/"_s;
        StoreBuilder Store;
        AppState State;
        FakePrompts Prompts;
        FakeIcons Icons;
        FakeDownloader Web;
        std::unique_ptr<frmButtonStyle> Window;
    };

private Q_SLOTS:
    void controls();
    void skinDecides();
    void preview();
    void apply();
    void pictures();
};

void tst_ButtonStyle::controls() {
    Scene scene(u"[001] Editor [C1243001411].lnk"_s);
    QCOMPARE(scene.Style(), u"C1243001411"_s);
    QCOMPARE(scene.Get<QLabel>(u"lblType"_s).text(), u"Shortcut"_s);
    QVERIFY(!scene.Get<QWidget>(u"cmdRefreshUrl"_s).isVisible());
    for (const auto& [control, style] :
         std::initializer_list<std::pair<QString, QString>>{{u"txtWidthHalf"_s, u"21243001411"_s},
                                                            {u"txtWidth10"_s, u"A1243001411"_s},
                                                            {u"txtWidthHalf"_s, u"A1243001411"_s},
                                                            {u"optIconBig"_s, u"A1143001411"_s},
                                                            {u"txtHeight0"_s, u"A0243001411"_s},
                                                            {u"optIconAlignment8"_s, u"A0293001411"_s},
                                                            {u"optSmallFonts6"_s, u"A0291001411"_s},
                                                            {u"chkBold"_s, u"A0291011411"_s},
                                                            {u"optPosition2"_s, u"A0291013411"_s},
                                                            {u"optLabelAlignment0"_s, u"A0291013111"_s},
                                                            {u"chkBackground"_s, u"A0291013110"_s},
                                                            {u"chkIcon"_s, u"A0091013110"_s},
                                                            {u"picTemplateBigIcon"_s, u"11113001100"_s},
                                                            {u"picTemplateSmallIcon"_s, u"00213001100"_s}}) {
        scene.Click(control);
        QCOMPARE(scene.Style(), style);
    }
    QVERIFY(scene.Get<QAbstractButton>(u"txtWidth0"_s).isChecked());
    QVERIFY(!scene.Get<QAbstractButton>(u"txtWidth1"_s).isChecked());
    // Tab goes as one reads.
    const QStringList wanted{
        u"picTemplateSmallIcon"_s, u"txtWidth0"_s, u"chkIcon"_s, u"optIconAlignment8"_s, u"txtLabel"_s,
        u"optLabelAlignment0"_s,   u"imgOK"_s};
    const QWidget& first = scene.Get<QWidget>(wanted[0]);
    QStringList order{wanted[0]};
    for (const QWidget* each = first.nextInFocusChain(); each != &first; each = each->nextInFocusChain()) {
        if (wanted.contains(each->objectName()))
            order.append(each->objectName());
    }
    QCOMPARE(order, wanted);
    QTest::keyClick(scene.Window.get(), Qt::Key_Escape);
    QVERIFY(!scene.Window->isVisible() && !scene.Window->HasChanges());
}

void tst_ButtonStyle::skinDecides() {
    Scene scene(u"[001] Editor [1].lnk"_s, "[Fonts]\r\nbutton background=YES\r\nbutton label bold=no\r\n");
    QVERIFY(!scene.Get<QWidget>(u"chkBackground"_s).isEnabled());
    QVERIFY(scene.Get<QWidget>(u"chkBorder"_s).isEnabled());
}

void tst_ButtonStyle::preview() {
    Scene scene(u"[001] Editor [11113001100].lnk"_s);
    const auto picture = [&scene] { return scene.Get<QLabel>(u"picViewButton"_s).pixmap().toImage(); };
    QCOMPARE(picture().size(), QSize(361, 40));
    const QImage icon = picture();
    scene.Click(u"chkLabel"_s);
    scene.Click(u"optPosition2"_s);
    QVERIFY(picture() != icon);
    const QImage label = picture();
    scene.Get<QLineEdit>(u"txtLabel"_s).setText(u"W"_s);
    QVERIFY(picture() != label);
}

void tst_ButtonStyle::apply() {
    Scene one(u"[001] Editor [1].pnd"_s);
    one.Get<QLineEdit>(u"txtLabel"_s).setText(u"a/b"_s);
    one.Click(u"imgOK"_s);
    QCOMPARE(one.Prompts.Shown.size(), 1);
    QVERIFY(one.Window->isVisible());
    one.Get<QLineEdit>(u"txtLabel"_s).setText(u"New"_s);
    QTest::keyClick(one.Window.get(), Qt::Key_Return);
    QCOMPARE(one.Files(), QStringList({u"[001] New [11113001100].pnd"_s, u"[002] Other [1].pnd"_s}));
    QVERIFY(!one.Window->isVisible() && one.Window->HasChanges());
    QCOMPARE(one.Window->FileName(), u"[001] New [11113001100].pnd"_s);

    Scene all(u"[001] Editor [1].pnd"_s);
    all.Click(u"optGroup"_s);
    all.Click(u"imgOK"_s);
    QCOMPARE(all.Files(),
             QStringList({u"[001] Editor [11113001100].pnd"_s, u"[002] Other [11113001100].pnd"_s}));

    // The file is gone: the message names it.
    Scene gone(u"[001] Editor [1].pnd"_s);
    QVERIFY(QFile::remove(gone.Store.Path(gone.Group + u"[001] Editor [1].pnd"_s)));
    gone.Click(u"imgOK"_s);
    QVERIFY(gone.Prompts.Shown.value(0).contains(u"Editor"_s));
}

void tst_ButtonStyle::pictures() {
    Scene scene(u"[001] Site [1].url"_s);
    QVERIFY(!scene.Get<QWidget>(u"cmdDeletePicture"_s).isVisible());
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    scene.Web.Answers.emplace(u"http://site.test/favicon.ico"_s, buffer.data());
    scene.Click(u"cmdRefreshUrl"_s);
    QCOMPARE(scene.Store.Bytes(scene.Group + u"[001] Site [1].ico"_s), buffer.data());
    scene.Click(u"cmdDeletePicture"_s);
    QVERIFY(!scene.Get<QWidget>(u"cmdDeletePicture"_s).isVisible());
    QCOMPARE(scene.Files().size(), 2);
}

QTEST_MAIN(tst_ButtonStyle)

#include "tst_button_style.moc"
