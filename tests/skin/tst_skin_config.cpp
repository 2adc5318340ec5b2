#include "skin_maker.h"

#include "skin/config_preview.h"
#include "skin/font_values.h"
#include "skin/piece_sizes.h"
#include "skin/skin_config.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

class TestSkinConfig : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WritesWhatWasChanged();
    void KeepsTheFileOnFailure();
    void PreviewIsThePanel();
    void TypedSizes();
    void SampleIsSeen();
};

// Each row: the section as it is, a change, and the section after it.
void TestSkinConfig::WritesWhatWasChanged() {
    const QByteArray group =
        "; fonts\r\nGROUP color = aBcDeF\r\ngroup font name=Tahoma\r\ngroup font size=8\r\n"
        "own key=1\r\ngroup font bold=0\r\ngroup font anti alias=1\r\n"
        "group font alignment=4\r\n";
    const auto category = [](const QByteArray& name) -> QByteArray {
        return name + " font name=A\r\n" + name + " font size=9.5\r\n" + name + " font bold=1\r\n" + name +
               " font anti alias=0\r\n" + name + " font alignment=x\r\n";
    };
    const QByteArray rest = category("category active") + category("category inactive") +
                            "button label font name=B\r\nbutton label font anti alias=1\r\n"
                            "button label font size=8\r\nbutton label font bold=1\r\n"
                            "button background=Yes\r\nbutton label bold=NO\r\n";
    const QByteArray end = "\r\n[Tree]\r\nx=\xE9\r\n";
    IniText skin("[Fonts]\r\n" + group + rest + end);
    SkinConfig config = ReadSkinConfig(skin);
    QCOMPARE(config.ButtonBack, OverrideChoice::Yes);
    QCOMPARE(config.LabelBold, OverrideChoice::No);
    QCOMPARE(config.LabelBorder, OverrideChoice::Custom);
    QCOMPARE(config.CategoryActive.Font.Size, 9.5);
    QCOMPARE(config.Group.ColorHex, u"aBcDeF"_s);
    // Colours that the skin does not have are not written, and the label never gets an alignment.
    QVERIFY(SetSkinConfig(skin, config));
    QCOMPARE(skin.Bytes(), "[Fonts]\r\n" + group +
                               QByteArray(rest).replace("=Yes", "=yes").replace("=NO", "=no") +
                               "button label border=user defined\r\n" + end);
    config.Group = {{10.5, true, false, u"C"_s, u"9"_s}, u"010203"_s};
    config.Label.ColorHex = u"040506"_s;
    config.Label.Font.Alignment = u"7"_s;
    config.LabelBorderHex = u"070809"_s;
    config.ButtonBack = OverrideChoice::Custom;
    QVERIFY(SetSkinConfig(skin, config));
    const QByteArray bytes = skin.Bytes();
    QVERIFY(bytes.contains("GROUP color =010203\r\ngroup font name=C\r\ngroup font size=10.5\r\nown key=1\r\n"
                           "group font bold=1\r\ngroup font anti alias=0\r\ngroup font alignment=9\r\n"));
    QVERIFY(bytes.contains("background=user defined\r\n"));
    QVERIFY(bytes.contains("button label color=040506\r\nbutton label border color=070809\r\n\r\n[Tree]"));

    // An empty file gets all keys, in their order.
    IniText empty;
    QVERIFY(SetSkinConfig(empty, ReadSkinConfig(empty)));
    QByteArrayList keys = empty.Bytes().split('\n');
    for (QByteArray& line : keys)
        line = line.first(qMax(line.indexOf('='), 0));
    keys.removeAll({});
    QCOMPARE(keys.size(), 3 + 5 + 4 + 5 + 5);
    QCOMPARE(keys.mid(2, 3), QByteArrayList({"button label border", "group font name", "group font size"}));
    QCOMPARE(keys[8], "button label font name");
    QCOMPARE(keys.last(), "category inactive font alignment");
}

