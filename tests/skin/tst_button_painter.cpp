#include "skin_maker.h"

#include "skin/button_label.h"
#include "skin/button_layout.h"
#include "skin/button_painter.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;

namespace {

constexpr Argb kIcon = 0xFF00FF00;
constexpr Argb kBig = 0xFF0000FF;
constexpr Argb kSmall = 0xFF00FFFF;
constexpr Argb kBack = 0xFFFF00FF;
constexpr Argb kLabel = 0xFFFFFFFF;
constexpr Argb kBorder = 0xFF102030;

class PlainIcons : public IconSource {
public:
    QImage Icon(const QString& path, const IconSize& size) override {
        const int pixels = size.OnScreen();
        Asked.append(path);
        return PlainPicture(pixels, pixels, kIcon);
    }

    QStringList Asked;
};

const QByteArray kFonts = "button label color=FFFFFF\nbutton label border color=102030\n"
                          "button label font anti alias=0\n";

} // namespace

class TestButtonPainter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void LaysOut_data();
    void LaysOut();
    void PlacesSharpLines();
    void IconLandsByItsCode();
    void GroundAndPiece_data();
    void GroundAndPiece();
    void OverridesRuleStyle();
    void PictureWinsOverIcon();
    void IconIsThatOfTheTarget();
    void LabelStaysInItsRoom_data();
    void LabelStaysInItsRoom();
    void TellsOfCutLabels();

private:
    QImage Paint(const ButtonSpec& button);

    SkinMaker maker_;
    PlainIcons icons_;
    QByteArray fonts_ = kFonts;
};

QImage TestButtonPainter::Paint(const ButtonSpec& button) {
    maker_.AddIni(fonts_);
    const ThemeState theme = maker_.Theme();
    FontChoice fonts;
    PaintTools tools(theme, fonts);
    const DriveMap drives = test::DrivesOfHost();
    ButtonSources sources{icons_, drives, QStringLiteral("C:\\app"), 5};
    DrawingSurface surface(QSize(220, 60));
    PaintButton(surface, button, tools, sources);
    fonts_ = kFonts;
    return surface.Image();
}

void TestButtonPainter::LaysOut_data() {
    QTest::addColumn<QString>("style");
    QTest::addColumn<QList<double>>("expected"); // icon left, top; label left, width; indent
    const auto row = [](const char* style, QList<double> expected) {
        QTest::newRow(style) << QString::fromLatin1(style) << expected;
    };
    // Three units wide: 1560 twips, 104 pixels.
    row("31113001411", {0, 0, 480, 1080, 510});
    row("31153001411", {36, 0, 1020, 540, 1050});
    row("31113002411", {0, 0, 0, 15, 1590});
    row("31133002411", {72, 0, 0, 1080, 510});
    row("31133003411", {72, 0, 0, 1560, 0});
    row("3111300 411", {0, 0, 0, 0, 0});
    row("30213001411", {0, 0, 240, 1320, 270});
    row("31243001411", {0, 8, 240, 1320, 270});
    row("31293001411", {88, 16, 1560, 15, 1590});
    row("31013002411", {0, 0, 0, 15, 0});
    // An icon that is larger than the button starts at its edge.
    row("00113001411", {0, 0, 480, -240, 510});
}

void TestButtonPainter::LaysOut() {
    QFETCH(QString, style);
    QFETCH(QList<double>, expected);
    const ButtonLayout layout =
        LayOutButton(DecodeStyle(style), {ButtonWidthTwips(style, 5), ButtonHeight(style)});
    QCOMPARE((QList<double>{layout.IconLeft, layout.IconTop, double(layout.LabelLeft),
                            double(layout.LabelWidth), double(layout.LabelIndent)}),
             expected);
}

