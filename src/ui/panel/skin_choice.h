#pragma once

#include "skin/skin_file.h"
#include "skin/theme_state.h"

#include <QString>

#include <optional>

namespace paneda {

// The skin that every installation has.
inline constexpr QStringView kDefaultSkin = u"Paneda Black Glass";

// The skin that the panel is shown with.
struct SkinChoice {
    std::optional<ThemeState> Theme; // nothing: the built-in look
    // Why it is not the one that was asked for; empty if it is. For the user.
    QString Problem;
};

// The skin of this name; where it cannot be used the default one, and where that fails too the built-in look,
// so that no skin locks a user out.
SkinChoice ChooseSkin(const QString& appFolder, const QString& skinName);

} // namespace paneda
