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
    void validateName_data();
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
    add(StripOrderPrefix, "[1000]   Spaced  ", "Spaced");
    add(StripOrderPrefix, "[001]NoBlank.exe", "NoBlank.exe");
    add(StripOrderPrefix, " [001] Late.exe", ".exe"); // no prefix, so its bracket is taken for a tag's
    add(StripOrderPrefix, "Plain.exe", "Plain.exe");
    add(StripOrderPrefix, "[001] Two [a] [b].v2.lnk", "Two.lnk");
    add(StripOrderPrefix, "[001] A] B.lnk", "A] B.lnk");
    add(StripOrderPrefix, "[unclosed.exe", ".exe");
    add(StripOrderPrefix, "[001] No point [x]", "No point.[001] No point [x]");
    add(StripOrderPrefix, "[001]", "");
    add(TagOf, "[001] Name [11113001100].pnd", "11113001100");
    add(TagOf, "[001] Name [ B1  ].pnd", "B1");
    add(TagOf, "[001] Name.pnd", "");
    add(TagOf, "Name [x] .pnd", "");
    add(TagOf, "Name [x].old [y].pnd", "y");
    add(TagOf, "Name [x].old.pnd", "x");
    add(TagOf, "[001].pnd", "001");
    add(TagOf, "no opening].pnd", "no opening");
    add(ExtensionOf, "a.b.LNK", "LNK");
    add(ExtensionOf, "none", "none");
    add(ExtensionOf, "ends.", "");
    add(ExtensionOf, QByteArray(QByteArray("x.") + QByteArray(1200, 'y')).constData(),
        QByteArray(999, 'y').constData());
    add(WithoutExtension, "a.b.LNK", "a.b");
    add(WithoutExtension, "none", "none");
    add(WithoutExtension, ".hidden", "");
    add(WithoutLnk, "Tool.Lnk", "Tool");
    add(WithoutLnk, "Tool.pnd", "Tool.pnd");
    add(WithoutLnk, "lnk", "lnk"); // the whole name counts as the extension, and nothing is there to cut
    add(SafeFileName, R"(a\b/c:d*e?f"g<h>i|j[k])", "a-b-c-d-e-f-g-h-i-j[k]");
    add(SafeFileName, "a\tb\n. .", "a-b-");
    add(SafeFileName, " .profile", " .profile");
    add(SafeFileName, "...", "-");
    add(SafeFileName, "", "");
    add(SafeFileName, "nul", "nul-");
    add(SafeFileName, "Con .tar.gz", "Con- .tar.gz");
    add(SafeFileName, "lpt\xc2\xb9.txt", "lpt\xc2\xb9-.txt");
    add(SafeFileName, "COM10", "COM10");
    add(SafeFileName, "COM0.console", "COM0.console");
    add(TitleBehindPrefix, "My Computer", "My Computer");
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
    QCOMPARE(NumberedName(2, {}), u"[002]"_s);
    for (const QString& picture : u"png ICO Bmp jpg JPE jpeg gif"_s.split(u' '))
        QVERIFY2(IsImageExtension(picture), qPrintable(picture));
    for (const QString& other : u"pn pngx svg webp pnd "_s.split(u' '))
        QVERIFY2(!IsImageExtension(other), qPrintable(other));
}

void tst_names::validateName_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("exceptIndex");
    QTest::addColumn<QString>("notice");
    const QString duplicate = u"|Duplicate Name"_s;
    const QString forbidden =
        u"|A name cannot contain any of the following characters:\r\\ / : * ? \" < > | [ ]"_s;
    for (const QChar c : u"\\/:*?\"<>|[]"_s)
        QTest::addRow("holds %c", c.toLatin1()) << QString(u"a"_s + c) << kNoException << forbidden;
    QTest::newRow("new") << u"Tools"_s << kNoException << u""_s;
    QTest::newRow("empty") << u""_s << kNoException << u""_s;
    QTest::newRow("other case") << u"gAMES"_s << kNoException << duplicate;
    QTest::newRow("not trimmed") << u"Games "_s << kNoException << u""_s;
    QTest::newRow("case beyond ASCII") << u"ÜBER"_s << kNoException << duplicate;
    QTest::newRow("itself") << u"games"_s << 1 << u""_s;
    QTest::newRow("another one") << u"games"_s << 0 << duplicate;
    QTest::newRow("forbidden first") << u"Games]"_s << 1 << forbidden;
}

void tst_names::validateName() {
    QFETCH(QString, name);
    QFETCH(int, exceptIndex);
    QFETCH(QString, notice);
    test::FakePrompts prompts;
    const QStringList titles{u"General"_s, u"Games"_s, u"über"_s};
    QCOMPARE(ValidateName(name, titles, exceptIndex, prompts), !notice.isEmpty());
    QCOMPARE(prompts.Shown.join(u'\n'), notice);
}

QTEST_GUILESS_MAIN(tst_names)
#include "tst_names.moc"
