#include "core/files/web_addresses.h"
#include "core/panel/launch.h"
#include "support/store_builder.h"

#include <QLocale>
#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

using Action = LaunchRequest::Action;
Q_DECLARE_METATYPE(LaunchRequest)
Q_DECLARE_METATYPE(ButtonFields)

class tst_launch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void decide_data();
    void decide();
    void browserAddresses();
    void names();
    void readsFields();
    void afterLaunch();
    void toolTips();
};

void tst_launch::decide_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<ButtonFields>("fields");
    QTest::addColumn<QString>("browser");
    QTest::addColumn<LaunchRequest>("expected");
    const QString standard = u"default"_s;
    const auto open = [](const QString& target, const QString& parameter = {}, const QString& startIn = {},
                         ShowCommand show = ShowCommand::Normal) {
        return LaunchRequest{Action::OpenTarget, target, parameter, startIn, show};
    };
    const auto drive = [](const QString& letter) {
        return LaunchRequest{Action::OpenDrive, letter, {}, {}, ShowCommand::Normal};
    };
    const auto plain = [&](const char* tag, const QString& path, const QString& browser,
                           const LaunchRequest& expected) {
        QTest::newRow(tag) << path << ButtonFields{{}, {}, {}, {}, u"http://x.example/"_s} << browser
                           << expected;
    };
    const auto record = [&](const char* tag, const ButtonFields& fields, const LaunchRequest& expected) {
        QTest::newRow(tag) << uR"(E:\Tools\Paneda\Setting\A\G\x.pnd)"_s << fields << u"other.exe"_s
                           << expected;
    };
    plain("drive", u"Drive C"_s, standard, drive(u"C"_s));
    plain("own drive", u"Drive 9"_s, standard, drive(u"E"_s));
    const QString image = uR"(E:\Tools\Paneda\Setting\A\G\Drive Image.exe.lnk)"_s;
    plain("named like a drive", image, u"other.exe"_s, open(image));
    plain("shortcut", uR"(E:\a.URL)"_s, u"other.exe"_s,
          {Action::OpenBrowser, u"other.exe"_s, u"http://x.example/"_s, {}, ShowCommand::Normal});
    plain("shortcut, default browser", uR"(E:\a.url)"_s, standard, open(uR"(E:\a.url)"_s));

    record("record", {uR"(C:\Apps\x.exe)"_s, u"-a \"b c\""_s, uR"(D:\Work)"_s, u"Maximized"_s, {}},
           open(uR"(C:\Apps\x.exe)"_s, u"-a \"b c\""_s, uR"(D:\Work)"_s, ShowCommand::Maximized));
    record("start in the target's folder", {uR"(C:\Apps\x.exe)"_s, {}, {}, u"Minimized"_s, {}},
           open(uR"(C:\Apps\x.exe)"_s, {}, uR"(C:\Apps\)"_s, ShowCommand::Minimized));
    record("exact window state, start in as it is", {uR"(C:\x)"_s, {}, uR"(..\s)"_s, u"maximized"_s, {}},
           open(uR"(C:\x)"_s, {}, uR"(..\s)"_s));
    record("without drive", {uR"(\Tools\x.exe)"_s, {}, {}, {}, {}},
           open(uR"(E:\Tools\x.exe)"_s, {}, uR"(E:\Tools\)"_s));
    record("network", {uR"(\\server\share\x.exe)"_s, {}, {}, {}, {}},
           open(uR"(\\server\share\x.exe)"_s, {}, uR"(\\server\share\)"_s));
    record("relative", {uR"(..\Apps\x.exe)"_s, {}, {}, {}, {}},
           open(uR"(E:\Tools\Apps\x.exe)"_s, {}, uR"(E:\Tools\Apps\)"_s));
    record("plain name stays", {u"x.exe"_s, {}, {}, {}, {}}, open(u"x.exe"_s));
    record("address", {u"https://x.example/a"_s, {}, {}, {}, {}}, open(u"https://x.example/a"_s));
    record("host path", {u"/usr/bin/x"_s, {}, {}, {}, {}}, open(u"/usr/bin/x"_s, {}, u"/usr/bin/"_s));
    record("no target", {{}, u"-a"_s, uR"(C:\)"_s, {}, {}}, open({}, u"-a"_s, uR"(C:\)"_s));
}

void tst_launch::decide() {
    QFETCH(QString, path);
    QFETCH(ButtonFields, fields);
    QFETCH(QString, browser);
    QFETCH(LaunchRequest, expected);
    LaunchRequest request = DecideLaunch(path, fields, {uR"(E:\Tools\Paneda)"_s, browser});
    const QString told = request.Target + u'|' + request.Parameter + u'|' + request.StartIn;
    request.Name.clear(); // see names()
    QVERIFY2(request == expected, qPrintable(told));
}

