#include "ui/common/menu_choice.h"

#include <QMenu>

namespace paneda {

int MenuChoice(const std::vector<PopItem>& items, const QPoint& place) {
    QMenu menu;
    for (const PopItem& item : items) {
        QAction* action = menu.addAction(item.Caption);
        action->setObjectName(item.Name);
        action->setEnabled(item.Enabled);
    }
    const QAction* chosen = menu.exec(place);
    return int(menu.actions().indexOf(chosen)) + 1;
}

} // namespace paneda
