#include "core/files/path_conversion.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_path_conversion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void threeForms_data();
    void threeForms();
    void oneWay_data();
    void oneWay();
};

void tst_path_conversion::threeForms_data() {
    QTest::addColumn<QString>("app");
    QTest::addColumn<QString>("relative");
    QTest::addColumn<QString>("absolute");
    QTest::addColumn<QString>("withoutDrive");
    const auto add = [](const char* stored, const char* relative, const char* absolute,
                        const char* withoutDrive, const char* app = R"(E:\Tools\Launcher)") {
        QTest::newRow(stored) << QString::fromUtf8(app) << QString::fromUtf8(relative)
                              << QString::fromUtf8(absolute) << QString::fromUtf8(withoutDrive);
    };
    add(R"(E:\Tools\Apps\x)", R"(..\Apps\x)", R"(E:\Tools\Apps\x)", R"(\Tools\Apps\x)");
    add(R"(..\Apps\x)", R"(..\Apps\x)", R"(E:\Tools\Apps\x)", R"(\Tools\Apps\x)");
    add(R"(bin\x)", R"(bin\x)", R"(E:\Tools\Launcher\bin\x)", R"(\Tools\Launcher\bin\x)");
    add(R"(E:\Other\x)", R"(..\..\Other\x)", R"(E:\Other\x)", R"(\Other\x)");
    add(R"(\Games\x)", R"(..\..\Games\x)", R"(E:\Games\x)", R"(\Games\x)");
    add(R"(C:\Windows\x)", R"(C:\Windows\x)", R"(C:\Windows\x)", R"(\Windows\x)");
    add(R"(E:\Tools\Launcher\x)", "x", R"(E:\Tools\Launcher\x)", R"(\Tools\Launcher\x)");
    add(R"(E:\Tools\Launcher)", R"(..\Launcher)", R"(E:\Tools\Launcher)", R"(\Tools\Launcher)");
    add("E:", "E:", "E:", "");
    add("", "", "", "");
    add(R"(E:\Games\x)", R"(\Games\x)", R"(E:\Games\x)", R"(\Games\x)", R"(E:\)");
    add(R"(\Games\y)", R"(\Games\y)", R"(E:\Games\y)", R"(\Games\y)", R"(E:\)");
    // "..\" counts in the middle as it does at the begin, and a network path is one without drive.
    add(R"(C:\a\..\b)", R"(..\b)", R"(E:\Tools\b)", R"(\Tools\b)");
    add(R"(\\server\x)", R"(..\..\\server\x)", R"(E:\\server\x)", R"(\\server\x)");
}

// As the forms are offered to the user: from whatever was stored, over the absolute form.
void tst_path_conversion::threeForms() {
    QFETCH(QString, app);
    QFETCH(QString, relative);
    QFETCH(QString, absolute);
    QFETCH(QString, withoutDrive);
    const QString stored = QString::fromUtf8(QTest::currentDataTag());
    QCOMPARE(ToAbsolutePath(stored, app), absolute);
    QCOMPARE(ToRelativePath(ToAbsolutePath(stored, app), app), relative);
    QCOMPARE(ToPathWithoutDrive(stored, app), withoutDrive);
}

void tst_path_conversion::oneWay_data() {
    QTest::addColumn<QString>("resolved");
    QTest::addColumn<QString>("relative");
    const auto add = [](const char* path, const char* resolved, const char* relative) {
        QTest::newRow(path) << QString::fromUtf8(resolved) << QString::fromUtf8(relative);
    };
    add(R"(..\x)", R"(E:\Tools\x)", R"(..\x)");
    add(R"(..\..\..\x)", "x", R"(..\..\..\x)");
    add(R"(..\a\..\x)", R"(E:\x)", R"(..\a\..\x)"); // counted, and not followed
    add("..", "..", "..");
    add(R"(...\x)", R"(E:\Tools\x)", R"(...\x)");
    add(R"(E:\tools\x)", R"(E:\tools\x)", R"(..\..\tools\x)");
    add(R"(E:\Tools\Launcher2\x)", R"(E:\Tools\Launcher2\x)", R"(..\Launcher2\x)");
    add(R"(E:\)", R"(E:\)", R"(..\..\)");
    add(R"(E:\Tools\Launcher\)", R"(E:\Tools\Launcher\)", "");
}

void tst_path_conversion::oneWay() {
    const QString path = QString::fromUtf8(QTest::currentDataTag());
    QTEST(ResolveRelativePath(path, uR"(E:\Tools\Launcher)"_s), "resolved");
    QTEST(ToRelativePath(path, uR"(E:\Tools\Launcher)"_s), "relative");
}

QTEST_GUILESS_MAIN(tst_path_conversion)
#include "tst_path_conversion.moc"
