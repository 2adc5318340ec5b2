#include "skin_maker.h"

#include "skin/category_pictures.h"
#include "skin/piece_sizes.h"
#include "skin/quick_png.h"

#include <QTest>

using namespace paneda;

namespace {

constexpr Argb kTop = 0xFF100000;
constexpr Argb kLeft = 0xFF200000;
constexpr Argb kRight = 0xFF300000;
constexpr Argb kBottomA = 0xFF400000;
constexpr Argb kBottom = 0xFF500000;
constexpr Argb kCorner = 0xFF600000;
constexpr Argb kBack = 0xFF000080;
constexpr Argb kGroup = 0xFF008000;
constexpr Argb kBar = 0xFF808000;
constexpr Argb kActiveBar = 0xFF008080;
constexpr Argb kLogo = 0xFFABCDEF;
constexpr Argb kTitle = 0xFFFFFFFF;
constexpr Argb kGround = 0xFF777777;

constexpr quint64 kGigabyte = 1024ull * 1024 * 1024;

class NoIcons : public IconSource {
public:
    QImage Icon(const QString&, const IconSize&) override { return {}; }
};

GroupEntry MakeGroup(const char* name, int buttons) {
    GroupEntry group;
    group.FolderName = QString::fromLatin1(name);
    for (int i = 0; i < buttons; ++i) {
        ButtonEntry button;
        button.Path = QStringLiteral("C:\\app\\Setting\\x\\[001] Name [1100300311].lnk");
        button.Style = QStringLiteral("1100300310");
        group.Buttons.push_back(button);
    }
    return group;
}

CategoryEntry MakeCategory(const char* name, const char* kind, std::vector<GroupEntry> groups) {
    CategoryEntry category;
    category.FolderName = QString::fromLatin1(name);
    category.Kind = QString::fromLatin1(kind);
    category.Groups = std::move(groups);
    return category;
}

GroupEntry DriveGroup() {
    GroupEntry group;
    group.FolderName = QStringLiteral("My Computer");
    int index = 0;
    for (const char* name : {"Drive C", "Drive D", "Drive 9"}) {
        ButtonEntry button;
        button.Path = button.Name = QString::fromLatin1(name);
        button.Spare = button.Path + u':';
        button.ControlIndex = ++index;
        group.Buttons.push_back(button);
    }
    return group;
}

// The picture, when it has been written.
QImage Kept(CategoryPictures pictures, int category) {
    const QImage picture = pictures.Picture(category);
    pictures.PrepareNext();
    return picture;
}

} // namespace

class TestPanelPainter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EachPieceInItsPlace();
    void WideBottomStaysBetweenMargins();
    void BarsShowWhichIsOpen();
    void TreeCategoryIsTransparentInside();
    void DriveTexts();
    void DriveDataIsAdded();
    void SkinWithoutPicturesIsPainted();
    void HugePiecesAreLeftOut();
    void DenserPiecesAreUsed();
    void RatiosHaveTheirFiles();
    void LatePictureIsNotKept();
    void FilesBelongToTheirPanel();
    void UnusableFileIsComposedAgain();
    void DrivesAndTitlesAreRedrawn();
    void FolderThatCannotBeWritten();

