#include "core/settings/settings.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

// Every field that a key fills, in the order of the keys below.
QStringList Fields(const AppState& s) {
    const auto text = [](auto value) { return QVariant(value).toString(); };
    return {text(s.SelectedCategory),
            s.Browser,
            text(s.DriveOfProgram),
            text(s.HideOnStartup),
            text(s.SystemTrayIcon),
            text(s.MouseShowCenter),
            text(s.HotkeyShowCenter),
            text(s.TreeOpacity),
            text(s.RecentChangeIndicator),
            text(s.NoteOpacity),
            text(s.Note.Width),
            text(s.Note.Height),
            text(s.Note.CompressSize),
            s.Note.FontName,
            text(s.Note.FontSize),
            text(s.NoteMaximized),
            text(s.Countdown.IconType),
            text(s.Countdown.MessageIcon),
            text(s.Countdown.MessageStyle),
            text(s.Countdown.NoMessageIconAfterStop),
            s.Countdown.PopupWindow,
            s.Countdown.LaunchFile,
            s.Countdown.LaunchFileName,
            s.Countdown.Sound,
            s.Countdown.DateTime,
            s.Countdown.Message};
}

const QStringList kKeys =
    u"Properties|category,Properties|browser,Properties|my computer drive paneda,Properties|hide on startup,"
    "Properties|system tray icon,Properties|mouse click show center,Properties|hotkey show center,"
    "Tree|opacity percent,Tree|recent change indicator,Note|opacity percent,Note|width,Note|height,"
    "Note|compress size,Note|font name,Note|font size,Note|window state,Systray|countdown icon type,"
    "Systray|message icon,Systray|message style,Systray|no message icon after countdown stop,"
    "Systray|countdown popup window,Systray|countdown launch file,Systray|countdown launch file name,"
    "Systray|countdown sound,Systray|date time,Systray|message"_s.split(u',');

} // namespace

class tst_settings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fields_data();
    void fields();
    void exitWritesWhatChanged();
};

// A list of values, one for each key.
void tst_settings::fields_data() {
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* tag, const QString& values, const QString& expected) {
        QTest::newRow(tag) << values << expected;
    };
    add("empty", QString(25, u','),
        u"0,default,false,false,1,1,1,1,0,0.8,500,500,0,Verdana,10,false,2,3,3,1,,,,,,"_s);
    add("set", u"3,C:\\b.exe,1,1,4,2,0,60,5,55,640,501,64,Arial,9.5,MAXimize,1,8,2,0,a,b,c,d,e,f"_s,
        u"2,C:\\b.exe,true,true,4,1,0,0.6,5,0.55,640,501,64,Arial,9.5,true,1,8,2,0,a,b,c,d,e,f"_s);
    add("too low", u"-4,x,01,yes,-1,-1,-1,-20,-1,-1,499,-9,-1,x,x,maximized,-1,-1,-1,-1,,,,,,"_s,
        u"0,x,false,false,1,1,1,1,0,0.8,500,500,0,x,10,false,2,0,3,0,,,,,,"_s);
    add("too high", u"99999999,x,2,11,12.9,2 px,3,250,1e9,101,99999,1e308,1e9,x,1e9,normal,4,11,4,2,,,,,,"_s,
        u"32766,x,false,false,12,1,1,1,36500,1,32767,32767,1048576,x,200,false,2,10,3,1,,,,,,"_s);
}

void tst_settings::fields() {
    QFETCH(QString, values);
    QFETCH(QString, expected);
    IniText settings;
    const QStringList list = values.split(u',');
    for (qsizetype i = 0; i < kKeys.size(); ++i)
        settings.SetValue(kKeys[i].section(u'|', 0, 0).toUpper(), kKeys[i].section(u'|', 1).toUpper(),
                          list[i]);
    AppState state;
    ReadSettings(settings, state);
    QCOMPARE(Fields(state), expected.split(u','));
    QCOMPARE(state.TreeOpacityAtLoad, state.TreeOpacity);
    QCOMPARE(state.NoteOpacityAtLoad, state.NoteOpacity);
    QCOMPARE(state.NoteMaximizedAtLoad, state.NoteMaximized);
}

void tst_settings::exitWritesWhatChanged() {
    const test::StoreBuilder store;
    store.AddFolder(u"Setting/[001] A"_s);
    store.AddFile(u"Setting/[002] Dynamic Category/properties.INI"_s, "[x]\n[Properties]\nCategory=old\n");
    store.AddFolder(u"Setting/[003] Dynamic Category"_s);
    AppState state = store.State();
    ReadSettings({}, state);
    SaveSettingsAtExit(state);
    QCOMPARE(store.Bytes(u"setting.ini"_s), "[Properties]\r\ncategory=1\r\n");
    state.Catalogue = LoadCatalogue(store.Scan());
    state.Catalogue[1].TreeName = u"Work"_s;
    state.Catalogue[2].TreeName = u"Home"_s;
    state.SelectedCategory = 2;
    state.TreeOpacity = 0.295;
    state.NoteOpacity = 0.57; // 56.99999999999999 when it is multiplied
    state.NoteMaximized = true;
    SaveSettingsAtExit(state);
    QCOMPARE(store.Bytes(u"setting.ini"_s), "[Properties]\r\ncategory=3\r\n[Tree]\r\nopacity percent=30\r\n"
                                            "[Note]\r\nopacity percent=57\r\nwindow state=maximize\r\n");
    QCOMPARE(store.Bytes(u"Setting/[002] Dynamic Category/properties.INI"_s),
             "[x]\n[Properties]\nCategory=Work\n");
    QCOMPARE(store.Bytes(u"Setting/[003] Dynamic Category/Properties.ini"_s),
             "[Properties]\r\nCategory=Home\r\n");
    QVERIFY(!store.Entries().contains(u"Setting/[001] A/Properties.ini"_s));
    std::swap(state.NoteMaximizedAtLoad, state.NoteMaximized);
    SaveSettingsAtExit(state);
    QVERIFY(store.Bytes(u"setting.ini"_s).contains("window state=normal\r\n"));
}

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"
