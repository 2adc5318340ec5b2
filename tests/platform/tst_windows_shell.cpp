#include "platform/code_pages.h"
#include "platform/windows/mutex_lock.h"
#include "platform/windows/run_key_autostart.h"
#include "platform/windows/shell_icons.h"
#include "platform/windows/shell_opener.h"
#include "platform/windows/shell_source_places.h"
#include "platform/windows/target_path.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_volume_space.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <windows.h>

#include <cstdio>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

constexpr char kTellVariable[] = "PANEDA_TELL_FILE";
constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kSwitchKey[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StartupApproved\\Run";
constexpr wchar_t kRunValue[] = L"Paneda Launcher";

QString Native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

bool WriteText(const QString& path, const QByteArray& text) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

// What the test starts itself as: tells in a file how it was started.
int TellStart() {
    STARTUPINFOW info{};
    GetStartupInfoW(&info);
    const QString line = QString::fromWCharArray(GetCommandLineW());
    const QString folder = Native(QDir::currentPath());
    const QString told = line.mid(line.indexOf(u"--tell"_s)) + u'\n' + folder + u'\n' +
                         QString::number(info.dwFlags & STARTF_USESHOWWINDOW ? info.wShowWindow : 0);
    const QString file = qEnvironmentVariable(kTellVariable);
    return WriteText(file + u".new"_s, told.toUtf8()) && QFile::rename(file + u".new"_s, file) ? 0 : 1;
}

// Holds the mark of a path until its input ends.
int HoldMark(const QString& path) {
    MutexLock lock;
    std::puts(lock.TryLock(path) ? "held" : "refused");
    std::fflush(stdout);
    return std::getchar();
}

void SetRunValue(const wchar_t* key, DWORD type, const void* data, DWORD size) {
    QCOMPARE(RegSetKeyValueW(HKEY_CURRENT_USER, key, kRunValue, type, data, size), LSTATUS(ERROR_SUCCESS));
}

} // namespace

// What the shell and the registry do for the program.
class tst_windows_shell : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void starts_data();
    void starts();
    void plans();
    void targetsThatAreMissing();
    void icons();
    void sources();
    void space();
    void codePages();
    void oneInstance();
    void startsAtLogin();
    void cleanup();

private:
    QTemporaryDir folder_;
    QString app_;     // stored form
    QString program_; // in the folder, with a blank in its name
    LaunchPaths paths_;
};

void tst_windows_shell::initTestCase() {
    QVERIFY(folder_.isValid());
    app_ = Native(QFileInfo(folder_.path()).canonicalFilePath());
    program_ = app_ + u"\\a program.exe"_s;
    paths_ = {DriveMap(), app_};
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program_));
    QVERIFY(QDir().mkpath(folder_.filePath(u"Start Here"_s)));
    QVERIFY(WriteText(folder_.filePath(u"text.txt"_s), "x"));
    qputenv(kTellVariable, folder_.filePath(u"told"_s).toUtf8());
}

void tst_windows_shell::starts_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("startIn");
    QTest::addColumn<int>("show");
    QTest::addColumn<QString>("folder");

    QTest::newRow("normal") << program_ << u"--tell"_s << app_ + u"\\Start Here"_s << 1
                            << app_ + u"\\Start Here"_s;
    QTest::newRow("minimized") << program_ << u"--tell x"_s << QString() << 2 << app_;
    QTest::newRow("maximized") << program_ << u"--tell x"_s << app_ + u"\\gone"_s << 3 << app_;
    QTest::newRow("one text") << program_ << u"--tell  \"a b\"   c\\\" 'd %PATH% é"_s << app_ << 1 << app_;
    QTest::newRow("without drive") << program_.mid(2) << u"--tell"_s << app_.mid(2) << 1 << app_;
    const QString deep = app_ + QString(u"\\"_s + QString(90, u'd')).repeated(3);
    QVERIFY(QDir().mkpath(deep) && QFile::copy(program_, deep + u"\\deep.exe"_s));
    QTest::newRow("long path") << deep + u"\\deep.exe"_s << u"--tell x"_s << app_ << 1 << app_;
}

