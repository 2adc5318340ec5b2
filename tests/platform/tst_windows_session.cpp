#include "core/panel/triggers.h"
#include "platform/windows/dde_requests.h"
#include "platform/windows/message_hotkey.h"
#include "platform/windows/session_termination.h"
#include "platform/windows/taskbar_tray_hosts.h"
#include "platform/windows/windows_foreground.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <windows.h>

#include <ddeml.h>

#include <cstdio>
#include <memory>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

constexpr int kEndedInOrder = 7;
constexpr int kKey = 0x7A; // F11
constexpr int kWait = 10'000;

void Say(const QByteArray& text) {
    std::puts(text.constData());
    std::fflush(stdout);
}

// What the test starts itself as: says what other programs ask for.
int Serve() {
    DdeRequests requests;
    Say(requests.Listen(u"C:\\a\\paneda.exe"_s, [](const QString& text) { Say("got " + text.toUtf8()); })
            ? "ready"
            : "failed");
    return QCoreApplication::exec();
}

int WaitForEnd() {
    SessionTermination termination;
    termination.OnRequest([] {
        Say("asked");
        QCoreApplication::exit(kEndedInOrder);
    });
    Say("ready");
    return QCoreApplication::exec();
}

class Child {
public:
    explicit Child(const QString& role) {
        process_.start(QCoreApplication::applicationFilePath(), {role});
        ready_ = WaitFor("ready");
    }
    ~Child() {
        process_.kill();
        process_.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Child)

    bool IsReady() const { return ready_; }
    QProcess& Process() { return process_; }

    // Also looks after this process's own messages, as the system sends them meanwhile.
    bool WaitFor(const QByteArray& text) {
        return QTest::qWaitFor(
            [this, &text] {
                output_ += process_.readAll();
                return output_.contains(text);
            },
            kWait);
    }
    bool HasSaid(const QByteArray& text) { return WaitForNoMore(), output_.contains(text); }

    HWND Window() const {
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, L"PanedaMessages", nullptr))) {
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == DWORD(process_.processId()))
                return window;
        }
        return nullptr;
    }

private:
    void WaitForNoMore() {
        QTest::qWait(300);
        output_ += process_.readAll();
    }

    QProcess process_;
    QByteArray output_;
    bool ready_ = false;
};

HDDEDATA CALLBACK NoCallback(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR) {
    return nullptr;
}

// A client as other programs have it; `wide` tells which of the two kinds of text it speaks.
bool Execute(const wchar_t* service, const wchar_t* topic, const QString& command, bool wide) {
    DWORD instance = 0;
    const UINT failed = wide ? DdeInitializeW(&instance, NoCallback, APPCMD_CLIENTONLY, 0)
                             : DdeInitializeA(&instance, NoCallback, APPCMD_CLIENTONLY, 0);
    if (failed != DMLERR_NO_ERROR)
        return false;
    const HSZ serviceName = DdeCreateStringHandleW(instance, service, CP_WINUNICODE);
    const HSZ topicName = DdeCreateStringHandleW(instance, topic, CP_WINUNICODE);
    HDDEDATA answer = nullptr;
    if (const HCONV talk = DdeConnect(instance, serviceName, topicName, nullptr)) {
        QByteArray bytes = command.toLocal8Bit() + '\0';
        if (wide)
            bytes = QByteArray(reinterpret_cast<const char*>(command.utf16()), (command.size() + 1) * 2);
        answer = DdeClientTransaction(reinterpret_cast<LPBYTE>(bytes.data()), DWORD(bytes.size()), talk,
                                      nullptr, 0, XTYP_EXECUTE, kWait, nullptr);
        DdeDisconnect(talk);
    }
    DdeUninitialize(instance);
    return answer != nullptr;
}

void Press(WORD key, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof input);
}

// Wine knows no hotkey without repetition.
bool IsWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

struct DestroyHwnd {
    using pointer = HWND;
    void operator()(HWND window) const { DestroyWindow(window); }
};

} // namespace

// How other programs, keys and the session reach the program.
class tst_windows_session : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void requests_data();
    void requests();
    void commandsOfOld();
    void nextInstanceAnswers();
    void hotkey();
    void hotkeyAnswers();
    void foreground();
    void taskbarThatComesAnew();
    void endings_data();
    void endings();
};

void tst_windows_session::requests_data() {
    QTest::addColumn<bool>("wide");
    QTest::newRow("wide") << true;
    QTest::newRow("narrow") << false;
}

void tst_windows_session::requests() {
    QFETCH(bool, wide);
    Child server(u"--serve"_s);
    QVERIFY(server.IsReady());
    QVERIFY(Execute(L"paneda", L"Panel", u"[Show(\"a b\")]"_s, wide));
    QVERIFY(server.WaitFor("got [Show(\"a b\")]"));
    QVERIFY(Execute(L"PANEDA", L"panel", u""_s, wide));
    QVERIFY(server.WaitFor("got \r\n"));
    QVERIFY(!Execute(L"paneda", L"Other", u"x"_s, wide));
    QVERIFY(!Execute(L"other", L"Panel", u"x"_s, wide));
    QVERIFY(DdeRequests().Send(u"c:\\A\\paneda.exe"_s) && !DdeRequests().Send(u"C:\\b\\paneda.exe"_s));
    QVERIFY(!server.HasSaid("got x"));
}

void tst_windows_session::commandsOfOld() {
    QCOMPARE(DdeCommandText(QByteArray("[A]\0x", 5)), u"[A]"_s);
    QCOMPARE(DdeCommandText(QByteArray("[\0A\0\0\0x\0", 8)), u"[A"_s);
    QCOMPARE(DdeCommandText(QByteArray("[\0\xE9\0]", 5)), u"[\u00E9"_s); // cut in the middle
}

