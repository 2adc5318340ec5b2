#include "platform/linux/desktop_autostart.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/signal_termination.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <cstdio>

using namespace paneda;

namespace {

constexpr int kEndedInOrder = 7;

// What the test starts itself as: ends in order at a signal, or hangs instead.
int WaitForEnd(int argc, char** argv, bool hangs) {
    QCoreApplication application(argc, argv);
    SignalTermination termination;
    termination.OnRequest([hangs] {
        std::puts("asked");
        std::fflush(stdout);
        if (!hangs)
            QCoreApplication::exit(kEndedInOrder);
    });
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

bool WaitForText(QProcess& process, const QByteArray& text) {
    while (!process.peek(1000).contains(text)) {
        if (!process.waitForReadyRead(10'000))
            return false;
    }
    process.readAll();
    return true;
}

void Send(const QProcess& process, int signal) {
    ::kill(pid_t(process.processId()), signal);
}

} // namespace

// How the session starts the program and how it asks it to end.
class tst_session : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void startsAtLogin_data();
    void startsAtLogin();
    void entryOfAnother();
    void switchedOffByHand();
    void signals();
    void ignoredAndSecondSignals();

private:
    QString Entry() const { return folder_.filePath(QStringLiteral("config/autostart/paneda.desktop")); }
    void Write(const QByteArray& text) const;

    QTemporaryDir folder_;
};

void tst_session::initTestCase() {
    QVERIFY(folder_.isValid());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder_.filePath(QStringLiteral("config"))));
}

void tst_session::Write(const QByteArray& text) const {
    QVERIFY(QDir().mkpath(folder_.filePath(QStringLiteral("config/autostart"))));
    QFile file(Entry());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

void tst_session::startsAtLogin_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"paneda", "with blank", "quo\"te 'single'", "do$HOME `x`", "back\\slash\\\\n",
                             "100% %f %%", "\xc3\xa9t\xc3\xa9", "a;b&c|d>e*?#~()"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void tst_session::startsAtLogin() {
    QFETCH(QString, name);
    const QString program = folder_.filePath(name);
    const QString mark = folder_.filePath(QStringLiteral("started"));
    QFile script(program);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho $# > " + QFile::encodeName(mark));
    script.close();
    QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    DesktopAutostart autostart;
    QVERIFY(!autostart.IsSet(program));
    QVERIFY(autostart.Set(true, program));
    QVERIFY(autostart.IsSet(program));
    QVERIFY(!autostart.IsSet(program + u'2'));
    // The desktop's own reader has the last word on the quotes.
    if (!QStandardPaths::findExecutable(QStringLiteral("gio")).isEmpty()) {
        QCOMPARE(QProcess::execute(QStringLiteral("gio"), {QStringLiteral("launch"), Entry()}), 0);
        QFile started(mark);
        QTRY_VERIFY(started.size() == 2);
        QVERIFY(started.open(QIODevice::ReadOnly));
        QCOMPARE(started.readAll(), QByteArray("0\n"));
        QVERIFY(started.remove());
    }
    QVERIFY(autostart.Set(false, program));
    QVERIFY(!QFile::exists(Entry()));
    QVERIFY(autostart.Set(false, program));
}

void tst_session::entryOfAnother() {
    const QByteArray text = "[Desktop Entry]\nType=Application\nExec=/opt/other\n";
    Write(text);
    DesktopAutostart autostart;
    for (const bool on : {true, false}) {
        const FileResult result = autostart.Set(on, QStringLiteral("/opt/paneda"));
        QVERIFY(!result);
        QCOMPARE(result.error().Path, Entry());
        QFile file(Entry());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), text);
    }
    QVERIFY(!autostart.IsSet(QStringLiteral("/opt/paneda")));
    QVERIFY(QFile::remove(Entry()));
}

void tst_session::switchedOffByHand() {
    DesktopAutostart autostart;
    QVERIFY(autostart.Set(true, QStringLiteral("/opt/paneda")));
    for (const char* line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        Write(QByteArray("[Desktop Entry]\nExec=\"/opt/paneda\"\nX-Paneda-Launcher=true\n") + line);
        QVERIFY(!autostart.IsSet(QStringLiteral("/opt/paneda")));
    }
    // Switching it on again makes the whole entry anew, for whichever folder asks last.
    QVERIFY(autostart.Set(true, QStringLiteral("/mnt/paneda")));
    QVERIFY(autostart.IsSet(QStringLiteral("/mnt/paneda")));
    QVERIFY(autostart.Set(false, QStringLiteral("/opt/paneda")));
    QVERIFY(!QFile::exists(Entry()));
}

void tst_session::signals() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--wait")});
        QVERIFY(WaitForText(process, "ready"));
        Send(process, signal);
        QVERIFY(process.waitForFinished(10'000));
        QCOMPARE(process.exitCode(), kEndedInOrder);
    }
}

void tst_session::ignoredAndSecondSignals() {
    QProcess process;
    process.setChildProcessModifier([] { ::signal(SIGHUP, SIG_IGN); });
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--hang")});
    QVERIFY(WaitForText(process, "ready"));
    Send(process, SIGHUP);
    QVERIFY(!process.waitForReadyRead(300));
    // The second one of a kind ends a program that hangs.
    Send(process, SIGINT);
    QVERIFY(WaitForText(process, "asked"));
    Send(process, SIGTERM);
    QVERIFY(WaitForText(process, "asked"));
    Send(process, SIGTERM);
    QVERIFY(process.waitForFinished(10'000));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
}

int main(int argc, char** argv) {
    const QByteArrayView role = argc > 1 ? argv[1] : "";
    if (role == "--wait" || role == "--hang")
        return WaitForEnd(argc, argv, role == "--hang");
    QCoreApplication application(argc, argv);
    tst_session test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_session.moc"
