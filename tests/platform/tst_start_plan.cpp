#include "platform/linux/start_plan.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace paneda;
using namespace Qt::StringLiterals;

// What is started for a request. "@" stands for the test's folder; PATH leads to its folder "bin" alone.
class tst_start_plan : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void targets_data();
    void targets();
    void otherActions();
    void openers();

private:
    void Put(const QString& name, const QByteArray& bytes, bool mayRun) const;
    QString Expand(QString text) const { return text.replace(u'@', folder_.path()); }
    QString Stored(const QString& text) const;
    QString Describe(const LaunchRequest& request) const;

    QTemporaryDir folder_;
    LaunchPaths paths_;
};

void tst_start_plan::Put(const QString& name, const QByteArray& bytes, bool mayRun) const {
    const QString path = folder_.filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
    const auto rights = QFile::ReadOwner | QFile::WriteOwner;
    QVERIFY(file.setPermissions(mayRun ? rights | QFile::ExeOwner : rights));
}

// The host's separators become the stored form's, apart from addresses and paths that begin with "/".
QString tst_start_plan::Stored(const QString& text) const {
    QString result = text;
    if (!result.startsWith(u'@'))
        return result;
    return paths_.Drives.ToStored(Expand(result.replace(u'\\', u'/')));
}

QString tst_start_plan::Describe(const LaunchRequest& request) const {
    const StartPlan plan = PlanStart(request, paths_);
    if (plan.Program.isEmpty())
        return QString(plan.Problem).replace(folder_.path(), u"@"_s);
    QString text = plan.Program + u'(' + plan.Arguments.join(u'|') + u')';
    if (!plan.WorkingFolder.isEmpty())
        text += u" in "_s + plan.WorkingFolder;
    if (plan.OwnsWindow)
        text += u" own"_s;
    return text.replace(folder_.path(), u"@"_s);
}

void tst_start_plan::initTestCase() {
    const QByteArray script = "#!/bin/sh\n";
    QVERIFY(QDir().mkpath(folder_.filePath(u"app/Inner"_s)));
    QVERIFY(QDir().mkpath(folder_.filePath(u"home"_s)));
    QVERIFY(QFile::copy(u"/bin/true"_s, folder_.filePath(u"app/tool"_s)));
    Put(u"app/Inner/Script"_s, script, true);
    Put(u"app/twice"_s, script, true);
    Put(u"bin/Twice"_s, script, true);
    Put(u"app/plain.sh"_s, "echo\n", true);
    Put(u"app/text.txt"_s, "text", true);
    Put(u"app/-x"_s, "text", false);
    Put(u"app/a.desktop"_s, "[Desktop Entry]\nExec=run %f -x\n", true);
    Put(u"app/path.desktop"_s, "[Desktop Entry]\nExec=run\nPath=/usr\n", false);
    Put(u"app/term.desktop"_s, "[Desktop Entry]\nExec=run \"a b\"\nTerminal=true\n", false);
    Put(u"app/none.desktop"_s, "[Desktop Entry]\n", false);
    Put(u"app/single.desktop"_s, "[Desktop Entry]\nExec=\"/a b/$(x)\"\nTerminal=true\n", false);
    Put(u"app/link.desktop"_s, "[Desktop Entry]\nType=Link\nURL=--x\n", false);
    Put(u"app/place.desktop"_s, "[Desktop Entry]\nType=Link\nURL=trash:///\n", false);
    Put(u"app/option.url"_s, "[InternetShortcut]\nURL=--x\n", false);
    Put(u"app/web.url"_s, "[InternetShortcut]\nURL=www.a/b c\n", false);
    Put(u"app/none.url"_s, "[InternetShortcut]\n", false);
    QCOMPARE(::mkfifo(QFile::encodeName(folder_.filePath(u"app/pipe"_s)).constData(), 0700), 0);
    for (const char* name : {"xdg-open", "xterm", "firefox"})
        Put(u"bin/"_s + QLatin1StringView(name), script, true);
    qputenv("PATH", QFile::encodeName(folder_.filePath(u"bin"_s)));
    qputenv("HOME", QFile::encodeName(folder_.filePath(u"home"_s)));
    paths_.Drives = DriveMap::FromMountPoints({});
    paths_.AppPath = Stored(u"@/app"_s);
}

