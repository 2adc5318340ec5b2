#include "core/settings/config_settings.h"
#include "core/store/catalogue_loader.h"
#include "core/store/store_layout.h"
#include "skin/picture_cache.h"
#include "skin/skin_maker.h"
#include "support/store_builder.h"
#include "ui/fake_panel.h"
#include "ui/panel/plain_panel_look.h"
#include "ui/panel/skin_choice.h"
#include "ui/panel/skinned_panel_look.h"
#include "ui/panel/window_shape.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace paneda;
using namespace paneda::test;

namespace {

constexpr Argb kFrame = 0xFF203040;
constexpr Argb kBack = 0xFF506070;
constexpr Argb kActive = 0xFFA0B0C0;

// A program folder with the skin "Plain" and a store of two categories.
class LookBench {
public:
    SkinMaker Skin;
    AppState State;
    FakeIcons FileIcons;
    FakeSpace DriveSpace;
    PanelGeometry Geometry;

    LookBench() {
        for (const char* piece : {"topa", "bottoma", "lefta", "righta", "topleft", "topright", "bottomleft",
                                  "bottomright", "bottom"})
            Skin.AddPiece(piece, 6, 6, kFrame);
        Skin.AddPiece("back", 4, 4, kBack);
        Skin.AddPiece("group", 8, 15, 0xFF111111);
        Skin.AddPiece("category", 8, 20, 0xFF222222);
        Skin.AddPiece("categoryactive", 8, 20, kActive);
        Skin.AddIni();
        AddButton(QStringLiteral("[001] One/[001] G/[001] a [11113001100].txt"));
        AddButton(QStringLiteral("[002] Two/[001] H/[001] b [11113001100].txt"));
        State.AppFolder = Skin.AppFolder();
        State.Drives = DrivesOfHost();
        State.AppPath = State.Drives.ToStored(Skin.AppFolder());
        State.DriveTable[3] = true;
        QDir(Skin.AppFolder()).mkdir(QStringLiteral("Cache"));
        State.Catalogue = LoadCatalogue(ScanOptionsOf(State));
        DriveSpace.Spaces.insert(State.Drives.RootOf(u'C'), {QStringLiteral("Disk"), 1000, 250});
    }

    void AddButton(const QString& relative) const {
        const QString path = Skin.AppFolder() + QStringLiteral("/Setting/") + relative;
        QDir().mkpath(QFileInfo(path).path());
        WriteBytes(path, {});
    }

    QString Picture(const QString& name) const { return Skin.AppFolder() + QStringLiteral("/Cache/") + name; }

