#include "core/settings/config_settings.h"
#include "core/store/catalogue_loader.h"
#include "core/store/store_layout.h"
#include "skin/skin_maker.h"
#include "support/store_builder.h"
#include "ui/fake_panel.h"
#include "ui/panel/skin_choice.h"
#include "ui/panel/window_shape.h"

#include <QDir>
#include <QFileInfo>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QTest>
#include <QToolTip>

using namespace paneda;
using namespace paneda::test;

namespace {

constexpr Argb kFrame = 0xFF203040;
constexpr Argb kBack = 0xFF506070;

// A program folder with the skin "Plain", which its config asks for, and a store of two categories.
class LookBench : public FakePanelDesktop {
public:
    SkinMaker Skin;

    LookBench() {
        for (const char* piece : {"topa", "bottoma", "lefta", "righta", "topleft", "topright", "bottomleft",
                                  "bottomright", "bottom"})
            Skin.AddPiece(piece, 6, 6, kFrame);
        Skin.AddPiece("back", 4, 4, kBack);
        Skin.AddIni();
        AddButton(QStringLiteral("[001] One/[001] G/[001] a [11113001100].txt"));
        AddButton(QStringLiteral("[002] Two/[001] H/[001] b [11113001100].txt"));
        ConfigFile config;
        AppState defaults;
        ReadConfigRecords(config, defaults);
        config.Write(kRecordSkinName, {QStringLiteral("Plain")});
        if (!config.Save(ConfigFilePath(Skin.AppFolder())))
            qFatal("config cannot be written");
    }

    void AddButton(const QString& relative) const {
        const QString path = Skin.AppFolder() + QStringLiteral("/Setting/") + relative;
        QDir().mkpath(QFileInfo(path).path());
        WriteBytes(path, {});
    }
    void RenameSkin(const char* from, const char* to) const {
        QDir skins(Skin.AppFolder() + QStringLiteral("/skin"));
        if (!skins.rename(QString::fromLatin1(from), QString::fromLatin1(to)))
            qFatal("the skin cannot be renamed");
    }
    QString Drive(QChar letter) const { return State.Drives.RootOf(letter); }

    // Ends the panel that runs and starts another one, as the next start of the program does.
    frmMain& Start() {
        if (panel_)
            panel_->Form_Unload();
        State = AppState();
        FillEdition(State);
        State.AppFolder = Skin.AppFolder();
        State.Drives = DrivesOfHost();
        State.AppPath = State.Drives.ToStored(Skin.AppFolder());
        panel_ = std::make_unique<frmMain>(State, Services());
        panel_->Form_Load();
        panel_->ShowAtStart();
        if (!QTest::qWaitForWindowExposed(panel_.get()))
            qFatal("no panel");
        return *panel_;
    }

    AppState State;

private:
    std::unique_ptr<frmMain> panel_;
};

Argb PixelOf(frmMain& panel, const QPoint& place) {
    return panel.grab().toImage().pixel(place);
}

QString TipAt(frmMain& panel, const QPoint& point) {
    QHelpEvent event(QEvent::ToolTip, point, panel.mapToGlobal(point));
    QApplication::sendEvent(&panel, &event);
    return ShownTip();
}

} // namespace

class tst_panel_look : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void brokenSkin();
    void windowShape();
    void cacheKnowsItsSkin_data();
    void cacheKnowsItsSkin();
    void changesByHandAreSeen();
    void drives();
    void frame();
};

void tst_panel_look::brokenSkin() {
    SkinMaker skin;
    WriteBytes(skin.PathOf(QStringLiteral("skin.ini")),
               SkinMaker::Places().replace("menu button left=20", "menu button left="));
    const SkinChoice choice = ChooseSkin(skin.AppFolder(), QStringLiteral("Plain"));
    QVERIFY(!choice.Theme);
    for (const char* word : {"Plain", "menu button left", "skin.ini", "built-in"})
        QVERIFY2(choice.Problem.contains(QString::fromLatin1(word)), qPrintable(choice.Problem));
}

