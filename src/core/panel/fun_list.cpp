#include "core/panel/fun_list.h"

#include "core/files/file_io.h"

#include <QFileInfo>

namespace paneda {

namespace {

constexpr int kStartAgainAfter = 5'000; // ms

} // namespace

FunList LoadFunList(const QString& folder, const QDateTime& now) {
    FunList list;
    list.FunLast = now;
    if (!QFileInfo::exists(FindEntry(folder, QStringLiteral("01.mp3"))))
        return list;
    for (const QString& name : ListFiles(folder)) {
        if (name.endsWith(u"mp3", Qt::CaseInsensitive))
            list.FunFiles.append(name);
    }
    list.FunIndex = list.FunFiles.isEmpty() ? -1 : 0;
    return list;
}

QString NextFunFile(FunList& list, const QDateTime& now) {
    if (list.FunIndex < 0)
        return {};
    if (list.FunLast.msecsTo(now) > kStartAgainAfter)
        list.FunIndex = 0;
    list.FunLast = now;
    const QString name = list.FunFiles[list.FunIndex];
    list.FunIndex = (list.FunIndex + 1) % int(list.FunFiles.size());
    return name;
}

bool FollowFunSound(FunList& list, bool isPlaying, const QDateTime& now) {
    if (isPlaying)
        list.FunLast = now;
    return isPlaying;
}

} // namespace paneda
