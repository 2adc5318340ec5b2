// Every number and text that a file of a store holds, replaced in turn by values that no program writes. The
// store is then read, laid out, painted, saved and read again. Runs under the sanitizers too, which see what
// overflows on the way.

#include "core/files/ini_file.h"
#include "core/panel/launch.h"
#include "core/panel/window_places.h"
#include "core/settings/config_settings.h"
#include "core/settings/setting_form.h"
#include "core/settings/startup.h"
#include "core/text/checksum.h"
#include "core/text/ranges.h"
#include "notes/note_load.h"
#include "notes/tree_level.h"
#include "notes/tree_store.h"
#include "skin/panel_painter.h"
#include "skin_maker.h"
#include "support/store_builder.h"

#include <QTest>
#include <QtEndian>
#include <QtNumeric>

#include <climits>
#include <map>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

const QString kNode = u"Data/Tree/000001"_s;
const QString kRecord = u"Setting/[001] A/[001] G/[001] Tool [Z1113001100].pnd"_s;
constexpr int kScreenSide = 20'000; // twips

const QByteArrayList kTexts =
    QByteArray("|-1|0|2147483647|-2147483648|2147483648|4294967296|-9223372036854775808|1e308|-1e308|1e-308|"
               "nan|inf|text|99:99 9999-99-99|" +
               QByteArray(10'000, '9'))
        .split('|');
const std::vector<double> kReals = {-1,    0,      0.1,    2147483648.0, -9.3e18,
                                    1e308, -1e308, 1e-308, qQNaN(),      qInf()};

// Files of the store. Each value behind a "=" is replaced in turn.
const std::map<QString, QByteArray> kFiles = {
    {u"setting.ini"_s,
     "[Properties]\ncategory=1\nbrowser=default\nmy computer drive paneda=1\nhide on startup=0\n"
     "system tray icon=1\nmouse click show center=1\nhotkey show center=1\n[Tree]\nopacity percent=50\n"
     "recent change indicator=1\n[Note]\nopacity percent=50\nwidth=600\nheight=600\ncompress size=1\n"
     "font name=Verdana\nfont size=9\nwindow state=normal\n[Systray]\ncountdown icon type=1\n"
     "message icon=1\nmessage style=1\nno message icon after countdown stop=1\ncountdown popup window=1\n"
     "countdown launch file=1\ncountdown launch file name=a\ncountdown sound=b\ndate time=c\nmessage=d\n"},
    {kRecord, "[Properties]\nTarget=\\a\nParameter=b\nStart In=c\nWindow State=Normal\nDescription=d\n"},
    {u"Setting/[002] Dynamic Category/Properties.ini"_s, "[Properties]\nCategory=Tree\n"},
    {u"Setting2/Tree.ini"_s, "[Properties]\nPath=Data\\Tree\n[Note]\nBackground Color=0000FF\n"
                             "Title Color=FFFF00\nTitle 2 Color=00FF00\n"},
    {u"Data/Tree/Properties.ini"_s, "[Properties]\nMultiuser=1\n"},
    {kNode + u"/Properties.ini"_s,
     "[Properties]\nName=a\nDescription=b\nSort=0001000000\nEditing=\nLast Edit User=c\n"
     "Last Edit Date=2026-01-02\nLast Edit Time=03:04:05\nLast All Level Edit Time=2026-01-02 03:04:05\n"
     "Width=600\nHeight=600\n[Link]\nType=\nTarget=d\nParameter=e\nStart In=f\nWindow State=Normal\n"}};

class NoIcons : public IconSource {
public:
    QImage Icon(const QString&, const IconSize&) override { return {}; }
};

} // namespace

class tst_extremes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ini_data();
    void ini();
    void config();
    void cache();

private:
    AppState Read(PanelLoad& load) const;
    void Show(const AppState& state, const PanelLoad& load, const ThemeState& theme);
    void ShowNote(const AppState& state) const;
    void SaveAndReadAgain(ConfigFile config, const AppState& state) const;

    test::StoreBuilder store_;
    SkinMaker skin_;
    FontChoice fonts_;
    QByteArray skinIni_;
};