private:
    // Everything that one panel needs, for the skin as it is on disk.
    struct Panel {
        explicit Panel(const SkinMaker& maker, const CatalogueList& list, int screenHeight = 20000)
            : Theme(maker.Theme())
            , Sizes(MeasurePieces(Theme))
            , Catalogue(list)
            , Tools(Theme, Fonts)
            , Drives(DriveMap::FromMountPoints({}))
            , Sources{Icons, Drives, QStringLiteral("C:\\app"), 5} {
            LayoutInput input;
            input.Metrics = PanelMetricsOf(Sizes);
            input.Screen = {30000, screenHeight, screenHeight};
            Geometry = LayoutPanel(Catalogue, input);
            Painter = std::make_unique<PanelPainter>(
                PanelScene{Catalogue, Geometry, Sizes, PlainPicture(6, 5, kLogo)}, Tools, Sources);
        }

        QPoint Pixel(int twipsX, int twipsY) const { return {twipsX / 15, twipsY / 15}; }
        CategoryPictures Pictures(const QString& folder, CategoryPictures::Files files) {
            const auto read = [this] {
                std::vector<DriveState> states;
                for (const PlacedDrive& button : DriveButtonsOf(Catalogue, Geometry, Sources.AppPath))
                    states.push_back({button, {{}, 4 * kGigabyte, Free}});
                return states;
            };
            return {
                folder,
                {Theme, Fonts, Catalogue, Geometry, Sizes, Icons, Drives, Sources.AppPath, {}, read, Ticks},
                files};
        }

        quint64 Free = kGigabyte; // on every drive
        TickSource Ticks = ProcessorTick;

        ThemeState Theme;
        PieceSizes Sizes;
        CatalogueList Catalogue;
        PanelGeometry Geometry;
        FontChoice Fonts;
        PaintTools Tools;
        DriveMap Drives;
        NoIcons Icons;
        ButtonSources Sources;
        std::unique_ptr<PanelPainter> Painter;
    };

    static CatalogueList TwoAndTree() {
        return {MakeCategory("[001] One", "S", {MakeGroup("[001] G", 3), DriveGroup()}),
                MakeCategory("[002] Two", "S", {MakeGroup("[001] H", 2)}), MakeCategory("[003] T", "T", {})};
    }

    SkinMaker maker_;
};

void TestPanelPainter::initTestCase() {
    maker_.AddIni("group color=FFFFFF\ncategory active color=FFFFFF\ncategory inactive color=FFFFFF\n"
                  "group font anti alias=0\ncategory active font anti alias=0\n"
                  "category inactive font anti alias=0\ncategory active font alignment=5\n"
                  "button background color=777777\ndrive free space color=FFFFFF\n"
                  "drive capacity color=FFFFFF\ndrive N/A color=FF0000\ndrive letter color=00FF00\n"
                  "drive bar border color=0000FF\ndrive bar free space color=FF00FF\n");
    maker_.AddPiece("topa", 4, 10, kTop);
    maker_.AddPiece("lefta", 8, 4, kLeft);
    maker_.AddPiece("righta", 9, 4, kRight);
    maker_.AddPiece("bottoma", 4, 20, kBottomA);
    maker_.AddPiece("bottom", 50, 20, kBottom);
    maker_.AddPiece("topleft", 12, 12, kCorner);
    maker_.AddPiece("topright", 12, 12, kCorner);
    maker_.AddPiece("bottomleft", 12, 12, kCorner);
    maker_.AddPiece("bottomright", 12, 12, kCorner);
    maker_.AddPiece("back", 7, 7, kBack);
    maker_.AddPiece("group", 5, 16, kGroup);
    maker_.AddPiece("category", 5, 20, kBar);
    maker_.AddPiece("categoryactive", 5, 20, kActiveBar);
}

void TestPanelPainter::EachPieceInItsPlace() {
    maker_.AddPiece("topb", 3, 6, 0xFF222222);
    Panel panel(maker_, TwoAndTree());
    const QImage image = panel.Painter->PaintFrame();
    QVERIFY(QFile::remove(maker_.PathOf(QStringLiteral("topb.png"))));
    const int width = panel.Geometry.PanelWidth / 15;
    const int height = panel.Geometry.PanelHeight / 15;
    QCOMPARE(image.size(), QSize(width, height));
    for (const QPoint corner :
         {QPoint(3, 11), QPoint(width - 12, 0), QPoint(0, height - 1), QPoint(width - 12, height - 3)})
        QCOMPARE(image.pixel(corner), kCorner);
    QCOMPARE(image.pixel(12, 0), kTop);
    QCOMPARE(BoxOf(image, 0xFF222222).right(), width - 13); // over the right half of the edge
    QCOMPARE(image.pixel(7, height - 25), kLeft);
    QCOMPARE(image.pixel(width - 9, 12), kRight);
    QCOMPARE(BoxOf(image, kBack).topLeft(), QPoint(8, 10));
    QCOMPARE(BoxOf(image, kBack).bottom(), height - 21);
    QCOMPARE(image.pixel(13, height - 20), kBottomA);
    QCOMPARE(BoxOf(image, kBottom), QRect((width - 50) / 2, height - 20, 50, 20));
    QCOMPARE(BoxOf(image, kLogo), QRect((width - 50) / 2 + 14, height - 20 + 4, 6, 5));
}

