#include "core/store/catalogue.h"

#include "core/store/names.h"
#include "core/text/text_rules.h"

#include <algorithm>

namespace paneda {

ButtonEntry FileButton(const QString& groupPath, const QString& fileName, int controlIndex) {
    return {groupPath + u'\\' + fileName, WithoutExtension(fileName), {}, controlIndex, TagOf(fileName)};
}

ButtonEntry DriveButton(QChar letter, int controlIndex) {
    const QString name = QStringLiteral("Drive ") + letter;
    return {name, name, name + u':', controlIndex, {}};
}

QString CaptionOf(const ButtonEntry& button) {
    const QString fileName = button.Path.sliced(button.Path.lastIndexOf(u'\\') + 1);
    return button.Spare.isEmpty() ? ButtonCaption(fileName) : button.Name;
}

QString BarTitle(const CategoryEntry& category) {
    if (category.IsTree())
        return IfEmpty(category.TreeName, QStringLiteral("**Right Click**"));
    return TitleBehindPrefix(category.FolderName);
}

bool HasDriveButtons(const CatalogueList& catalogue) {
    if (catalogue.empty() || catalogue.front().Groups.empty())
        return false;
    const std::vector<ButtonEntry>& buttons = catalogue.front().Groups.back().Buttons;
    return !buttons.empty() && !buttons.front().Spare.isEmpty();
}

} // namespace paneda
