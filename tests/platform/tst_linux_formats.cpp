#include "platform/linux/desktop_entry.h"
#include "platform/linux/linux_work_areas.h"
#include "platform/linux/mounted_volumes.h"

#include <QTest>

#include <algorithm>

using namespace paneda;
using namespace Qt::StringLiterals;

// The text formats that the Linux desktop hands to the program.
class tst_linux_formats : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entryKeys_data();
    void entryKeys();
    void execLine_data();
    void execLine();
    void mountTable();
    void struts_data();
    void struts();
};

namespace {

QString Keys(const DesktopEntry& entry) {
    const QStringList keys{entry.Type, entry.Name, entry.Exec, entry.Path, entry.Icon, entry.Url};
    return keys.join(u'|') + (entry.Terminal ? u"|terminal"_s : QString());
}

} // namespace

void tst_linux_formats::entryKeys_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("keys"); // type|name|exec|path|icon|url

    const auto row = [](const char* name, const QByteArray& bytes, const char* keys) {
        QTest::newRow(name) << bytes << QString::fromUtf8(keys);
    };
    row("all keys",
        "[Desktop Entry]\nType=Application\nName=A\nExec=a\nPath=/p\nIcon=i\nURL=u\nTerminal=true",
        "Application|A|a|/p|i|u|terminal");
    row("blanks and CR LF", "[Desktop Entry]\r\n  Name = A b \r\nExec\t=\tx y\r\nTerminal=True\r\n",
        "|A b|x y|||");
    row("other groups",
        "Name=before\n[Desktop Action New]\nExec=no\n[Desktop Entry]\nExec=yes\n"
        "[Desktop Action Old]\nExec=no\n[desktop entry]\nName=no",
        "||yes|||");
    row("escapes", "[Desktop Entry]\nName=a\\sb\\tc\\\\d\\x\\\nPath=/a\\nb", "|a b\tc\\d\\x\\||/a\nb||");
    row("equals signs", "[Desktop Entry]\nURL=https://a/?b=c=d\n=no\nExec", "|||||https://a/?b=c=d");
    row("damaged", "[Desktop Entry]\n\xff\xfe=\x80\n=\nTerminal\nIcon=i\n[Desktop Entry", "||||i|");
}

void tst_linux_formats::entryKeys() {
    QFETCH(QByteArray, bytes);
    QTEST(Keys(ParseDesktopEntry(bytes)), "keys");
}

void tst_linux_formats::execLine_data() {
    QTest::addColumn<QString>("line"); // as in the file
    QTest::addColumn<QString>("files");
    QTest::addColumn<QString>("words");

    const auto row = [](const char* line, const char* files, const char* words) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(files)
                            << QString::fromUtf8(words);
    };
    row("tool  a\tb ", "", "tool|a|b");
    row(R"("/opt/my app/run" "a ""b" "")", "", "/opt/my app/run|a b|");
    row(R"(sh -c "echo \\"hi\\" \\$HOME \\\\")", "", R"(sh|-c|echo "hi" $HOME \)");
    // Files: one, all, none asked for, none given.
    row("tool %f -x", "1|2", "tool|1|-x");
    row("tool -x", "1|2", "tool|-x|1|2");
    row("tool --open=%u", "1|2", "tool|--open=1");
    // The other codes; deprecated and unknown ones vanish.
    row("tool %i %c %k", "", "tool|--icon|an icon|A name|/e.desktop");
    row("tool --as=%c 100%% 5% %d%m %v x%N", "", "tool|--as=A name|100%|5%||x");
    row(R"("tool %f)", "1", "");
    row(R"(tool "a\\")", "1", "");
    row("", "1", "");
}

void tst_linux_formats::execLine() {
    QFETCH(QString, line);
    QFETCH(QString, files);
    const DesktopEntry entry =
        ParseDesktopEntry("[Desktop Entry]\nName=A name\nIcon=an icon\nExec=" + line.toUtf8() + "\n");
    QTEST(ExpandExec(entry, u"/e.desktop"_s, files.split(u'|', Qt::SkipEmptyParts)).join(u'|'), "words");
}

void tst_linux_formats::mountTable() {
    const QByteArray table = "/dev/sda1 / ext4 rw 0 0\n"
                             "/dev/sdb1 /media/me/MY\\040STICK\\0111\\134 vfat rw 0 0\n"
                             "tmpfs /media/\xc3\xa9t\xc3\xa9 tmpfs rw 0 0\n"
                             "\n"
                             "proc\n"
                             "proc /cut\n"
                             "server: relative nfs rw 0 0\n"
                             "/dev/sdc1 /mnt/end\\04";
    const QStringList points{u"/"_s, u"/media/me/MY STICK\t1\\"_s,
                             QString::fromUtf8("/media/\xc3\xa9t\xc3\xa9")};
    QCOMPARE(MountPointsOf(table), points);
    QCOMPARE(MountPointsOf({}), QStringList());
}

void tst_linux_formats::struts_data() {
    QTest::addColumn<QList<quint32>>("strut");
    QTest::addColumn<QRect>("first");  // what is left of a screen of 800 x 1000
    QTest::addColumn<QRect>("second"); // of one of 600 x 600 at its right, 100 lower

    const QRect first(0, 0, 800, 1000);
    const QRect second(800, 100, 600, 600);
    using Numbers = QList<quint32>;
    QTest::newRow("bottom of the first")
        << Numbers{0, 0, 0, 30, 0, 0, 0, 0, 0, 0, 0, 799} << first.adjusted(0, 0, 0, -30) << second;
    QTest::newRow("bottom of the second, counted from the display's")
        << Numbers{0, 0, 0, 330, 0, 0, 0, 0, 0, 0, 800, 1399} << first << second.adjusted(0, 0, 0, -30);
    QTest::newRow("left of the second, across the first")
        << Numbers{850, 0, 0, 0, 100, 699, 0, 0, 0, 0, 0, 0} << first << second.adjusted(50, 0, 0, 0);
    QTest::newRow("right of the second and left of the first")
        << Numbers{20, 70, 0, 0, 0, 999, 0, 999, 0, 0, 0, 0} << first.adjusted(20, 0, 0, 0)
        << second.adjusted(0, 0, -70, 0);
    QTest::newRow("more than the display")
        << Numbers{4'000'000'000, 0, 0, 0, 0, 4'000'000'000, 0, 0, 0, 0, 0, 0} << first << second;
}

void tst_linux_formats::struts() {
    QFETCH(QList<quint32>, strut);
    Strut numbers;
    std::copy(strut.begin(), strut.end(), numbers.begin());
    const QSize display(1400, 1000);
    QTEST(WithoutStruts({0, 0, 800, 1000}, display, {numbers}), "first");
    QTEST(WithoutStruts({800, 100, 600, 600}, display, {numbers}), "second");
}

QTEST_GUILESS_MAIN(tst_linux_formats)
#include "tst_linux_formats.moc"