void TestButtonPainter::PlacesSharpLines() {
    const TwipsSize size{1560, 480};
    const auto place = [&size](const QString& code, int line, int count) {
        const ButtonStyle style = DecodeStyle(code);
        const LinePlace at = PlaceLine(style, LayOutButton(style, size), size, 300, line, count);
        return QPoint(at.Left, at.Top);
    };
    // Label to the right of a large icon: 510 twips are the icon's.
    QCOMPARE(place(QStringLiteral("3111100111"), 0, 1), QPoint(510, 0));
    QCOMPARE(place(QStringLiteral("3111100151"), 0, 2), QPoint(510 + 375, 90));
    QCOMPARE(place(QStringLiteral("3111100191"), 1, 2), QPoint(1260, 480 - 300 + 150));
    // To the left of an icon at the right edge.
    QCOMPARE(place(QStringLiteral("3113100261"), 0, 1), QPoint(1560 - 300 - 510, 165));
    QCOMPARE(place(QStringLiteral("3111200321"), 0, 3), QPoint(630, 0));
    QCOMPARE(place(QStringLiteral("3111200341"), 0, 3), QPoint(0, -7));
    // A line that is too wide begins where its room does.
    const ButtonStyle narrow = DecodeStyle(u"1111111391");
    QCOMPARE(PlaceLine(narrow, LayOutButton(narrow, {480, 480}), {480, 480}, 600, 0, 1).Left, 0);
}

void TestButtonPainter::IconLandsByItsCode() {
    ButtonSpec button;
    button.Target = QStringLiteral("C:\\app\\x.lnk");
    button.Left = 10 * 15;
    button.Top = 5 * 15;
    button.Style = QStringLiteral("3129");
    QCOMPARE(BoxOf(Paint(button), kIcon), QRect(98, 21, 16, 16));
    // Half a unit high: the icon is cut, not scaled.
    button.Style = QStringLiteral("3011");
    QCOMPARE(BoxOf(Paint(button), kIcon), QRect(10, 5, 32, 16));
}

void TestButtonPainter::GroundAndPiece_data() {
    QTest::addColumn<QByteArray>("fonts");
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("preview");
    QTest::addColumn<quint32>("background"); // 0: none of its own
    QTest::addColumn<quint32>("expected");
    const QByteArray solid = "button background color=FF0000\n";
    const QString on = QStringLiteral("11000000001");
    const QString off = QStringLiteral("11000000000");
    const QString half = QStringLiteral("10000000001");
    QTest::newRow("nothing") << QByteArray() << off << false << 0u << 0u;
    QTest::newRow("wallpaper of a preview") << QByteArray() << off << true << 0u << kBack;
    QTest::newRow("solid ground") << solid << off << true << 0u << 0xFFFF0000u;
    QTest::newRow("piece over solid") << solid << on << false << 0u << kBig;
    QTest::newRow("piece of half height") << solid << half << false << 0u << kSmall;
    QTest::newRow("a call's own ground takes no piece") << solid << on << true << kBorder << kBorder;
    QTest::newRow("forced on") << QByteArray("button background=yes\n") << off << false << 0u << kBig;
    QTest::newRow("forced off") << QByteArray("button background=no\n") << on << false << 0u << 0u;
}

void TestButtonPainter::GroundAndPiece() {
    QFETCH(QByteArray, fonts);
    QFETCH(QString, style);
    QFETCH(bool, preview);
    QFETCH(quint32, background);
    QFETCH(quint32, expected);
    maker_.AddPiece("buttonbig", 5, 5, kBig);
    maker_.AddPiece("buttonsmall", 5, 5, kSmall);
    maker_.AddPiece("back", 5, 5, kBack);
    fonts_ += fonts;
    ButtonSpec button;
    button.Style = style;
    button.Left = 15;
    button.Top = 15;
    button.PreviewWallpaper = preview;
    if (background != 0)
        button.Background = background;
    const QImage image = Paint(button);
    QCOMPARE(image.pixel(5, 5), expected);
    const int height = style[1] == u'0' ? 16 : 32;
    QCOMPARE(InkOf(image), expected == 0 ? QRect() : QRect(1, 1, 32, height));
}

void TestButtonPainter::OverridesRuleStyle() {
    ButtonSpec button;
    button.Caption = QStringLiteral("HH");
    for (const char* style : {"3101300311", "3101100311"}) {
        button.Style = QString::fromLatin1(style);
        QVERIFY(BoxOf(Paint(button), kBorder).isNull());
        fonts_ += "button label border=yes\n";
        QVERIFY(!BoxOf(Paint(button), kBorder).isNull());
    }
    // In the smallest sizes a bold letter may be as wide as another.
    button.Style = QStringLiteral("3101300311");
    const QImage plain = Paint(button);
    fonts_ += "button label bold=yes\n";
    QVERIFY(BoxOf(Paint(button), kLabel).width() > BoxOf(plain, kLabel).width());
}

