#include "core/settings/config_settings.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"
#include "support/link_builder.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>
#include <memory>

using namespace paneda;
using namespace Qt::StringLiterals;
using namespace paneda::test;

namespace {

const QString kGroup = u"Launcher/Setting/[001] One/[001] Group/"_s;
const QString kSentinel = u"[000] Sentinel.pnd"_s;
const QString kSentinelStart = u"@/Tools/sentinel in @/Tools"_s;

QByteArray Record(const QString& target, const QString& more = {}) {
    return u"[Properties]\nTarget=%1\n%2\n"_s.arg(target, more).toUtf8();
}

// Makes a script of the test the desktop's program for texts, folders and web addresses.
void UseHandler(const QString& script) {
    const QDir home = QDir::home();
    home.mkpath(u".config"_s);
    home.mkpath(u".local/share/applications"_s);
    QFile entry(home.filePath(u".local/share/applications/mark.desktop"_s));
    QFile types(home.filePath(u".config/mimeapps.list"_s));
    QVERIFY(entry.open(QIODevice::WriteOnly));
    QVERIFY(types.open(QIODevice::WriteOnly));
    entry.write(u"[Desktop Entry]\nType=Application\nName=Mark\nExec=%1 %u\n"_s.arg(script).toUtf8());
    types.write("[Default Applications]\ntext/plain=mark.desktop\ninode/directory=mark.desktop\n"
                "x-scheme-handler/https=mark.desktop\n");
}

} // namespace

// Presses on buttons of the installed program, and what they start.
class tst_desktop_launch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { QVERIFY(IsPrivateDesktop()); }
    void cleanup();
    void targets_data();
    void targets();
    void chosenBrowser();
    void outcomes_data();
    void outcomes();
    void windowState_data();
    void windowState();

private:
    void AddButton(const QString& name, const QByteArray& bytes) const {
        program_->AddFile(kGroup + name, bytes);
    }

    std::unique_ptr<InstalledProgram> program_;
};

void tst_desktop_launch::initTestCase() {
    QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop");
    program_ = std::make_unique<InstalledProgram>();
    for (const char* name :
         {"Tools/mark", "Tools/handler", "Tools/browser", "Tools/sentinel", "Launcher/Inner/mark"})
        program_->AddMark(QString::fromLatin1(name));
    UseHandler(program_->Expand(u"@/Tools/handler"_s));
    program_->AddFile(u"Tools/a letter.txt"_s, "Dear reader,\n");
    program_->AddFile(u"Work/file"_s);

    const QString mark = program_->Stored(u"@/Tools/mark"_s);
    AddButton(kSentinel, Record(program_->Stored(u"@/Tools/sentinel"_s)));
    AddButton(u"[001] Parameters.pnd"_s, Record(mark, uR"(Parameter=-x "a b" "" \"q\" $HOME * %1 C:\d)"_s));
    AddButton(u"[002] Start In.PND"_s, Record(mark, u"Start In="_s + program_->Stored(u"@/Work"_s)));
    AddButton(u"[003] Relative.pnd"_s, Record(u"..\\Tools\\mark"_s));
    AddButton(u"[004] Without Drive.pnd"_s, Record(mark.sliced(2)));
    AddButton(u"[005] Bare.pnd"_s, Record(u"inner\\MARK"_s));
    AddButton(u"[006] Entry.desktop"_s,
              program_->Expand(u"[Desktop Entry]\nName=N\nExec=\"@/Tools/mark\" \"a b\" %c\n"_s).toUtf8());
    program_->AddMark(kGroup + u"[007] dropped.sh"_s);
    AddButton(u"[008] Document.pnd"_s, Record(program_->Stored(u"@/Tools/a letter.txt"_s)));
    AddButton(u"[009] Folder.pnd"_s, Record(program_->Stored(u"@/Work"_s)));
    AddButton(u"[010] Address.pnd"_s, Record(u"https://a.example/?b=c&d=e"_s));
    AddButton(u"[011] Page.url"_s, "[InternetShortcut]\r\nURL=https://b.example/\r\n");
    AddButton(u"[012] Empty.pnd"_s, "[Properties]\nTarget=\n");
    AddButton(u"[013] Missing.pnd"_s, Record(u"C:\\no\\such\\file"_s));
    AddButton(u"[015] Shortcut.lnk"_s, MakeLink({.LocalPath = mark,
                                                 .WorkingFolder = program_->Stored(u"@/Work"_s),
                                                 .Arguments = u"-x \"a b\""_s}));
    AddButton(u"[016] Nowhere.lnk"_s, MakeLink({.LocalPath = u"C:\\no\\such\\file"_s}));
    for (const char* state : {"Minimized", "Maximized"}) {
        const QString more = u"Parameter=-T \"A Window\" -e sleep 60\nWindow State=%1"_s;
        AddButton(u"[014] %1.pnd"_s.arg(QLatin1StringView(state)),
                  Record(u"xterm"_s, more.arg(QLatin1StringView(state))));
    }
}