void tst_panel_look::windowShape() {
    QImage picture(6, 5, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (const QPoint& at :
         {QPoint(1, 1), QPoint(2, 1), QPoint(1, 2), QPoint(2, 2), QPoint(1, 3), QPoint(2, 3), QPoint(5, 2)})
        picture.setPixelColor(at, QColor(0, 0, 0, 200));
    for (const int x : {0, 1, 2})
        picture.setPixelColor(x, 0, QColor(0, 0, 0, 40));
    const QRegion solid = QRegion(1, 1, 2, 3) + QRegion(5, 2, 1, 1);
    QCOMPARE(ShapeOf(picture, 128), solid);
    QCOMPARE(ShapeOf(picture, 1), solid + QRegion(0, 0, 3, 1));
}

// A skin that stands in for another leaves nothing behind that a later start takes for the other's.
void tst_panel_look::cacheKnowsItsSkin_data() {
    QTest::addColumn<bool>("hasDefault");
    QTest::newRow("the default skin stands in") << true;
    QTest::newRow("the built-in look stands in") << false;
}

void tst_panel_look::cacheKnowsItsSkin() {
    QFETCH(const bool, hasDefault);
    LookBench bench;
    const QSize size = bench.Start().size();
    bench.RenameSkin("Plain", "Away");
    if (hasDefault) {
        const QString folder = bench.Skin.AppFolder() + QStringLiteral("/skin/Paneda Black Glass/");
        QDir().mkpath(folder);
        WriteBytes(folder + QStringLiteral("skin.ini"), SkinMaker::Places());
        // Frames of one size: nothing but the cache tells the pictures apart.
        for (const QString& piece : ListFiles(bench.Skin.AppFolder() + QStringLiteral("/skin/Away")))
            if (piece.endsWith(u"png"))
                QVERIFY(PlainPicture(6, 6, kBack).save(folder + piece));
    }
    for (int start = 0; start < 2; ++start) {
        frmMain& other = bench.Start();
        QTRY_COMPARE(bench.Prompts.Shown.size(), start + 1);
        QVERIFY(bench.Prompts.Shown.back().contains(QStringLiteral("Plain")));
        QVERIFY(PixelOf(other, {2, 2}) != kFrame);
    }
    bench.RenameSkin("Away", "Plain");
    for (int start = 0; start < 2; ++start) {
        frmMain& back = bench.Start();
        QCOMPARE(back.size(), size);
        QCOMPARE(PixelOf(back, {2, 2}), kFrame);
    }
}

void tst_panel_look::changesByHandAreSeen() {
    LookBench bench;
    bench.Start().picCategory_Click(1);
    QTest::qWait(50);
    // An unchanged store and skin: nothing is composed.
    bench.FileIcons.Targets.clear();
    frmMain& same = bench.Start();
    QTest::qWait(100);
    QVERIFY(bench.FileIcons.Targets.isEmpty());
    QCOMPARE(same.Opened().Index, 1);

    // The cached start shows what was; the opened category stays open while the others move.
    bench.AddButton(QStringLiteral("[000] Zero/[001] G/[001] c.txt"));
    frmMain& grown = bench.Start();
    QCOMPARE(bench.State.Catalogue.size(), 2U);
    QTRY_COMPARE(bench.State.Catalogue.size(), 3U);
    QCOMPARE(grown.Opened().Index, 2);
    QCOMPARE(grown.Geometry().Categories.size(), 3U);

    WriteBytes(bench.Skin.AppFolder() +
                   QStringLiteral("/Setting/[002] Two/[001] H/[001] b [11113001100].png"),
               "a picture of the button's own");
    bench.Start();
    bench.FileIcons.Targets.clear();
    QTRY_VERIFY(!bench.FileIcons.Targets.isEmpty());

    bench.Skin.AddPiece("topa", 6, 9, kBack);
    frmMain& skinned = bench.Start();
    QCOMPARE(PixelOf(skinned, {20, 2}), kFrame);
    QTRY_COMPARE(PixelOf(skinned, {20, 2}), kBack);
    QCOMPARE(skinned.Geometry().Metrics.Margins.Top, 9 * 15);
    // All that is told is that the button's picture is none.
    QTRY_VERIFY(!bench.Prompts.Shown.isEmpty());
    QCOMPARE(bench.Prompts.Shown.filter(QStringLiteral("[001] b [11113001100].png (in ")),
             bench.Prompts.Shown);
}

void tst_panel_look::drives() {
    LookBench bench;
    WriteBytes(SettingIniFile(bench.Skin.AppFolder()),
               "[Properties]\nmy computer drive paneda=1\ncategory=1\n");
    auto config = ConfigFile::Load(ConfigFilePath(bench.Skin.AppFolder()));
    ConfigArray table(27, qint16(0));
    table[4] = qint16(1);
    config->Write(kRecordDriveTable, table);
    QVERIFY(config->Save(ConfigFilePath(bench.Skin.AppFolder())));
    frmMain& first = bench.Start();
    const auto box = [&first](std::size_t button) {
        return ToPixels(first.Geometry().Categories[0].Groups.back().Buttons[button].Rect);
    };
    const QRect other = box(0);
    const QRect own = box(1);
    QTRY_COMPARE(TipAt(first, own.center()), QStringLiteral("C: Free -"));
    first.picCategory_Click(1);

    // A cached start asks the drives whatever category is opened.
    bench.DriveSpace.Spaces.insert(bench.Drive(u'C'), {QStringLiteral("Disk"), 1000, 250});
    frmMain& second = bench.Start();
    QTest::qWait(50);
    second.picCategory_Click(0);
    QCOMPARE(TipAt(second, own.center()), QStringLiteral("C:(Disk) Free 25%"));
    if (QDir::rootPath() != u'/')
        return;

    // A volume that comes while the panel runs.
    const QImage without = second.grab(other).toImage();
    bench.DriveSpace.Spaces.insert(QStringLiteral("/media/stick"), {QStringLiteral("Stick"), 1000, 500});
    bench.Volumes.Mount(QStringLiteral("/media/stick"));
    QTRY_COMPARE(TipAt(second, other.center()), QStringLiteral("D:(Stick) Free 50%"));
    QVERIFY(second.grab(other).toImage() != without);
}

void tst_panel_look::frame() {
    LookBench bench;
    bench.Skin.AddPiece("topleft", 6, 6, 0x00000000);
    // Reaches below its margin and the header there.
    bench.Skin.AddPiece("top", 40, 30, kFrame);
    bench.Start();
    frmMain& panel = bench.Start(); // cached
    QVERIFY2(!bench.Compositor.Shape.contains(QPoint(2, 2)), "a transparent corner takes no mouse");
    QVERIFY(bench.Compositor.Shape.contains(QPoint(10, 2)));
    const QPoint inside(panel.width() / 2, 24);
    const QPoint corner = panel.pos();
    QTest::mousePress(&panel, Qt::LeftButton, {}, inside);
    QMouseEvent move(QEvent::MouseMove, inside, panel.mapToGlobal(inside) + QPoint(70, 50), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&panel, &move);
    QCOMPARE(panel.pos(), corner + QPoint(70, 50));
}

QTEST_MAIN(tst_panel_look)
#include "tst_panel_look.moc"
