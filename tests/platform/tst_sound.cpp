#include "platform/linux/mixer_worker.h"
#include "platform/threaded_player.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <cmath>
#include <numbers>

#include <sys/stat.h>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRate = 44'100;
constexpr int kLow = 400;   // Hz
constexpr int kHigh = 1100; // Hz

void AppendNumber(QByteArray& bytes, quint32 value, int size) {
    for (int i = 0; i < size; ++i)
        bytes.append(char(value >> (8 * i)));
}

// A tone of one channel, 16 bits.
QByteArray Tone(int frequency, double seconds) {
    QByteArray samples;
    for (int i = 0; i < int(seconds * kRate); ++i)
        AppendNumber(samples, quint32(qint32(8000 * std::sin(2 * std::numbers::pi * frequency * i / kRate))),
                     2);
    QByteArray wave("RIFF");
    AppendNumber(wave, quint32(36 + samples.size()), 4);
    wave += "WAVEfmt ";
    const std::pair<quint32, int> kFields[] = {{16, 4},        {1, 2}, {1, 2}, {kRate, 4},
                                               {2 * kRate, 4}, {2, 2}, {16, 2}};
    for (const auto& [value, size] : kFields)
        AppendNumber(wave, value, size);
    wave += "data";
    AppendNumber(wave, quint32(samples.size()), 4);
    return wave + samples;
}

// One note of the standard tuning's A, 440 Hz, a second long.
QByteArray Tune() {
    return QByteArray::fromHex("4d546864000000060000000100604d54726b00000010"
                               "00c050" // a square lead
                               "0090457f"
                               "8140804500"
                               "00ff2f00");
}

// How loud a frequency is in a stretch of interleaved stereo, by correlation with it; a full tone of the
// test gives about 8000.
double Loudness(const std::vector<qint16>& samples, int frequency, double from, double to) {
    double sine = 0;
    double cosine = 0;
    const int begin = int(from * kRate);
    const int end = std::min(int(to * kRate), int(samples.size() / 2));
    for (int i = begin; i < end; ++i) {
        const double angle = 2 * std::numbers::pi * frequency * i / kRate;
        sine += samples[std::size_t(2 * i)] * std::sin(angle);
        cosine += samples[std::size_t(2 * i)] * std::cos(angle);
    }
    return end > begin ? 2 * std::hypot(sine, cosine) / (end - begin) : 0;
}

} // namespace

// The mixer plays into a file here, at the pace of a real device, so that what would be heard can be read.
class tst_sound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void playsAndStops();
    void aliasesSoundTogether();
    void sameAliasReplaces();
    void stopAndClose();
    void tune();
    void silentFailures_data();
    void silentFailures();
    void noDevice();

private:
    QString Add(const QString& name, const QByteArray& bytes) const;
    std::vector<qint16> Heard() const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_sound::init() {
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(folder_->filePath(u"heard.raw"_s)));
}