void TestPanelPainter::WideBottomStaysBetweenMargins() {
    maker_.AddPiece("bottom", 400, 20, kBottom);
    Panel panel(maker_, TwoAndTree());
    const QImage image = panel.Painter->PaintFrame();
    QCOMPARE(BoxOf(image, kBottom), QRect(8, image.height() - 20, image.width() - 17, 20));
    QCOMPARE(BoxOf(image, kLogo), QRect(8 + 14, image.height() - 16, 6, 5));
    maker_.AddPiece("bottom", 50, 20, kBottom);
}

void TestPanelPainter::BarsShowWhichIsOpen() {
    Panel panel(maker_, TwoAndTree());
    for (int open = 0; open < 2; ++open) {
        const QRect bar = ToPixels(panel.Geometry.Categories[std::size_t(open)].Bar);
        QCOMPARE(BoxOf(panel.Painter->PaintBase(open), kActiveBar), bar);
    }
    const QImage base = panel.Painter->PaintBase(0);
    const QRect title = BoxOf(base, kTitle);
    QVERIFY(ToPixels(panel.Geometry.Categories[0].Groups[0].Header).adjusted(4, 0, 0, 0).intersects(title));
    const TwipsRect button = panel.Geometry.Categories[0].Groups[0].Buttons[2].Rect;
    QCOMPARE(base.pixel(panel.Pixel(button.Left, button.Top)), kGround);
}

void TestPanelPainter::TreeCategoryIsTransparentInside() {
    Panel panel(maker_, TwoAndTree());
    const QImage base = panel.Painter->PaintBase(2);
    const FrameMargins& margins = panel.Geometry.Metrics.Margins;
    QCOMPARE(base.pixel(panel.Pixel(margins.Left, margins.Top)), 0u);
    QCOMPARE(base.pixel(panel.Pixel(margins.Left, panel.Geometry.BarsTop)), kBar);
    QCOMPARE(base.pixel(panel.Pixel(margins.Left - 15, panel.Geometry.BarsTop)), kLeft);
    // The next category has its wallpaper again.
    QVERIFY(!BoxOf(panel.Painter->PaintBase(1), kBack).isNull());
}

void TestPanelPainter::DriveTexts() {
    QCOMPARE(GigabytesText(10 * kGigabyte), QStringLiteral("10.00"));
    QCOMPARE(GigabytesText(100 * kGigabyte), QStringLiteral("100.0"));
    const QString drive = QStringLiteral("C:");
    QCOMPARE(DriveToolTip(drive, {QStringLiteral("System"), 1000, 425}),
             QStringLiteral("C:(System) Free 42%"));
    QCOMPARE(DriveToolTip(drive, {{}, 0, 0}), QStringLiteral("C: Free -"));
}

