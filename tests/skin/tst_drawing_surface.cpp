#include "skin_maker.h"

#include "skin/font_choice.h"
#include "skin/image_scaling.h"

#include <QTest>

#include <cstdlib>

using namespace paneda;

namespace {

constexpr Argb kRed = 0xFFFF0000;
constexpr Argb kBlue = 0xFF0000FF;
constexpr Argb kHalfGreen = 0x8000FF00;
constexpr Argb kStoredHalfGreen = 0x80008000; // premultiplied

constexpr TwipsRect InPixels(int left, int top, int width, int height) {
    return {left * 15, top * 15, width * 15, height * 15};
}

LabelStyle Style(Column column, Row row) {
    FontChoice fonts;
    LabelStyle style;
    style.Font = {fonts.Family(QStringLiteral("Tahoma")), 11, false, false, false};
    style.Color = kRed;
    style.AtColumn = column;
    style.AtRow = row;
    return style;
}

QImage Labelled(const QString& text, const TwipsRect& box, const LabelStyle& style) {
    DrawingSurface surface(QSize(200, 100));
    surface.DrawLabel(text, box, style);
    return surface.Image();
}

} // namespace

class TestDrawingSurface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PlacesPictures_data();
    void PlacesPictures();
    void TilesFromTopLeft();
    void StretchesByHandNumbers();
    void ShrinksByAverage();
    void ClearReplacesAndOverBlends();
    void FillFollowsLastMode();
    void CutsTwipsToPixels();
    void MeetsWithoutGapsAtEveryRatio();
    void TakesPicturesOfAnyDensity();
    void NothingToDrawIsNoFault();
    void LabelKeepsItsPlace();
    void LabelBreaksIntoWholeLines();
    void LabelShrinksOnlyWhenTooWide();
};

void TestDrawingSurface::PlacesPictures_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("alignment");
    QTest::addColumn<bool>("fit");
    QTest::addColumn<QRect>("source");
    QTest::addColumn<QRect>("target");
    const QRect box(10, 20, 40, 30);
    const auto row = [](const char* name, QSize picture, const char* method, const char* alignment, bool fit,
                        QRect source, QRect target) {
        QTest::newRow(name) << picture << QString::fromLatin1(method) << QString::fromLatin1(alignment) << fit
                            << source << target;
    };
    row("original, cut in the middle", {50, 60}, "original size", "5", false, {5, 15, 40, 30}, box);
    row("original, smaller than the box", {31, 20}, "original size", "5", false, {-5, -5, 40, 30}, box);
    row("stretch, growing", {20, 15}, "stretch", "5", false, {0, 0, 19, 14}, box);
    row("stretch of a single pixel", {1, 1}, "stretch", "5", false, {0, 0, 1, 1}, box);
    row("cover, equal ratio", {80, 60}, "stretch proportional", "5", false, {0, 0, 80, 60}, box);
    row("cover, too wide, centre", {121, 60}, "stretch proportional", "5", false, {20, 0, 80, 60}, box);
    row("cover, too high, bottom", {80, 100}, "stretch proportional", "8", false, {0, 40, 80, 60}, box);
    row("cover, part is rounded up and shortened", {20, 31}, "stretch proportional", "1", false,
        {0, 0, 19, 14}, box);
    row("letterbox, high", {30, 60}, "", "5", true, {0, 0, 30, 60}, {20, 20, 20, 30});
    row("letterbox, square fills the box", {64, 64}, "", "5", true, {0, 0, 64, 64}, box);
}

void TestDrawingSurface::PlacesPictures() {
    QFETCH(QSize, picture);
    QFETCH(QString, method);
    QFETCH(QString, alignment);
    QFETCH(bool, fit);
    QFETCH(QRect, source);
    QFETCH(QRect, target);
    const PicturePlace place =
        PlacePicture(picture, QRect(10, 20, 40, 30), {DrawMode::Over, method, alignment, fit});
    QCOMPARE(place.Source, source);
    QCOMPARE(place.Target, target);
}

