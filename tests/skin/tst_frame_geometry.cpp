#include "skin_maker.h"

#include "skin/frame_geometry.h"

#include <QTest>

using namespace paneda;

namespace {

constexpr TwipsSize Size(int width, int height) {
    return {width * 15, height * 15};
}

constexpr TwipsRect Rect(int left, int top, int width, int height) {
    return {left * 15, top * 15, width * 15, height * 15};
}

PieceSizes PlainSizes() {
    PieceSizes sizes;
    sizes.Bottom = Size(60, 30);
    sizes.TopA = Size(8, 12);
    sizes.LeftA = Size(6, 9);
    sizes.RightA = Size(7, 10);
    sizes.TopLeft = Size(10, 14);
    sizes.TopRight = Size(11, 15);
    sizes.BottomLeft = Size(12, 16);
    sizes.BottomRight = Size(13, 17);
    return sizes;
}

const TwipsSize kWindow = Size(200, 300);

} // namespace

class TestFrameGeometry : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PlacesPlainFrame();
    void PlacesCentresAndSecondFillers();
    void TinyWindowHasNoNegativeSizes();
    void AreasLieOnBottom();
    void MissingPicturesLeaveRoomForTitles();
};

void TestFrameGeometry::PlacesPlainFrame() {
    const FrameGeometry frame = DisplayBorder(PlainSizes(), kWindow);
    QCOMPARE(frame.TopLeft, Rect(0, 0, 10, 14));
    QCOMPARE(frame.TopRight, Rect(189, 0, 11, 15));
    QCOMPARE(frame.BottomLeft, Rect(0, 284, 12, 16));
    QCOMPARE(frame.BottomRight, Rect(187, 283, 13, 17));
    QCOMPARE(frame.TopA, Rect(10, 0, 179, 12));
    QCOMPARE(frame.LeftA, Rect(0, 14, 6, 270));
    QCOMPARE(frame.RightA, Rect(193, 15, 7, 268));
    QCOMPARE(frame.BottomA, Rect(12, 270, 175, 30));
    QCOMPARE(frame.Bottom, Rect(70, 270, 60, 30));
    // Without a piece of its own, a centre has the size of its filler's picture.
    QCOMPARE(frame.Top, Rect(96, 0, 8, 12));
    QCOMPARE(frame.Left, Rect(0, 145, 6, 9));
    QCOMPARE(frame.Right, Rect(193, 145, 7, 10));
    for (const TwipsRect& none : {frame.TopB, frame.BottomB, frame.LeftB, frame.RightB})
        QCOMPARE(none, TwipsRect());
    QCOMPARE(frame.Inner, Rect(6, 12, 187, 258));
}

void TestFrameGeometry::PlacesCentresAndSecondFillers() {
    PieceSizes sizes = PlainSizes();
    sizes.Top = Size(41, 11);
    sizes.Left = Size(5, 51);
    sizes.Right = Size(9, 50);
    sizes.HasTopB = sizes.HasBottomB = sizes.HasLeftB = sizes.HasRightB = true;
    const FrameGeometry frame = DisplayBorder(sizes, kWindow);
    // 159 pixels left over: the odd one goes to the right.
    QCOMPARE(frame.Top, Rect(79, 0, 41, 11));
    QCOMPARE(frame.TopB, Rect(120, 0, 69, 11));
    QCOMPARE(frame.Left, Rect(0, 124, 5, 51));
    QCOMPARE(frame.LeftB, Rect(0, 175, 5, 109));
    QCOMPARE(frame.Right, Rect(193, 125, 9, 50));
    QCOMPARE(frame.RightB, Rect(193, 175, 9, 108));
    QCOMPARE(frame.BottomB, Rect(130, 270, 57, 30));
    QCOMPARE(GetBorderMargin(sizes).Top, 12 * 15); // that of the filler
}

void TestFrameGeometry::TinyWindowHasNoNegativeSizes() {
    PieceSizes sizes = PlainSizes();
    sizes.HasTopB = sizes.HasBottomB = sizes.HasLeftB = sizes.HasRightB = true;
    const FrameGeometry frame = DisplayBorder(sizes, Size(5, 5));
    for (const TwipsRect& rect : {frame.TopA, frame.TopB, frame.BottomA, frame.Bottom, frame.BottomB,
                                  frame.LeftA, frame.LeftB, frame.RightA, frame.RightB, frame.Inner}) {
        QVERIFY(rect.Width >= 0);
        QVERIFY(rect.Height >= 0);
    }
}

void TestFrameGeometry::AreasLieOnBottom() {
    const FrameGeometry frame = DisplayBorder(PlainSizes(), kWindow);
    ThemeState theme;
    theme.HideRect = {1, 2, 9, 12};
    theme.MenuRect = {20, 30, 10, 25};
    theme.LogoTop = 4;
    theme.LogoLeft = 14;
    QCOMPARE(HideArea(frame, theme), Rect(72, 271, 10, 8));
    QCOMPARE(MenuArea(frame, theme), Rect(100, 290, 0, 0));
    QCOMPARE(LogoArea(frame, theme, Size(3, 2)), Rect(84, 274, 3, 2));
}

void TestFrameGeometry::MissingPicturesLeaveRoomForTitles() {
    SkinMaker maker;
    maker.AddIni();
    maker.AddPiece("topa", 3, 5, 0xFF000000);
    WriteBytes(maker.PathOf(QStringLiteral("topb.png")), "damaged");
    const PieceSizes sizes = MeasurePieces(maker.Theme());
    QCOMPARE(sizes.TopA, Size(3, 5));
    QCOMPARE(sizes.Bottom, TwipsSize());
    QVERIFY(!sizes.HasTopB); // what cannot be shown takes no room
    QVERIFY(PanelMetricsOf(sizes).GroupHeaderHeight > 0);
    QVERIFY(PanelMetricsOf(sizes).CategoryBarHeight > 0);
}

QTEST_GUILESS_MAIN(TestFrameGeometry)
#include "tst_frame_geometry.moc"
