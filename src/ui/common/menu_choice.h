#pragma once

#include <QPoint>
#include <QString>

#include <vector>

namespace paneda {

// One line of a pop-up menu that is read by its number.
struct PopItem {
    QString Name; // object name
    QString Caption;
    bool Enabled = true;
};

// Shows a pop-up menu at a place of the screen and waits. Returns the number of the chosen item, from 1; 0
// when the menu was dismissed.
int MenuChoice(const std::vector<PopItem>& items, const QPoint& place);

} // namespace paneda
