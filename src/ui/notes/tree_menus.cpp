#include "ui/notes/tree_menus.h"

#include <QMenu>

#include <array>

namespace paneda {

namespace {

QAction* AddItem(QMenu& menu, const QString& name, const QString& caption, int number) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    action->setData(number);
    return action;
}

// The items of `name` are numbered from `first` on.
void AddPlaces(QMenu& menu, const QString& menuName, const QString& name, const QString& caption, int first,
               bool enabled) {
    QMenu* places = menu.addMenu(caption);
    places->menuAction()->setObjectName(menuName);
    places->menuAction()->setEnabled(enabled);
    const std::array captions{QStringLiteral("Above"), QStringLiteral("..Child"), QStringLiteral("Below")};
    for (int i = 0; i < int(captions.size()); ++i)
        AddItem(*places, name + QString::number(i), captions[std::size_t(i)], first + i);
}

int Choose(QMenu& menu, const QPoint& place, int none) {
    const QAction* chosen = menu.exec(place);
    return chosen ? chosen->data().toInt() : none;
}

} // namespace

int AskNodeMenu(bool canAsk, const QPoint& place) {
    QMenu menu;
    menu.setObjectName(QStringLiteral("mnuMenu"));
    AddPlaces(menu, QStringLiteral("mnuNewRichTextNote"), QStringLiteral("mnuNewNote"),
              QStringLiteral("New Note"), 300, canAsk);
    // There are no plain notes; the item has kept its place.
    AddItem(menu, QStringLiteral("mnuNewPlainTextNote"), QStringLiteral("New Plain Text Note"), 0)
        ->setEnabled(false);
    AddPlaces(menu, QStringLiteral("mnuNewShortcutMenu"), QStringLiteral("mnuNewShortcut"),
              QStringLiteral("New Shortcut"), 200, canAsk);
    AddPlaces(menu, QStringLiteral("mnuNewFavoriteMenu"), QStringLiteral("mnuNewFavorite"),
              QStringLiteral("New Favorite"), 100, canAsk);
    menu.addSeparator();
    AddItem(menu, QStringLiteral("mnuMove"), QStringLiteral("Move"), 3);
    AddItem(menu, QStringLiteral("mnuEditProperties"), QStringLiteral("Edit Properties      "), 2)
        ->setEnabled(canAsk);
    menu.addSeparator();
    AddItem(menu, QStringLiteral("mnuDelete"), QStringLiteral("Delete"), 99);
    return Choose(menu, place, 0);
}

int AskMoveMenu(const QPoint& place) {
    QMenu menu;
    menu.setObjectName(QStringLiteral("mnuTreeMove"));
    AddItem(menu, QStringLiteral("mnuMoveEnd0"), QStringLiteral("Place here ( Above )"), 2);
    AddItem(menu, QStringLiteral("mnuMoveEnd1"), QStringLiteral("Place here ( Below )"), 1);
    AddItem(menu, QStringLiteral("mnuMoveEnd2"), QStringLiteral("Place here ( Child )"), 3);
    menu.addSeparator();
    AddItem(menu, QStringLiteral("mnuMoveEnd4"), QStringLiteral("Cancel Move"), 0);
    return Choose(menu, place, -1);
}

} // namespace paneda