void TestButtonPainter::PictureWinsOverIcon() {
    const QString file = maker_.PathOf(QStringLiteral("[001] Play [3115].lnk"));
    QVERIFY(PlainPicture(64, 32, kBig).save(maker_.PathOf(QStringLiteral("[001] play [3115].PNG")), "png"));
    ButtonSpec button;
    button.Style = QStringLiteral("3115");
    button.Target = test::DrivesOfHost().ToStored(file);
    icons_.Asked.clear();
    const QImage image = Paint(button);
    QVERIFY(icons_.Asked.isEmpty());
    QCOMPARE(BoxOf(image, kBig), QRect(36, 8, 32, 16));
}

void TestButtonPainter::IconIsThatOfTheTarget() {
    const auto asked = [this](const QString& name, const QByteArray& target) {
        const QString file = maker_.PathOf(name);
        WriteBytes(file, "[Properties]\nTarget=" + target + "\n");
        ButtonSpec button;
        button.Style = QStringLiteral("1111");
        button.Target = test::DrivesOfHost().ToStored(file);
        icons_.Asked.clear();
        Paint(button);
        return icons_.Asked.join(u'|');
    };
    const QString record = QStringLiteral("a.pnd");
    QCOMPARE(asked(record, "D:\\x.exe"), QStringLiteral("D:\\x.exe"));
    QCOMPARE(asked(record, "\\x.exe"), QStringLiteral("C:\\x.exe"));
    QCOMPARE(asked(record, "\\\\server\\x.exe"), QStringLiteral("\\\\server\\x.exe"));
    QCOMPARE(asked(record, "..\\x.exe"), QStringLiteral("C:\\x.exe"));
    QCOMPARE(asked(record, ""), QString());
    QVERIFY(asked(QStringLiteral("b.Lnk"), "D:\\x.exe").endsWith(QStringLiteral("\\b.Lnk")));
}

void TestButtonPainter::LabelStaysInItsRoom_data() {
    QTest::addColumn<QString>("style");
    QTest::addColumn<QRect>("room");
    // The button lies at (10, 5) and is 104 by 32 or 16 pixels.
    QTest::newRow("smooth, right of the icon") << "31113001411" << QRect(42, 5, 75, 32);
    QTest::newRow("sharp, left of the icon") << "31132002611" << QRect(10, 5, 70, 32);
}

void TestButtonPainter::LabelStaysInItsRoom() {
    QFETCH(QString, style);
    QFETCH(QRect, room);
    ButtonSpec button;
    button.Style = style;
    button.Left = 10 * 15;
    button.Top = 5 * 15;
    button.Caption = QStringLiteral("HHH HHH");
    const QRect ink = BoxOf(Paint(button), kLabel);
    QVERIFY(!ink.isNull());
    QVERIFY(room.contains(ink));
}

void TestButtonPainter::TellsOfCutLabels() {
    maker_.AddIni(kFonts);
    const ThemeState theme = maker_.Theme();
    FontChoice fonts;
    const auto cut = [&](const QString& style, const QString& caption) {
        const TwipsRect box{0, 0, ButtonWidthTwips(style, 5), ButtonHeight(style)};
        return ButtonLabel(DecodeStyle(style), caption, box, theme, fonts).IsCut(1);
    };
    const QString three = QStringLiteral("Text Text Text Text"); // needs more than one line of three units
    for (const char* smooth : {"30213001411", "30213003411"})
        QVERIFY2(cut(QString::fromLatin1(smooth), three + three), smooth);
    QVERIFY(!cut(QStringLiteral("31213001411"), three));
    QVERIFY(!cut(QStringLiteral("30213001401"), three + three)); // no label
    // Sharp: three lines of one unit, of which the last takes all that is left.
    QVERIFY(!cut(QStringLiteral("1111111351"), QStringLiteral("Text Text Text")));
    QVERIFY(cut(QStringLiteral("1111111351"), three));
}

QTEST_MAIN(TestButtonPainter)
#include "tst_button_painter.moc"
