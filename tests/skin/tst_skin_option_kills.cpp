#include "skin/skin_list.h"
#include "skin/skin_maker.h"
#include "skin/skin_option.h"
#include "support/kill_shim/interrupted_step.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

void Prepare(const QString& folder) {
    QDir().mkpath(folder + u"/skin/S/O"_s);
    for (const char* name : {"a.png", "b.png", "bottom.png", "O/a.png", "O/c.png", "O/DELETE b.png.TXT"})
        WriteBytes(folder + u"/skin/S/"_s + QLatin1String(name), name);
    WriteBytes(folder + u"/skin/S/skin.ini"_s, SkinMaker::Places());
}

// The pictures and their contents.
QString State(const QString& folder) {
    QString state;
    for (const QString& name : QDir(folder + u"/skin/S"_s).entryList({u"?.png"_s}, QDir::Files)) {
        QFile file(folder + u"/skin/S/"_s + name);
        state +=
            name + u'=' + (file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"?"_s) + u' ';
    }
    return state;
}

const QString kOld = u"a.png=a.png b.png=b.png "_s;
const QString kNew = u"a.png=O/a.png c.png=O/c.png "_s;

} // namespace

class tst_SkinOptionKills : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // Where one call fails, all is done or nothing; where the program is killed, the original can be
    // restored.
    void eachStep_data() {
        QTest::addColumn<QString>("mode");
        for (const char* mode : {"kill", "ENOSPC", "EIO"})
            QTest::newRow(mode) << QString::fromLatin1(mode);
    }

    void eachStep() {
        QFETCH(const QString, mode);
        const auto check = [&](const QString& folder, const StepEnd& end) -> QString {
            if (!end.Killed && State(folder) != (end.Status == 0 ? kNew : kOld))
                return u"Ended with "_s + QString::number(end.Status) + u": "_s + State(folder);
            const bool hasOriginal = HasOriginal(SkinFolderOf(folder, u"S"_s));
            if (hasOriginal && !RestoreOriginal(folder, u"S"_s))
                return u"Not restored."_s;
            return State(folder) == kOld ? QString() : u"Restored: "_s + State(folder);
        };
        QCOMPARE(FirstObjection(u"apply"_s, {.Mode = mode}, Prepare, check), QString());
    }
};

int main(int argc, char** argv) {
    const Steps steps{
        {u"apply"_s, [](const QString& folder) { return ApplyOption(folder, u"S"_s, u"O"_s) ? 0 : 1; }}};
    if (const auto status = RunAsChild(argc, argv, steps))
        return *status;
    const QCoreApplication application(argc, argv);
    tst_SkinOptionKills test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_skin_option_kills.moc"