void TestSkinConfig::KeepsTheFileOnFailure() {
    SkinMaker maker;
    maker.AddIni();
    const QString folder = maker.Theme().SkinPath;
    const QString file = maker.PathOf(u"skin.ini"_s);
    const auto bytes = [&file] { return ReadFileBytes(file, 10'000).value_or(QByteArray()); };
    const QByteArray before = bytes();
    SkinConfig config = ReadSkinConfig(IniText(before));
    config.Group.Font.Name = QString(300, u'x');
    const FileResult tooLong = SaveSkinConfig(folder, config);
    QVERIFY(!tooLong && tooLong.error().Text().contains(u"skin.ini"));
    QCOMPARE(bytes(), before);
    config.Group.Font.Name = u"Own"_s;
    QVERIFY(SaveSkinConfig(folder, config));
    QCOMPARE(LoadSkinIni(folder)->Value(u"Fonts", u"group font name"), u"Own"_s);
    // What lies outside of the skin is neither read nor written.
    const QString outside = maker.AppFolder() + u"/outside"_s;
    QVERIFY(QFile::rename(file, outside));
    QVERIFY(!SaveSkinConfig(folder, config));
    QVERIFY(!QFile::exists(file));
    if (test::MakeSymbolicLink(outside, file)) {
        QVERIFY(!LoadSkinIni(folder));
        QVERIFY(!SaveSkinConfig(folder, config));
    }
}

// A panel of the changed skin, composed as the program does, against the preview of the change.
void TestSkinConfig::PreviewIsThePanel() {
    SkinMaker maker;
    maker.AddIni("group color=FFFFFF\nbackground drawmethod=stretch\n");
    maker.AddPiece("topa", 4, 10, 0xFF100000);
    maker.AddPiece("lefta", 8, 4, 0xFF200000);
    maker.AddPiece("righta", 9, 4, 0xFF300000);
    maker.AddPiece("bottom", 50, 20, 0xFF500000);
    maker.AddPiece("group", 5, 17, 0x80008000);
    maker.AddPiece("category", 5, 21, 0xFF808000);
    maker.AddPiece("categoryactive", 5, 21, 0xFF008080);
    maker.AddPiece("buttonsmall", 5, 16, 0xFF336699);
    const ThemeState before = maker.Theme();
    ConfigPreview preview(before);
    const QImage old = preview.DrawConfigPreview(before, 2);
    SkinConfig config = *LoadSkinIni(before.SkinPath).map(ReadSkinConfig);
    config.Group.Font = {12, true, true, u"Tahoma"_s, u"6"_s};
    config.CategoryActive.ColorHex = u"112233"_s;
    config.ButtonBack = OverrideChoice::Yes;
    QVERIFY(SaveSkinConfig(before.SkinPath, config));
    const ThemeState after = maker.Theme();
    const QImage shown = preview.DrawConfigPreview(after, 2);

    const QRect group(0, 0, shown.width(), 2 * 17);
    const QRect bars(0, shown.height() - 4 * 21, shown.width(), 4 * 21);
    QVERIFY(shown.copy(group) != old.copy(group) && shown.copy(bars) != old.copy(bars));
    GroupEntry header;
    header.FolderName = u"[001] Group"_s;
    CategoryEntry active;
    active.FolderName = u"[001] Category (A)"_s;
    active.Groups = {header};
    CategoryEntry inactive;
    inactive.FolderName = u"[002] Category (I)"_s;
    const CatalogueList catalogue{active, inactive};
    const PieceSizes sizes = MeasurePieces(after);
    LayoutInput input;
    input.Metrics = PanelMetricsOf(sizes);
    input.Screen = {30000, 20000, 20000, 0};
    const PanelGeometry geometry = LayoutPanel(catalogue, input);
    FontChoice fonts;
    PaintTools tools(after, fonts, {{}, 2});
    class NoIcons : public IconSource {
        QImage Icon(const QString&, const IconSize&) override { return {}; }
    } icons;
    const DriveMap drives = DriveMap::FromMountPoints({});
    ButtonSources sources{icons, drives, u"C:\\app"_s, 5};
    PanelPainter painter({catalogue, geometry, sizes, {}, 2}, tools, sources);
    DrawingSurface panel(painter.PaintBase(0), 2);
    painter.DrawBarTitles(panel, 0);
    const auto strip = [&](const TwipsRect& place, int height) {
        return panel.Image().copy(DeviceRect(ToPixels(place), 2)).copy(0, 0, shown.width(), height);
    };
    const CategoryGeometry& first = geometry.Categories[0];
    QImage plain = shown;
    plain.setDevicePixelRatio(1);
    QCOMPARE(plain.copy(bars.adjusted(0, 0, 0, -bars.height() / 2)), strip(first.Bar, 2 * 21));
    QCOMPARE(plain.copy(bars.adjusted(0, bars.height() / 2, 0, 0)),
             strip(geometry.Categories[1].Bar, 2 * 21));
    // The group's piece lets half of the checker through, so the panel's is laid over one.
    DrawingSurface checked(QSize(shown.width() / 2, 17), 2);
    checked.DrawCheckerBackdrop({0, 0, shown.width() * 15, 17 * 15}, 75);
    checked.DrawPictureAt({strip(first.Groups[0].Header, 2 * 17), 2}, 0, 0, DrawMode::Over);
    QCOMPARE(plain.copy(group), checked.Image());
    maker.AddPiece("category", 5, 4096, 0xFF808000);
    QVERIFY2(ConfigPreview(maker.Theme()).DrawConfigPreview(after, 1).height() < 700, "fits the screen");
    QVERIFY2(BoxOf(plain, 0xFF336699).height() > 4 * 60, "all labels have the ground");
}

void TestSkinConfig::TypedSizes() {
    for (const auto& [typed, size] :
         std::initializer_list<std::pair<QString, std::optional<double>>>{{u"9"_s, 9},
                                                                          {u" 9.5 "_s, 9.5},
                                                                          {u"9,5"_s, 9.5},
                                                                          {u"200"_s, 200},
                                                                          {u"200.1"_s, {}},
                                                                          {u"0"_s, {}},
                                                                          {u"-8"_s, {}},
                                                                          {u"nan"_s, {}},
                                                                          {u"9 pt"_s, {}},
                                                                          {QString(), {}}})
        QVERIFY2(TypedFontSize(typed) == size, qPrintable(typed));
}

void TestSkinConfig::SampleIsSeen() {
    FontChoice fonts;
    FontDialogValues values{.Name = u"Tahoma"_s, .Size = 20, .TextColor = 0xFFFFFF};
    const auto draw = [&] { return DrawFontSample(values, fonts, {160, 60}, 2); };
    QImage last = draw();
    QCOMPARE(last.size(), QSize(320, 120));
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [&] { values.TextColor = 0; }, [&] { values.Italic = true; }, [&] { values.Underline = true; },
             [&] { values.Strikethrough = true; }, [&] { values.BorderColor = 0x0000FF; },
             [&] { values.Alignment = 9; }, [&] { values.Bold = true; }, [&] { values.AntiAlias = false; }}) {
        change();
        QVERIFY(draw() != last);
        last = draw();
    }
    QVERIFY(SampleGround(0, {}) != SampleGround(0xFFFFFF, {}));
}

QTEST_MAIN(TestSkinConfig)
#include "tst_skin_config.moc"
