#include "core/files/ini_file.h"
#include "support/store_builder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

using Random = QRandomGenerator;

template <class List>
auto Pick(Random& random, const List& list) {
    return list.at(random.bounded(int(list.size())));
}

// A file of sections s0 to s3 and keys k0 to k5, some of them double, in odd layouts, of one encoding.
QByteArray RandomIni(Random& random) {
    const bool ansi = random.bounded(2) == 0;
    const QByteArray end = Pick(random, QByteArrayList{"\r\n", "\n", "\r"});
    const QByteArray letter = ansi ? "\xE9" : "\xC3\xA9";
    QByteArray text = !ansi && random.bounded(4) == 0 ? QByteArray("\xEF\xBB\xBF") : QByteArray();
    const int lines = random.bounded(40);
    for (int i = 0; i < lines; ++i) {
        const QByteArray section =
            "[" + Pick(random, QByteArrayList{"s", "S", " s"}) + QByteArray::number(random.bounded(4)) + "]";
        const QByteArray key =
            Pick(random, QByteArrayList{"k", "K", "  k"}) + QByteArray::number(random.bounded(6));
        const QByteArray value =
            Pick(random, QByteArrayList{"1", " two ", "\"quoted\"", "a=b;c", "[x]", "", letter});
        text +=
            Pick(random, QByteArrayList{section, key + "=" + value, key + "=" + value, key + " = " + value,
                                        key + "=" + value, "; " + letter + "k1=no", "nothing", "", "   "});
        if (i + 1 < lines || random.bounded(2) == 0)
            text += end;
    }
    return text;
}

QByteArrayList LinesOf(const QByteArray& bytes) {
    QByteArray unified = bytes;
    return unified.replace("\r\n", "\n").replace('\r', '\n').split('\n');
}

} // namespace

class tst_ini : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reads_data();
    void reads();
    void writes_data();
    void writes();
    void refusesLongValues();
    void keepsAllOtherBytes();
    void files();
};

void tst_ini::reads_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected"); // of [Sec] Key
    const auto add = [](const char* tag, const QByteArray& bytes, const QString& expected) {
        QTest::newRow(tag) << bytes << expected;
    };
    add("carriage returns", "[Sec]\rKey=v\rOther=w", u"v"_s);
    add("blanks", "  [ Sec ] \n \tKey \t= a b \t\n", u"a b"_s);
    add("double quotes", "[Sec]\nKey=\" a \"", u" a "_s);
    add("single quotes", "[Sec]\nKey=' a '", u" a "_s);
    add("comment", "[Sec]\n;Key=no\n ; Key=no\nKey=v", u"v"_s);
    add("first of two keys", "[Sec]\nKey=\nKey=late", u""_s);
    add("first of two sections", "[Sec]\nA=1\n[Other]\n[Sec]\nKey=late", u""_s);
    add("no sections", "Key=no\n", u""_s);
    add("unclosed heading", "[Sec\nKey=no\n[Sec]\nKey=v", u"v"_s);
    add("key without value", "[Sec]\nKey\nKey=v", u"v"_s);
    add("windows-1252", "[Sec]\nKey=\x80\xE9\xFF", u"€éÿ"_s);
    add("a NUL ends the value", QByteArray("[Sec]\nKey=a#b\nX=1").replace('#', '\0'), u"a"_s);
    add("NULs elsewhere", QByteArray("##\n[Sec]\n#=#\nKey=v").replace('#', '\0'), u"v"_s);
    add("255 characters", "[Sec]\nKey=" + QByteArray(255, 'x'), QString(254, u'x'));
    add("254 and quotes", "[Sec]\nKey='" + QByteArray(254, 'x') + "'", QString(254, u'x'));
    add("a pair across the limit", "[Sec]\nKey=" + QByteArray(253, 'x') + "\xF0\x9F\x98\x80",
        QString(253, u'x'));
}

void tst_ini::reads() {
    QFETCH(QByteArray, bytes);
    QTEST(IniText(bytes).Value(u"Sec", u"Key"), "expected");
    QTEST(FindIniValue(bytes, u"Sec", u"Key"), "expected");
}

void tst_ini::writes_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("value"); // of [Sec] Key
    QTest::addColumn<QByteArray>("after");
    const auto add = [](const char* tag, const QByteArray& before, const QString& value,
                        const QByteArray& after) { QTest::newRow(tag) << before << value << after; };
    add("new file", "", u"v"_s, "[Sec]\r\nKey=v\r\n");
    add("new key", "[Sec]\nb=1\n; c\n\n\n[A]\n", u"v"_s, "[Sec]\nb=1\n; c\nKey=v\n\n\n[A]\n");
    add("new key, no end of line", "[Sec]\r\nb=1", u"v"_s, "[Sec]\r\nb=1\r\nKey=v\r\n");
    add("new key behind the heading", "[Sec]", u"v"_s, "[Sec]\r\nKey=v\r\n");
    add("mark alone", "\xEF\xBB\xBF", u"v"_s, "\xEF\xBB\xBF\r\n[Sec]\r\nKey=v\r\n");
    add("change", "[x]\rkey=1\r[sec]\r KEY =\"old\" \rkey=2\r", u"v"_s,
        "[x]\rkey=1\r[sec]\r KEY =v\rkey=2\r");
    add("the first of each", "[Sec]\nA=1\n[Sec]\nKey=2\n", u"v"_s, "[Sec]\nA=1\nKey=v\n[Sec]\nKey=2\n");
    add("lines become one", "[Sec]\nKey=1\n", u"a\r\nKey=2\n"_s, "[Sec]\nKey=a  Key=2 \n");
    add("stays windows-1252", "[Sec]\nA=\xE9\nKey=1\n", u"ö€"_s, "[Sec]\nA=\xE9\nKey=\xF6\x80\n");
    add("beyond windows-1252", "[Sec]\nA=\xE9\nKey=1\n", u"Ω"_s, "[Sec]\nA=\xC3\xA9\nKey=\xCE\xA9\n");
    // What is left would read as another text in UTF-8.
    add("last odd byte gone", "[Sec]\nA=\xC3\xA9\nKey=\xFF\n", u"v"_s, "[Sec]\nA=\xC3\x83\xC2\xA9\nKey=v\n");
}