void tst_start_plan::targets_data() {
    QTest::addColumn<QString>("target"); // "@..." is turned into the stored form
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("startIn");
    QTest::addColumn<QString>("plan");

    const auto row = [](const char* name, const char* target, const char* parameter, const char* startIn,
                        const QByteArray& plan) {
        QTest::newRow(name) << QString::fromUtf8(target) << QString::fromUtf8(parameter)
                            << QString::fromUtf8(startIn) << QString::fromUtf8(plan);
    };
    // Programs and scripts.
    row("program", "@/app/tool", R"(-x "a b" "" C:\y)", "", R"(@/app/tool(-x|a b||C:\y) in @/app own)");
    row("quotes", "@/app/tool", R"(a\"b "c \"d\"" "e""f" "g\\" h\\\"i --x="j k" l\ m)", "",
        R"(@/app/tool(a"b|c "d"|e"f|g\|h\"i|--x=j k|l\|m) in @/app own)");
    row("script", "@/app/Inner/Script", "a", "", "@/app/Inner/Script(a) in @/app/Inner own");
    row("script without #!", "@/app/plain.sh", "a", "", "/bin/sh(@/app/plain.sh|a) in @/app own");
    // What only looks like a program.
    row("text that may run", "@/app/text.txt", "a", "@/gone", "@/bin/xdg-open(@/app/text.txt) in @/app");
    row("text named like an option", "-x", "", "", "@/bin/xdg-open(@/app/-x) in @/app");
    row("pipe", "@/app/pipe", "", "", "@/bin/xdg-open(@/app/pipe) in @/app");
    // Desktop entries start at home, unless a folder is told.
    row("entry", "@/app/a.desktop", "f", "", "run(f|-x) in @/home own");
    row("entry with path", "@/app/path.desktop", "", "@/app/Inner", "run() in /usr own");
    row("entry in a terminal", "@/app/term.desktop", "", "", "@/bin/xterm(-e|run|a b) in @/home own");
    row("one word in a terminal", "@/app/single.desktop", "", "",
        "@/bin/xterm(-e|/bin/sh|-c|exec \"$0\"|/a b/$(x)) in @/home own");
    row("entry without command", "@/app/none.desktop", "", "",
        "@/app/none.desktop: This desktop entry holds no command that can be run.");
    // Ways to name a target.
    row("other case", "@/APP/inner/SCRIPT", "", "", "@/app/Inner/Script() in @/app/Inner own");
    row("own folder before the search path", "Twice", "", "", "@/app/twice() in @/app own");
    row("not there", R"(Inner\onpath)", "", "",
        "@/app/Inner/onpath: This is not there. Put it there, or change the button's target.");
    row("no target", "", "", "", "It has no target. Give it one.");
    row("drive without volume", R"(q:\app\tool)", "", "",
        R"(q:\app\tool: There is no drive Q: here. Connect it and try again.)");
    row("network path", R"(\\server\share\tool)", "", "",
        R"(\\server\share\tool: )"
        "This lies on the network. Make a button for the place where this computer has it.");
    row("shortcut without address", "@/app/none.url", "", "",
        "@/app/none.url: It holds no address. Give it one.");
    const char* const refused =
        ": \"--x\" is no address for a browser. It has to begin with http://, https://, "
        "ftp://, mailto:, file:// or the name of a host.";
    row("option for an address", "@/app/option.url", "", "", QByteArray("@/app/option.url") + refused);
    row("option in an entry", "@/app/link.desktop", "", "", QByteArray("@/app/link.desktop") + refused);
    row("place of the desktop", "@/app/place.desktop", "", "", "@/bin/xdg-open(trash:///) in @/app");
    row("shortcut", "@/app/web.url", "", "", "@/bin/xdg-open(http://www.a/b%20c) in @/app");
    // Start folders.
    row("start folder", "@/app/tool", "", "@/home", "@/app/tool() in @/home own");
    row("address", "HTTPS://a/b?c=d e", "x", R"(HTTPS://a/)", "@/bin/xdg-open(HTTPS://a/b?c=d%20e)");
    row("address of a program", "tool:a \"b", "", "", "@/bin/xdg-open(tool:a%20%22b)");
    row("no address", "tool:a\x01", "", "", "The address holds characters that no address has.");
}

