#include "platform/linux/shortcut_target.h"
#include "platform/linux/start_plan.h"
#include "platform/linux/theme_icons.h"
#include "platform/linux/theme_names.h"
#include "platform/linux/x11_compositor.h"
#include "support/link_builder.h"
#include "support/store_builder.h"

#include <QFile>
#include <QImage>
#include <QTest>

#include <sys/stat.h>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

// Windows shortcuts on this host: what a launch of one starts, what the user reads where it cannot, and its
// icon. "@" stands for the test's folder, "~" for its stored form.
class tst_shortcuts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void plans_data();
    void plans();
    void problems();
    void icons();
    void foreignIcons();
    void missingIcons();
    void noConnection();

private:
    QString Expand(QString text) const;
    void Put(const QString& name, LinkParts parts) const;
    QString Describe(const LaunchRequest& request) const;

    StoreBuilder files_;
    LaunchPaths paths_;
};

QString tst_shortcuts::Expand(QString text) const {
    return text.replace(u'@', files_.AppFolder()).replace(u'~', paths_.Drives.ToStored(files_.AppFolder()));
}

void tst_shortcuts::Put(const QString& name, LinkParts parts) const {
    for (QString* text :
         {&parts.LocalPath, &parts.WorkingFolder, &parts.IconLocation, &parts.EnvironmentPath})
        *text = Expand(*text);
    files_.AddFile(name, MakeLink(parts));
}

QString tst_shortcuts::Describe(const LaunchRequest& request) const {
    const StartPlan plan = PlanStart(request, paths_);
    if (plan.Program.isEmpty())
        return QString(plan.Problem).replace(files_.AppFolder(), u"@"_s);
    QString text = plan.Program + u'(' + plan.Arguments.join(u'|') + u") in "_s + plan.WorkingFolder;
    if (plan.Show != ShowCommand::Normal)
        text += plan.Show == ShowCommand::Minimized ? u" minimized"_s : u" maximized"_s;
    return text.replace(files_.AppFolder(), u"@"_s);
}

void tst_shortcuts::initTestCase() {
    paths_.Drives = DriveMap::FromMountPoints({});
    paths_.AppPath = Expand(u"~\\app"_s);
    for (const QString& name : {u"Tools/tool"_s, u"bin/xdg-open"_s}) {
        files_.AddFile(name, "#!/bin/sh\n");
        QVERIFY(QFile::setPermissions(files_.Path(name), QFile::ReadOwner | QFile::ExeOwner));
    }
    qputenv("PATH", QFile::encodeName(files_.Path(u"bin"_s)));
    files_.AddFolder(u"home"_s);
    qputenv("HOME", QFile::encodeName(files_.Path(u"home"_s)));
    files_.AddFolder(u"Work"_s);
    files_.AddFolder(u"app"_s);
    files_.AddFile(u"Tools/text.txt"_s, "text");
    for (const auto& [name, colour] :
         {std::pair(u"red.png"_s, Qt::red), std::pair(u"blue.png"_s, Qt::blue)}) {
        QImage picture(16, 16, QImage::Format_RGB32);
        picture.fill(colour);
        QVERIFY(picture.save(files_.Path(name)));
    }
    files_.AddFile(u"app/red.svg"_s, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>"
                                     "<rect width='9' height='9' fill='red'/></svg>");
    files_.AddFile(u"Tools/blue.desktop"_s, Expand(u"[Desktop Entry]\nIcon=@/blue.png\nExec=x\n"_s).toUtf8());

    Put(u"app/tool.lnk"_s, {.LocalPath = u"~\\Tools\\tool"_s});
    Put(u"app/all.lnk"_s, {.LocalPath = u"~\\Tools\\tool"_s,
                           .WorkingFolder = u"~\\Work"_s,
                           .Arguments = u"-x \"a b\""_s,
                           .ShowCode = 7});
    Put(u"app/moved.lnk"_s, {.LocalPath = u"Q:\\Tools\\tool"_s,
                             .RelativePath = u"..\\tools\\TOOL"_s,
                             .EnvironmentPath = u"%ProgramFiles%\\tool"_s});
    Put(u"app/document.lnk"_s, {.LocalPath = u"~\\Tools\\text.txt"_s, .Arguments = u"a"_s});
    Put(u"app/again.lnk"_s, {.LocalPath = u"~\\app\\all.lnk"_s, .Arguments = u"-y"_s, .ShowCode = 3});

    Put(u"app/circle.lnk"_s, {.LocalPath = u"~\\app\\circle.lnk"_s});
    Put(u"app/missing.lnk"_s, {.LocalPath = u"C:\\no\\such\\x.exe"_s});
    Put(u"app/percent.lnk"_s, {.LocalPath = u"C:\\5%\\6%"_s});
    Put(u"app/bare.lnk"_s, {.LocalPath = u"tool"_s});
    Put(u"app/drive.lnk"_s, {.LocalPath = u"Q:\\x.exe"_s});
    Put(u"app/variable.lnk"_s, {.EnvironmentPath = u"%ProgramFiles%\\x.exe"_s});
    Put(u"app/network.lnk"_s, {.NetworkName = u"\\\\server\\share"_s, .Suffix = u"x.exe"_s});
    Put(u"app/item.lnk"_s, {.Description = u"Control panel"_s});
    files_.AddFile(u"app/text.lnk"_s, "text");

    Put(u"app/picture.lnk"_s, {.LocalPath = u"Q:\\x.exe"_s, .IconLocation = u"~\\RED.png"_s});
    Put(u"app/target.lnk"_s, {.LocalPath = u"~\\Tools\\blue.desktop"_s});
    Put(u"app/within.lnk"_s, {.LocalPath = u"~\\app\\target.lnk"_s, .IconLocation = u"~\\Tools\\text.txt"_s});
}

