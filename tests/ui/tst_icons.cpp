#include "organiser/icon_library.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"
#include "ui/common/dtVisualScrollBar.h"
#include "ui/common/show_node_icon.h"
#include "ui/fake_desktop.h"
#include "ui/fake_downloader.h"
#include "ui/organiser/fetch_favicon.h"
#include "ui/organiser/frmIconSelect.h"
#include "ui/organiser/icon_paper.h"
#include "ui/panel/frmWait.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray Picture(const char* format, const QColor& color) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

} // namespace

class tst_Icons : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void favicon();
    void sheet();
    void picker();
    void manyAndBadIcons();
    void nodeIcons();
};

void tst_Icons::favicon() {
    const StoreBuilder store;
    const QString target = store.Path(u"site.ico"_s);
    const QString address = u"http://site.test/favicon.ico"_s;
    FakeDownloader downloader;
    const auto fetch = [&](const DownloadResult& answer) {
        downloader.Answers.insert_or_assign(address, answer);
        return FetchFavicon(u"site.test/page"_s, target, FaviconKind::Address, downloader, nullptr);
    };
    const auto kept = [&store] { return store.Bytes(u"site.ico"_s); };
    const QByteArray first = Picture("PNG", Qt::red);
    const QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'/>";
    QVERIFY(!fetch(QByteArray("<html>not found</html>")));
    QVERIFY(kept().isNull());
    QVERIFY(fetch(first));
    for (const DownloadResult& none :
         {DownloadResult(drawing), DownloadResult(first.first(60)), DownloadResult(QByteArray()),
          DownloadResult(tl::make_unexpected(u"gone"_s))})
        QVERIFY(!fetch(none));
    QCOMPARE(kept(), first);
    for (const char* format : {"ICO", "JPG", "BMP"}) {
        const QByteArray next = Picture(format, Qt::green);
        QVERIFY(fetch(next) && kept() == next);
    }

    // Escape ends a download that does not come, and the events of the program are handled meanwhile.
    downloader.Answers.clear();
    QString shown;
    QTimer::singleShot(0, this, [&shown] {
        QWidget* wait = QApplication::activeModalWidget();
        shown = wait->findChild<QLabel*>(u"lblWait"_s)->text();
        QTest::keyClick(wait, Qt::Key_Escape);
    });
    QVERIFY(!FetchFavicon(u"site.test"_s, target, FaviconKind::Address, downloader, nullptr));
    QCOMPARE(shown, u"Downloading Icon Now\n\nPlease Wait..."_s);
}

void tst_Icons::sheet() {
    // Captions of 450 twips: two icons a row of 1500, and a third whose caption is cut at the edge.
    const IconSheet sheet = LayOutIcons(QStringList(7, u"a.png"_s), 2400, [](const QString&) { return 450; });
    QCOMPARE(sheet.Icons[0], (TwipsRect{60, 60, 240, 240}));
    QCOMPARE(sheet.Labels[1], (TwipsRect{1260, 60, 450, 240}));
    QCOMPARE(sheet.Icons[2].Left, 1860);
    QCOMPARE(sheet.Labels[2].Width, 240);
    QCOMPARE(sheet.Icons[3], (TwipsRect{60, 510, 240, 240}));
    QCOMPARE(sheet.Range(), 0);
    const IconSheet high = LayOutIcons(QStringList(30, u"a.png"_s), 400, [](const QString&) { return 450; });
    QCOMPARE(high.Height, 60 + 29 * 450 + 600);
    for (const auto& [from, move, to] : {std::tuple(-1, SheetMove::Down, 0),
                                         {0, SheetMove::Left, 0},
                                         {1, SheetMove::Down, 4},
                                         {5, SheetMove::Down, 6},
                                         {6, SheetMove::Up, 3},
                                         {2, SheetMove::PageDown, 6},
                                         {4, SheetMove::PageUp, 1},
                                         {6, SheetMove::Right, 6}})
        QCOMPARE(MoveOnSheet(sheet, from, move), to);
}