void tst_windows_session::nextInstanceAnswers() {
    auto first = std::make_unique<Child>(u"--serve"_s);
    QVERIFY(first->IsReady());
    Child second(u"--serve"_s);
    QVERIFY(second.IsReady());
    QVERIFY(Execute(L"paneda", L"Panel", u"one"_s, true));
    QVERIFY(first->WaitFor("got one"));
    QVERIFY(!second.HasSaid("got"));
    // Killed, so that it gives nothing back.
    first.reset();
    QVERIFY(Execute(L"paneda", L"Panel", u"two"_s, true));
    QVERIFY(second.WaitFor("got two"));
}

void tst_windows_session::hotkey() {
    int presses = 0;
    MessageHotkey keys;
    const auto pressKey = [] {
        for (const WORD key : {WORD(VK_CONTROL), WORD(VK_MENU), WORD(kKey)})
            Press(key, true);
        if (!IsWine())
            Press(kKey, true); // held
        for (const WORD key : {WORD(kKey), WORD(VK_MENU), WORD(VK_CONTROL)})
            Press(key, false);
    };
    QCOMPARE(keys.Register(kHotkeyCtrl | kHotkeyAlt, kKey, [&presses] { ++presses; }),
             Hotkey::Answer::Registered);
    pressKey();
    QTRY_VERIFY(presses > 0);
    QTest::qWait(200);
    QCOMPARE(presses, 1);

    // A press that has not been told yet is none once the key has been given back.
    pressKey();
    keys.Unregister();
    QTest::qWait(200);
    QCOMPARE(presses, 1);
}

void tst_windows_session::hotkeyAnswers() {
    MessageHotkey holder;
    MessageHotkey other;
    QCOMPARE(other.State(), Hotkey::Answer::Refused);
    QCOMPARE(other.Register(kHotkeyCtrl, 0, [] {}), Hotkey::Answer::NoSuchKey);
    QCOMPARE(holder.Register(kHotkeyCtrl, kKey, [] {}), Hotkey::Answer::Registered);
    QCOMPARE(other.Register(kHotkeyCtrl, kKey, [] {}), Hotkey::Answer::Taken);
    QCOMPARE(other.State(), Hotkey::Answer::Taken);
    QCOMPARE(other.Register(kHotkeyCtrl | kHotkeyShift, kKey, [] {}), Hotkey::Answer::Registered);
    // Another combination lets the former one go.
    QCOMPARE(holder.Register(kHotkeyAlt, kKey, [] {}), Hotkey::Answer::Registered);
    QCOMPARE(other.Register(kHotkeyCtrl, kKey, [] {}), Hotkey::Answer::Registered);
}

void tst_windows_session::foreground() {
    const auto make = [](int x) {
        return std::unique_ptr<HWND, DestroyHwnd>(
            CreateWindowExW(0, L"STATIC", L"window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, 20, 100, 100,
                            nullptr, nullptr, nullptr, nullptr));
    };
    const auto first = make(20);
    const auto second = make(200);
    QVERIFY(first && second);
    WindowsForeground front;
    for (const HWND window : {first.get(), second.get(), first.get()}) {
        front.Activate(WId(window));
        QTRY_COMPARE(front.ActiveWindow(), WId(window));
    }
    ShowWindow(second.get(), SW_MINIMIZE);
    front.Activate(WId(second.get()));
    QTRY_COMPARE(front.ActiveWindow(), WId(second.get()));
}

void tst_windows_session::taskbarThatComesAnew() {
    int changes = 0;
    TaskbarTrayHosts hosts;
    hosts.Watch([&changes] { ++changes; });
    const UINT created = RegisterWindowMessageW(L"TaskbarCreated");
    PostMessageW(HWND_BROADCAST, created, 0, 0);
    QTRY_COMPARE(changes, 1);
    hosts.Watch({});
    PostMessageW(HWND_BROADCAST, created, 0, 0);
    QTest::qWait(100);
    QCOMPARE(changes, 1);
}

void tst_windows_session::endings_data() {
    QTest::addColumn<bool>("sessionEnds");
    QTest::addColumn<UINT>("message");
    QTest::newRow("session") << true << UINT(WM_ENDSESSION);
    QTest::newRow("session that quits the loop first") << true << UINT(WM_QUIT);
    QTest::newRow("close") << false << UINT(WM_CLOSE);
}

void tst_windows_session::endings() {
    QFETCH(bool, sessionEnds);
    QFETCH(UINT, message);
    Child program(u"--end"_s);
    QVERIFY(program.IsReady());
    const HWND window = program.Window();
    QVERIFY(window);
    // An end of the session that somebody else prevents.
    QCOMPARE(SendMessageW(window, WM_QUERYENDSESSION, 0, 0), LRESULT(TRUE));
    SendMessageW(window, WM_ENDSESSION, FALSE, 0);
    QVERIFY(!program.HasSaid("asked"));
    if (sessionEnds)
        QCOMPARE(SendMessageW(window, WM_QUERYENDSESSION, 0, 0), LRESULT(TRUE));
    if (message == WM_ENDSESSION)
        SendMessageW(window, message, TRUE, 0);
    else if (message == WM_QUIT)
        PostThreadMessageW(GetWindowThreadProcessId(window, nullptr), message, 0, 0);
    else
        PostMessageW(window, message, 0, 0);
    QVERIFY(program.WaitFor("asked"));
    QTRY_COMPARE(program.Process().state(), QProcess::NotRunning);
    QCOMPARE(program.Process().exitCode(), message == WM_QUIT ? 0 : kEndedInOrder);
}

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QString role = QCoreApplication::arguments().value(1);
    if (role == u"--serve")
        return Serve();
    if (role == u"--end")
        return WaitForEnd();
    tst_windows_session test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_windows_session.moc"
