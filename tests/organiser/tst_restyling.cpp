#include "core/store/style_form.h"
#include "organiser/restyling.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class tst_Restyling : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void forms();
    void clicks();
    void names();
    void scopes();
};

void tst_Restyling::forms() {
    // What comes back when a code is shown and encoded again.
    for (const auto& [code, again] : std::initializer_list<std::pair<const char*, const char*>>{
             {"B1224101931", "B1224101901"}, // a digit other than 1 switches nothing on
             {"J0113001100", "J0113001100"},
             {"A1213001111", "A1213001111"},
             {"Z1113001111", "Z1113001111"}, // wider than any cell
             {"", "11113001100"},
             {"?51??????1?", "11113001110"},
             {"]/119009911", "11113001911"},
             {"1111111351", "11111113510"}})
        QCOMPARE(EncodeStyle(DecodeStyleForm(QString::fromLatin1(code))), QLatin1String(again));
    QCOMPARE(WidthCell(DecodeStyleForm(u"B"_s)), 1);
    QCOMPARE(WidthCell(DecodeStyleForm(u"A"_s)), 10);
    QCOMPARE(WidthCell(DecodeStyleForm(u"Z"_s)), -1);
    for (const StyleTemplate& style : kStyleTemplates)
        QVERIFY(EncodeStyle(DecodeStyleForm(QString::fromLatin1(style.Style)))
                    .startsWith(QLatin1String(style.Style)));
}

void tst_Restyling::clicks() {
    const auto width = [](const StyleForm& form) { return EncodeStyle(form).first(1); };
    const StyleForm two = WithWidth({}, 2);
    QCOMPARE(width(WithWidthHalf(two)), u"C"_s);
    QCOMPARE(width(WithWidthHalf(WithWidthHalf(two))), u"2"_s);
    QCOMPARE(width(WithWidth(WithWidthHalf(two), 9)), u"J"_s);
    for (const auto& [units, code] : {std::pair(0, u"0"_s), {10, u"A"_s}}) {
        QCOMPARE(width(WithWidth(WithWidthHalf(two), units)), code);
        QCOMPARE(width(WithWidthHalf(WithWidth({}, units))), code);
    }
    QVERIFY(!WithWidth({}, 0).IconIsBig && !WithHeight({}, 0).IconIsBig);
    QVERIFY(WithWidth({}, 10).IconIsBig && WithHeight({}, 1).IconIsBig);
}

void tst_Restyling::names() {
    const QString style = u"0021300110"_s;
    QCOMPARE(RestyledButton(u"[007] Old [1].lnk"_s, u"New"_s, style), u"[007] New [0021300110].lnk"_s);
    QCOMPARE(RestyledButton(u"Old.lnk"_s, u"New"_s, style), u"New [0021300110].lnk"_s);
    for (const auto& [name, becomes] :
         {std::pair(u"[007] A [1].b [22].URL"_s, u"[007] A [1].b [0021300110].URL"_s),
          {u"[007] A.txt"_s, u"[007] A [0021300110].txt"_s},
          {u"[007].lnk"_s, u"[007] [0021300110].lnk"_s}})
        QCOMPARE(RestyledButton(name, style), becomes);
}

void tst_Restyling::scopes() {
    const auto after = [](StyleScope scope) {
        const StoreBuilder store;
        for (const char* file :
             {"[001] G/[001] A [1].pnd", "[001] G/[001] A [1].PNG", "[001] G/[002] B [2].url",
              "[001] G/[002] B [2].ico", "[001] G/[001] A [1]/in a folder.pnd", "[002] H/[001] C.txt",
              "[002] H/stray.png"})
            store.AddFile(u"C/"_s + QLatin1String(file));
        store.AddFile(u"D/[001] G/[001] A [1].pnd"_s);
        const FileResult result =
            ApplyStyle({store.Path(u"C/[001] G/[001] A [1].pnd"_s), u"N"_s, u"9"_s, scope});
        QStringList files;
        for (const QString& entry : store.Entries()) {
            if (!entry.endsWith(u'/') && entry.contains(u"[9]"))
                files.append(entry);
        }
        return result ? files : QStringList{result.error().Text()};
    };
    const QStringList own{u"C/[001] G/[001] N [9].pnd"_s, u"C/[001] G/[001] N [9].png"_s};
    const QStringList group =
        own + QStringList{u"C/[001] G/[002] B [9].ico"_s, u"C/[001] G/[002] B [9].url"_s};
    QCOMPARE(after(StyleScope::Button), own);
    QCOMPARE(after(StyleScope::Group), group);
    QCOMPARE(after(StyleScope::Category), group + QStringList{u"C/[002] H/[001] C [9].txt"_s});

    const StoreBuilder store;
    store.AddFile(u"C/G/A [1].pnd"_s, "a");
    store.AddFile(u"C/G/B [9].pnd"_s, "b");
    const FileResult taken = ApplyStyle({store.Path(u"C/G/A [1].pnd"_s), u"B"_s, u"9"_s, StyleScope::Button});
    QVERIFY(!taken);
    QVERIFY2(taken.error().Text().contains(u".pnd: "), qPrintable(taken.error().Text()));
    QCOMPARE(store.Bytes(u"C/G/A [1].pnd"_s) + store.Bytes(u"C/G/B [9].pnd"_s), QByteArray("ab"));
}

QTEST_GUILESS_MAIN(tst_Restyling)

#include "tst_restyling.moc"
