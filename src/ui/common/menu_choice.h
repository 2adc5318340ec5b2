#pragma once

#include <QPoint>
#include <QString>

#include <vector>

namespace paneda {

// One line of a pop-up menu.
struct PopItem {
    QString Name; // object name
    QString Caption;
    bool Enabled = true;
};

// Shows a pop-up menu at a point of the screen (pixels) and waits for a choice. Returns the number of the
// chosen item, counted from 1, or 0 if the user closed the menu without a choice.
int MenuChoice(const std::vector<PopItem>& items, const QPoint& place);

} // namespace paneda