void TestPanelPainter::DriveDataIsAdded() {
    Panel panel(maker_, TwoAndTree());
    const auto drives = DriveButtonsOf(panel.Catalogue, panel.Geometry, QStringLiteral("E:\\app"));
    QCOMPARE(drives.size(), 3u);
    QCOMPARE(drives[0].Drive, QStringLiteral("C:"));
    QCOMPARE(drives[2].Drive, QStringLiteral("E:"));
    const auto drawn = [&panel](const DriveInfo& info) {
        DrawingSurface surface(QSize(40, 40));
        DrawDrive(surface, {1, QStringLiteral("C:"), {30, 45, 480, 480}}, info, panel.Tools);
        return surface.Image();
    };
    // The box begins at (2, 3); its bar is outlined from pixel (10, 25) to (30, 30).
    const QImage half = drawn({{}, 100 * kGigabyte, 50 * kGigabyte});
    QCOMPARE(BoxOf(half, 0xFF0000FF), QRect(12, 28, 21, 6));
    QCOMPARE(BoxOf(half, 0xFFFF00FF), QRect(13, 29, 10, 3));
    const QImage full = drawn({{}, 100 * kGigabyte, 0});
    QVERIFY(BoxOf(full, kTitle).top() >= 13);
    QVERIFY(BoxOf(full, 0xFFFF00FF).isNull());
    const QImage none = drawn({{}, 0, 0});
    QVERIFY(BoxOf(none, kTitle).isNull());
    QVERIFY(!BoxOf(none, 0xFFFF0000).isNull());
    // A drive that tells more free than it has stays inside its bar.
    QVERIFY(BoxOf(drawn({{}, 10, 1000}), 0xFFFF00FF).right() < 32);
}

void TestPanelPainter::SkinWithoutPicturesIsPainted() {
    SkinMaker bare;
    bare.AddIni();
    WriteBytes(bare.PathOf(QStringLiteral("back.png")), "damaged");
    Panel panel(bare, TwoAndTree());
    const QImage base = panel.Painter->PaintBase(0);
    QCOMPARE(base.width(), panel.Geometry.PanelWidth / 15);
    DrawingSurface surface(base);
    panel.Painter->DrawBarTitles(surface, 0);
    QVERIFY(!InkOf(surface.Image()).isNull());
}

void TestPanelPainter::HugePiecesAreLeftOut() {
    // From the smallest on, as many as have 64 million pixels.
    const QSize huge(4096, 4096);
    const auto usable = PiecesWithinLimit({{QStringLiteral("a"), huge},
                                           {QStringLiteral("b"), huge},
                                           {QStringLiteral("c"), huge},
                                           {QStringLiteral("d"), huge},
                                           {QStringLiteral("e"), {3000, 4000}},
                                           {QStringLiteral("f"), {64, 64}}});
    QCOMPARE(usable.size(), 5);
    QVERIFY(usable.contains(QStringLiteral("f")) && !usable.contains(QStringLiteral("d")));

    SkinMaker maker;
    maker.AddIni();
    maker.AddPiece("topa", 4096, 10, kTop);
    WriteBytes(maker.PathOf(QStringLiteral("lefta.png")), "damaged");
    const ThemeState theme = maker.Theme();
    SkinPictures pictures(theme, {{200, 300}});
    QCOMPARE(pictures.Get(theme.Pieces.TopA).Size(), QSize(200, 10));
    QVERIFY(pictures.Get(theme.Pieces.LeftA).IsNull());
    const auto leftOut = pictures.TakeLeftOut();
    QCOMPARE(leftOut.size(), 1u);
    QVERIFY(leftOut[0].Path.endsWith(u"lefta.png") && !pictures.WasLate());
}

