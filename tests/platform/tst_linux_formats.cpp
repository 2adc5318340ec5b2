#include "platform/linux/desktop_entry.h"
#include "platform/linux/linux_work_areas.h"
#include "platform/linux/mounted_volumes.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

// The text formats that the Linux desktop hands to the program.
class tst_linux_formats : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entryKeys();
    void execLine_data();
    void execLine();
    void mountTable();
    void struts();
};

namespace {

QString Keys(const DesktopEntry& entry) {
    const QStringList keys{entry.Type, entry.Name, entry.Exec, entry.Path, entry.Icon, entry.Url};
    return keys.join(u'|') + (entry.Terminal ? u"|terminal"_s : QString());
}

} // namespace

void tst_linux_formats::entryKeys() {
    // type|name|exec|path|icon|url
    const std::pair<QByteArray, const char*> rows[] = {
        {"[Desktop Entry]\nType=Application\nName=A\nExec=a\nPath=/p\nIcon=i\nURL=u\nTerminal=true",
         "Application|A|a|/p|i|u|terminal"},
        {"[Desktop Entry]\r\n  Name = A b \r\nExec\t=\tx y\r\nTerminal=True\r\n", "|A b|x y|||"},
        {"Name=before\n[Desktop Action New]\nExec=no\n[Desktop Entry]\nExec=yes\n"
         "[Desktop Action Old]\nExec=no\n[desktop entry]\nName=no",
         "||yes|||"},
        {"[Desktop Entry]\nName=a\\sb\\tc\\\\d\\x\\\nPath=/a\\nb", "|a b\tc\\d\\x\\||/a\nb||"},
        {"[Desktop Entry]\n\xff\xfe=\x80\n=\nTerminal\nIcon=i\n[Desktop Entry", "||||i|"},
    };
    for (const auto& [bytes, keys] : rows)
        QCOMPARE(Keys(ParseDesktopEntry(bytes)), QString::fromUtf8(keys));
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
    // Within a longer word, which may be a script, codes vanish.
    row(R"(sh -c "tool %f '%k'" x)", "$(y)", "sh|-c|tool  ''|x|$(y)");
    // The other codes; deprecated and unknown ones vanish.
    row("tool %i %c %k", "", "tool|--icon|an icon|A name|/e.desktop");
    row("tool --as=%c 100%% 5% %d%m %v x%N", "", "tool|--as=|100%|5%||x");
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

void tst_linux_formats::struts() {
    const QRect first(0, 0, 800, 1000);
    const QRect second(800, 100, 600, 600);
    const auto left = [&](const Strut& strut) {
        const QSize display(1400, 1000);
        return std::pair(WithoutStruts(first, display, {strut}), WithoutStruts(second, display, {strut}));
    };
    QCOMPARE(left({0, 0, 0, 30, 0, 0, 0, 0, 0, 0, 0, 799}), std::pair(first.adjusted(0, 0, 0, -30), second));
    // Counted from the display's bottom, and across the first screen.
    QCOMPARE(left({0, 0, 0, 330, 0, 0, 0, 0, 0, 0, 800, 1399}),
             std::pair(first, second.adjusted(0, 0, 0, -30)));
    QCOMPARE(left({850, 0, 0, 0, 100, 699, 0, 0, 0, 0, 0, 0}),
             std::pair(first, second.adjusted(50, 0, 0, 0)));
    // More than the display has.
    QCOMPARE(left({4'000'000'000, 0, 0, 0, 0, 4'000'000'000, 0, 0, 0, 0, 0, 0}), std::pair(first, second));
}

QTEST_GUILESS_MAIN(tst_linux_formats)
#include "tst_linux_formats.moc"