    std::unique_ptr<SkinnedPanelLook> Look(const CacheRecord* cache = nullptr) {
        auto look = std::make_unique<SkinnedPanelLook>(State, Skin.Theme(), cache, FileIcons, DriveSpace);
        Geometry = LayoutPanel(State.Catalogue, {5, look->Metrics(), {20'000, 12'000, 12'000}, 0, 0});
        look->SetGeometry(Geometry);
        return look;
    }

    CacheRecord SizesOf(const SkinnedPanelLook& look) const {
        CacheRecord record;
        StorePieceSizes(look.Sizes(), record);
        return record;
    }
};

QPoint BarOf(const PanelGeometry& geometry, int category) {
    return ToPixels(geometry.Categories[std::size_t(category)].Bar).topRight() - QPoint(2, -2);
}

} // namespace

class tst_panel_look : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void skinChoice_data();
    void skinChoice();
    void windowShape_data();
    void windowShape();
    void picturesAreComposedOnce();
    void unusablePictureIsComposedAnew_data();
    void unusablePictureIsComposedAnew();
    void cacheThatCannotBeWritten();
    void drives();
    void window();
};

void tst_panel_look::skinChoice_data() {
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<bool>("hasDefault");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("told");

    QTest::newRow("as asked") << "Plain" << true << "Plain" << QStringList();
    QTest::newRow("in another case") << "pLAIN" << false << "Plain" << QStringList();
    QTest::newRow("missing") << "Gone" << true << "Paneda Black Glass"
                             << QStringList{QStringLiteral("Gone"), QStringLiteral("Paneda Black Glass")};
    QTest::newRow("without a number")
        << "Broken" << true << "Paneda Black Glass"
        << QStringList{QStringLiteral("Broken"), QStringLiteral("menu button left"),
                       QStringLiteral("skin.ini")};
    QTest::newRow("no default") << "Gone" << false << ""
                                << QStringList{QStringLiteral("Gone"), QStringLiteral("built-in")};
    QTest::newRow("out of the folder")
        << "../Setting" << true << "Paneda Black Glass" << QStringList{QStringLiteral("../Setting")};
    QTest::newRow("the skins' folder itself")
        << "." << false << "" << QStringList{QStringLiteral("built-in")};
}

void tst_panel_look::skinChoice() {
    QFETCH(const QString, wanted);
    QFETCH(const bool, hasDefault);
    QFETCH(const QString, shown);
    QFETCH(const QStringList, told);
    SkinMaker skin;
    skin.AddIni();
    const QDir skins(skin.AppFolder() + QStringLiteral("/skin"));
    skins.mkdir(QStringLiteral("Broken"));
    WriteBytes(skins.filePath(QStringLiteral("Broken/skin.ini")),
               SkinMaker::Places().replace("menu button left=20", "menu button left="));
    if (hasDefault) {
        skins.mkdir(QStringLiteral("Paneda Black Glass"));
        WriteBytes(skins.filePath(QStringLiteral("Paneda Black Glass/skin.ini")), SkinMaker::Places());
    }

    const SkinChoice choice = ChooseSkin(skin.AppFolder(), wanted);

    QCOMPARE(choice.Theme.has_value(), !shown.isEmpty());
    if (choice.Theme)
        QCOMPARE(QFileInfo(choice.Theme->SkinPath), QFileInfo(skins.filePath(shown) + u'/'));
    QCOMPARE(choice.Problem.isEmpty(), told.isEmpty());
    for (const QString& word : told)
        QVERIFY2(choice.Problem.contains(word), qPrintable(choice.Problem));
}

void tst_panel_look::windowShape_data() {
    QTest::addColumn<int>("minAlpha");
    QTest::addColumn<QRegion>("shape");

    const QRegion solid = QRegion(1, 1, 2, 3) + QRegion(5, 2, 1, 1);
    QTest::newRow("all that shows") << 1 << (solid + QRegion(0, 0, 3, 1));
    QTest::newRow("solid alone") << 128 << solid;
}

void tst_panel_look::windowShape() {
    QFETCH(const int, minAlpha);
    QFETCH(const QRegion, shape);
    QImage picture(6, 5, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (const QPoint& at :
         {QPoint(1, 1), QPoint(2, 1), QPoint(1, 2), QPoint(2, 2), QPoint(1, 3), QPoint(2, 3), QPoint(5, 2)})
        picture.setPixelColor(at, QColor(0, 0, 0, 200));
    for (const int x : {0, 1, 2})
        picture.setPixelColor(x, 0, QColor(0, 0, 0, 40));
    QCOMPARE(ShapeOf(picture, minAlpha), shape);
    QVERIFY(ShapeOf(QImage(), minAlpha).isEmpty());
}

void tst_panel_look::picturesAreComposedOnce() {
    LookBench bench;
    WriteBytes(bench.Picture(QStringLiteral("category009.png")), "old");
    WriteBytes(bench.Picture(QStringLiteral("categoryfile.png")), "not ours");
    auto look = bench.Look();
    QVERIFY2(!QFile::exists(bench.Picture(QStringLiteral("category009.png"))),
             "an old picture would be shown");
    QVERIFY(QFile::exists(bench.Picture(QStringLiteral("categoryfile.png"))));

    const QImage first = look->Picture(0);
    QCOMPARE(first.pixel(BarOf(bench.Geometry, 0)), kActive);
    QCOMPARE(first.pixel(2, 2), kFrame);
    const qsizetype asked = bench.FileIcons.Targets.size();
    QCOMPARE(asked, 1);
    QVERIFY2(look->PrepareNext(), "the second category has no picture yet");
    QVERIFY(!look->PrepareNext());
    QCOMPARE(QDir(bench.Picture({})).entryList({QStringLiteral("category0*.png")}, QDir::Files),
             (QStringList{QStringLiteral("category000.png"), QStringLiteral("category000a.png"),
                          QStringLiteral("category001.png"), QStringLiteral("category001a.png"),
                          QStringLiteral("category002.png"), QStringLiteral("category002a.png")}));

    // A cached start asks for no icon and gives the same pictures.
    const CacheRecord sizes = bench.SizesOf(*look);
    const QImage second = look->Picture(1);
    bench.FileIcons.Targets.clear();
    look = bench.Look(&sizes);
    QCOMPARE(look->Picture(0), first);
    QCOMPARE(look->Picture(1), second);
    QVERIFY(!look->PrepareNext());
    QVERIFY(bench.FileIcons.Targets.isEmpty());
}

void tst_panel_look::unusablePictureIsComposedAnew_data() {
    QTest::addColumn<QByteArray>("bytes");
    QByteArray small;
    QBuffer buffer(&small);
    buffer.open(QIODevice::WriteOnly);
    PlainPicture(20, 20, kBack).save(&buffer, "png");
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("damaged") << QByteArray("\x89PNG\r\n\x1a\n....");
    QTest::newRow("of another window") << small;
}

void tst_panel_look::unusablePictureIsComposedAnew() {
    QFETCH(const QByteArray, bytes);
    LookBench bench;
    auto look = bench.Look();
    const QImage composed = look->Picture(1);
    const CacheRecord sizes = bench.SizesOf(*look);
    const QString file = bench.Picture(QStringLiteral("category002.png"));
    QFile::remove(file);
    if (!bytes.isNull())
        WriteBytes(file, bytes);
    look = bench.Look(&sizes);
    QCOMPARE(look->Picture(1), composed);
    QCOMPARE(QImage(file).size(), composed.size());
}

void tst_panel_look::cacheThatCannotBeWritten() {
    LookBench bench;
    QDir(bench.Skin.AppFolder()).rmdir(QStringLiteral("Cache"));
    WriteBytes(bench.Skin.AppFolder() + QStringLiteral("/Cache"), "a file where the folder should be");
    const auto look = bench.Look();
    QCOMPARE(look->Picture(0).pixel(BarOf(bench.Geometry, 0)), kActive);
    while (look->PrepareNext()) {
    }
    QCOMPARE(look->Picture(1).pixel(BarOf(bench.Geometry, 1)), kActive);
}

void tst_panel_look::drives() {
    LookBench bench;
    const auto look = bench.Look();
    const QImage before = look->Picture(0);
    const int drive = bench.State.Catalogue.front().Groups.back().Buttons.front().ControlIndex;
    QCOMPARE(look->DriveTip(drive), QStringLiteral("C:(Disk) Free 25%"));
    QVERIFY(look->DriveTip(1).isEmpty());
    bench.DriveSpace.Spaces[bench.State.Drives.RootOf(u'C')] = {QString(), 1000, 900};
    look->RefreshDrives();
    QCOMPARE(look->DriveTip(drive), QStringLiteral("C: Free 90%"));
    const QImage after = look->Picture(0);
    QVERIFY2(after != before, "the bar of free space has grown");
    QCOMPARE(after.pixel(BarOf(bench.Geometry, 0)), kActive);
}

void tst_panel_look::window() {
    LookBench bench;
    bench.Skin.AddPiece("topleft", 6, 6, 0x00000000);
    FakePanelDesktop desktop;
    const QStringList& messages = desktop.Prompts.Shown;
    AppState state = bench.State;
    FillEdition(state);
    frmMain panel(state, desktop.Services());
    panel.Form_Load();
    panel.ShowAtStart();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    // The state's config asks for the default skin, which this folder lacks.
    QTRY_COMPARE(messages.size(), 1);
    QVERIFY(messages.front().contains(QStringLiteral("Paneda Black Glass")));

    const QString config = ConfigFilePath(state.AppFolder);
    panel.Form_Unload();
    auto records = ConfigFile::Load(config);
    records->Write(kRecordSkinName, {QStringLiteral("Plain")});
    QVERIFY(records->Save(config));
    state.IgnoreCache = true;
    frmMain skinned(state, desktop.Services());
    skinned.Form_Load();
    skinned.ShowAtStart();
    QVERIFY(QTest::qWaitForWindowExposed(&skinned));
    QVERIFY2(!skinned.mask().contains(QPoint(2, 2)), "a transparent corner takes no mouse");
    QVERIFY(skinned.mask().contains(QPoint(10, 2)));
    QCOMPARE(messages.size(), 1);
}

QTEST_MAIN(tst_panel_look)
#include "tst_panel_look.moc"
