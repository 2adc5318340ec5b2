#include "core/files/ini_file.h"
#include "core/settings/config_settings.h"
#include "core/store/store_layout.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <sys/stat.h>

using namespace paneda;
using namespace Qt::StringLiterals;
using namespace paneda::test;

namespace {

constexpr int kPaintedColours = 3; // a window that is mapped and not painted has one or two

QByteArray Noise(int size) {
    QRandomGenerator random(20'260'101);
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

} // namespace

// Starts and ends of the installed program.
class tst_desktop_start : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop"); }
    void firstStart();
    void secondStart();
    void endings();
    void badStore_data();
    void badStore();
};

void tst_desktop_start::firstStart() {
    InstalledProgram program;
    const TreePicture installed = PictureOfTree(program.Folder());
    QCOMPARE(Difference({}, installed), u"+Icons +Sound +help +paneda +skin"_s);
    QVERIFY(program.Start());
    QVERIFY(program.PanelBecomes(u"Normal"_s));
    QTRY_VERIFY(CountColours(WindowPicture(program.Panel())) >= kPaintedColours);
    const TreePicture made = PictureOfTree(program.Folder());
    QCOMPARE(Difference(installed, made),
             u"+Cache +Cache/cache +Data +Data/Tree +Setting +Setting/[001] General "
             u"+Setting/[002] Dynamic Category +Setting/[002] Dynamic Category/Properties.ini "
             u"+Setting2 +Setting2/Tree.ini +config +setting.ini"_s);
    QVERIFY(program.Close());
    QCOMPARE(Difference(made, PictureOfTree(program.Folder())), u"~setting.ini"_s);
    // The next start finds all that it needs and changes nothing.
    const TreePicture left = PictureOfTree(program.Folder());
    QVERIFY(program.Start());
    QVERIFY(program.Close());
    QCOMPARE(Difference(left, PictureOfTree(program.Folder())), QString());
}

void tst_desktop_start::secondStart() {
    InstalledProgram program;
    program.AddFile(u"Launcher/setting.ini"_s, "[Properties]\nhide on startup=1\n");
    ToolOutput(u"xdotool"_s, {u"mousemove"_s, u"1270"_s, u"5"_s});
    const QImage expected =
        PictureOfBox(InstalledProgram::kBoxTitle.toString(), u"Paneda Launcher has been launched"_s);
    QVERIFY(!expected.isNull());
    QVERIFY(program.Start());
    QVERIFY(program.PanelBecomes(u"Iconic"_s));
    const TreePicture before = PictureOfTree(program.Folder());

    QProcess second;
    second.start(program.Folder() + u"/paneda"_s, {});
    QString box;
    QTRY_VERIFY(!(box = FindWindow(InstalledProgram::kBoxTitle.toString(), second.processId())).isEmpty());
    QTRY_COMPARE(WindowPicture(box), expected);
    QVERIFY(FindWindow(InstalledProgram::kPanelTitle.toString(), second.processId()).isEmpty());
    PressKey(u"Return"_s);
    QTRY_COMPARE(second.state(), QProcess::NotRunning);
    QCOMPARE(second.exitCode(), 0);
    QVERIFY(program.PanelBecomes(u"Normal"_s));
    QCOMPARE(Difference(before, PictureOfTree(program.Folder())), QString());
    QVERIFY(program.Close());
}

void tst_desktop_start::endings() {
    InstalledProgram program;
    program.CompleteStore();
    // A place beyond the screen is corrected at the load and saved as it then is.
    ConfigFile config = ConfigFile::Load(ConfigFilePath(program.Folder())).value_or(ConfigFile());
    config.Write(kRecordPanelPlace, {600.0, 9e6});
    QVERIFY(config.Save(ConfigFilePath(program.Folder())).has_value());
    QVERIFY(program.Start());
    const QPoint place = WindowPlace(program.Panel());
    QCOMPARE(place.y(), 40);
    ClickAt(program.Bar(1), 1);
    ClickAt(program.Menu(), 1);
    PressKey(u"Up"_s); // the last item
    PressKey(u"Return"_s);
    QVERIFY(program.HasEnded());
    QCOMPARE(program.ExitCode(), 0);
    QCOMPARE(ReadIni(u"Properties"_s, u"Category"_s, SettingIniFile(program.Folder())), u"2"_s);
    config = ConfigFile::Load(ConfigFilePath(program.Folder())).value_or(ConfigFile());
    QVERIFY(config.Read(kRecordPanelPlace) == (ConfigArray{place.y() * 15.0, place.x() * 15.0}));
}

