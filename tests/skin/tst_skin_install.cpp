#include "skin/skin_install.h"
#include "skin/skin_maker.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// Entries by their names, with "/" between the parts. One that ends in "@" is a link, one in "#" has 40 MB.
std::vector<PackedEntry> Entries(const QStringList& names) {
    std::vector<PackedEntry> entries;
    for (const QString& name : names) {
        PackedEntry entry{QString(name).replace(u'/', u'\\'), 10, !name.endsWith(u'@')};
        if (name.endsWith(u'#'))
            entry.Size = 40'000'000;
        entries.push_back(entry);
    }
    return entries;
}

const QStringList kSkin{u"S/"_s, u"S/skin.ini"_s, u"S/bottom.png"_s, u"S/O/top.png"_s};

} // namespace

class tst_SkinInstall : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void plans_data();
    void plans();
    void installs();
};

void tst_SkinInstall::plans_data() {
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QString>("result"); // name, number of files, options; or a part of the error
    const auto row = [](const char* name, const QStringList& more, const QString& result) {
        QTest::newRow(name) << kSkin + more << result;
    };
    row("skin", {u"S/O/CHANGE SKIN.INI"_s, u"S/[Hidden] H/x"_s, u"S/.DS_Store"_s, u"__MACOSX/S/._x"_s},
        u"S 5 O"_s);
    QTest::newRow("without folder") << QStringList{u"Skin.INI"_s, u"BOTTOM.jpg"_s, u"A/x"_s, u"B/x"_s}
                                    << u"My Skin 4 A,B"_s;
    QTest::newRow("no skin.ini") << QStringList{u"S/bottom.png"_s} << u"not hold one skin"_s;
    QTest::newRow("no bottom") << QStringList{u"S/skin.ini"_s, u"S/O/bottom.png"_s} << u"not hold one skin"_s;
    row("two skins", {u"T/skin.ini"_s, u"T/bottom.png"_s}, u"not hold one skin"_s);
    for (const char* name : {"../x", "S/../x", "/x", "C:/x", "S/a:b", "S//x", "S/./x", "S/con.png", "S/x.",
                             "S/x ", "S/a\x01", "S/.hidden", "S/a?", "..\\x"})
        row(name, {QString::fromLatin1(name)}, u"cannot be used"_s);
    row("long", {u"S/"_s + QString(201, u'x')}, u"cannot be used"_s);
    row("deep", {u"S/O/more/x.png"_s}, u"folder of an option"_s);
    row("twice", {u"S/Bottom.PNG"_s}, u"more than once"_s);
    row("two spellings", {u"S/o/left.png"_s}, u"more than once"_s);
    row("file and folder", {u"S/o"_s}, u"a file and a folder"_s);
    row("link", {u"S/x@"_s}, u"no plain file"_s);
    row("large", {u"S/a#"_s, u"S/b#"_s}, u"64 MB"_s);
    row("many", QStringList(2000, u"S/x"_s), u"2000 files"_s);
}

void tst_SkinInstall::plans() {
    QFETCH(const QStringList, entries);
    QFETCH(const QString, result);
    const auto plan = PlanSkinInstall(Entries(entries), u"My Skin.zip"_s);
    if (plan)
        QCOMPARE(u"%1 %2 %3"_s.arg(plan->Skin).arg(plan->Files.size()).arg(plan->Options.join(u',')), result);
    else
        QVERIFY2(plan.error().contains(result), qPrintable(plan.error()));
}

// Whole or not at all, and onto nothing.
void tst_SkinInstall::installs() {
    StoreBuilder store;
    store.AddFolder(u"skin"_s);
    const auto plan = PlanSkinInstall(Entries(kSkin), {});
    QVERIFY(plan);
    QByteArray ini;
    const PackedBytes bytesOf = [&ini](std::size_t entry) -> tl::expected<QByteArray, QString> {
        if (ini.isEmpty() && entry == 3)
            return tl::make_unexpected(u"damaged"_s);
        return entry == 1 ? ini : "bytes";
    };
    const auto install = [&] { return InstallSkin(store.AppFolder(), *plan, bytesOf); };
    QCOMPARE(install().error(), u"damaged"_s);
    ini = "[Buttons]\n";
    const QString broken = install().error();
    QVERIFY2(broken.contains(u"\"S\"") && broken.contains(u"hide button top") && !broken.contains(u".paneda"),
             qPrintable(broken));
    QCOMPARE(store.Entries(), QStringList{u"skin/"_s});
    ini = SkinMaker::Places();
    QVERIFY(install());
    QCOMPARE(store.Entries(), QStringList({u"skin/"_s, u"skin/S/"_s, u"skin/S/O/"_s, u"skin/S/O/top.png"_s,
                                           u"skin/S/bottom.png"_s, u"skin/S/skin.ini"_s}));
    QVERIFY(install().error().contains(u"already"));
}

QTEST_GUILESS_MAIN(tst_SkinInstall)
#include "tst_skin_install.moc"