void tst_Icons::picker() {
    const StoreBuilder store;
    store.AddFile(u"skin/Dark/skin.ini"_s, "[Tree]\r\nbackground color=102030\r\n");
    for (const char* name : {"b.png", "a.ICO", "notes.txt"})
        store.AddFile(u"Icons/Office/"_s + QLatin1String(name), Picture("PNG", Qt::red));
    for (int i = 0; i < 60; ++i)
        store.AddFile(u"Icons/Signs/a rather long name of an icon %1.png"_s.arg(i));
    AppState state = store.State();
    state.SkinName = u"Dark"_s;
    FakePrompts prompts;
    FakeOpener opener;
    QColor seed;
    const auto open = [&](const std::function<void(frmIconSelect&, IconPaper&)>& act) {
        frmIconSelect window(state,
                             {prompts, opener,
                              [&seed](const QColor& color, QWidget*) {
                                  seed = color;
                                  return QColor(Qt::white);
                              }},
                             u"NO CHANGE"_s);
        window.Form_Load();
        window.show();
        auto* paper = window.findChild<IconPaper*>(u"picPaper"_s);
        act(window, *paper);
        return window.IconResult();
    };
    // From a place on the sheet, in twips, to the widget.
    const auto at = [](const TwipsRect& place) { return ToPixels(place).center(); };
    const auto click = [&at](IconPaper& paper, int index) {
        QTest::mouseClick(&paper, Qt::LeftButton, {}, at(paper.Sheet().Icons[std::size_t(index)]));
    };
    const QString folder = store.Path(u"Icons/Office/"_s);
    QCOMPARE(open([](frmIconSelect& window, IconPaper&) { QTest::keyClick(&window, Qt::Key_Escape); }),
             u"NO CHANGE"_s);
    QCOMPARE(open([&](frmIconSelect&, IconPaper& paper) {
                 click(paper, 2); // a text, which has a place but no picture
                 click(paper, 0);
             }),
             folder + u"a.ICO"_s);
    QCOMPARE(open([](frmIconSelect&, IconPaper& paper) {
                 QTest::keyClick(&paper, Qt::Key_Right);
                 QTest::keyClick(&paper, Qt::Key_Return);
             }),
             folder + u"b.png"_s);
    QCOMPARE(open([](frmIconSelect& window, IconPaper&) {
                 QTest::mouseClick(window.findChild<QPushButton*>(u"cmdSelectNone"_s), Qt::LeftButton);
             }),
             u"Select None"_s);
    open([&](frmIconSelect& window, IconPaper& paper) {
        const auto pixel = [&paper](const QPoint& point) { return paper.grab().toImage().pixelColor(point); };
        QCOMPARE(pixel({1, 1}), QColor(0x10, 0x20, 0x30));
        QTRY_COMPARE(pixel(at(paper.Sheet().Icons[0])), QColor(Qt::red));
        QTest::mouseClick(&paper, Qt::RightButton, {}, {1, 1});
        QCOMPARE(seed, QColor(0x10, 0x20, 0x30));
        QCOMPARE(pixel({1, 1}), QColor(Qt::white));

        window.cmdOpenFolder_Click();
        QCOMPARE(opener.Requests.back().Target, u"E:\\Paneda\\Icons\\Office\\"_s);

        auto* bar = window.findChild<dtVisualScrollBar*>(u"vsbScrollBar"_s);
        QVERIFY(!bar->Enabled());
        window.findChild<QListWidget*>(u"lstIcon"_s)->setCurrentRow(1);
        QVERIFY(bar->Enabled());
        QCOMPARE(bar->Max(), paper.Sheet().Range());
        QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&paper, &wheel);
        QVERIFY(bar->Value() >= kIconRowHeight);
        QTest::keyClick(&paper, Qt::Key_End);
        QCOMPARE(bar->Value(), bar->Max() - (600 - 450));
        QTest::keyClick(&paper, Qt::Key_Home);
        QCOMPARE(bar->Value(), 0);
    });
    QVERIFY(prompts.Shown.isEmpty());
}

void tst_Icons::manyAndBadIcons() {
    const StoreBuilder store;
    for (int i = 1; i < kMostIcons; ++i)
        store.AddFile(u"Icons/Many/%1.png"_s.arg(i, 4, 10, QLatin1Char('0')), "no picture");
    store.AddFile(u"Icons/Many/last.png"_s, Picture("PNG", Qt::red));
    const AppState state = store.State();
    FakePrompts prompts;
    FakeOpener opener;
    frmIconSelect window(state, {prompts, opener, {}}, {});
    window.Form_Load();
    window.show();
    QVERIFY(prompts.Shown.isEmpty());
    auto& paper = *window.findChild<IconPaper*>(u"picPaper"_s);
    const IconSheet& sheet = paper.Sheet();
    QCOMPARE(sheet.Icons.size(), std::size_t(kMostIcons));
    QTest::keyClick(&paper, Qt::Key_End);
    const QPoint last = ToPixels(sheet.Icons.back()).center() - QPoint(0, TwipsToPixels(sheet.Range() - 150));
    QTRY_COMPARE(paper.grab().toImage().pixelColor(last), QColor(Qt::red));

    store.AddFile(u"Icons/Many/one more.png"_s);
    window.lstIcon_Click();
    QCOMPARE(prompts.Shown, QStringList{u"|"_s + TooManyIconsText()});
    QCOMPARE(sheet.Icons.size(), std::size_t(kMostIcons));
}

void tst_Icons::nodeIcons() {
    const StoreBuilder store;
    store.AddFile(u"both/Image.PNG"_s, Picture("PNG", Qt::red));
    store.AddFile(u"both/image.ico"_s, Picture("ICO", Qt::green));
    store.AddFile(u"one/image.ICO"_s, Picture("ICO", Qt::green));
    store.AddFolder(u"none"_s);
    const AppState state = store.State();
    FakeIcons icons;
    QLabel label;
    label.resize(32, 32);
    const auto shown = [&](const char* path, bool isFile, const char* kind) {
        label.setPixmap({});
        ShowNodeIcon({store.Path(QLatin1String(path)), isFile, QLatin1String(kind), u"E:\\x.txt"_s}, label,
                     Qt::blue, state, icons);
        const QImage image = label.pixmap().toImage();
        return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
    };
    QCOMPARE(shown("both", false, ""), QColor(Qt::red));
    QCOMPARE(shown("one", false, "URL"), QColor(Qt::green));
    QCOMPARE(shown("both/image.ico", true, ""), QColor(Qt::green));
    QCOMPARE(shown("none", false, ""), QColor());
    QVERIFY(icons.Targets.isEmpty());
    QCOMPARE(shown("none", false, "URL"), QColor::fromRgb(FakeIcons::kColour));
    QCOMPARE(shown("both", false, "File"), QColor::fromRgb(FakeIcons::kColour));
    QCOMPARE(icons.Targets.last(), u"E:\\x.txt"_s);
}

QTEST_MAIN(tst_Icons)

#include "tst_icons.moc"
