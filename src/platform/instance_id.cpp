#include "platform/instance_id.h"

#include <QCryptographicHash>
#include <QFileInfo>

namespace paneda {

QString InstanceId(const QString& executablePath) {
    const QFileInfo info(executablePath);
    QString path = info.canonicalFilePath().isEmpty() ? info.absoluteFilePath() : info.canonicalFilePath();
#ifdef Q_OS_WIN
    path = path.toLower();
#endif
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().first(16));
}

} // namespace paneda