void tst_windows_shell::starts() {
    QFETCH(QString, target);
    QFETCH(QString, parameter);
    QFETCH(QString, startIn);
    QFETCH(int, show);
    QFETCH(QString, folder);
    const QString told = folder_.filePath(u"told"_s);
    {
        ShellOpener opener;
        opener.Open({LaunchRequest::Action::OpenTarget, target, parameter, startIn, ShowCommand(show)},
                    paths_);
        // A start that is on its way must not be lost when the panel ends at once.
    }
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(told), 20'000);
    QFile file(told);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    QCOMPARE(lines.value(0), parameter);
    QCOMPARE(lines.value(1).toLower(), folder.toLower());
    QCOMPARE(lines.value(2), QString::number(show));
}

void tst_windows_shell::plans() {
    const auto plan = [this](LaunchRequest::Action action, const QString& target) {
        const ShellCall call = PlanShellCall({action, target, u"1"_s, {}, ShowCommand::Normal}, paths_);
        return QStringList{call.Verb, call.File, call.Parameters, call.Folder}.join(u'|');
    };
    for (const QString& target :
         {u"http://a.example/x?y=1"_s, u"shell:a b"_s, u"::{20D04FE0}"_s, u"\\\\server\\share\\x.exe"_s})
        QCOMPARE(plan(LaunchRequest::Action::OpenTarget, target), u"|%1|1|"_s.arg(target));
    QCOMPARE(plan(LaunchRequest::Action::OpenTarget, u"tool:a \"b"_s), u"|tool:a%20%22b|1|"_s);
    QCOMPARE(plan(LaunchRequest::Action::OpenBrowser, u"firefox.exe"_s), u"open|firefox.exe|\"1\"|"_s);
    QCOMPARE(plan(LaunchRequest::Action::Nothing, u"x"_s), u"|||"_s);
}

void tst_windows_shell::targetsThatAreMissing() {
    const ShellCall drive =
        PlanShellCall({LaunchRequest::Action::OpenDrive, u"C"_s, {}, {}, ShowCommand::Normal}, paths_);
    QVERIFY2(QFile::exists(drive.File), qPrintable(drive.File));
    QCOMPARE(drive.Parameters, u"C:"_s);
    ShellOpener opener;
    const QStringList missing{u"Q:\\gone.exe"_s, app_ + u"\\gone.txt"_s, u" "_s, u"no-such-program"_s};
    for (const QString& target : missing)
        opener.Open({LaunchRequest::Action::OpenTarget, target, {}, {}, ShowCommand::Normal}, paths_);
    opener.Open({LaunchRequest::Action::Refuse, app_, {}, {}, ShowCommand::Normal, u"X"_s, u"why"_s}, paths_);
    // A message for each, which the user closes when there is time.
    QSet<HWND> boxes;
    const auto closeBoxes = [&boxes] {
        const HWND box = FindWindowW(L"#32770", nullptr);
        if (box && PostMessageW(box, WM_CLOSE, 0, 0))
            boxes.insert(box);
        return boxes.size();
    };
    QTRY_COMPARE_WITH_TIMEOUT(closeBoxes(), missing.size() + 1, 20'000);
}

void tst_windows_shell::icons() {
    ShellIcons icons;
    for (const QString& target :
         QStringList{program_, app_ + u"\\text.txt"_s, u"Start Here"_s, u"C:\\"_s, u"notepad"_s}) {
        for (const int pixels : {16, 40, 256}) {
            const QImage icon = icons.IconOf(target, paths_, pixels);
            QCOMPARE(icon.size(), QSize(pixels, pixels));
            QVERIFY2(qAlpha(icon.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(0, 0)) >
                         0,
                     qPrintable(target));
        }
    }
    for (const QString& target :
         QStringList{app_ + u"\\gone.exe"_s, u"Q:\\"_s, u"no-such-program"_s, QString()})
        QVERIFY(icons.IconOf(target, paths_, 32).isNull());
}

void tst_windows_shell::sources() {
    const ShellSourcePlaces places;
    const std::pair<Source, QString> roots[] = {
        {Source::Desktop, QStandardPaths::writableLocation(QStandardPaths::DesktopLocation)},
        {Source::StartMenu, QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation)}};
    for (const auto& [source, root] : roots) {
        QVERIFY(QDir(root).mkpath(u"paneda test/inner"_s));
        QDir(root + u"/paneda test"_s).rename(u"inner"_s, u"In \u00E4"_s);
        const SourceListing listing = places.List(source, u"paneda test\\"_s);
        QDir(root + u"/paneda test"_s).removeRecursively();
        const std::vector<SourceItem> wanted{{u"In \u00E4"_s, true, root + u"/paneda test/In \u00E4"_s}};
        QVERIFY(listing.User == wanted);
        QVERIFY(listing.Public.empty());
    }
    QVERIFY(places.HasMedium(u"C:/"_s));
    QVERIFY(!places.List(Source::MyComputer, u"C:/"_s).User.empty());
    QVERIFY(!ShellIcons().TypeNameOf(u"a.txt"_s).isEmpty());
}

