#include "skin/skin_maker.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/skin/colour_button.h"
#include "ui/skin/frmSetFont.h"
#include "ui/skin/frmSkinConfigure.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

template <class Control>
Control& Get(const QWidget& window, const QString& name) {
    return *window.findChild<Control*>(name);
}

void Click(const QWidget& window, const QString& name) {
    Get<QAbstractButton>(window, name).click();
}

// Does something with the modal window that is opened next.
template <class Window>
void Answer(const std::function<void(Window&)>& answer) {
    QTimer::singleShot(0, qApp,
                       [answer] { answer(*qobject_cast<Window*>(QApplication::activeModalWidget())); });
}

} // namespace

class tst_FontWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void configure();
    void unusable();
    void font();
    void colours();
};

void tst_FontWindows::configure() {
    StoreBuilder store;
    store.AddFile(u"skin/Own/skin.ini"_s, SkinMaker::Places() + "[Fonts]\r\nbutton label bold=Yes\r\n"
                                                                "drive letter color=0A0B0C\r\n"
                                                                "category active font name=<b>F</b>\r\n");
    const auto ini = [&store] { return IniText(store.Bytes(u"skin/Own/skin.ini"_s)); };
    const QByteArray before = ini().Bytes();
    FakePrompts prompts;
    frmSkinConfigure window(u"Own"_s, {store.AppFolder(), prompts});
    QVERIFY(window.Form_Load());
    window.show();
    QVERIFY(Get<QAbstractButton>(window, u"optBoldYes"_s).isChecked());
    QVERIFY(Get<QAbstractButton>(window, u"optBorderCustom"_s).isChecked());
    QVERIFY2(Get<QWidget>(window, u"lblCategoriesActiveFont"_s).toolTip().contains(u"&lt;b"), "a stranger's");
    const auto picture = [&window] { return Get<QLabel>(window, u"picPreview"_s).pixmap().toImage(); };
    QImage last = picture();
    const auto changed = [&] { return std::exchange(last, picture()) != last; };
    for (const QString& option : {u"optBoldNo"_s, u"optBorderYes"_s}) {
        Click(window, option);
        QVERIFY2(changed(), qPrintable(option));
    }
    for (const QString& block :
         {u"lblGroups"_s, u"lblCategoriesActive"_s, u"lblCategoriesInactive"_s, u"lblLabel"_s}) {
        Answer<frmSetFont>([&](frmSetFont& dialog) {
            QCOMPARE(Get<QWidget>(dialog, u"chkBold"_s).isEnabled(), block != u"lblLabel");
            Click(dialog, u"chkAntiAlias"_s);
            Get<QLineEdit>(dialog, u"Text1"_s).setText(u"10.5"_s);
            Click(dialog, u"Command1"_s);
        });
        Click(window, block);
        QVERIFY2(changed(), qPrintable(block));
        Answer<frmSetFont>([](frmSetFont& dialog) {
            Click(dialog, u"chkBold"_s);
            Click(dialog, u"Command2"_s);
        });
        Click(window, block);
        QVERIFY2(!changed(), "cancelled");
    }
    QCOMPARE(ini().Bytes(), before);
    // A file that cannot be written is named, and nothing is lost.
    const QString file = store.Path(u"skin/Own/skin.ini"_s);
    QVERIFY(QFile::rename(file, file + u"x"));
    Click(window, u"cmdOK"_s);
    QVERIFY(window.isVisible() && prompts.Shown.last().contains(u"skin.ini"));
    QVERIFY(QFile::rename(file + u"x", file));
    Click(window, u"cmdOK"_s);
    QVERIFY(!window.isVisible() && window.result() == QDialog::Accepted);
    QCOMPARE(ini().Value(u"Fonts", u"group font size"), u"10.5"_s);
    QCOMPARE(ini().Value(u"Fonts", u"button label font anti alias"), u"0"_s);
    QCOMPARE(ini().Value(u"Fonts", u"button label bold"), u"no"_s);
    // It still follows the colour of the drives.
    QCOMPARE(ini().Value(u"Fonts", u"button label color"), QString());
}