void tst_start_plan::targets() {
    QFETCH(QString, target);
    QFETCH(QString, parameter);
    QFETCH(QString, startIn);
    QFETCH(QString, plan);
    const LaunchRequest request{LaunchRequest::Action::OpenTarget, Stored(target), parameter, Stored(startIn),
                                ShowCommand::Normal};
    QCOMPARE(Describe(request), plan);
}

void tst_start_plan::otherActions() {
    using Action = LaunchRequest::Action;
    const auto plan = [this](Action action, const QString& target, const QString& parameter = {}) {
        return Describe({action, Stored(target), parameter, {}, ShowCommand::Normal});
    };
    const auto browser = [&plan](const QString& target) {
        return plan(Action::OpenBrowser, target, u"https://a b"_s);
    };
    QCOMPARE(plan(Action::OpenDrive, u"c"_s), u"@/bin/xdg-open(/) in /"_s);
    QCOMPARE(plan(Action::OpenDrive, u"Q"_s), u"There is no drive Q: here. Connect it and try again."_s);
    QCOMPARE(browser(u"@/app/Inner/script"_s), u"@/app/Inner/Script(https://a b) own"_s);
    QCOMPARE(browser(u"firefox.exe"_s), u"@/bin/firefox(https://a b) own"_s);
    QCOMPARE(browser(u"iexplore.exe"_s), u"@/bin/xdg-open(https://a b)"_s);
    QCOMPARE(plan(Action::Nothing, u"c"_s), u""_s);
    const LaunchRequest refused{Action::Refuse, Stored(u"@/app/x.url"_s), {}, {}, ShowCommand::Normal, u"X"_s,
                                u"why"_s};
    QCOMPARE(Describe(refused), u"\"X\" cannot be opened.\n@/app/x.url: why"_s);
}

void tst_start_plan::openers() {
    const LaunchRequest request{
        LaunchRequest::Action::OpenTarget, u"https://a"_s, {}, {}, ShowCommand::Normal};
    const QByteArray path = qgetenv("PATH");
    Put(u"other/gio"_s, "#!/bin/sh\n", true);
    qputenv("PATH", QFile::encodeName(folder_.filePath(u"other"_s)));
    const QString withOther = Describe(request);
    qputenv("PATH", QFile::encodeName(folder_.filePath(u"home"_s)));
    const QString withNone = Describe(request);
    qputenv("PATH", path);
    QCOMPARE(withOther, u"@/other/gio(open|https://a)"_s);
    QVERIFY2(withNone.startsWith(u"https://a: This system has no program that opens files"_s),
             qPrintable(withNone));
    // What was pressed is named first.
    LaunchRequest drive{LaunchRequest::Action::OpenDrive, u"Q"_s, {}, {}, ShowCommand::Normal, u"Drive Q"_s};
    QVERIFY(
        PlanStart(drive, paths_).Problem.startsWith(u"\"Drive Q\" cannot be opened.\nThere is no drive Q"_s));
}

QTEST_GUILESS_MAIN(tst_start_plan)
#include "tst_start_plan.moc"
