#pragma once

#include "skin/skin_file.h"
#include "skin/theme_state.h"

#include <QString>

#include <optional>

namespace paneda {

// The skin that is installed with the program.
inline constexpr QStringView kDefaultSkin = u"Paneda Black Glass";

// The skin to show.
struct SkinChoice {
    std::optional<ThemeState> Theme; // nothing: the built-in look
    // For the user: why another skin than the chosen one is shown. Empty if the chosen one is shown.
    QString Problem;
};

// Reads the skin with this name. If it cannot be used, reads the default skin; if that fails too, chooses the
// built-in look, so that a damaged skin never keeps the user from the panel.
SkinChoice ChooseSkin(const QString& appFolder, const QString& skinName);

} // namespace paneda