void TestDrawingSurface::TilesFromTopLeft() {
    QImage tile = PlainPicture(4, 3, kBlue);
    tile.setPixel(0, 0, kRed);
    DrawingSurface surface(QSize(20, 20));
    surface.DrawPicture(tile, InPixels(3, 2, 10, 7));
    const QImage& image = surface.Image();
    QCOMPARE(InkOf(image), QRect(3, 2, 10, 7));
    for (const QPoint corner : {QPoint(3, 2), QPoint(7, 2), QPoint(11, 8), QPoint(3, 5)})
        QCOMPARE(image.pixel(corner), kRed);
    QCOMPARE(image.pixel(10, 2), kBlue);
    QCOMPARE(image.pixel(12, 8), kBlue);

    DrawingSurface small(QSize(20, 20));
    small.DrawPicture(tile, InPixels(1, 1, 2, 2));
    QCOMPARE(InkOf(small.Image()), QRect(1, 1, 2, 2));
}

void TestDrawingSurface::StretchesByHandNumbers() {
    QImage pair(2, 1, QImage::Format_ARGB32_Premultiplied);
    pair.setPixel(0, 0, 0xFF000000);
    pair.setPixel(1, 0, 0xFFFFFFFF);
    DrawingSurface surface(QSize(6, 3));
    surface.DrawPicture(pair, InPixels(1, 1, 4, 2), {DrawMode::Clear, QStringLiteral("stretch")});
    const std::array<int, 4> expected{0, 64, 128, 191};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(qRed(surface.Image().pixel(1 + i, 1)), expected[std::size_t(i)]);
        QCOMPARE(surface.Image().pixel(1 + i, 2), surface.Image().pixel(1 + i, 1));
    }
    QCOMPARE(InkOf(surface.Image()), QRect(1, 1, 4, 2));
}

void TestDrawingSurface::ShrinksByAverage() {
    QImage pair(2, 2, QImage::Format_ARGB32_Premultiplied);
    pair.fill(0xFF000000);
    pair.setPixel(0, 0, 0xFFFFFFFF);
    const QImage one = ScalePart(pair, pair.rect(), {1, 1});
    QVERIFY(qAbs(qRed(one.pixel(0, 0)) - 64) <= 1);
    QVERIFY(ScalePart(pair, {0, 0, 0, 1}, {1, 1}).isNull());
}

void TestDrawingSurface::ClearReplacesAndOverBlends() {
    const QImage veil = PlainPicture(4, 4, kHalfGreen);
    DrawingSurface surface(PlainPicture(20, 10, kRed));
    surface.DrawPictureAt(veil, 0, 0, DrawMode::Clear);
    surface.DrawPictureAt(veil, 8 * 15, 0, DrawMode::Over);
    surface.DrawPicture(veil, InPixels(14, 0, 6, 6), {.Mode = DrawMode::Over});
    QCOMPARE(surface.Image().pixel(1, 1), kStoredHalfGreen);
    QCOMPARE(surface.Image().pixel(9, 1), 0xFF7F8000u);
    QCOMPARE(surface.Image().pixel(19, 5), 0xFF7F8000u);
    QCOMPARE(surface.Image().pixel(5, 5), kRed);
}

void TestDrawingSurface::FillFollowsLastMode() {
    DrawingSurface surface(PlainPicture(10, 10, kRed));
    surface.FillRect(kHalfGreen, InPixels(0, 0, 2, 2));
    surface.ClearRect(InPixels(4, 4, 4, 4));
    surface.FillRect(kHalfGreen, InPixels(8, 0, 2, 2));
    QCOMPARE(surface.Image().pixel(0, 0), 0xFF7F8000u);
    QCOMPARE(surface.Image().pixel(4, 4), 0u);
    QCOMPARE(surface.Image().pixel(7, 7), 0u);
    QCOMPARE(surface.Image().pixel(3, 3), kRed);
    QCOMPARE(surface.Image().pixel(8, 0), kStoredHalfGreen);
}

void TestDrawingSurface::CutsTwipsToPixels() {
    DrawingSurface surface(QSize(10, 10));
    surface.FillRect(kRed, {29, 44, 59, 30});
    QCOMPARE(InkOf(surface.Image()), QRect(1, 2, 3, 2));
    surface.FillRect(kBlue, {-1, 0, 30, 15});
    QCOMPARE(BoxOf(surface.Image(), kBlue), QRect(0, 0, 1, 1));
}