void tst_FontWindows::unusable() {
    StoreBuilder store;
    store.AddFile(u"skin/Own/skin.ini"_s, "[Fonts]\r\n");
    FakePrompts prompts;
    QVERIFY(!frmSkinConfigure(u"Own"_s, {store.AppFolder(), prompts}).Form_Load());
    QVERIFY(!frmSkinConfigure(u"../skin/Own"_s, {store.AppFolder(), prompts}).Form_Load());
    QCOMPARE(prompts.Shown.size(), 2);
}

void tst_FontWindows::font() {
    frmSetFont dialog(u"Group"_s, {.Name = u"No Such Font"_s, .Size = 9}, {}, {});
    dialog.Form_Load();
    dialog.show();
    QCOMPARE(dialog.windowTitle(), u"Group Font"_s);
    auto& note = Get<QLabel>(dialog, u"lblFontNotFound"_s);
    QVERIFY(note.text().startsWith(u"Font Not found : No Such Font"));
    auto& fonts = Get<QListWidget>(dialog, u"List1"_s);
    QCOMPARE(fonts.currentItem()->text(), u"Tahoma"_s);
    QVERIFY(!Get<QWidget>(dialog, u"imgBorder"_s).isVisible());
    // Typed letters find a font.
    const QString first = fonts.item(0)->text();
    QTest::keyClicks(&fonts, first.left(3));
    QVERIFY(fonts.currentItem()->text().startsWith(first.left(3)));
    auto& size = Get<QLineEdit>(dialog, u"Text1"_s);
    auto& sizes = Get<QListWidget>(dialog, u"List2"_s);
    QCOMPARE(sizes.currentItem()->text(), u"9"_s);
    QTest::keyClick(&size, Qt::Key_Down);
    QCOMPARE(size.text(), u"10"_s);
    size.setText(u"big"_s);
    QVERIFY(!Get<QWidget>(dialog, u"Command1"_s).isEnabled() && note.text().contains(u"200"));
    size.setText(u"9,5"_s);
    QVERIFY(!sizes.currentItem());
    Click(dialog, u"chkItalic"_s);
    Click(dialog, u"optAlignment5"_s);
    QVERIFY(!dialog.Chosen());
    QTest::keyClick(&fonts, Qt::Key_Return);
    const FontDialogValues wanted{
        .Name = fonts.currentItem()->text(), .Size = 9.5, .Italic = true, .Alignment = 6};
    QVERIFY(dialog.Chosen() == wanted);
}

void tst_FontWindows::colours() {
    StoreBuilder store;
    store.AddFile(u"setting.ini"_s, "[Properties]\r\nlast colors=0000FF junk 000G00\r\n");
    const auto choose = [&store](const std::function<void(frmSetFont&)>& act) {
        frmSetFont dialog({}, {.Name = u"Tahoma"_s, .TextColor = 0x123456, .BorderColor = 0}, {},
                          store.AppFolder());
        dialog.Form_Load();
        dialog.show();
        act(dialog);
        Click(dialog, u"Command1"_s);
        return *dialog.Chosen();
    };
    const FontDialogValues chosen = choose([](const frmSetFont& dialog) {
        Answer<QColorDialog>([](QColorDialog& colours) {
            QCOMPARE(colours.currentColor(), QColor(0x56, 0x34, 0x12));
            colours.setCurrentColor(QColor(0xFF, 0x05, 0xFF));
            colours.accept();
        });
        Click(dialog, u"Label3"_s);
    });
    QCOMPARE(ColorToHex(chosen.TextColor), u"FE05FF"_s);
    QVERIFY(chosen.BorderColor == 0u);
    const FontDialogValues again = choose([](const frmSetFont& dialog) {
        auto& button = Get<ColourButton>(dialog, u"imgBorder"_s);
        Q_EMIT button.menu()->aboutToShow();
        QCOMPARE(button.menu()->actions().size(), 2);
        button.menu()->actions().first()->trigger();
    });
    QCOMPARE(ColorToHex(*again.BorderColor), u"FE05FF"_s);
    QCOMPARE(store.Bytes(u"setting.ini"_s), "[Properties]\r\nlast colors=FE05FF 0000FF\r\n");
}

QTEST_MAIN(tst_FontWindows)
#include "tst_font_windows.moc"
