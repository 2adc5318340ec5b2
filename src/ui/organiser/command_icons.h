#pragma once

#include <QColor>
#include <QIcon>

namespace paneda {

// The signs on the organiser's command buttons.
enum class CommandSign { Add, Delete, Rename, Up, Down, Sort };

// Drawn for every scale of the screen, in a colour that stands off from the buttons; Add is orange.
QIcon CommandIcon(CommandSign sign, const QColor& colour, const QColor& disabled);

} // namespace paneda
