#pragma once

#include <QDateTime>
#include <QRgb>
#include <QString>

#include <optional>

namespace paneda {

// The small box behind a node's name that says how long ago the node or one below it was changed.
struct RecentChange {
    enum class Age { Minutes, Hours, Days };
    Age Unit = Age::Minutes;
    int Number = 0; // whole units, never negative

    friend bool operator==(const RecentChange&, const RecentChange&) = default;
};

// `lastAllLevelEditTime` as the key of that name holds it; `now` in local time. Nothing when the change is
// more than `days` old, when that is 0, and for a text that is no such time. A time that lies ahead, by the
// clock of another machine, counts as now.
std::optional<RecentChange> RecentChangeOf(const QString& lastAllLevelEditTime, const QDateTime& now,
                                           int days);

// What the box is filled with: yellow, green or pale cyan.
QRgb RecentChangeColor(RecentChange::Age unit);

} // namespace paneda
