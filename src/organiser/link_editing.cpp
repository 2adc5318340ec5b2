#include "organiser/link_editing.h"

#include "core/prompts.h"
#include "core/store/names.h"
#include "organiser/organiser.h"

namespace paneda {

bool EditLink(Organiser& organiser, const LinkResult& link, Prompts& prompts) {
    const QString file = organiser.ButtonFile().Text();
    if (const FileResult written = organiser.RewriteRecord(link); !written) {
        prompts.Notice(written.error().Text());
        // The lists were read again, and another button may be the selected one.
        return organiser.Selected(StoreLevel::Buttons) < 0 || organiser.ButtonFile().Text() != file;
    }
    if (ValidateName(link.Name + QStringLiteral(".pnd"), TitlesWithExtension(organiser.Buttons()),
                     organiser.Selected(StoreLevel::Buttons), prompts))
        return false;
    if (const FileResult renamed = organiser.Retitle(StoreLevel::Buttons, link.Name); !renamed)
        prompts.Notice(renamed.error().Text());
    return true;
}

} // namespace paneda
