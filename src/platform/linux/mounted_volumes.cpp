#include "platform/linux/mounted_volumes.h"

#include <QFile>

namespace paneda {

namespace {

QByteArray WithoutEscapes(const QByteArray& field) {
    QByteArray result;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool isOctal = false;
        const int code = field[i] == '\\' ? field.mid(i + 1, 3).toInt(&isOctal, 8) : 0;
        if (isOctal) {
            result.append(char(code));
            i += 3;
        } else {
            result.append(field[i]);
        }
    }
    return result;
}

} // namespace

QStringList MountPointsOf(const QByteArray& table) {
    QStringList points;
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() > 2 && fields[1].startsWith('/'))
            points.append(QFile::decodeName(WithoutEscapes(fields[1])));
    }
    return points;
}

void MountedVolumes::Refresh(DriveMap& map) {
    QFile table(QStringLiteral("/proc/self/mounts"));
    // If the table cannot be read, only the root volume is known.
    const QByteArray bytes = table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray();
    map.UseMountPoints(MountPointsOf(bytes));
}

// The kernel marks the table as an exception for poll() when a mount has come or gone.
void MountedVolumes::Watch(std::function<void()> changed) {
    notifier_.reset();
    table_.close();
    if (!changed)
        return;
    table_.setFileName(QStringLiteral("/proc/self/mountinfo"));
    // Without the table nothing is reported.
    if (!table_.open(QIODevice::ReadOnly))
        return;
    notifier_ = std::make_unique<QSocketNotifier>(table_.handle(), QSocketNotifier::Exception);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), std::move(changed));
}

} // namespace paneda
