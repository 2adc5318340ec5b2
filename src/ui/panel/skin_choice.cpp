#include "ui/panel/skin_choice.h"

#include "core/text/text_rules.h"

namespace paneda {

SkinChoice ChooseSkin(const QString& appFolder, const QString& skinName) {
    auto wanted = ReadSkin(appFolder, skinName);
    if (wanted)
        return {std::move(*wanted), {}};
    const QString problem = wanted.error().Text();
    if (!SameName(skinName, kDefaultSkin)) {
        auto standard = ReadSkin(appFolder, kDefaultSkin.toString());
        if (standard)
            return {std::move(*standard),
                    problem + QStringLiteral("\n\nThe skin \"%1\" is shown instead.").arg(kDefaultSkin)};
    }
    return {std::nullopt, problem + QStringLiteral("\n\nThe panel is shown in its built-in look.")};
}

} // namespace paneda