void tst_ini::writes() {
    QFETCH(QByteArray, before);
    QFETCH(QString, value);
    IniText text(before);
    QVERIFY(text.SetValue(u"Sec", u"Key", value));
    QTEST(text.Bytes(), "after");
}

// What would be cut when it is read is not written, and the error names key and limit.
void tst_ini::refusesLongValues() {
    const test::StoreBuilder store;
    const auto write = [&store](const QString& value) {
        return WriteIni(u"S"_s, u"Target"_s, value, store.Path(u"x.ini"_s));
    };
    const QString longest(kMaxIniValue, u'é');
    QVERIFY(write(u" \""_s + longest + u"\" "_s));
    QCOMPARE(ReadIni(u"S"_s, u"Target"_s, store.Path(u"x.ini"_s)), longest);
    const FileResult refused = write(longest + u'x');
    QVERIFY(!refused && refused.error().Path.endsWith(u"x.ini"_s));
    QCOMPARE(refused.error().Reason, u"\"Target\" has 255 characters; at most 254 can be kept."_s);
    QCOMPARE(ReadIni(u"S"_s, u"Target"_s, store.Path(u"x.ini"_s)), longest);
}

// Over many files: the key has its new value, every other key its old one, one line at most has changed, and
// lines were added only for a key or a section that was not there.
void tst_ini::keepsAllOtherBytes() {
    Random random(20110226);
    for (int round = 0; round < 3000; ++round) {
        const QByteArray before = RandomIni(random);
        const QString section = u"s"_s + QString::number(random.bounded(5));
        const QString key = u"K"_s + QString::number(random.bounded(7));
        const QString value = Pick(random, QStringList{u""_s, u"v"_s, u"new é"_s, QString(254, u'y')});
        const IniText old(before);
        IniText text(before);
        text.SetValue(section, key, value);
        QCOMPARE(text.Value(section, key), value);
        // The spelling of what is read back from the bytes alone.
        const IniText reread(text.Bytes());
        for (int s = 0; s < 5; ++s) {
            for (int k = 0; k < 7; ++k) {
                const QString otherSection = u"S"_s + QString::number(s);
                const QString otherKey = u"k"_s + QString::number(k);
                const bool same = otherSection.toLower() == section && otherKey.toUpper() == key;
                QCOMPARE(reread.Value(otherSection, otherKey),
                         same ? value : old.Value(otherSection, otherKey));
            }
        }
        if (text.Bytes().isValidUtf8() != before.isValidUtf8())
            continue; // turned into UTF-8: every line with a letter may differ
        QByteArrayList left = LinesOf(text.Bytes());
        QByteArrayList gone = LinesOf(before);
        while (!left.isEmpty() && !gone.isEmpty() && left.first() == gone.first()) {
            left.removeFirst();
            gone.removeFirst();
        }
        while (!left.isEmpty() && !gone.isEmpty() && left.last() == gone.last()) {
            left.removeLast();
            gone.removeLast();
        }
        QVERIFY2(gone.size() <= 1 && left.size() <= 3,
                 QByteArray(before + "\n---\n" + text.Bytes()).constData());
        QVERIFY(gone.isEmpty() || gone.first().isEmpty() || gone.first().trimmed().startsWith("k") ||
                gone.first().trimmed().startsWith("K"));
    }
}

void tst_ini::files() {
    const test::StoreBuilder store;
    const QString missing = store.Path(u"none/x.ini"_s);
    QCOMPARE(ReadIni(u"S"_s, u"K"_s, missing, u"fallback"_s), u"fallback"_s);
    const FileResult noFolder = WriteIni(u"S"_s, u"K"_s, u"v"_s, missing);
    QVERIFY(!noFolder && noFolder.error().Text().contains(u"x.ini"_s));

    // Too large to be a file of the store: never read in, and not cut by a write.
    store.AddFile(u"huge.ini"_s, "[S]\nK=v\n");
    QVERIFY(QFile::resize(store.Path(u"huge.ini"_s), kMaxIniFile + 1));
    QCOMPARE(ReadIni(u"S"_s, u"K"_s, store.Path(u"huge.ini"_s)), u""_s);
    QVERIFY(!WriteIni(u"S"_s, u"K"_s, u"w"_s, store.Path(u"huge.ini"_s)));
    QCOMPARE(QFileInfo(store.Path(u"huge.ini"_s)).size(), kMaxIniFile + 1);
}

QTEST_GUILESS_MAIN(tst_ini)
#include "tst_ini.moc"
