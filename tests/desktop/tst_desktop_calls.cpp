#include "core/files/ini_file.h"
#include "core/panel/mouse_trigger.h"
#include "core/settings/config_settings.h"
#include "core/store/store_layout.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"

#include <QDataStream>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <cstdlib>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kShown = u"Normal"_s;
const QString kHidden; // a window that is withdrawn has no state
// A sound of one channel at one level: 16 bits, a fifth of a second.
QByteArray Sound(qint16 level) {
    constexpr quint32 kRate = 44'100;
    constexpr int kSamples = int(kRate) / 5;
    QByteArray wave;
    QDataStream out(&wave, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + 2 * kSamples);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1) << kRate << 2 * kRate << quint16(2) << quint16(16);
    out.writeRawData("data", 4);
    out << quint32(2 * kSamples);
    // From one end to the other, since a constant is no sound.
    for (int i = 0; i < kSamples; ++i)
        out << qint16(i % 100 < 50 ? level : -level);
    return wave;
}

// The loudest sample behind a place of raw samples on file; 0 for none.
int LoudestOf(const QString& path, qint64 from) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(from))
        return 0;
    QDataStream in(&file);
    in.setByteOrder(QDataStream::LittleEndian);
    int loudest = 0;
    for (qint16 sample = 0; !in.atEnd(); loudest = std::max(loudest, std::abs(int(sample))))
        in >> sample;
    return loudest;
}

} // namespace

class tst_desktop_calls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop"); }
    void hotkey_data();
    void hotkey();
    void middleButton();
    void outsideRequest();
    void heldMiddleButton();
    void dragAndSnap();
    void funSounds();
    void poorDesktop_data();
    void poorDesktop();
    void hiddenStart();
    void terminationSaves();
};

void tst_desktop_calls::hotkey_data() {
    QTest::addColumn<QString>("lock");

    QTest::newRow("alone") << QString();
    QTest::newRow("with NumLock") << u"Num_Lock"_s;
    QTest::newRow("with CapsLock") << u"Caps_Lock"_s;
}

void tst_desktop_calls::hotkey() {
    QFETCH(QString, lock);
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    if (!lock.isEmpty())
        PressKey(lock);
    for (const QString& state : {kHidden, kShown, kHidden, kShown}) {
        PressKey(u"ctrl+alt+k"_s);
        QVERIFY(program.PanelBecomes(state));
        // A panel that has just come up has the focus, or the next press would not hide it.
        if (state == kShown)
            QVERIFY(program.ShowPanel());
    }
    if (!lock.isEmpty())
        PressKey(lock);
    QVERIFY(program.Close());
}

void tst_desktop_calls::middleButton() {
    InstalledProgram program;
    program.CompleteStore();
    program.SetRecords({{kRecordMouseTriggerEnabled, true}, {kRecordMouseTriggerMode, qint16(kMouseClick)}});
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    // A click far from the panel hides it while it has the focus, and the next one brings it to the mouse.
    ClickAt({900, 700}, 2);
    QVERIFY(program.PanelBecomes(kHidden));
    // Two clicks in neighbouring looks count as one that is held.
    QTest::qWait(600);
    ClickAt({900, 700}, 2);
    QVERIFY(program.PanelBecomes(kShown));
    const QRect panel(test::WindowPlace(program.Panel()), WindowPicture(program.Panel()).size());
    QVERIFY2(std::abs(panel.center().x() - 900) <= 2, qPrintable(QString::number(panel.center().x())));
    QVERIFY(program.Close());
}

void tst_desktop_calls::outsideRequest() {
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    PressKey(u"ctrl+alt+k"_s);
    QVERIFY(program.PanelBecomes(kHidden));
    ToolOutput(u"dbus-send"_s, {u"--session"_s, u"--print-reply"_s, u"--dest=local.paneda.Launcher"_s,
                                u"/Panel"_s, u"local.paneda.Launcher.Execute"_s, u"string:whatever"_s});
    QVERIFY(program.PanelBecomes(kShown));
    QVERIFY(program.Close());
}

void tst_desktop_calls::heldMiddleButton() {
    InstalledProgram program;
    program.CompleteStore();
    program.SetRecords(
        {{kRecordMouseTriggerEnabled, true}, {kRecordMouseTriggerMode, qint16(kMouseDoubleClickOrHold)}});
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    ClickAt({900, 700}, 2);
    QTest::qWait(600); // three looks
    QCOMPARE(WindowState(program.Panel()), kShown);
    Xdotool({u"mousedown"_s, u"2"_s});
    QElapsedTimer hidden;
    QVERIFY(program.PanelBecomes(kHidden));
    hidden.start();
    // Held on, it calls the panel again, but not soon.
    QVERIFY(program.PanelBecomes(kShown));
    Xdotool({u"mouseup"_s, u"2"_s});
    QVERIFY2(hidden.elapsed() > 1800, qPrintable(QString::number(hidden.elapsed())));
    QVERIFY(program.Close());
}

