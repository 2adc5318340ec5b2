#include "core/store/catalogue_cache.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

const QString kVersion = u"2.0"_s;

CacheRecord Sample() {
    const test::StoreBuilder store;
    store.AddFile(u"Setting/[001] A/[001] G/[001] Tool [B1].pnd"_s);
    store.AddFile(u"Setting/[001] A/[001] G/[002] é😀.lnk"_s);
    store.AddFile(u"Setting/[001] A/[001] G/[001] Tool [B1].png"_s);
    store.AddFile(u"Setting/[002] Dynamic Category/Properties.ini"_s, "[Properties]\nCategory=Tree\n");
    ScanOptions options = store.Scan();
    options.DriveTable[3] = true;
    CacheRecord record;
    record.ProductVersion = kVersion;
    record.Catalogue = LoadCatalogue(options);
    PieceSizes& sizes = record.Pictures.Sizes;
    int number = 0;
    for (TwipsSize* size : {&sizes.Group, &sizes.Category, &sizes.Bottom, &sizes.TopA, &sizes.LeftA,
                            &sizes.RightA, &sizes.TopLeft, &sizes.TopRight, &sizes.BottomLeft,
                            &sizes.BottomRight, &sizes.Top, &sizes.Left, &sizes.Right}) {
        size->Width = number++;
        size->Height = number++;
    }
    sizes.HasBottomB = sizes.HasRightB = true;
    record.Pictures = {u"Späne"_s, 0xFEDCBA9876543210, sizes, {3000, 0}};
    record.HasDriveButtons = true;
    return record;
}

} // namespace

class tst_catalogue_cache : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void roundTrip();
    void movedStore();
    void damage();
    void files();
};

void tst_catalogue_cache::roundTrip() {
    const CacheRecord record = Sample();
    QCOMPARE(record.Catalogue[0].Groups.back().FolderName, u"My Computer"_s);
    QVERIFY(DecodeCache(EncodeCache(record), kVersion, test::kAppPath) == record);
    const CacheRecord empty{kVersion, {}, {}, false};
    QVERIFY(DecodeCache(EncodeCache(empty), kVersion, test::kAppPath) == empty);
    for (const QString& other : {u"2.1"_s, u""_s, u"2.0 "_s})
        QVERIFY(!DecodeCache(EncodeCache(record), other, test::kAppPath));
}

void tst_catalogue_cache::movedStore() {
    const auto moved = DecodeCache(EncodeCache(Sample()), kVersion, u"G:\\"_s);
    QVERIFY(moved);
    const std::vector<GroupEntry>& groups = moved->Catalogue[0].Groups;
    QCOMPARE(groups[0].Buttons[1].Path, u"G:\\\\Setting\\[001] A\\[001] G\\[002] é😀.lnk"_s);
    QCOMPARE(groups[1].Buttons[0].Path, u"Drive C"_s);
}

// At every byte: another bit, and an end. More of it comes from the fuzz target.
void tst_catalogue_cache::damage() {
    const CacheRecord record = Sample();
    const QByteArray bytes = EncodeCache(record);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        QByteArray damaged = bytes;
        damaged[i] = char(damaged[i] ^ (1 << (i % 8)));
        const auto decoded = DecodeCache(damaged, kVersion, test::kAppPath);
        QVERIFY2(!decoded || *decoded == record, QByteArray::number(i).constData());
        QVERIFY(!DecodeCache(bytes.first(i), kVersion, test::kAppPath));
    }
    QVERIFY(!DecodeCache(bytes + '\0', kVersion, test::kAppPath));
}

void tst_catalogue_cache::files() {
    const test::StoreBuilder store;
    const QString path = store.Path(u"cache"_s);
    const auto load = [&path] { return LoadCache(path, kVersion, test::kAppPath); };
    QVERIFY(!load());
    QVERIFY(SaveCache(path, Sample()));
    QVERIFY(load() == Sample());
    QVERIFY(QFile::remove(path));
    store.AddFolder(u"cache"_s);
    QVERIFY(!load());
    QVERIFY(!SaveCache(path, Sample()));
}

QTEST_GUILESS_MAIN(tst_catalogue_cache)
#include "tst_catalogue_cache.moc"
