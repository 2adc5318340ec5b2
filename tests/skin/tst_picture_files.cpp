#include "skin_maker.h"

#include "skin/picture_files.h"
#include "skin/picture_loader.h"
#include "skin/scaled_picture.h"
#include "skin/skin_pieces.h"

#include <QBuffer>
#include <QDirIterator>
#include <QTest>
#include <QtEndian>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace paneda;

namespace {

constexpr Argb kBlue = 0xFF0000FF;

QByteArray Encoded(const QImage& picture, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return buffer.data();
}

quint32 Crc32(QByteArrayView bytes) {
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

// A PNG whose header tells another size.
QByteArray WithSize(quint32 width, quint32 height) {
    QByteArray png = Encoded(PlainPicture(4, 4, kBlue), "png");
    qToBigEndian(width, png.data() + 16);
    qToBigEndian(height, png.data() + 20);
    qToBigEndian(Crc32(QByteArrayView(png).sliced(12, 17)), png.data() + 29);
    return png;
}

// An icon file of one picture per side.
QByteArray IconFile(const QList<int>& sides) {
    QByteArray head("\0\0\1\0", 4);
    head += char(sides.size());
    head += '\0';
    QByteArray bodies;
    for (const int side : sides) {
        const QByteArray png = Encoded(PlainPicture(side, side, 0xFF000000u | quint32(side)), "png");
        QByteArray entry(16, '\0');
        entry[0] = entry[1] = char(side);
        qToLittleEndian(quint16(1), entry.data() + 4);
        qToLittleEndian(quint16(32), entry.data() + 6);
        qToLittleEndian(quint32(png.size()), entry.data() + 8);
        qToLittleEndian(quint32(6 + 16 * sides.size() + bodies.size()), entry.data() + 12);
        head += entry;
        bodies += png;
    }
    return head + bodies;
}

} // namespace

class TestPictureFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void PicksPieces();
    void FindsPictureBesideButton();
    void ReadsByContents();
    void RefusesHostilePictures_data();
    void RefusesHostilePictures();
    void LimitsWhatDecodingCosts();
    void ReadsRegularFilesOnly();
    void TakesFittingIconSize();
    void ReadsTheIconLibrary();
    void ScalesForControls();

private:
    QString Path(const QString& name) const { return folder_->filePath(name); }
    void Touch(const QString& name) const { WriteBytes(Path(name), name.toUtf8()); }

    std::unique_ptr<QTemporaryDir> folder_;
};

void TestPictureFiles::init() {
    folder_ = std::make_unique<QTemporaryDir>();
}

void TestPictureFiles::PicksPieces() {
    Touch(QStringLiteral("TOPA.PNG"));
    Touch(QStringLiteral("lefta.jpg"));
    Touch(QStringLiteral("righta.png"));
    Touch(QStringLiteral("righta.jpg"));
    Touch(QStringLiteral("Category.png"));
    Touch(QStringLiteral("group.bmp"));
    const SkinPieces pieces = LoadSkinPieces(folder_->path());
    QCOMPARE(pieces.TopA, QStringLiteral("TOPA.PNG"));
    QCOMPARE(pieces.LeftA, QStringLiteral("lefta.jpg"));
    QCOMPARE(pieces.RightA, QStringLiteral("righta.png"));
    QCOMPARE(pieces.Group, QStringLiteral("group.jpg"));
    QCOMPARE(pieces.CategoryActive, QStringLiteral("Category.png"));
    Touch(QStringLiteral("categoryactive.jpg"));
    QCOMPARE(LoadSkinPieces(folder_->path()).CategoryActive, QStringLiteral("categoryactive.jpg"));
}

void TestPictureFiles::FindsPictureBesideButton() {
    Touch(QStringLiteral("[001] A.b [11].ICO"));
    Touch(QStringLiteral("[001] A.b [11].Jpg"));
    Touch(QStringLiteral("other.png"));
    const QString stem = PictureStem(Path(QStringLiteral("[001] A.b [11].lnk")));
    QCOMPARE(FindPictureFile(stem), Path(QStringLiteral("[001] A.b [11].Jpg")));
    PictureFinder finder;
    QCOMPARE(finder.Find(Path(QStringLiteral("OTHER"))), Path(QStringLiteral("other.png")));
    QCOMPARE(finder.Find(Path(QStringLiteral("none"))), QString());
    QCOMPARE(finder.Find(QStringLiteral("/no/such/folder/other")), QString());
    // A point in the folder's name is not that of an extension.
    QCOMPARE(PictureStem(QStringLiteral("/a.b/file")), QStringLiteral("/a.b/file"));
}

void TestPictureFiles::ReadsByContents() {
    const QString path = Path(QStringLiteral("picture.jpg"));
    WriteBytes(path, Encoded(PlainPicture(3, 2, 0x80FF0000), "png"));
    const QImage picture = LoadPicture(path);
    QCOMPARE(picture.size(), QSize(3, 2));
    QCOMPARE(picture.format(), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(picture.pixel(0, 0), 0x80800000u);
    QCOMPARE(ImageSizeTwips(path), (TwipsSize{45, 30}));
}

void TestPictureFiles::RefusesHostilePictures_data() {
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = Encoded(PlainPicture(40, 40, kBlue), "png");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("header alone") << good.first(33);
    QTest::newRow("20000 by 20000") << WithSize(20000, 20000);
    QTest::newRow("too wide") << Encoded(PlainPicture(4097, 1, kBlue), "png");
    QTest::newRow("no width") << WithSize(0, 4);
    QTest::newRow("negative width") << WithSize(0xFFFFFFFF, 4);
    QTest::newRow("a format that is not read")
        << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"/>");
    QTest::newRow("an icon file that is cut") << IconFile({16}).first(40);
    QTest::newRow("an icon of another size than its entry tells")
        << IconFile({16}).replace(Encoded(PlainPicture(16, 16, 0xFF000010), "png"), WithSize(20000, 20000));
}

