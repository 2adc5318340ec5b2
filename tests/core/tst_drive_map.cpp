#include "core/files/drive_map.h"

#include <QRandomGenerator>
#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_drive_map : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void letters();
    void lettersStay();
    void toHost_data();
    void toHost();
    void toStored_data();
    void toStored();
    void roundTrip();
    void hostWithLetters();
};

namespace {

// C: /, D: /media/me/Stick, E: /media/me/Stick/inner, F: /mnt/data, G: /run/media/me/b
DriveMap Map() {
    return DriveMap::FromMountPoints({u"/"_s, u"/home"_s, u"/run/media/me/b"_s, u"/mnt/data"_s, u"/mnt"_s,
                                      u"/mnt/"_s, u"/media/me/Stick/inner"_s, u"/media/me/Stick"_s,
                                      u"/mnt/data"_s, u"/mediaother/x"_s});
}

} // namespace

void tst_drive_map::letters() {
    const DriveMap map = Map();
    const QStringList roots{u"/"_s, u"/media/me/Stick"_s, u"/media/me/Stick/inner"_s, u"/mnt/data"_s,
                            u"/run/media/me/b"_s};
    for (int i = 0; i < roots.size(); ++i)
        QCOMPARE(map.RootOf(QChar(u'c' + i)), roots[i]);
    for (const QChar none : {u'A', u'B', u'H', u'Z', u'9', u'['})
        QCOMPARE(map.RootOf(none), u""_s);
    QStringList many;
    for (int i = 0; i < 40; ++i)
        many.append(QStringLiteral("/mnt/%1").arg(i, 2, 10, QLatin1Char('0')));
    const DriveMap full = DriveMap::FromMountPoints(many);
    QCOMPARE(full.RootOf(u'Z'), u"/mnt/22"_s);
    QCOMPARE(full.ToStored(u"/mnt/23/x"_s), u"C:\\mnt\\23\\x"_s);
}

void tst_drive_map::lettersStay() {
    DriveMap map = DriveMap::FromMountPoints({u"/mnt/b"_s});
    map.UseMountPoints({u"/mnt/a"_s});
    QCOMPARE(map.RootOf(u'D'), u"/mnt/b"_s);
    QCOMPARE(map.RootOf(u'E'), u"/mnt/a"_s);
    map.UseMountPoints({u"/mnt/b"_s, u"/mnt/a"_s});
    QCOMPARE(map.RootOf(u'F'), u""_s);
}

void tst_drive_map::toHost_data() {
    QTest::addColumn<QString>("host");
    const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                         {R"(C:\usr\bin\x)", "/usr/bin/x"},
                                                         {R"(d:\a b\x.exe)", "/media/me/Stick/a b/x.exe"},
                                                         {R"(D:\)", "/media/me/Stick"},
                                                         {"D:", "/media/me/Stick"},
                                                         {R"(C:\)", "/"},
                                                         {R"(D:\\Setting\x)", "/media/me/Stick/Setting/x"},
                                                         {R"(Q:\x)", ""},
                                                         {R"(\Games\x)", "/media/me/Stick/Games/x"},
                                                         {R"(bin\x)", "/media/me/Stick/Paneda/bin/x"},
                                                         {R"(/home/me/a\b)", R"(/home/me/a\b)"},
                                                         {R"(\\server\share\x)", "//server/share/x"}};
    for (const auto& [stored, host] : cases)
        QTest::newRow(stored) << QString::fromUtf8(host);
}

void tst_drive_map::toHost() {
    QTEST(Map().ToHost(QString::fromUtf8(QTest::currentDataTag()), uR"(D:\Paneda)"_s), "host");
}

void tst_drive_map::toStored_data() {
    QTest::addColumn<QString>("stored");
    const std::pair<const char*, const char*> cases[] = {{"/usr/bin/x", R"(C:\usr\bin\x)"},
                                                         {"/", R"(C:\)"},
                                                         {"/media/me/Stick", R"(D:\)"},
                                                         {"/media/me/Stick/x", R"(D:\x)"},
                                                         {"/media/me/Stick2/x", R"(C:\media\me\Stick2\x)"},
                                                         {"/media/me/stick/x", R"(C:\media\me\stick\x)"},
                                                         {"/media/me/Stick/inner/x", R"(E:\x)"},
                                                         {R"(/home/a\b)", R"(/home/a\b)"},
                                                         {"relative/x", "relative/x"},
                                                         {"", ""}};
    for (const auto& [host, stored] : cases)
        QTest::newRow(host) << QString::fromUtf8(stored);
}

void tst_drive_map::toStored() {
    QTEST(Map().ToStored(QString::fromUtf8(QTest::currentDataTag())), "stored");
}

void tst_drive_map::roundTrip() {
    const DriveMap map = Map();
    QRandomGenerator random(7);
    const QStringList names{u"media"_s, u"me"_s,  u"Stick"_s, u"inner"_s, u"mnt"_s,
                            u"data"_s,  u"a b"_s, u"é"_s,     u"D:"_s,    u".."_s};
    for (int round = 0; round < 5000; ++round) {
        QString host;
        for (int parts = random.bounded(1, 7); parts > 0; --parts)
            host += u'/' + names[random.bounded(int(names.size()))];
        QCOMPARE(map.ToHost(map.ToStored(host), {}), host);
    }
}

void tst_drive_map::hostWithLetters() {
    const QString app = uR"(E:\Paneda)"_s;
    const auto host = [](const QString& stored, const QString& in) { return DriveMap().ToHost(stored, in); };
    QCOMPARE(host(uR"(c:\a\b)"_s, app), u"C:/a/b"_s);
    QCOMPARE(host(uR"(\a)"_s, app), u"E:/a"_s);
    QCOMPARE(host(u"a"_s, uR"(E:\)"_s), u"E:/a"_s);
    QCOMPARE(host(uR"(\\server\share\x)"_s, app), u"//server/share/x"_s);
    QCOMPARE(host(uR"(bin\x)"_s, uR"(\\server\share\Paneda)"_s), u"//server/share/Paneda/bin/x"_s);
    QCOMPARE(DriveMap().ToStored(u"E:/a/b"_s), uR"(E:\a\b)"_s);
}

QTEST_GUILESS_MAIN(tst_drive_map)
#include "tst_drive_map.moc"