// Neighbours share their edge, the places under the mouse are those that are drawn, and lines are equally
// thick.
void TestDrawingSurface::MeetsWithoutGapsAtEveryRatio() {
    for (const double ratio : {1.0, 1.1458, 1.25, 1.5, 1.75, 2.0, 2.6, 3.0}) {
        DrawingSurface surface(QSize(61, 9), ratio);
        QCOMPARE(surface.Image().size(), DeviceSize({61, 9}, ratio));
        for (int x = 0; x < 61; ++x) {
            const Argb color = x % 2 == 0 ? kRed : kBlue;
            if (x % 3 == 0)
                surface.FillRect(color, InPixels(x, 0, 1, 9));
            else if (x % 3 == 1)
                surface.DrawPicture(PlainPicture(1, 4, color), InPixels(x, 0, 1, 9));
            else
                surface.DrawPictureAt(PlainPicture(1, 9, color), x * 15, 0);
        }
        for (int device = 0; device < surface.Image().width(); ++device) {
            const int pixel = LayoutPoint({device / ratio, 0}, ratio).x();
            for (const int y : {0, surface.Image().height() - 1})
                QCOMPARE(surface.Image().pixel(device, y), pixel % 2 == 0 ? kRed : kBlue);
        }
        DrawingSurface frame(QSize(61, 9), ratio);
        frame.DrawOutline(kRed, InPixels(3, 1, 37, 5));
        const QRect outer = DeviceRect({3, 1, 37, 5}, ratio);
        const int line = DeviceLength(1, ratio);
        QCOMPARE(InkOf(frame.Image()), outer);
        const QRect inner = outer.adjusted(line, line, -line, -line);
        QVERIFY(InkOf(frame.Image().copy(inner)).isNull());
        QCOMPARE(InkOf(frame.Image().copy(inner.adjusted(-1, -1, 1, 1))).size(),
                 inner.adjusted(-1, -1, 1, 1).size());
    }
}

void TestDrawingSurface::TakesPicturesOfAnyDensity() {
    QImage tile = PlainPicture(4, 4, kBlue); // two pixels of the layout wide, the left one red
    for (const QPoint& at : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1), QPoint(0, 2),
                             QPoint(1, 2), QPoint(0, 3), QPoint(1, 3)})
        tile.setPixel(at, kRed);
    for (const double ratio : {1.0, 2.0, 3.0}) {
        DrawingSurface surface(QSize(20, 20), ratio);
        surface.DrawPicture({tile, 2}, InPixels(3, 2, 10, 7));
        surface.DrawPicture({tile, 2}, InPixels(14, 2, 6, 6), {.Method = QStringLiteral("original size")});
        surface.DrawIcon({PlainPicture(int(8 * ratio), int(8 * ratio), kBlue), ratio},
                         InPixels(2, 11, 5, 20));
        const auto seen = [&](int x, int y) {
            return surface.Image().pixel(int((x + 0.5) * ratio), int((y + 0.5) * ratio));
        };
        for (const int x : {3, 5, 11})
            QVERIFY(seen(x, 8) == kRed && seen(x + 1, 8) == kBlue);
        QVERIFY(seen(13, 8) == 0 && seen(16, 4) == kRed && seen(17, 4) == kBlue && seen(15, 4) == 0);
        QVERIFY(seen(6, 18) == kBlue && seen(7, 18) == 0 && seen(6, 19) == 0);
        QVERIFY(InkOf(surface.Image()).bottom() < 19 * ratio);
    }
    // Text has the same place at twice the size, and a line of it is written, not scaled: its letters are
    // sharp.
    DrawingSurface once(QSize(200, 100));
    DrawingSurface twice(QSize(200, 100), 2);
    for (DrawingSurface* surface : {&once, &twice})
        surface->DrawLabel(QStringLiteral("HHH"), InPixels(20, 30, 150, 40),
                           Style(Column::Centre, Row::Centre));
    const QRect small = InkOf(once.Image());
    const QRect large = InkOf(twice.Image());
    QVERIFY((large.center() - small.center() * 2).manhattanLength() <= 4);
    QVERIFY(std::abs(large.width() - 2 * small.width()) <= 4 &&
            std::abs(large.height() - 2 * small.height()) <= 2);
}