// Each test leaves no start unread and no window of another program.
void tst_desktop_launch::cleanup() {
    QCOMPARE(program_->UnreadStarts(), 0);
    const QString window = FindWindow(u"A Window"_s);
    const int processId = ToolOutput(u"xdotool"_s, {u"getwindowpid"_s, window}).toInt();
    if (!window.isEmpty() && processId > 0)
        ::kill(processId, SIGTERM);
}

void tst_desktop_launch::targets_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("start");

    const auto row = [](const char* button, const char* start) {
        QTest::newRow(button) << QString::fromLatin1(button) << QString::fromLatin1(start);
    };
    row("[001] Parameters.pnd", R"(@/Tools/mark in @/Tools: -x|a b||"q"|$HOME|*|%1|C:\d)");
    row("[002] Start In.PND", "@/Tools/mark in @/Work");
    row("[003] Relative.pnd", "@/Tools/mark in @/Tools");
    row("[004] Without Drive.pnd", "@/Tools/mark in @/Tools");
    row("[005] Bare.pnd", "@/Launcher/Inner/mark in @/Launcher/Inner");
    row("[006] Entry.desktop", "@/Tools/mark in ~: a b|N");
    row("[007] dropped.sh", "@/Launcher/Setting/[001] One/[001] Group/[007] dropped.sh in "
                            "@/Launcher/Setting/[001] One/[001] Group");
    row("[008] Document.pnd", "@/Tools/handler in @/Tools: @/Tools/a letter.txt");
    row("[009] Folder.pnd", "@/Tools/handler in @: @/Work");
    row("Drive C", "@/Tools/handler in /: /");
    row("[010] Address.pnd", "@/Tools/handler in .: https://a.example/?b=c&d=e");
    row("[011] Page.url", "@/Tools/handler in @/Launcher/Setting/[001] One/[001] Group: https://b.example/");
    row("[012] Empty.pnd", "");
    row("[013] Missing.pnd", "");
    row("[015] Shortcut.lnk", "@/Tools/mark in @/Work: -x|a b");
    row("[016] Nowhere.lnk", "");
}

void tst_desktop_launch::targets() {
    QFETCH(QString, button);
    QFETCH(QString, start);
    if (program_->ProcessId() == 0)
        QVERIFY(program_->Start());
    start.replace(u"in ~"_s, u"in "_s + QDir::homePath());
    start.replace(u"in .:"_s, u"in %1:"_s.arg(QDir::currentPath()));
    ClickAt(program_->Button(button), 1);
    if (!start.isEmpty())
        QCOMPARE(program_->NextStart(), start);
    // What starts nothing leaves a panel that starts the next thing.
    ClickAt(program_->Button(kSentinel), 1);
    QCOMPARE(program_->NextStart(), kSentinelStart);
    QCOMPARE(WindowState(program_->Panel()), u"Normal"_s);
    QTRY_COMPARE(ChildrenOf(program_->ProcessId()), QString());
}