void tst_shortcuts::plans_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("startIn");
    QTest::addColumn<int>("show");
    QTest::addColumn<QString>("plan");

    const auto row = [](const char* target, const char* parameter, const char* startIn, const char* plan,
                        ShowCommand show = ShowCommand::Normal) {
        QTest::addRow("%s %s %s", target, parameter, startIn)
            << QString::fromUtf8(target) << QString::fromUtf8(parameter) << QString::fromUtf8(startIn)
            << int(show) << QString::fromUtf8(plan);
    };
    row("~\\app\\tool.lnk", "-p", "~\\app\\", "@/Tools/tool(-p) in @/Tools");
    row("~\\app\\all.lnk", "\"c d\"", "~\\Tools", "@/Tools/tool(-x|a b|c d) in @/Work minimized");
    row("~\\app\\all.lnk", "-m", "", "@/Tools/tool(-x|a b|-m) in @/Work maximized", ShowCommand::Maximized);
    row("~\\app\\moved.lnk", "", "", "@/Tools/tool() in @/Tools");
    row("~\\app\\document.lnk", "", "", "@/bin/xdg-open(@/Tools/text.txt) in @/Tools");
    // The inner one's arguments first, the outer one's show state.
    row("~\\app\\again.lnk", "-z", "", "@/Tools/tool(-x|a b|-y|-z) in @/Work maximized");
}

void tst_shortcuts::plans() {
    QFETCH(QString, target);
    QFETCH(QString, parameter);
    QFETCH(QString, startIn);
    QFETCH(int, show);
    QTEST(Describe({LaunchRequest::Action::OpenTarget, Expand(target), parameter, Expand(startIn),
                    ShowCommand(show)}),
          "plan");
}

// Each names the shortcut and says what stands in the way.
void tst_shortcuts::problems() {
    const std::pair<const char*, const char*> rows[] = {
        {"missing", "and \"/no/such/x.exe\" is not there"},
        {"percent", "and \"/5%/6%\" is not there"}, // no variable
        {"bare", "and \"@/app/tool\" is not there"},
        {"drive", "and there is no drive Q: here"},
        {"variable", "Windows alone knows where \"%ProgramFiles%\" is"},
        {"network", "\"\\\\server\\share\\x.exe\", which lies on the network"},
        {"item", "something within Windows that is no file"},
        {"circle", "from one shortcut to the next without an end"},
        {"text", "This is no shortcut of Windows."}};
    for (const auto& [name, reason] : rows) {
        const QString file = u"@/app/%1.lnk"_s.arg(QLatin1StringView(name));
        const QString problem = Describe({LaunchRequest::Action::OpenTarget, Expand(file), {}, {}, {}});
        QVERIFY2(problem.startsWith(file + u": "_s) && problem.contains(QString::fromUtf8(reason)),
                 qPrintable(problem));
    }
}