void tst_extremes::initTestCase() {
    QFile ini(QStringLiteral(SKIN_INI));
    QVERIFY(ini.open(QIODevice::ReadOnly));
    skinIni_ = ini.readAll();
    WriteBytes(skin_.PathOf(u"skin.ini"_s), skinIni_);
    for (const char* piece : {"bottom", "topa", "lefta", "righta", "group", "category", "top"})
        skin_.AddPiece(piece, 30, 12, 0xFF405060);
    store_.AddFolder(u"Cache"_s);
    for (const auto& [file, bytes] : kFiles)
        store_.AddFile(file, bytes);
    store_.AddFile(kNode + u"/content.rtf"_s, "{\\rtf1 }");
}

void tst_extremes::ini_data() {
    QTest::addColumn<QString>("file"); // empty: the skin's
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto addAll = [](const QString& file, const QByteArray& bytes) {
        for (qsizetype at = bytes.indexOf('='); at >= 0; at = bytes.indexOf('=', at + 1)) {
            const qsizetype line = bytes.lastIndexOf('\n', at) + 1;
            QTest::addRow("%s: %s", qPrintable(file.section(u'/', -2)),
                          bytes.mid(line, at - line).constData())
                << file << bytes.first(at + 1) << bytes.sliced(bytes.indexOf('\n', at));
        }
    };
    addAll({}, skinIni_);
    for (const auto& [file, bytes] : kFiles)
        addAll(file, bytes);
}

void tst_extremes::ini() {
    QFETCH(QString, file);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const QString path = file.isEmpty() ? skin_.PathOf(u"skin.ini"_s) : store_.Path(file);
    for (const QByteArray& text : kTexts) {
        WriteBytes(path, before + text + after);
        PanelLoad load;
        const AppState state = Read(load);
        const auto theme = ReadSkin(skin_.AppFolder(), u"Plain"_s);
        if (theme)
            Show(state, load, *theme);
        else
            QVERIFY(text.isEmpty() && !theme.error().Key.isEmpty());
        ShowNote(state);
        if (QTest::currentTestFailed()) {
            qWarning("with %s", text.constData());
            break;
        }
    }
    WriteBytes(path, file.isEmpty() ? skinIni_ : kFiles.at(file));
}

void tst_extremes::config() {
    const ThemeState theme = skin_.Theme();
    PanelLoad load;
    AppState state = Read(load);
    for (int record = 1; record <= kRecordUserId; ++record) {
        ConfigArray values{false, true, qint16(-1), qint16(0), qint16(SHRT_MAX), qint16(SHRT_MIN)};
        values.insert(values.end(), kReals.begin(), kReals.end());
        for (const QString& text : {QString(), u"text"_s, QString(3900, u'9')})
            values.push_back(text);
        for (const ConfigValue& value : values) {
            ConfigFile config;
            config.Write(record, ConfigArray(record == kRecordDriveTable ? 27 : 2, value));
            ReadConfigRecords(config, state);
            Show(state, load, theme);
            SaveAndReadAgain(config, state);
        }
    }
}

// At every byte of a valid cache, so that each number is hit, whatever the layout of the file.
void tst_extremes::cache() {
    PanelLoad load;
    AppState state = Read(load);
    const ThemeState theme = skin_.Theme();
    const PictureRecord pictures{u"Plain"_s, 5, MeasurePieces(theme), {3000, 3000}};
    const QByteArray whole = EncodeCache({state.ProductVersion, state.Catalogue, pictures, false});
    const qsizetype contents = 8 + 4 + state.ProductVersion.size() + 8;
    int taken = 0;
    for (qsizetype at = contents; at + 4 <= whole.size(); ++at) {
        for (const qint32 number : {INT_MIN, -2, 0, 77, 300'000'000, INT_MAX}) {
            QByteArray bytes = whole;
            qToLittleEndian(number, bytes.data() + at);
            qToLittleEndian(Fnv1a64OfWords(QByteArrayView(bytes).sliced(contents)),
                            bytes.data() + contents - 8);
            auto record = DecodeCache(bytes, state.ProductVersion, state.AppPath);
            if (!record)
                continue;
            ++taken;
            state.Catalogue = record->Catalogue;
            load.CacheValid = true;
            load.Cache = std::move(*record);
            Show(state, load, theme);
        }
    }
    QVERIFY(taken > 100); // the checksum is right, and most numbers within their ranges are taken
}

