#include "core/store/names.h"
#include "support/fake_prompts.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

using Operation = QString (*)(const QString&);
Q_DECLARE_METATYPE(Operation)

class tst_names : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parts_data();
    void parts();
    void numbersAndPictures();
    void validateName();
};

void tst_names::parts_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto add = [](Operation operation, const char* name, const char* expected) {
        QTest::addRow("<%s>", name) << operation << QString::fromUtf8(name) << QString::fromUtf8(expected);
    };
    add(StripOrderPrefix, "[003] Notepad [x].LNK", "Notepad.LNK");
    add(StripOrderPrefix, " [001] Late.exe", ".exe"); // no prefix, so its bracket is taken for a tag's
    add(StripOrderPrefix, "[001] Two [a] [b].v2.lnk", "Two.lnk");
    add(StripOrderPrefix, "[001] A] B.lnk", "A] B.lnk");
    add(StripOrderPrefix, "[unclosed.exe", ".exe");
    add(StripOrderPrefix, "[001] No point [x]", "No point.[001] No point [x]");
    add(TagOf, "[001] Name [ B1  ].pnd", "B1");
    add(TagOf, "Name [x] .pnd", "");
    add(TagOf, "Name [x].old.pnd", "x");
    add(TagOf, "[001].pnd", "001");
    add(ExtensionOf, "ends.", "");
    add(ExtensionOf, QByteArray(QByteArray("x.") + QByteArray(1200, 'y')).constData(),
        QByteArray(999, 'y').constData());
    add(WithoutExtension, "a.b.LNK", "a.b");
    add(WithoutLnk, "Tool.Lnk", "Tool");
    add(WithoutLnk, "lnk", "lnk"); // the whole name counts as the extension, and nothing is there to cut
    add(SafeFileName, R"(a\b/c:d*e?f"g<h>i|j[k])", "a-b-c-d-e-f-g-h-i-j[k]");
    add(SafeFileName, "a\tb\n. .", "a-b-");
    add(SafeFileName, "nul", "nul-");
    add(SafeFileName, "Con .tar.gz", "Con- .tar.gz");
    add(SafeFileName, "lpt\xc2\xb9.txt", "lpt\xc2\xb9-.txt");
    add(SafeFileName, "COM10", "COM10");
    add(TitleBehindPrefix, "x ] y ] z ", "y ] z");
    add(ButtonCaption, "[003] Tool 2.0 [11].pnd", "Tool 2.0");
}

void tst_names::parts() {
    QFETCH(Operation, operation);
    QFETCH(QString, name);
    QTEST(operation(name), "expected");
}

void tst_names::numbersAndPictures() {
    QCOMPARE(NumberedName(999, u"%1 %2"_s), u"[999] %1 %2"_s);
    QCOMPARE(NumberedName(1000, u"A"_s), u"[1000] A"_s);
    QCOMPARE(NumberedName(1, u"And so on... "_s), u"[001] And so on"_s);
    QVERIFY(IsImageExtension(u"JPE"_s) && !IsImageExtension(u"pngx"_s) && !IsImageExtension({}));
}

void tst_names::validateName() {
    const QStringList titles{u"General"_s, u"Games"_s, u"über"_s};
    const QString forbidden =
        u"A name cannot contain any of the following characters:\r\\ / : * ? \" < > | [ ]"_s;
    const auto problem = [&titles](const QString& name, int exceptIndex = kNoException) {
        return NameProblem(name, titles, exceptIndex);
    };
    for (const QChar c : u"\\/:*?\"<>|[]"_s)
        QCOMPARE(problem(u"a"_s + c), forbidden);
    for (const QString& accepted : {u"Tools"_s, u""_s, u"Games "_s})
        QCOMPARE(problem(accepted), u""_s);
    for (const QString& duplicate : {u"gAMES"_s, u"ÜBER"_s})
        QCOMPARE(problem(duplicate), u"Duplicate Name"_s);
    QCOMPARE(problem(u"games"_s, 1), u""_s);
    test::FakePrompts prompts;
    QVERIFY(!ValidateName(u"Tools"_s, titles, 0, prompts) && prompts.Shown.isEmpty());
    QVERIFY(ValidateName(u"Games"_s, titles, 0, prompts) && prompts.Shown.size() == 1);
}

QTEST_GUILESS_MAIN(tst_names)
#include "tst_names.moc"