namespace {

// Does some damage to a complete store.
struct Damage {
    void (*Do)(const InstalledProgram& program) = nullptr;
};

const QString kGroup = u"Launcher/Setting/[001] General/[001] G/"_s;

// The names of both are bytes below the program's folder that need not be text.
void MakePipe(const InstalledProgram& program, const QByteArray& name) {
    const QByteArray path = QFile::encodeName(program.Folder()) + '/' + name;
    if (::mkfifo(path.constData(), 0600) != 0)
        qFatal("No pipe %s", path.constData());
}

void MakeOddFolder(const InstalledProgram& program, const QByteArray& name) {
    const QByteArray path = QFile::encodeName(program.Folder()) + '/' + name;
    if (::mkdir(path.constData(), 0700) != 0)
        qFatal("No folder %s", path.constData());
}

void OddBytes(const InstalledProgram& program) {
    for (const char* name : {"Setting/[003] \xff\xfe", "Setting/[001] General/\x80", "\xc3"})
        MakeOddFolder(program, name);
    MakePipe(program, "Setting/[001] General/[001] G/\xff.pnd");
}

void Pipes(const InstalledProgram& program) {
    QFile::remove(SettingIniFile(program.Folder()));
    MakePipe(program, "setting.ini");
    MakePipe(program, "Setting/[001] General/[001] G/x.pnd");
    MakePipe(program, "Setting/[001] General/[001] G/y.png");
}

} // namespace

void tst_desktop_start::badStore_data() {
    QTest::addColumn<Damage>("damage");
    QTest::addColumn<bool>("notice");     // of what could not be read or written
    QTest::addColumn<QString>("changes"); // by the start

    using Program = const InstalledProgram&;
    const auto row = [](const char* name, bool notice, const char* changes, void (*damage)(Program)) {
        QTest::newRow(name) << Damage{damage} << notice << QString::fromLatin1(changes);
    };
    // The cache of the complete store knows of no skin's pictures, so a start that may write it does so once.
    row("names of odd bytes", false, "+Cache/cache", OddBytes);
    row("pipes", true, "+Cache/cache", Pipes);
    row("random config", false, "~Cache/cache ~config",
        [](Program p) { p.AddFile(u"Launcher/config"_s, Noise(18 * kConfigRecordSize)); });
    row("sealed and incomplete", true, "", [](Program p) { QFile::remove(ConfigFilePath(p.Folder())); });
    row("a file for Setting", true, "~Cache/cache", [](Program p) {
        QDir(p.Folder() + u"/Setting"_s).removeRecursively();
        p.AddFile(u"Launcher/Setting"_s);
    });
}

void tst_desktop_start::badStore() {
    QFETCH(Damage, damage);
    QFETCH(bool, notice);
    QFETCH(QString, changes);
    const bool sealed = QByteArray(QTest::currentDataTag()).startsWith("sealed");
    InstalledProgram program;
    program.AddFile(kGroup + u"[001] a.txt"_s);
    program.CompleteStore();
    damage.Do(program);
    if (changes.startsWith(u'+'))
        QVERIFY(QFile::remove(CacheFilePath(program.Folder())));
    if (sealed)
        ToolOutput(u"chmod"_s, {u"-R"_s, u"a-w,a+rX"_s, program.Folder()});
    const TreePicture before = PictureOfTree(program.Folder());

    QVERIFY(program.Start(sealed));
    QVERIFY(program.PanelBecomes(u"Normal"_s));
    QTRY_VERIFY(CountColours(WindowPicture(program.Panel())) >= kPaintedColours);
    const auto hasBox = [&program] {
        return !FindWindow(InstalledProgram::kBoxTitle.toString(), program.ProcessId()).isEmpty();
    };
    if (notice) {
        QTRY_VERIFY(hasBox());
        PressKey(u"Return"_s);
        QTRY_VERIFY(!hasBox());
    }
    QTRY_COMPARE(Difference(before, PictureOfTree(program.Folder())), changes);
    QVERIFY(program.Close());
}

QTEST_MAIN(tst_desktop_start)
#include "tst_desktop_start.moc"
