#include "core/catalogue.h"

#include "core/names.h"
#include "core/text_rules.h"

#include <algorithm>

namespace paneda {

QString BarTitle(const CategoryEntry& category) {
    if (category.IsTree())
        return IfEmpty(category.TreeName, QStringLiteral("**Right Click**"));
    return TitleBehindPrefix(category.FolderName);
}

int CountTreeCategories(const CatalogueList& catalogue) {
    return int(std::count_if(catalogue.begin(), catalogue.end(),
                             [](const CategoryEntry& category) { return category.IsTree(); }));
}

bool HasDriveButtons(const CatalogueList& catalogue) {
    if (catalogue.empty() || catalogue.front().Groups.empty())
        return false;
    const std::vector<ButtonEntry>& buttons = catalogue.front().Groups.back().Buttons;
    return !buttons.empty() && !buttons.front().Spare.isEmpty();
}

} // namespace paneda