void tst_desktop_launch::chosenBrowser() {
    program_->AddFile(u"Launcher/setting.ini"_s,
                      program_->Expand(u"[Properties]\nbrowser=@/Tools/browser\n"_s).toUtf8());
    QVERIFY(program_->Start());
    ClickAt(program_->Button(u"[011] Page.url"_s), 1);
    const QString browser = u"@/Tools/browser in %1: https://b.example/"_s.arg(QDir::currentPath());
    QCOMPARE(program_->NextStart(), browser);
    // Of all buttons, shortcuts alone go to the browser.
    ClickAt(program_->Button(u"[010] Address.pnd"_s), 1);
    QVERIFY(program_->NextStart().startsWith(u"@/Tools/handler "_s));
    QVERIFY(program_->Close());
}

void tst_desktop_launch::outcomes_data() {
    QTest::addColumn<bool>("hideAfterLaunch");
    QTest::addColumn<int>("mouseButton");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("outcome");

    const QString shift = u"shift"_s;
    const QString stays = u"Normal"_s;
    const QString hides = u"Iconic"_s;
    const QString ends;
    QTest::newRow("left") << false << 1 << QStringList() << stays;
    QTest::newRow("left, hiding") << true << 1 << QStringList() << hides;
    QTest::newRow("right") << false << 3 << QStringList() << hides;
    QTest::newRow("right, hiding") << true << 3 << QStringList() << stays;
    QTest::newRow("ctrl and shift") << false << 1 << QStringList{u"ctrl"_s, shift} << stays;
    QTest::newRow("shift") << false << 1 << QStringList{shift} << ends;
    QTest::newRow("shift, right, hiding") << true << 3 << QStringList{shift} << ends;
}

void tst_desktop_launch::outcomes() {
    QFETCH(bool, hideAfterLaunch);
    QFETCH(int, mouseButton);
    QFETCH(QStringList, keys);
    QFETCH(QString, outcome);
    program_->SetConfig(kRecordHideAfterLaunch, hideAfterLaunch);
    QVERIFY(program_->Start());
    const QPoint sentinel = program_->Button(kSentinel);
    // The middle button starts nothing and leaves the panel where the next press finds it.
    ClickAt(program_->Button(u"[003] Relative.pnd"_s), 2, keys);
    ClickAt(sentinel, mouseButton, keys);
    QCOMPARE(program_->NextStart(), kSentinelStart);
    if (outcome.isEmpty()) {
        QVERIFY(program_->HasEnded());
        QCOMPARE(program_->ExitCode(), 0);
        return;
    }
    QVERIFY(program_->PanelBecomes(outcome));
    QVERIFY(program_->ShowPanel());
    ClickAt(sentinel, mouseButton, keys);
    QCOMPARE(program_->NextStart(), kSentinelStart);
    QVERIFY(program_->PanelBecomes(outcome));
    QVERIFY(program_->Close());
}

void tst_desktop_launch::windowState_data() {
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("keys");

    QTest::newRow("minimized") << u"Minimized"_s << QStringList();
    QTest::newRow("maximized") << u"Maximized"_s << QStringList();
    QTest::newRow("by an ending panel") << u"Minimized"_s << QStringList{u"shift"_s};
}

void tst_desktop_launch::windowState() {
    QFETCH(QString, state);
    QFETCH(QStringList, keys);
    program_->SetConfig(kRecordHideAfterLaunch, false);
    QTRY_VERIFY(FindWindow(u"A Window"_s).isEmpty());
    QVERIFY(program_->Start());
    ClickAt(program_->Button(u"[014] %1.pnd"_s.arg(state)), 1, keys);
    QString window;
    QTRY_VERIFY(!(window = FindWindow(u"A Window"_s)).isEmpty());
    if (state == u"Minimized")
        QTRY_COMPARE(WindowState(window), u"Iconic"_s);
    else
        QTRY_VERIFY(IsMaximized(window));
    if (keys.isEmpty())
        QVERIFY(program_->Close());
    else
        QVERIFY(program_->HasEnded());
}

QTEST_MAIN(tst_desktop_launch)
#include "tst_desktop_launch.moc"