// The file of two or three times the size that fits the ratio best, where there is one and its size is right.
void TestPanelPainter::DenserPiecesAreUsed() {
    SkinMaker maker;
    maker.AddIni();
    for (const auto& [name, side] : {std::pair("topa", 10),
                                     {"topa@2x", 20},
                                     {"topa@3x", 30},
                                     {"lefta", 8},
                                     {"lefta@3x", 24},
                                     {"righta", 7},
                                     {"righta@2x", 15},
                                     {"bottoma@2x", 20}})
        maker.AddPiece(name, side, side, kTop);
    const ThemeState theme = maker.Theme();
    struct Row {
        double Ratio;
        double Top;
        double Left;
        std::size_t LeftOut;
    };
    for (const Row& row : {Row{1, 1, 1, 0}, {1.25, 2, 3, 1}, {2, 2, 3, 1}, {2.5, 3, 3, 1}, {3, 3, 3, 1}}) {
        SkinPictures pictures(theme, {{9, 300}, row.Ratio});
        const DensePicture top = pictures.Get(theme.Pieces.TopA);
        QCOMPARE(top.Density, row.Top);
        QCOMPARE(top.Size(), QSize(9, 10));
        QCOMPARE(pictures.Get(theme.Pieces.LeftA).Density, row.Left);
        QCOMPARE(pictures.Get(theme.Pieces.RightA).Density, 1.0);
        QVERIFY2(pictures.Get(theme.Pieces.BottomA).IsNull(), "no piece of its own");
        QCOMPARE(pictures.TakeLeftOut().size(), row.LeftOut);
    }
}

// Each ratio has its files; those that another ratio may still need stay, and those that became wrong go.
void TestPanelPainter::RatiosHaveTheirFiles() {
    const QTemporaryDir folder;
    Panel panel(maker_, TwoAndTree());
    CategoryPictures pictures = panel.Pictures(folder.path(), CategoryPictures::Files::Drop);
    const QImage once = pictures.Picture(1);
    pictures.SetRatio(1.25);
    QCOMPARE(pictures.Picture(1).size(), DeviceSize(once.size(), 1.25));
    QVERIFY(pictures.PrepareNext());
    CategoryPictures kept = panel.Pictures(folder.path(), CategoryPictures::Files::Keep);
    WriteBytes(folder.filePath(QStringLiteral("category002@1.25x.png")),
               QuickPng(PlainPicture(DeviceSize(once.size(), 1.25).width(),
                                     DeviceSize(once.size(), 1.25).height(), kLogo),
                        0));
    kept.SetRatio(1.25);
    QCOMPARE(kept.Picture(1).pixel(0, 0), kLogo);
    kept.SetRatio(1);
    QCOMPARE(kept.Picture(1), once);
    QVERIFY(kept.RedrawBarTitles().empty());
    QCOMPARE(ListFiles(folder.path()).filter(QStringLiteral("@")), QStringList());
    kept.SetRatio(1.25);
    QCOMPARE(kept.Picture(1).pixel(0, 0), kCorner);
}