void tst_windows_shell::space() {
    const VolumeSpace own = AskVolumeSpace(DriveMap().RootOf(app_[0]));
    QVERIFY(own.TotalBytes > 0);
    QVERIFY(own.FreeBytes > 0 && own.FreeBytes <= own.TotalBytes);
    for (const QString& root : {QString(), u"Q:/"_s})
        QCOMPARE(AskVolumeSpace(root).TotalBytes, quint64(0));
}

void tst_windows_shell::codePages() {
    const CodePageDecoder decode = SystemCodePages();
    QCOMPARE(decode("\x93\xfa\x96\x7b", 932), u"\u65E5\u672C"_s);
    QCOMPARE(decode("\xb0\xa1", 949), u"\uAC00"_s);
    QCOMPARE(decode("\x93", 932), std::nullopt);
    QCOMPARE(decode("a", 12345), std::nullopt);
}

void tst_windows_shell::oneInstance() {
    QProcess other;
    other.start(QCoreApplication::applicationFilePath(), {u"--hold"_s, program_});
    QVERIFY(other.waitForReadyRead(20'000));
    QCOMPARE(other.readAll().trimmed(), QByteArray("held"));
    MutexLock lock;
    QVERIFY(!lock.TryLock(program_));
    QVERIFY(!lock.TryLock(program_.toUpper()));
    QVERIFY(lock.TryLock(app_ + u"\\other.exe"_s));
    // A mark does not outlive its process, however that ends.
    other.kill();
    QVERIFY(other.waitForFinished());
    QTRY_VERIFY(lock.TryLock(program_));
    MutexLock second;
    QVERIFY(!second.TryLock(program_));
}

void tst_windows_shell::startsAtLogin() {
    const QString own = app_ + u"\\paneda.exe"_s;
    RunKeyAutostart autostart;
    QVERIFY(!autostart.IsSet(own));
    QVERIFY(autostart.Set(true, QDir::fromNativeSeparators(own)));
    wchar_t value[MAX_PATH] = {};
    DWORD size = sizeof value;
    QCOMPARE(RegGetValueW(HKEY_CURRENT_USER, kRunKey, kRunValue, RRF_RT_REG_SZ, nullptr, value, &size),
             LSTATUS(ERROR_SUCCESS));
    QCOMPARE(QString::fromWCharArray(value), own);
    QVERIFY(autostart.IsSet(own));
    QVERIFY(!autostart.IsSet(app_ + u"\\elsewhere\\paneda.exe"_s));

    // Switched off in the task manager, and on again here.
    const BYTE off[12] = {3};
    SetRunValue(kSwitchKey, REG_BINARY, off, sizeof off);
    QVERIFY(!autostart.IsSet(own));
    QVERIFY(autostart.Set(true, own));
    QVERIFY(autostart.IsSet(own));
    QVERIFY(autostart.Set(false, own));
    QVERIFY(!autostart.IsSet(own));
    QVERIFY(autostart.Set(false, own));

    const QString others = u"\"C:\\Other\\other.exe\" -x"_s;
    SetRunValue(kRunKey, REG_SZ, Wide(others), DWORD(others.size() + 1) * sizeof(wchar_t));
    for (const bool on : {true, false}) {
        const FileResult result = autostart.Set(on, own);
        QVERIFY(!result);
        QVERIFY(result.error().Text().contains(others));
    }
}

void tst_windows_shell::cleanup() {
    QFile::remove(folder_.filePath(u"told"_s));
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunValue);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kSwitchKey, kRunValue);
}

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"--tell")
        return TellStart();
    if (arguments.value(1) == u"--hold")
        return HoldMark(arguments.value(2));
    tst_windows_shell test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_windows_shell.moc"
