#include "prepared_panel.h"

#include "core/settings/config_settings.h"
#include "core/settings/settings.h"
#include "core/store/store_layout.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <algorithm>

namespace paneda::bench {

namespace {

constexpr qint16 kKeyK = 75; // virtual key

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool PreparePanel(const QString& program, const CallSettings& settings) {
    const QString folder = QFileInfo(program).absolutePath();
    auto file = ConfigFile::Load(ConfigFilePath(folder));
    if (!file)
        return false;
    AppState ignored;
    ReadConfigRecords(*file, ignored);
    file->Write(kRecordMouseTriggerEnabled, {settings.Mouse});
    file->Write(kRecordHotkeyEnabled, {settings.Hotkey});
    for (const int modifier : {kRecordHotkeyCtrl, kRecordHotkeyAlt})
        file->Write(modifier, {true});
    for (const int modifier : {kRecordHotkeyShift, kRecordHotkeyWin})
        file->Write(modifier, {false});
    file->Write(kRecordHotkeyKey, {kKeyK});
    const QString hide = settings.HideOnStartup ? QStringLiteral("1") : QStringLiteral("0");
    return file->Save(ConfigFilePath(folder)) &&
           WriteSetting(folder, setting::kProperties, setting::kHideOnStartup, hide);
}

PanelPixels ReadPanelPixels(const QString& picture) {
    const QImage image(picture);
    PanelPixels pixels{image.size(), {}, {}};
    const int w = image.width();
    const int h = image.height();
    for (const QPoint& place : {QPoint(w / 4, h - 14), QPoint(w / 2, h - 14), QPoint(4, h / 2),
                                QPoint(w - 5, h / 2), QPoint(w / 4, 6)}) {
        if (!image.rect().contains(place) || qAlpha(image.pixel(place)) == 0)
            continue;
        pixels.Places.append(place);
        // A window with an alpha channel holds its colours premultiplied.
        pixels.Colours.append(qPremultiply(image.pixel(place)) & 0xFFFFFF);
    }
    return pixels;
}

QString PanelPicture(const QString& program, const QString& ratio) {
    const QString at = ratio == u"1" ? QString() : u'@' + ratio + u'x';
    return QFileInfo(program).absolutePath() + QStringLiteral("/Cache/category001%1.png").arg(at);
}

RunningPanel::RunningPanel(const QString& program, const QStringList& arguments) {
    process_.start(program, arguments);
    process_.waitForStarted();
}

RunningPanel::~RunningPanel() {
    process_.terminate();
    process_.waitForFinished();
}

ProcessCost CostOf(qint64 processId) {
    ProcessCost cost;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(processId));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray status = Contents(tasks.filePath(task + QStringLiteral("/status")));
        const QByteArray key = "\nvoluntary_ctxt_switches:";
        const auto at = status.indexOf(key);
        if (at >= 0)
            cost.Wakeups += status.mid(at + key.size()).split('\n').first().trimmed().toLongLong();
        // This file begins with nanoseconds on a processor and nanoseconds of waiting for one.
        const QList<QByteArray> schedule =
            Contents(tasks.filePath(task + QStringLiteral("/schedstat"))).split(' ');
        cost.RanMs += schedule.value(0).toDouble() / 1e6;
        cost.WaitedMs += schedule.value(1).toDouble() / 1e6;
    }
    return cost;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

} // namespace paneda::bench