void TestPanelPainter::LatePictureIsNotKept() {
    const QTemporaryDir folder;
    Panel panel(maker_, TwoAndTree());
    quint32 now = 0;
    panel.Ticks = [&now] { return now += 10'000; };
    CategoryPictures pictures = panel.Pictures(folder.path(), CategoryPictures::Files::Drop);
    const QImage bare = pictures.Picture(1);
    QVERIFY(BoxOf(bare, kBack).isNull());
    QVERIFY(ListFiles(folder.path()).isEmpty() && !pictures.PrepareNext());
    QVERIFY(pictures.TakeLeftOut()[0].Late);
    panel.Ticks = ProcessorTick;
    const QImage whole = Kept(panel.Pictures(folder.path(), CategoryPictures::Files::Keep), 1);
    QVERIFY(!BoxOf(whole, kBack).isNull());
    QCOMPARE(ListFiles(folder.path()).size(), 2);
}

void TestPanelPainter::FilesBelongToTheirPanel() {
    const QTemporaryDir folder;
    for (const char* name : {"category009.png", "categoryfile.png"})
        WriteBytes(folder.filePath(QString::fromLatin1(name)), "old");
    Panel panel(maker_, TwoAndTree());
    CategoryPictures pictures = panel.Pictures(folder.path(), CategoryPictures::Files::Drop);
    const QImage tree = pictures.Picture(2);
    while (pictures.PrepareNext()) {
    }
    QCOMPARE(ListFiles(folder.path()).join(u' '),
             QStringLiteral("category000.png category000a.png category001.png category001a.png "
                            "category002.png category002a.png category003.png category003a.png "
                            "categoryfile.png"));
    // What is on file is what is shown, and not composed a second time.
    const QImage marked = PlainPicture(tree.width(), tree.height(), kLogo);
    QVERIFY(marked.save(folder.filePath(QStringLiteral("category002.png"))));
    CategoryPictures kept = panel.Pictures(folder.path(), CategoryPictures::Files::Keep);
    QVERIFY(!kept.PrepareNext());
    QCOMPARE(kept.Picture(1).pixel(0, 0), kLogo);
    QCOMPARE(kept.Picture(2), tree);
    // Of another panel it is removed.
    CategoryPictures other = panel.Pictures(folder.path(), CategoryPictures::Files::Drop);
    QCOMPARE(ListFiles(folder.path()), QStringList(QStringLiteral("categoryfile.png")));
    QCOMPARE(other.Picture(1).pixel(0, 0), kCorner);
}

void TestPanelPainter::UnusableFileIsComposedAgain() {
    const QTemporaryDir folder;
    Panel panel(maker_, TwoAndTree());
    const QImage composed = Kept(panel.Pictures(folder.path(), CategoryPictures::Files::Drop), 1);
    const QString file = folder.filePath(QStringLiteral("category002.png"));
    const QByteArray good = QuickPng(composed, 0);
    // Missing, damaged, of another window.
    for (const QByteArray& bytes :
         {QByteArray(), good.first(good.size() / 2), QuickPng(PlainPicture(9, 9, kBack), 0)}) {
        QVERIFY(QFile::remove(file));
        if (!bytes.isEmpty())
            WriteBytes(file, bytes);
        QCOMPARE(Kept(panel.Pictures(folder.path(), CategoryPictures::Files::Keep), 1), composed);
        QCOMPARE(QImage(file).size(), composed.size());
    }
}

void TestPanelPainter::DrivesAndTitlesAreRedrawn() {
    const QTemporaryDir folder;
    Panel panel(maker_, TwoAndTree());
    CategoryPictures pictures = panel.Pictures(folder.path(), CategoryPictures::Files::Drop);
    const QRect drive = ToPixels(panel.Geometry.Categories[0].Groups[1].Buttons[0].Rect);
    const auto bar = [&] { return BoxOf(pictures.Picture(0).copy(drive), 0xFFFF00FF).width(); };
    QCOMPARE(bar(), 5);
    panel.Free = 3 * kGigabyte;
    pictures.RefleshPanel();
    QCOMPARE(bar(), 15);
    QVERIFY(pictures.PrepareNext());
    // The picture without drives is gone: it is composed, with the figures of now.
    QVERIFY(QFile::remove(folder.filePath(QStringLiteral("category000.png"))));
    panel.Free = kGigabyte;
    pictures.RefleshPanel();
    QCOMPARE(bar(), 5);

    while (pictures.PrepareNext()) {
    }
    panel.Catalogue[2].TreeName = QStringLiteral("i");
    QVERIFY(pictures.RedrawBarTitles().empty());
    const QRect tree = ToPixels(panel.Geometry.Categories[2].Bar);
    for (const int category : {0, 1, 2})
        QVERIFY(BoxOf(pictures.Picture(category).copy(tree), kTitle).width() < 10);
    QCOMPARE(bar(), 5);
}

void TestPanelPainter::FolderThatCannotBeWritten() {
    Panel panel(maker_, TwoAndTree());
    CategoryPictures pictures =
        panel.Pictures(maker_.PathOf(QStringLiteral("none")), CategoryPictures::Files::Drop);
    QCOMPARE(pictures.Picture(0).pixel(0, 0), kCorner);
    pictures.RefleshPanel();
    QVERIFY2(!pictures.PrepareNext(), "a picture that cannot be kept is not composed in advance");
    QCOMPARE(pictures.Picture(1).pixel(0, 0), kCorner);
}

QTEST_MAIN(TestPanelPainter)
#include "tst_panel_painter.moc"