void tst_shortcuts::icons() {
    const std::pair<const char*, QColor> rows[] = {
        {"picture", Qt::red}, {"target", Qt::blue}, {"within", Qt::blue}, {"circle", {}}};
    for (const auto& [name, colour] : rows) {
        const QString file = Expand(u"~\\app\\%1.lnk"_s.arg(QLatin1StringView(name)));
        const QImage icon = ThemeIcons().IconOf(file, paths_, 32);
        QCOMPARE(icon.isNull() ? QColor() : icon.pixelColor(16, 16), colour);
    }
}

// What a stranger has written: no picture of it, no wait, and the entry's or target's usual icon if there is
// one.
void tst_shortcuts::foreignIcons() {
    const QString pipe = files_.Path(u"pipe"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QImage large(1025, 16, QImage::Format_RGB32);
    large.fill(Qt::red);
    QVERIFY(large.save(files_.Path(u"large.png"_s)));
    QVERIFY(large.scaled(16, 16).save(files_.Path(u"app/red.jpg"_s)));
    QVERIFY(QFile::copy(files_.Path(u"app/red.jpg"_s), files_.Path(u"home/red.jpg"_s)));
    const auto icon = [this](const QString& picture) {
        files_.AddFile(u"app/icon.desktop"_s, Expand(u"[Desktop Entry]\nIcon="_s + picture).toUtf8());
        const QImage image = ThemeIcons().IconOf(Expand(u"~\\app\\icon.desktop"_s), paths_, 32);
        return image.isNull() ? QColor() : image.pixelColor(16, 16);
    };
    QCOMPARE(icon(u"@/red.png"_s), QColor(Qt::red));
    const QColor none = icon(u"@/nowhere.png"_s);
    for (const QString& picture : {u"@/pipe"_s, u"/dev/zero"_s, u"@/large.png"_s, u"@/app/red.jpg"_s,
                                   u"@/app/red.svg"_s, u"../../../../../../../@/red"_s})
        QCOMPARE(icon(picture), none);
    // The time that these formats may take has no limit, so they count where the user has put them.
    QVERIFY(icon(u"@/home/red.jpg"_s) != none);
}

// A name that the theme lacks is not looked for each time, but an icon that comes later is shown.
void tst_shortcuts::missingIcons() {
    files_.AddFile(u"themes/T/index.theme"_s,
                   "[Icon Theme]\nName=T\nDirectories=a/b\n[a/b]\nSize=16\nType=Fixed\n");
    files_.AddFolder(u"themes/T/a/b"_s);
    const QString former = QIcon::themeName();
    const QStringList formerPaths = QIcon::themeSearchPaths();
    QIcon::setThemeSearchPaths({files_.Path(u"themes"_s)});
    QIcon::setThemeName(u"T"_s);
    quint32 now = 0;
    ThemeNames names([&now] { return now; });
    const auto isShown = [&](const QString& name, bool tellsTheme) {
        const bool before = !names.FirstOf({name}).isNull();
        QFile::copy(files_.Path(u"red.png"_s), files_.Path(u"themes/T/a/b/%1.png"_s.arg(name)));
        if (tellsTheme)
            files_.AddFile(u"themes/T/cache of "_s + name);
        now += 1000;
        return !before && !names.FirstOf({name}).isNull();
    };
    QVERIFY(!isShown(u"copied"_s, false));
    QVERIFY(isShown(u"installed"_s, true));
    QVERIFY(!isShown(u"copied2"_s, false));
    now += 60'000;
    QVERIFY(!names.FirstOf({u"copied2"_s}).isNull());
    QIcon::setThemeSearchPaths(formerPaths);
    QIcon::setThemeName(former);
}

// Qt's platform without windows.
void tst_shortcuts::noConnection() {
    QVERIFY(!X11Compositor().IsActive());
}

QTEST_MAIN(tst_shortcuts)
#include "tst_shortcuts.moc"
