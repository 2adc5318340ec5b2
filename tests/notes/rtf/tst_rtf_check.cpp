#include "support/rtf_check.h"

#include <QTest>

using namespace paneda::test;

class TestRtfCheck : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsFaults_data();
    void findsFaults();
};

void TestRtfCheck::findsFaults_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("fault"); // a part of it; empty: there is none

    const auto row = [](const char* name, const char* body, const char* fault) {
        QTest::newRow(name) << QByteArray(body) << QString::fromLatin1(fault);
    };
    row("sound", "\\pard\\f0 a\\u233\\'e9\\uc2\\u1?? \\u-10179?? \\b0\\par", "half of a surrogate");
    row("pair", "\\u-10179?\\u-8704?{\\*\\strange\\words}\\{\\}\\~", "");
    row("brace missing", "{\\b x", "not closed");
    row("brace too many", "x}y", "behind the last brace");
    row("8 bits", "caf\xe9", "not plain ASCII");
    row("no fallback", "\\u233\\par", "fallback");
    row("fallback cut off", "{\\uc2\\u233?}", "fallback");
    row("word that old readers show", "\\strangeword x", "unknown word");
    row("font", "\\f7 x", "font 7");
    row("colour", "\\cf2 x", "colour 2");
    row("hex", "{\\pict\\pngblip 8950f}", "odd number");
    row("row", "\\trowd\\cellx10\\cellx20\\pard\\intbl a\\cell b\\cell\\row\\pard x\\par", "");
    row("cell missing", "\\trowd\\cellx10\\cellx20\\pard\\intbl a\\cell\\row", "1 cells that defines 2");
    row("row missing", "\\trowd\\cellx10\\pard\\intbl a\\cell\\pard x", "no end");
    row("paragraph in row", "\\trowd\\cellx10\\pard\\intbl a\\cell\\pard x\\par\\row", "lower level");
    row("edges", "\\trowd\\cellx20\\cellx20\\pard\\intbl a\\cell b\\cell\\row", "to the right");
    row("nested",
        "\\trowd\\cellx10\\pard\\intbl\\itap2 a\\nestcell{\\*\\nesttableprops\\trowd\\cellx5\\nestrow}"
        "\\pard\\intbl b\\cell\\row",
        "");
}

void TestRtfCheck::findsFaults() {
    QFETCH(QByteArray, body);
    QFETCH(QString, fault);
    const QString found =
        RtfFault("{\\rtf1\\ansi{\\fonttbl{\\f0 A;}}{\\colortbl;\\red1;}\\uc1 " + body + "}\r\n");
    QVERIFY2(fault.isEmpty() ? found.isEmpty() : found.contains(fault), qPrintable(found));
}

QTEST_GUILESS_MAIN(TestRtfCheck)
#include "tst_rtf_check.moc"
