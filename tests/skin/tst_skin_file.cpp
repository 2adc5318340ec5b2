#include "skin_maker.h"

#include <QFileInfo>
#include <QTest>

using namespace paneda;

namespace {

tl::expected<ThemeState, SkinError> Read(const QByteArray& bytes) {
    return ReadTheme(IniText(bytes), QStringLiteral("Plain"), QStringLiteral("/skins/Plain/skin.ini"));
}

ThemeState ReadFonts(const QByteArray& lines) {
    return *Read("[Fonts]\r\n" + lines + "\r\n" + SkinMaker::Places());
}

} // namespace

class TestSkinFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EmptyKeysTakeDefaults();
    void KeysReachTheirFields();
    void ReadsFlags();
    void HoldsFontSizes();
    void LabelColoursFallBack();
    void ChoosesLogo();
    void KeyColourAvoidsTexts();
    void TreeColours();
    void EveryPlaceIsNeeded();
    void FindsSkinInAnyCase();
    void RefusesNamesOfNoSkin();
};

void TestSkinFile::EmptyKeysTakeDefaults() {
    const ThemeState theme = ReadFonts({});
    QVERIFY(!theme.ButtonBackColor && !theme.LabelBorderColor);
    QCOMPARE(theme.GroupDrawMode, DrawMode::Over);
    QCOMPARE(theme.BackAlignment + theme.BackMethod, QStringLiteral("5tile"));
    QVERIFY(theme.GroupFont.Bold && theme.GroupFont.AntiAlias && theme.LabelAntiAlias);
    QCOMPARE(theme.CategoryActiveFont.Name + theme.LabelFontName, QStringLiteral("TahomaTahoma"));
}

void TestSkinFile::KeysReachTheirFields() {
    const ThemeState theme = ReadFonts("category active color=010203\ncategory inactive color=040506\n"
                                       "GROUP COLOR=070809\nbutton background color=0A0B0C\n"
                                       "group drawmode=Clear\nbutton background drawmode=clear\n"
                                       "background drawmethod=Stretch Proportional\n"
                                       "group font size=10\ncategory active font size=9\n"
                                       "category inactive font size=7\nbutton label bold=No\n"
                                       "drive free space color=111111\ndrive capacity color=121212\n"
                                       "drive N/A color=131313\ndrive bar border color=151515\n"
                                       "drive bar free space color=161616\n");
    QCOMPARE(theme.CategoryActiveColor.Color, 0x030201u);
    QCOMPARE(theme.CategoryInactiveColor.Hex, QStringLiteral("040506"));
    QCOMPARE(theme.GroupColor.Color, 0x090807u);
    QCOMPARE(theme.ButtonBackArgb, 0xFF0A0B0Cu);
    QCOMPARE(theme.GroupDrawMode, DrawMode::Clear);
    QCOMPARE(theme.ButtonDrawMode, DrawMode::Over); // exactly "Clear" alone clears
    QCOMPARE(theme.BackMethod, QStringLiteral("stretch proportional"));
    QCOMPARE(theme.GroupFont.Size, 10.0);
    QCOMPARE(theme.CategoryActiveFont.Size, 9.0);
    QCOMPARE(theme.CategoryInactiveFont.Size, 7.0);
    QCOMPARE(theme.LabelBoldOverride, QStringLiteral("NO"));
    QCOMPARE(theme.DriveFreeColor.Color, 0x111111u);
    QCOMPARE(theme.DriveCapacityColor.Color, 0x121212u);
    QCOMPARE(theme.DriveNaColor.Color, 0x131313u);
    QCOMPARE(theme.DriveBarBorderColor, 0x151515u);
    QCOMPARE(theme.DriveBarFreeColor, 0x161616u);
}

void TestSkinFile::ReadsFlags() {
    const auto flag = [](const QByteArray& value) {
        return ReadFonts("group font bold=" + value).GroupFont.Bold;
    };
    QVERIFY(flag("") && flag("1") && flag("-1") && flag("no"));
    QVERIFY(!flag("0") && !flag("0.0"));
}

void TestSkinFile::HoldsFontSizes() {
    QCOMPARE(ReadFonts("group font size=1e9").GroupFont.Size, 200.0);
    QCOMPARE(ReadFonts("group font size=0.01").GroupFont.Size, 1.0);
    QCOMPARE(ReadFonts("group font size=-4").GroupFont.Size, 8.0);
    QCOMPARE(ReadFonts("group font size=big").GroupFont.Size, 8.0);
}