AppState tst_extremes::Read(PanelLoad& load) const {
    AppState state = store_.State();
    load = LoadPanelState(state);
    if (!load.Failures.empty())
        QTest::qFail(qPrintable(FailureText(load.Failures)), __FILE__, __LINE__);
    return state;
}

void tst_extremes::Show(const AppState& state, const PanelLoad& load, const ThemeState& theme) {
    const PieceSizes sizes = load.CacheValid ? load.Cache.Pictures.Sizes : MeasurePieces(theme);
    const ScreenMetrics screen{kScreenSide, kScreenSide, kScreenSide};
    const LayoutInput input{state.ButtonsPerRow, PanelMetricsOf(sizes), screen, state.PanelLeft,
                            state.PanelTop};
    const PanelGeometry geometry = LayoutPanel(state.Catalogue, input);
    const TwipsSize size{geometry.PanelWidth, geometry.PanelHeight};
    const WindowPlace seen =
        BringIntoView({geometry.PanelLeft, geometry.PanelTop}, size, {{0, 0, kScreenSide, kScreenSide}});
    QVERIFY(seen.Left < kScreenSide && seen.Top < kScreenSide && seen.Top >= 0);
    PaintTools tools(theme, fonts_);
    NoIcons icons;
    ButtonSources sources{icons, state.Drives, state.AppPath, geometry.ButtonsPerRow};
    PanelPainter painter({state.Catalogue, geometry, sizes, {}}, tools, sources);
    const int opened = OpenCategory(geometry, state.SelectedCategory).Index;
    DrawingSurface surface(opened < 0 ? painter.PaintFrame() : painter.PaintBase(opened));
    if (opened >= 0)
        painter.DrawBarTitles(surface, opened);
    QCOMPARE(surface.Image().size(), QSize(TwipsToPixels(size.Width), TwipsToPixels(size.Height)));
    QVERIFY(!surface.Image().isNull());
    const FrameGeometry frame = DisplayBorder(sizes, size);
    for (const TwipsRect& area : {HideArea(frame, theme), MenuArea(frame, theme), LogoArea(frame, theme, {})})
        QVERIFY(range::kPlace.Holds(area.Right()) && range::kPlace.Holds(area.Bottom()));
    const QString record = store_.Path(kRecord);
    DecideLaunch(uR"(E:\a.pnd)"_s, ReadButtonFields(record), {state.AppPath, state.Browser});
    ButtonToolTip({uR"(E:\a.pnd)"_s, {}, {}, 1, {}}, record, state.AppPath, true);
}

void tst_extremes::ShowNote(const AppState& state) const {
    ReadTreeSettings(state, u"Tree"_s);
    const QString root = store_.Path(u"Data/Tree"_s);
    LoadLevel({root, u"\\"_s, 0, {}}, state.AppPath);
    NoteSession session{state.UserName, QDateTime({2026, 11, 21}, {6, 30}), state.Note, 0};
    NoteDisk disk;
    const LoadedNote note = LoadNote({store_.Path(kNode), root, true}, session, "{\\rtf1 }", disk);
    QVERIFY(range::kNoteWindow.Holds(note.Width) && range::kNoteWindow.Holds(note.Height));
}

// What an exit and the settings dialog write is read as it was.
void tst_extremes::SaveAndReadAgain(ConfigFile config, const AppState& state) const {
    const IniText settings = ReadIniFile(store_.Path(u"setting.ini"_s));
    config.Write(kRecordPanelPlace, {double(state.PanelTop), double(state.PanelLeft)});
    const SettingForm form = ReadSettingForm(config, settings, state);
    for (const RecordWrite& write : PlanSettings(form, state.Autostart).Records)
        QVERIFY(config.Write(write.Record, write.Values));
    AppState again;
    ReadConfigRecords(config, again);
    QCOMPARE(QPoint(again.PanelLeft, again.PanelTop), QPoint(state.PanelLeft, state.PanelTop));
    QCOMPARE(again.ButtonsPerRow, state.ButtonsPerRow);
    QCOMPARE(again.FeedHeight, state.FeedHeight);
}

QTEST_MAIN(tst_extremes)
#include "tst_extremes.moc"