void TestDrawingSurface::NothingToDrawIsNoFault() {
    DrawingSurface none(QSize(0, 5));
    none.FillRect(kRed, InPixels(0, 0, 5, 5));
    none.DrawLabel(QStringLiteral("x"), InPixels(0, 0, 50, 50), Style(Column::Left, Row::Top));
    QVERIFY(none.Image().isNull());
    DrawingSurface surface(QSize(5, 5));
    surface.DrawPicture({}, InPixels(0, 0, 5, 5));
    surface.DrawPicture(PlainPicture(2, 2, kRed), InPixels(0, 0, -5, 5));
    surface.DrawLabel(QStringLiteral("x"), InPixels(0, 0, -2, 5), Style(Column::Left, Row::Top));
    surface.DrawCheckerBackdrop(InPixels(0, 0, 5, 5), 0);
    QVERIFY(InkOf(surface.Image()).isNull());
}

void TestDrawingSurface::LabelKeepsItsPlace() {
    const QRect box(20, 10, 120, 60);
    for (int code = 1; code <= 9; ++code) {
        const QRect ink = InkOf(Labelled(QStringLiteral("HHHH"), InPixels(20, 10, 120, 60),
                                         Style(AlignColumn(code), AlignRow(code))));
        QVERIFY2(box.contains(ink), qPrintable(QString::number(code)));
        // A third of the box each, as the codes are laid out.
        const QPoint third((ink.center().x() - box.left()) * 3 / box.width(),
                           (ink.center().y() - box.top()) * 3 / box.height());
        QCOMPARE(third, QPoint((code - 1) % 3, (code - 1) / 3));
    }
}

void TestDrawingSurface::LabelBreaksIntoWholeLines() {
    const LabelStyle style = Style(Column::Left, Row::Top);
    const int line = LineHeightOf(style.Font);
    const QString text = QStringLiteral("HHHH HHHH HHHH HHHH");
    const int width = int(MeasureText(QStringLiteral("HHHH"), style.Font)) + 12;
    const QRect two = InkOf(Labelled(text, InPixels(0, 0, width, 3 * line - 2), style));
    QVERIFY(two.bottom() > line && two.bottom() < 2 * line);
    // The last line takes the rest and runs on to the edge.
    QVERIFY(two.right() >= width - 3);
    LabelStyle flatStyle = style;
    flatStyle.OneLine = true;
    QVERIFY(InkOf(Labelled(text, InPixels(0, 0, width, 3 * line), flatStyle)).bottom() < line);
    // One line stays, even where it has no room, and is cut.
    const QRect one = InkOf(Labelled(text, InPixels(0, 0, width, line - 4), style));
    QVERIFY(!one.isNull() && one.bottom() < line - 4);
    // A word that is too long is broken.
    const QRect broken = InkOf(Labelled(QStringLiteral("HHHHHHHHHHHH"), InPixels(0, 0, width, 90), style));
    QVERIFY(broken.right() < width && broken.bottom() > 2 * line);
    // A line break in a name is no line break of the label.
    const QRect flat = InkOf(Labelled(QStringLiteral("H\nH\x0bH"), InPixels(0, 0, 190, 90), style));
    QVERIFY(flat.bottom() < line);
}

void TestDrawingSurface::LabelShrinksOnlyWhenTooWide() {
    LabelStyle style = Style(Column::Left, Row::Centre);
    style.ShrinkToFit = true;
    style.KeepVertical = true;
    const QRect natural = InkOf(Labelled(QStringLiteral("HHHH"), InPixels(0, 40, 190, 20), style));
    const QRect longText = InkOf(Labelled(QString(40, u'H'), InPixels(0, 40, 190, 20), style));
    QVERIFY(longText.height() < natural.height());
    QVERIFY(longText.right() < 190 && longText.right() > 140);
    // The height of the box places the text without cutting it.
    const QRect flat = InkOf(Labelled(QStringLiteral("HHHH"), InPixels(0, 48, 190, 4), style));
    QCOMPARE(flat.size(), natural.size());
    QVERIFY(qAbs(flat.center().y() - natural.center().y()) <= 1);
}

QTEST_MAIN(TestDrawingSurface)
#include "tst_drawing_surface.moc"
