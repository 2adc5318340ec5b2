#include "notes/node_menu.h"

#include <array>

namespace paneda {

NodeMenuChoice DecodeNodeMenu(int menuChoice) {
    constexpr int kEdit = 2;
    constexpr int kMove = 3;
    constexpr int kDelete = 99;
    constexpr std::array kPositions{NodePosition::Above, NodePosition::Child, NodePosition::Below};
    if (menuChoice == kEdit)
        return {.Command = NodeCommand::Edit};
    if (menuChoice == kMove)
        return {.Command = NodeCommand::Move};
    if (menuChoice == kDelete)
        return {.Command = NodeCommand::Delete};
    const int kind = menuChoice / 100;
    const int place = menuChoice % 100;
    if (kind < 1 || kind > 3 || place >= int(kPositions.size()))
        return {};
    const QString type = kind == 1 ? kUrlNode : kind == 2 ? kFileNode : QString();
    return {NodeCommand::Add, type, kPositions[std::size_t(place)]};
}

MoveChoice DecodeMoveMenu(int menuChoice) {
    const bool isItem = menuChoice >= int(MoveChoice::Cancel) && menuChoice <= int(MoveChoice::Child);
    return isItem ? MoveChoice(menuChoice) : MoveChoice::None;
}

} // namespace paneda