QString tst_sound::Add(const QString& name, const QByteArray& bytes) const {
    QFile file(folder_->filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
}

std::vector<qint16> tst_sound::Heard() const {
    QFile file(folder_->filePath(u"heard.raw"_s));
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    std::vector<qint16> samples;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        samples.push_back(qFromLittleEndian<qint16>(bytes.constData() + i));
    return samples;
}

void tst_sound::playsAndStops() {
    const QString path = Add(u"\u00e9 tone.wav"_s, Tone(kLow, 0.5));
    {
        ThreadedPlayer player(MakeSoundWorker<MixerWorker>);
        QCOMPARE(player.Status(u"fun"_s), QString());
        QElapsedTimer clock;
        clock.start();
        player.Play(path, u"fun"_s);
        QVERIFY2(clock.elapsed() < 100, "Play has to return at once");
        QCOMPARE(player.Status(u"fun"_s), u"playing"_s);
        QTRY_COMPARE(player.Status(u"fun"_s), u"stopped"_s);
        QVERIFY2(clock.elapsed() >= 400, "it was over before it can have been heard");
        QCOMPARE(player.Status(u"other"_s), QString());
    }
    QVERIFY(Loudness(Heard(), kLow, 0.1, 0.4) > 4000);
    QVERIFY(Loudness(Heard(), kHigh, 0.1, 0.4) < 500);
}

void tst_sound::aliasesSoundTogether() {
    const QString low = Add(u"low.wav"_s, Tone(kLow, 1));
    const QString high = Add(u"high.wav"_s, Tone(kHigh, 1));
    {
        ThreadedPlayer player(MakeSoundWorker<MixerWorker>);
        player.Play(low, u"a"_s);
        player.Play(high, u"b"_s);
        QTRY_COMPARE(player.Status(u"a"_s), u"stopped"_s);
        QTRY_COMPARE(player.Status(u"b"_s), u"stopped"_s);
    }
    QVERIFY(Loudness(Heard(), kLow, 0.3, 0.8) > 4000);
    QVERIFY(Loudness(Heard(), kHigh, 0.3, 0.8) > 4000);
}

void tst_sound::sameAliasReplaces() {
    const QString low = Add(u"low.wav"_s, Tone(kLow, 20));
    const QString high = Add(u"high.wav"_s, Tone(kHigh, 0.6));
    {
        ThreadedPlayer player(MakeSoundWorker<MixerWorker>);
        player.Play(low, u"a"_s);
        QTest::qWait(300);
        player.Play(high, u"a"_s);
        QCOMPARE(player.Status(u"a"_s), u"playing"_s);
        QTRY_COMPARE_WITH_TIMEOUT(player.Status(u"a"_s), u"stopped"_s, 5000);
    }
    const std::vector<qint16> heard = Heard();
    const double length = double(heard.size()) / 2 / kRate;
    QVERIFY2(length < 5, "the first sound went on");
    QVERIFY(Loudness(heard, kHigh, 0, length) > 800);
    QVERIFY(Loudness(heard, kLow, length - 0.3, length) < 500);
}

void tst_sound::stopAndClose() {
    const QString path = Add(u"low.wav"_s, Tone(kLow, 20));
    ThreadedPlayer player(MakeSoundWorker<MixerWorker>);
    player.Stop(u"a"_s);
    player.CloseAll();
    QCOMPARE(player.Status(u"a"_s), QString());
    player.Play(path, u"a"_s);
    player.Stop(u"a"_s);
    QCOMPARE(player.Status(u"a"_s), u"stopped"_s);
    player.Play(path, u"a"_s);
    player.Play(path, u"b"_s);
    player.Play(path, u"c"_s);
    player.Close(u"b"_s);
    QTest::qWait(300);
    QCOMPARE(player.Status(u"a"_s), u"playing"_s);
    QCOMPARE(player.Status(u"b"_s), QString());
    player.CloseAll();
    QCOMPARE(player.Status(u"a"_s) + player.Status(u"c"_s), QString());
    // Silence of the rest, not just a word about it.
    QTest::qWait(300);
    const std::vector<qint16> heard = Heard();
    const double length = double(heard.size()) / 2 / kRate;
    QVERIFY(Loudness(heard, kLow, length - 0.1, length) < 500);
}

void tst_sound::tune() {
    if (!QFile::exists(u"/usr/share/sounds/sf2/default-GM.sf2"_s))
        QSKIP("needs a sound font");
    const QString path = Add(u"about.mid"_s, Tune());
    {
        ThreadedPlayer player(MakeSoundWorker<MixerWorker>);
        player.Play(path, u"about"_s);
        QTest::qWait(1000);
        player.CloseAll();
    }
    QVERIFY(Loudness(Heard(), 440, 0.3, 0.7) > 50);
}

void tst_sound::silentFailures_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("missing") << u"none.mp3"_s << QByteArray();
    QTest::newRow("empty") << u"empty.mp3"_s << QByteArray("");
    QTest::newRow("text") << u"text.mp3"_s << QByteArray(5000, 'x');
    QTest::newRow("cut wave") << u"cut.wav"_s << Tone(kLow, 0.1).first(30);
    QTest::newRow("cut tune") << u"cut.mid"_s << Tune().first(10);
    QTest::newRow("folder") << u"."_s << QByteArray();
    QTest::newRow("pipe") << u"pipe"_s << QByteArray();
}

void tst_sound::silentFailures() {
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    if (!bytes.isNull())
        QVERIFY(!Add(name, bytes).isEmpty());
    if (name == u"pipe")
        QCOMPARE(::mkfifo(QFile::encodeName(folder_->filePath(name)).constData(), 0600), 0);
    const QString good = Add(u"low.wav"_s, Tone(kLow, 20));
    ThreadedPlayer player(MakeSoundWorker<MixerWorker>);
    player.Play(good, u"other"_s);
    player.Play(folder_->filePath(name), u"a"_s);
    QTRY_COMPARE_WITH_TIMEOUT(player.Status(u"a"_s), QString(), 5000);
    QCOMPARE(player.Status(u"other"_s), u"playing"_s);
}

void tst_sound::noDevice() {
    qputenv("SDL_AUDIODRIVER", "no such driver");
    const QString path = Add(u"low.wav"_s, Tone(kLow, 20));
    ThreadedPlayer player(MakeSoundWorker<MixerWorker>);
    for (int i = 0; i < 3; ++i) {
        player.Play(path, u"a"_s);
        QTRY_COMPARE_WITH_TIMEOUT(player.Status(u"a"_s), QString(), 5000);
    }
}

QTEST_GUILESS_MAIN(tst_sound)
#include "tst_sound.moc"
