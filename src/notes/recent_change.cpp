#include "notes/recent_change.h"

#include "notes/edit_moment.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr qint64 kHour = 60; // minutes
constexpr qint64 kDay = 24 * kHour;
constexpr int kDateLength = 10;
constexpr int kTimeLength = 8;

} // namespace

std::optional<RecentChange> RecentChangeOf(const QString& lastAllLevelEditTime, const QDateTime& now,
                                           int days) {
    if (days <= 0)
        return std::nullopt;
    const auto then =
        ReadMoment(lastAllLevelEditTime.left(kDateLength), lastAllLevelEditTime.right(kTimeLength));
    if (!then)
        return std::nullopt;
    const qint64 minutes = std::max<qint64>(MinutesSince(*then, now), 0);
    if (minutes > days * kDay)
        return std::nullopt;
    if (minutes < kHour)
        return RecentChange{RecentChange::Age::Minutes, int(minutes)};
    if (minutes < kDay)
        return RecentChange{RecentChange::Age::Hours, int(minutes / kHour)};
    return RecentChange{RecentChange::Age::Days, int(minutes / kDay)};
}

QRgb RecentChangeColor(RecentChange::Age unit) {
    switch (unit) {
    case RecentChange::Age::Minutes:
        return qRgb(0xFF, 0xFF, 0);
    case RecentChange::Age::Hours:
        return qRgb(0, 0xFF, 0);
    case RecentChange::Age::Days:
        break;
    }
    return qRgb(0xE0, 0xFF, 0xFF);
}

} // namespace paneda
