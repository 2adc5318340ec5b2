#include "core/settings/config_settings.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"
#include "support/link_builder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <csignal>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

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

// Makes every start of a program wait in the kernel, as on a network that no longer answers, while it lives.
class Unanswered {
public:
    explicit Unanswered(const QString& file)
        : file_(::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC)) {
        ::signal(SIGIO, SIG_IGN); // the request to give the lease back
        isHeld_ = ::fcntl(file_, F_SETLEASE, F_WRLCK) == 0;
    }
    ~Unanswered() { ::close(file_); }
    Q_DISABLE_COPY_MOVE(Unanswered)

    bool IsHeld() const { return isHeld_; }

private:
    int file_;
    bool isHeld_ = false;
};

} // namespace

// Presses on buttons of the installed program, and what they start.
class tst_desktop_launch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { QVERIFY(IsPrivateDesktop()); }
    void cleanup();
    void targets();
    void chosenBrowser();
    void outcomes();
    void windowState();
    void endAtOnce();

private:
    void AddButton(const QString& name, const QByteArray& bytes) const {
        program_->AddFile(kGroup + name, bytes);
    }

    std::unique_ptr<InstalledProgram> program_;
};

void tst_desktop_launch::initTestCase() {
    QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop");
    program_ = std::make_unique<InstalledProgram>();
    for (const char* name : {"Tools/mark", "Tools/handler", "Tools/browser", "Tools/sentinel"})
        program_->AddMark(QString::fromLatin1(name));
    UseHandler(program_->Expand(u"@/Tools/handler"_s));
    program_->AddFile(u"Tools/a letter.txt"_s, "Dear reader,\n");
    program_->AddFile(u"Work/file"_s);

    const QString mark = program_->Stored(u"@/Tools/mark"_s);
    AddButton(kSentinel, Record(program_->Stored(u"@/Tools/sentinel"_s)));
    AddButton(u"[001] Parameters.pnd"_s, Record(mark, uR"(Parameter=-x "a b" "" \"q\" $HOME * %1 C:\d)"_s));
    AddButton(u"[003] Relative.pnd"_s, Record(u"..\\Tools\\mark"_s));
    AddButton(u"[006] Entry.desktop"_s,
              program_->Expand(u"[Desktop Entry]\nName=N\nExec=\"@/Tools/mark\" \"a b\" %c\n"_s).toUtf8());
    AddButton(u"[008] Document.pnd"_s, Record(program_->Stored(u"@/Tools/a letter.txt"_s)));
    AddButton(u"[010] Address.pnd"_s, Record(u"https://a.example/?b=c&d=e"_s));
    AddButton(u"[011] Page.url"_s, "[InternetShortcut]\r\nURL=https://b.example/\r\n");
    AddButton(u"[013] Missing.pnd"_s, Record(u"C:\\no\\such\\file"_s));
    AddButton(u"[015] Shortcut.lnk"_s, MakeLink({.LocalPath = mark,
                                                 .WorkingFolder = program_->Stored(u"@/Work"_s),
                                                 .Arguments = u"-x \"a b\""_s}));
    AddButton(u"[016] No window.pnd"_s, Record(mark, u"Window State=Minimized"_s));
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

// One of each way to start something; the rules are tested beside their code.
void tst_desktop_launch::targets() {
    QVERIFY(program_->Start());
    const std::pair<const char*, const char*> rows[] = {
        {"[001] Parameters.pnd", R"(@/Tools/mark in @/Tools: -x|a b||"q"|$HOME|*|%1|C:\d)"},
        {"[003] Relative.pnd", "@/Tools/mark in @/Tools"},
        {"[006] Entry.desktop", "@/Tools/mark in ~: a b|N"},
        {"[008] Document.pnd", "@/Tools/handler in @/Tools: @/Tools/a letter.txt"},
        {"Drive C", "@/Tools/handler in /: /"},
        {"[010] Address.pnd", "@/Tools/handler in .: https://a.example/?b=c&d=e"},
        {"[013] Missing.pnd", ""},
        {"[015] Shortcut.lnk", "@/Tools/mark in @/Work: -x|a b"}};
    for (const auto& [button, line] : rows) {
        QString start = QString::fromLatin1(line);
        start.replace(u"in ~"_s, u"in "_s + QDir::homePath());
        start.replace(u"in .:"_s, u"in %1:"_s.arg(QDir::currentPath()));
        ClickAt(program_->Button(QString::fromLatin1(button)), 1);
        if (!start.isEmpty())
            QCOMPARE(program_->NextStart(), start);
    }
    // What has started nothing leaves a panel that starts the next thing.
    ClickAt(program_->Button(kSentinel), 1);
    QCOMPARE(program_->NextStart(), kSentinelStart);
    QCOMPARE(WindowState(program_->Panel()), u"Normal"_s);
    QTRY_COMPARE(ChildrenOf(program_->ProcessId()), QString());
    QVERIFY(program_->Close());
}

void tst_desktop_launch::chosenBrowser() {
    program_->AddFile(u"Launcher/setting.ini"_s,
                      program_->Expand(u"[Properties]\nbrowser=@/Tools/browser\n"_s).toUtf8());
    QVERIFY(program_->Start());
    ClickAt(program_->Button(u"[011] Page.url"_s), 1);
    const QString browser = u"@/Tools/browser in %1: https://b.example/"_s.arg(QDir::currentPath());
    QCOMPARE(program_->NextStart(), browser);
    QVERIFY(program_->Close());
}

void tst_desktop_launch::outcomes() {
    program_->SetConfig(kRecordHideAfterLaunch, true);
    QVERIFY(program_->Start());
    const QPoint sentinel = program_->Button(kSentinel);
    const auto press = [&](int mouseButton, const QStringList& keys = {}) {
        ClickAt(sentinel, mouseButton, keys);
        return program_->NextStart() == kSentinelStart;
    };
    // The middle button starts nothing and leaves the panel where the next press finds it.
    ClickAt(program_->Button(u"[003] Relative.pnd"_s), 2);
    QVERIFY(press(3) && program_->PanelBecomes(u"Normal"_s));
    QVERIFY(press(1) && program_->PanelBecomes(u"Iconic"_s));
    QVERIFY(program_->ShowPanel());
    QVERIFY(press(3, {u"shift"_s}) && program_->HasEnded());
    QCOMPARE(program_->ExitCode(), 0);
}

void tst_desktop_launch::windowState() {
    program_->SetConfig(kRecordHideAfterLaunch, false);
    QVERIFY(program_->Start());
    ClickAt(program_->Button(u"[014] Maximized.pnd"_s), 1);
    QTRY_VERIFY(IsMaximized(FindWindow(u"A Window"_s)));
    cleanup();
    QTRY_VERIFY(FindWindow(u"A Window"_s).isEmpty());
    // Also by a panel that ends meanwhile.
    ClickAt(program_->Button(u"[014] Minimized.pnd"_s), 1, {u"shift"_s});
    QTRY_COMPARE(WindowState(FindWindow(u"A Window"_s)), u"Iconic"_s);
    QVERIFY(program_->HasEnded());
}

// The end waits neither for a window that never comes nor for a start that the kernel holds up, and both
// programs run all the same.
void tst_desktop_launch::endAtOnce() {
    program_->AddMark(u"Slow/xdg-open"_s);
    program_->SetVariable(u"PATH"_s, program_->Expand(u"@/Slow:"_s) + qEnvironmentVariable("PATH"));
    QVERIFY(program_->Start());
    {
        const Unanswered opener(program_->Expand(u"@/Slow/xdg-open"_s));
        if (!opener.IsHeld())
            QSKIP("This file system knows no leases.");
        ClickAt(program_->Button(u"[008] Document.pnd"_s), 1);
        const QPoint last = program_->Button(u"[016] No window.pnd"_s);
        QElapsedTimer clock;
        clock.start();
        ClickAt(last, 1, {u"shift"_s});
        QVERIFY(program_->HasEnded());
        const qint64 took = clock.elapsed();
        QVERIFY2(took < 2000, qPrintable(QString::number(took)));
        QCOMPARE(program_->ExitCode(), 0);
        QCOMPARE(program_->NextStart(), u"@/Tools/mark in @/Tools"_s);
        QVERIFY(program_->Start());
    }
    QCOMPARE(program_->NextStart(), u"@/Slow/xdg-open in @/Tools: @/Tools/a letter.txt"_s);
    QVERIFY(program_->Close());
}

QTEST_MAIN(tst_desktop_launch)
#include "tst_desktop_launch.moc"
