#include "platform/threaded_player.h"
#include "platform/windows/mci_worker.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <windows.h>

#include <mmsystem.h>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

// A tone as a file of 8-bit samples.
QByteArray Tone(int milliseconds) {
    constexpr quint32 kRate = 8000;
    const QByteArray samples(qsizetype(kRate) * milliseconds / 1000, '\x90');
    const auto number = [](auto value) {
        value = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
    };
    return "RIFF" + number(quint32(36 + samples.size())) + "WAVEfmt " + number(quint32(16)) +
           number(quint16(1)) + number(quint16(1)) + number(kRate) + number(kRate) + number(quint16(1)) +
           number(quint16(8)) + "data" + number(quint32(samples.size())) + samples;
}

} // namespace

class tst_windows_sound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fileThatCannotBePlayed();
    void playsToItsEnd();
};

void tst_windows_sound::fileThatCannotBePlayed() {
    QTemporaryDir folder;
    const QString broken = folder.filePath(u"broken.mp3"_s);
    QFile file(broken);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no sound") > 0);
    file.close();
    ThreadedPlayer player(MakeSoundWorker<MciWorker>);
    QCOMPARE(player.Status(u"fun"_s), QString());
    player.Play(folder.filePath(u"gone.mp3"_s), u"fun"_s);
    QTRY_COMPARE(player.Status(u"fun"_s), QString());
    player.Play(broken, u"fun"_s);
    QTRY_VERIFY(player.Status(u"fun"_s) != u"playing");
}

void tst_windows_sound::playsToItsEnd() {
    if (waveOutGetNumDevs() == 0)
        QSKIP("this machine has no sound device");
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a tone.wav"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(Tone(700)) > 0);
    file.close();
    ThreadedPlayer player(MakeSoundWorker<MciWorker>);
    player.Play(path, u"fun"_s);
    QCOMPARE(player.Status(u"fun"_s), u"playing"_s);
    QTRY_COMPARE(player.Status(u"fun"_s), u"stopped"_s);
}

QTEST_GUILESS_MAIN(tst_windows_sound)

#include "tst_windows_sound.moc"