void TestSkinFile::LabelColoursFallBack() {
    const ThemeState both = ReadFonts("drive letter color=AABBCC\nbutton background color=112233");
    QCOMPARE(both.LabelColor, 0xCCBBAAu);
    QCOMPARE(both.LabelHex, QStringLiteral("AABBCC"));
    QCOMPARE(*both.LabelBorderColor, 0x332211u);
    QCOMPARE(both.LabelBorderHex, QStringLiteral("112233"));
    const ThemeState own = ReadFonts("drive letter color=AABBCC\nbutton background color=112233\n"
                                     "button label color=445566\nbutton label border color=778899");
    QCOMPARE(own.LabelColor, 0x665544u);
    QCOMPARE(*own.LabelBorderColor, 0x998877u);
}

void TestSkinFile::ChoosesLogo() {
    const auto design = [](const char* value) {
        return Read(SkinMaker::Places().replace("design=11", QByteArray(QByteArray("design=") + value)))
            ->LogoDesign;
    };
    QCOMPARE(design("2"), 2);
    QCOMPARE(design("11"), 11);
    for (const char* value : {"12", "", "1", "02", "3x", "-2"})
        QCOMPARE(design(value), 1);
}

void TestSkinFile::KeyColourAvoidsTexts() {
    QCOMPARE(ReadFonts({}).Key.Value, 0xFFFF01FFu);
    QCOMPARE(ReadFonts("button label color=FF01FF").Key.Value, 0xFFFF02FFu);
    QCOMPARE(ReadFonts("button background color=FF01FF\ndrive N/A color=FF02FF").Key.Value, 0xFFFF03FFu);
    // No text is printed in these.
    QCOMPARE(ReadFonts("group color=FF01FF\ndrive bar border color=FF01FF").Key.Value, 0xFFFF01FFu);
}

void TestSkinFile::TreeColours() {
    const TreeColors plain = ReadTreeColors(IniText("[Tree]\nlabel color=ABCDEF"));
    QCOMPARE(plain.Background, QStringLiteral("000000"));
    QCOMPARE(plain.Highlight, QStringLiteral("0000FF"));
    QCOMPARE(plain.HighlightLabel, QStringLiteral("ABCDEF"));
    QCOMPARE(ReadTreeColors(IniText()).HighlightLabel, QStringLiteral("FFFFFF"));
}

void TestSkinFile::EveryPlaceIsNeeded() {
    const QList<QByteArray> lines = SkinMaker::Places().trimmed().split('\n');
    for (qsizetype i = 1; i < lines.size() - 1; ++i) {
        const QByteArray key = lines[i].first(lines[i].indexOf('='));
        QByteArray ini = SkinMaker::Places();
        ini.replace(lines[i].trimmed(), QByteArray(key + "="));
        const auto theme = Read(ini);
        QVERIFY2(!theme, key.constData());
        QCOMPARE(theme.error().Key, QString::fromLatin1(key));
    }
    QVERIFY(Read(SkinMaker::Places().replace("paneda logo design=11", "")));
}

void TestSkinFile::FindsSkinInAnyCase() {
    SkinMaker maker;
    maker.AddPiece("bottom", 4, 4, 0xFF000000);
    WriteBytes(maker.PathOf(QStringLiteral("SKIN.INI")), SkinMaker::Places());
    const auto theme = ReadSkin(maker.AppFolder(), QStringLiteral("pLAIN"));
    QVERIFY(theme);
    QVERIFY(theme->SkinPath.endsWith(u'/'));
    QCOMPARE(QFileInfo(theme->SkinPath), QFileInfo(maker.PathOf({})));
    QCOMPARE(QFileInfo(theme->PathOf(theme->Pieces.Bottom).Text()),
             QFileInfo(maker.PathOf(QStringLiteral("bottom.png"))));
}

void TestSkinFile::RefusesNamesOfNoSkin() {
    SkinMaker maker;
    maker.AddIni();
    QVERIFY(QDir(maker.AppFolder()).mkpath(QStringLiteral("skin/Empty")));
    WriteBytes(maker.AppFolder() + QStringLiteral("/skin/File"), "no folder");
    QStringList names{QStringLiteral("Plain") + QChar(u'\0')};
    for (const char* name :
         {"", " ", ".", "..", "../Plain", "../../etc", "Plain/", "a\\b", "C:", "Missing", "Empty", "File"})
        names.append(QString::fromLatin1(name));
    for (const QString& name : names) {
        const auto theme = ReadSkin(maker.AppFolder(), name);
        QVERIFY2(!theme, qPrintable(name));
        QVERIFY(theme.error().Key.isEmpty() && !theme.error().Reason.isEmpty());
        QVERIFY(theme.error().Text().contains(QStringLiteral("The skin \"%1\" cannot be used. ").arg(name)));
    }
}

QTEST_GUILESS_MAIN(TestSkinFile)
#include "tst_skin_file.moc"