// Empty for an address that is refused.
void tst_launch::browserAddresses() {
    const std::pair<const char*, const char*> rows[] = {
        {" HTTPS://x.example/a?b=c&d#e ", "HTTPS://x.example/a?b=c&d#e"},
        {"http://x/ --switch=\"a\\", "http://x/%20--switch=%22a%5C"},
        {"mailto:a@x.example", "mailto:a@x.example"},
        {"file:///C:/help/a%20b.HTML?q#c", "file:///C:/help/a%20b.HTML?q#c"},
        {"www.x.example/a:b", "http://www.x.example/a:b"},
        {"localhost:8080/", "http://localhost:8080/"},
        {"--switch=http://x/", ""},
        {"-x", ""},
        {"", ""},
        {"a b", ""},
        {"http://x/\n--switch", ""},
        {"javascript:a", ""},
        {"tool://x/", ""},
        {"C:\\x.html", ""},
        {"/x.html", ""},
        {"file:///C:/x.exe", ""},
        {"file:///C:/x.exe?.html#.html", ""},
        {"file:///C:/x.exe%00.html", ""}};
    for (const auto& [text, address] : rows)
        QCOMPARE(BrowserAddress(QString::fromLatin1(text)).value_or(QString()), QString::fromLatin1(address));
    const LaunchRequest refused =
        DecideLaunch(uR"(E:\G\Evil.url)"_s, {{}, {}, {}, {}, u"--x"_s}, {u"E:"_s, u"other.exe"_s});
    QCOMPARE(int(refused.What), int(Action::Refuse));
    QCOMPARE(ProblemText(refused.Name, refused.Target + u": "_s + refused.Problem),
             u"\"Evil\" cannot be opened.\nE:\\G\\Evil.url: \"--x\" is no address for a browser. It has to "
             "begin with http://, https://, ftp://, mailto:, file:// or the name of a host."_s);
}

// What a notice of a failed launch calls the button.
void tst_launch::names() {
    const auto name = [](const QString& path, const QString& browser) {
        return DecideLaunch(path, {}, {uR"(E:\Tools)"_s, browser}).Name;
    };
    QCOMPARE(name(u"Drive 9"_s, u"default"_s), u"Drive E"_s);
    for (const QString& kind : {u"pnd"_s, u"url"_s, u"lnk"_s})
        QCOMPARE(name(uR"(E:\G\[001] Paint 2 [11].)"_s + kind, u"other.exe"_s), u"Paint 2"_s);
}

void tst_launch::readsFields() {
    const test::StoreBuilder store;
    const QByteArray bytes = "[Properties]\nTarget=t\nParameter=\"a\" \"b\"\nStart In=s\nWindow State=w\n"
                             "[InternetShortcut]\nURL=u\n";
    for (const QString& name : {u"x.PND"_s, u"x.url"_s})
        store.AddFile(name, bytes);
    const ButtonFields record = ReadButtonFields(store.Path(u"x.PND"_s));
    QCOMPARE((QStringList{record.Target, record.Parameter, record.StartIn, record.WindowState, record.Url}),
             (QStringList{u"t"_s, u"a\" \"b"_s, u"s"_s, u"w"_s, {}}));
    QCOMPARE(ReadButtonFields(store.Path(u"x.url"_s)).Url, u"u"_s);
    QCOMPARE(ReadButtonFields(store.Path(u"missing.pnd"_s)).Target, u""_s);
}

// Shift alone ends; the right button does the opposite of the setting.
void tst_launch::afterLaunch() {
    for (int shift = 0; shift < 8; ++shift) {
        for (const bool hides : {true, false}) {
            const auto left = DecideAfterLaunch(MouseButton::Left, shift, hides);
            const auto right = DecideAfterLaunch(MouseButton::Right, shift, hides);
            const AfterLaunch wanted = hides ? AfterLaunch::Hide : AfterLaunch::Stay;
            QCOMPARE(left, shift == kShiftKey ? AfterLaunch::EndProgram : wanted);
            QCOMPARE(right == left, shift == kShiftKey);
        }
    }
    QVERIFY(LaunchesOn(MouseButton::Right) && !LaunchesOn(MouseButton::Middle));
}

void tst_launch::toolTips() {
    const test::StoreBuilder store;
    store.AddFile(u"told.pnd"_s, "[Properties]\nDescription=Draws\n");
    store.AddFile(u"told.desktop"_s, "[Desktop Entry]\nComment=Draws\nComment[de]=Malt\n");
    store.AddFile(u"untold.pnd"_s, "[Properties]\nDescription=\n");
    const auto tip = [&store](const QString& name, const QString& file, bool cut = false) {
        return ButtonToolTip({uR"(E:\A\)"_s + name, {}, {}, 1, {}}, store.Path(file), u"g:"_s, cut);
    };
    QCOMPARE(tip(u"[001] Paint [11].pnd"_s, u"told.pnd"_s), u"Draws"_s);
    QCOMPARE(tip(u"[001] Paint [11].pnd"_s, u"told.pnd"_s, true), u"Paint\nDraws"_s);
    QCOMPARE(tip(u"[001] Paint [11].pnd"_s, u"untold.pnd"_s, true), u"Paint.pnd"_s);
    QCOMPARE(tip(u"[001] Paint [11].LNK"_s, u"told.pnd"_s), u"Paint"_s);
    QLocale::setDefault(QLocale(u"de_AT"_s));
    QCOMPARE(tip(u"Paint.desktop"_s, u"told.desktop"_s), u"Malt"_s);
    QLocale::setDefault(QLocale(u"fr_FR"_s));
    QCOMPARE(tip(u"Paint.desktop"_s, u"told.desktop"_s), u"Draws"_s);
    QCOMPARE(ButtonToolTip({u"Drive 9"_s, {}, u"Drive 9:"_s, 1, {}}, {}, uR"(g:\Paneda)"_s, false), u"g:"_s);
}

QTEST_GUILESS_MAIN(tst_launch)
#include "tst_launch.moc"