void TestPictureFiles::RefusesHostilePictures() {
    QFETCH(QByteArray, bytes);
    const QString path = Path(QStringLiteral("picture.png"));
    WriteBytes(path, bytes);
    QVERIFY(LoadPicture(path).isNull());
    ReadPictureSize(path);
}

void TestPictureFiles::LimitsWhatDecodingCosts() {
    const QString path = Path(QStringLiteral("picture"));
    DecodingTime time;
    // Scans, wherever their markers stand: behind a marker without length, and not in the bytes of a segment.
    const QByteArray scan("\xFF\xDA\0\3\1\x55", 6);
    const QByteArray jpeg("\xFF\xD8\xFF\xE1\0\4\xFF\xDA\xFF\xD0\xFF\0", 12);
    QCOMPARE(CountScans(jpeg + scan.repeated(3) + scan.first(3)), 3);
    WriteBytes(path, jpeg + scan.repeated(kMaxScans + 1));
    QVERIFY(ReadPicture(path, {}, time).error().Reason.contains(QStringLiteral("101 scans")));

    // Texts of a PNG unpack to much; none reaches the decoder.
    QImage noted = PlainPicture(600, 600, kBlue);
    noted.setText(QStringLiteral("a"), QString(100000, u'a'));
    WriteBytes(path, Encoded(noted, "png"));
    QVERIFY(ReadPicture(path, {}, time)->text().isEmpty());
    QCOMPARE(ReadPicture(path, {.Room = {40, 700}}, time)->size(), QSize(40, 600));
    QCOMPARE(ReadPicture(path, {.Width = 32, .Small = true}, time)->size(), QSize(128, 128));

    // A clock on which every look takes 30 ms: decoding ends between two of them.
    quint32 now = 0;
    const TickSource slow = [&now] { return now += 30; };
    for (const char* format : {"png", "jpeg", "bmp"}) {
        WriteBytes(path, Encoded(PlainPicture(600, 600, kBlue), format));
        DecodingTime ample{100'000, slow};
        QVERIFY(ReadPicture(path, {}, ample));
        DecodingTime brief{70, slow};
        QVERIFY2(ReadPicture(path, {}, brief).error().Late, format);
        QCOMPARE(brief.Left, 0u);
    }
}

void TestPictureFiles::ReadsRegularFilesOnly() {
#ifdef Q_OS_UNIX
    const QString pipe = Path(QStringLiteral("pipe.png"));
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(LoadPicture(pipe).isNull());
    // It is found all the same, so that the user learns why it is not shown.
    QCOMPARE(PickPieceFile(QStringLiteral("pipe"), FolderNames(folder_->path())), QStringLiteral("pipe.png"));
#endif
    QVERIFY(LoadPicture(folder_->path()).isNull());
    QVERIFY(LoadPicture(QStringLiteral("/dev/zero")).isNull());
    QVERIFY(ReadPictureSize(QString()).isEmpty());
}

void TestPictureFiles::TakesFittingIconSize() {
    const QString path = Path(QStringLiteral("icon.ico"));
    WriteBytes(path, IconFile({16, 48, 32}));
    QCOMPARE(LoadPicture(path, 16).width(), 16);
    QCOMPARE(LoadPicture(path, 20).width(), 32);
    QCOMPARE(LoadPicture(path, 32).width(), 32);
    QCOMPARE(LoadPicture(path, 64).width(), 48);
}

void TestPictureFiles::ReadsTheIconLibrary() {
    int icons = 0;
    // With its drive on Windows, which a path of the build may lack.
    const QString library = QDir(QStringLiteral(ICON_LIBRARY)).canonicalPath();
    QDirIterator files(library, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        for (const int side : {16, 32, 48, 64, 96})
            QVERIFY2(LoadPicture(path, side).size() == QSize(side, side), qPrintable(path));
        ++icons;
    }
    QVERIFY(icons >= 120);
}

void TestPictureFiles::ScalesForControls() {
    const QString path = Path(QStringLiteral("wide.png"));
    WriteBytes(path, Encoded(PlainPicture(40, 20, kBlue), "png"));
    int width = 20;
    int height = 30;
    const auto kept = LoadScaledPicture(path, width, height, Qt::red, true);
    QCOMPARE(kept->size(), QSize(20, 30));
    QCOMPARE(BoxOf(*kept, kBlue), QRect(0, 0, 20, 10));
    QCOMPARE(BoxOf(*kept, 0xFFFF0000), QRect(0, 10, 20, 20));
    height = -1;
    QCOMPARE(LoadScaledPicture(path, width, height, Qt::red, true)->size(), QSize(40, 20));
    const QString missing = Path(QStringLiteral("missing.png"));
    QCOMPARE(LoadScaledPicture(missing, width, height, Qt::red, true).error(),
             QStringLiteral("Error loading picture ") + QDir::toNativeSeparators(missing));
}

QTEST_MAIN(TestPictureFiles)
#include "tst_picture_files.moc"
