#include "core/panel/shell_link.h"
#include "support/link_builder.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(paneda::test::LinkParts)

// Windows shortcuts: whole ones of every form, and what a damaged one costs.
class tst_shell_link : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void contents_data();
    void contents();
    void showState();
    void cut();
    void foreignFiles();
};

namespace {

QString Describe(const ShellLink& link) {
    const QStringList texts{u"local="_s + link.LocalPath,
                            u"network="_s + link.NetworkPath,
                            u"environment="_s + link.EnvironmentPath,
                            u"relative="_s + link.RelativePath,
                            u"description="_s + link.Description,
                            u"folder="_s + link.WorkingFolder,
                            u"arguments="_s + link.Arguments,
                            u"icon="_s + link.IconLocation};
    QStringList told;
    for (const QString& text : texts) {
        if (!text.endsWith(u'='))
            told.append(text);
    }
    if (link.IconIndex != 0)
        told.append(u"index=%1"_s.arg(link.IconIndex));
    return told.join(u", ");
}

LinkParts FullLink() {
    LinkParts parts;
    parts.ItemList = QByteArray::fromHex("0400AABB0000");
    parts.LocalPath = u"C:\\Tools"_s;
    parts.NetworkName = u"\\\\server\\share"_s;
    parts.Suffix = u"x.exe"_s;
    parts.Description = u"A tool"_s;
    parts.RelativePath = u"..\\x.exe"_s;
    parts.WorkingFolder = u"C:\\Work"_s;
    parts.Arguments = u"-a \"b c\""_s;
    parts.IconLocation = u"C:\\x.ico"_s;
    parts.IconIndex = -3;
    parts.EnvironmentPath = u"%ProgramFiles%\\x.exe"_s;
    return parts;
}

const QString kFull = u"local=C:\\Tools\\x.exe, network=\\\\server\\share\\x.exe, "
                      "environment=%ProgramFiles%\\x.exe, relative=..\\x.exe, description=A tool, "
                      "folder=C:\\Work, arguments=-a \"b c\", icon=C:\\x.ico, index=-3"_s;

} // namespace

void tst_shell_link::contents_data() {
    QTest::addColumn<LinkParts>("parts");
    QTest::addColumn<QString>("contents");

    const auto row = [](const char* name, const LinkParts& parts, const QString& contents) {
        QTest::newRow(name) << parts << contents;
    };
    row("nothing but the header", {}, u""_s);
    row("everything", FullLink(), kFull);
    LinkParts parts = FullLink();
    parts.LastBlock = false;
    row("without an end mark", parts, kFull);
    parts = FullLink();
    parts.WideTexts = false;
    parts.WideEnvironment = false;
    row("no text in UTF-16", parts, kFull);

    parts = {};
    parts.LocalPath = u"C:\\?.exe"_s;
    parts.WideLocalPath = u"C:\\Жук.exe"_s;
    parts.Description = u"Жук"_s;
    row("the path in UTF-16 goes first", parts, u"local=C:\\Жук.exe, description=Жук"_s);
    parts = {};
    parts.NetworkName = u"\\\\?\\share"_s;
    parts.WideNetworkName = u"\\\\é\\share"_s;
    parts.Suffix = u"?"_s;
    parts.WideSuffix = u"ж\\x"_s;
    row("network path in UTF-16", parts, u"network=\\\\é\\share\\ж\\x"_s);
    parts = {};
    parts.LocalPath = u"C:\\x"_s;
    parts.Arguments = u"a"_s;
    parts.MoreFlags = 0x100;
    row("paths to be ignored", parts, u"arguments=a"_s);
    parts = {};
    parts.Arguments = u"a\0b"_s;
    parts.Description = QString(65'535, u'd');
    row("a text ends at a NUL", parts, u"description=%1, arguments=a"_s.arg(parts.Description));
}

void tst_shell_link::contents() {
    QFETCH(LinkParts, parts);
    QFETCH(QString, contents);
    const auto link = ParseShellLink(MakeLink(parts));
    QVERIFY2(link.has_value(), link ? "" : qPrintable(link.error()));
    QCOMPARE(Describe(*link), contents);
}

void tst_shell_link::showState() {
    for (const auto& [code, show] :
         {std::pair(1U, ShowCommand::Normal), std::pair(3U, ShowCommand::Maximized),
          std::pair(7U, ShowCommand::Minimized), std::pair(0xFFFFFFFFU, ShowCommand::Normal)}) {
        LinkParts parts;
        parts.ShowCode = code;
        QCOMPARE(ParseShellLink(MakeLink(parts))->Show, show);
    }
}

// A file that ends within its texts is refused, one that ends behind them is read up to there.
void tst_shell_link::cut() {
    LinkParts parts = FullLink();
    const QByteArray whole = MakeLink(parts);
    parts.EnvironmentPath.clear();
    parts.LastBlock = false;
    const qsizetype textsEnd = MakeLink(parts).size();
    const QString withoutBlock = QString(kFull).remove(u"environment=%ProgramFiles%\\x.exe, "_s);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const QByteArray bytes(whole.constData(), size); // a copy, so that a read behind it is noticed
        const auto link = ParseShellLink(bytes);
        QCOMPARE(link.has_value(), size >= textsEnd);
        if (link)
            QCOMPARE(Describe(*link), size < whole.size() - 4 ? withoutBlock : kFull);
        else
            QVERIFY(!link.error().isEmpty());
    }
}

void tst_shell_link::foreignFiles() {
    const StoreBuilder store;
    store.AddFile(u"good.lnk"_s, MakeLink(FullLink()));
    store.AddFile(u"huge.lnk"_s, MakeLink(FullLink()) + QByteArray(kMaxLinkFile, '\0'));
    store.AddFile(u"text.lnk"_s, QByteArray(200, 'x'));
    store.AddFolder(u"folder.lnk"_s);
    QByteArray otherClass = MakeLink(FullLink());
    otherClass[4] = '\x02';
    store.AddFile(u"class.lnk"_s, otherClass);
    QCOMPARE(Describe(*ReadShellLink(store.Path(u"good.lnk"_s))), kFull);
    for (const QString& name :
         {u"huge.lnk"_s, u"text.lnk"_s, u"folder.lnk"_s, u"class.lnk"_s, u"missing.lnk"_s}) {
        const auto link = ReadShellLink(store.Path(name));
        QVERIFY2(!link && link.error().Path.endsWith(name), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(tst_shell_link)
#include "tst_shell_link.moc"