void tst_desktop_calls::dragAndSnap() {
    InstalledProgram program;
    program.CompleteStore();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QSize size = WindowRect(program.Panel()).size();
    const QPoint far(screen.width() - size.width(), screen.height() - size.height());
    // Released within 20 pixels inside an edge it snaps; further off, and beyond the edge, it stays.
    const std::pair<QPoint, QPoint> releases[] = {
        {{300, 200}, {300, 200}},
        {{12, 21}, {0, 21}},
        {{30, 20}, {30, 0}},
        {far - QPoint(20, 21), {far.x(), far.y() - 21}},
        {far - QPoint(21, 20), {far.x() - 21, far.y()}},
        {far - QPoint(5, 5), far},
        {{-40, 100}, {-40, 100}},
        {{40, 300}, {40, 300}},
    };
    for (const auto& [released, stays] : releases) {
        Drag(program.Grip(), released - test::WindowPlace(program.Panel()));
        QTRY_COMPARE(test::WindowPlace(program.Panel()), stays);
    }
    QVERIFY(program.Close());
    QVERIFY(program.Record(kRecordPanelPlace) == (ConfigArray{300 * 15.0, 40 * 15.0}));
}

void tst_desktop_calls::funSounds() {
    constexpr int kSoft = 3000;
    constexpr int kLoud = 12'000;
    InstalledProgram program;
    program.CompleteStore();
    const QString heard = program.Expand(u"@/heard"_s);
    program.SetVariable(u"SDL_AUDIODRIVER"_s, u"disk"_s);
    program.SetVariable(u"SDL_DISKAUDIOFILE"_s, heard);
    for (const auto& [name, level] : {std::pair(u"01"_s, kSoft), std::pair(u"02"_s, kLoud)})
        program.AddFile(u"Launcher/Sound/Fun/%1.mp3"_s.arg(name), Sound(qint16(level)));
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    const QPoint grip = program.Grip();
    const auto doubleClick = [&grip] {
        MoveMouse(grip);
        Xdotool({u"click"_s, u"--repeat"_s, u"2"_s, u"--delay"_s, u"60"_s, u"1"_s});
    };
    const auto isNear = [](int loudest, int level) { return std::abs(loudest - level) < level / 10; };
    doubleClick();
    QTRY_VERIFY(isNear(LoudestOf(heard, 0), kSoft));
    const qint64 first = QFileInfo(heard).size();
    doubleClick();
    QTRY_VERIFY(isNear(LoudestOf(heard, first), kLoud));
    // The panel has stood still.
    QCOMPARE(program.Grip(), grip);
    QVERIFY(program.Close());
}

void tst_desktop_calls::poorDesktop_data() {
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("sound"); // of the first one; a null array for none

    QTest::newRow("no bus") << u"DBUS_SESSION_BUS_ADDRESS"_s << u"unix:path=/nonexistent/bus"_s << Sound(1);
    QTest::newRow("no sound device") << u"SDL_AUDIODRIVER"_s << u"nonexistent"_s << Sound(1);
    QTest::newRow("broken sound") << u"SDL_AUDIODRIVER"_s << u"dummy"_s << QByteArray(100'000, 'x');
    QTest::newRow("sound that is gone") << u"SDL_AUDIODRIVER"_s << u"dummy"_s << QByteArray();
}

void tst_desktop_calls::poorDesktop() {
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(QByteArray, sound);
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    program.SetVariable(u"SDL_AUDIODRIVER"_s, u"dummy"_s);
    program.SetVariable(variable, value);
    program.AddFile(u"Launcher/Sound/Fun/01.mp3"_s, sound);
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    if (sound.isNull())
        QVERIFY(QFile::remove(program.Folder() + u"/Sound/Fun/01.mp3"_s));
    MoveMouse(program.Grip());
    Xdotool({u"click"_s, u"--repeat"_s, u"2"_s, u"--delay"_s, u"60"_s, u"1"_s});
    for (const QString& state : {kHidden, kShown}) {
        PressKey(u"ctrl+alt+k"_s);
        QVERIFY(program.PanelBecomes(state));
    }
    QVERIFY(program.ShowPanel());
    QElapsedTimer end;
    end.start();
    QVERIFY(program.Close());
    QVERIFY2(end.elapsed() < 5000, qPrintable(QString::number(end.elapsed())));
}

void tst_desktop_calls::hiddenStart() {
    InstalledProgram program;
    program.CompleteStore();
    program.UseHotkey();
    QVERIFY(WriteIni(u"Properties"_s, u"hide on startup"_s, u"1"_s, SettingIniFile(program.Folder()))
                .has_value());
    QVERIFY(!program.Start(false) || WindowState(program.Panel()) != kShown);
    QVERIFY(!program.HasEnded());
    PressKey(u"ctrl+alt+k"_s);
    QTRY_VERIFY(!FindWindow(InstalledProgram::kPanelTitle.toString(), program.ProcessId()).isEmpty());
    ::kill(pid_t(program.ProcessId()), SIGTERM);
    QVERIFY(program.HasEnded());
}

void tst_desktop_calls::terminationSaves() {
    InstalledProgram program;
    program.CompleteStore();
    QVERIFY(program.Start());
    QVERIFY(program.ShowPanel());
    ClickAt(program.Bar(1), 1);
    // The switch is done once the other category's picture is on file.
    QTRY_VERIFY(QFile::exists(program.Folder() + u"/Cache/category002.png"_s));
    QTest::qWait(200);
    ::kill(pid_t(program.ProcessId()), SIGTERM);
    QVERIFY(program.HasEnded());
    QCOMPARE(program.ExitCode(), 0);
    QCOMPARE(ReadIni(u"Properties"_s, u"Category"_s, SettingIniFile(program.Folder())), u"2"_s);
}

QTEST_MAIN(tst_desktop_calls)
#include "tst_desktop_calls.moc"
