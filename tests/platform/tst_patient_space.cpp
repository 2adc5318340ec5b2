#include "platform/patient_space.h"

#include <QSemaphore>
#include <QTest>

#include <atomic>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_patient_space : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void deadVolume();
};

// It owes an answer, is not asked again, and never holds its caller up. Its answer is reported when it comes.
void tst_patient_space::deadVolume() {
    QSemaphore answer(1);
    std::atomic<int> asked = 0;
    const auto read = [&](const QString& root) {
        if (root == u"/live")
            return VolumeSpace{u"Live"_s, 10, 5};
        const int number = ++asked;
        answer.acquire();
        return VolumeSpace{u"Dead"_s, quint64(number), 1};
    };
    PatientSpace space(read,
                       {.Wait = std::chrono::milliseconds(100), .Late = std::chrono::milliseconds(400)});
    int reports = 0;
    space.Watch([&reports] { ++reports; });
    QCOMPARE(space.SpaceOf(u"/dead"_s).TotalBytes, 1u);
    QCOMPARE(space.SpaceOf(u"/dead"_s).TotalBytes, 1u); // of the last time
    QCOMPARE(space.SpaceOf(u"/live"_s).TotalBytes, 10u);
    QTRY_COMPARE(reports, 1);
    QCOMPARE(space.SpaceOf(u"/dead"_s).TotalBytes, 0u);
    answer.release();
    QTRY_COMPARE(reports, 2);
    QCOMPARE(space.SpaceOf(u"/dead"_s).TotalBytes, 2u);
    QCOMPARE(asked, 2);
}

QTEST_GUILESS_MAIN(tst_patient_space)
#include "tst_patient_space.moc"
