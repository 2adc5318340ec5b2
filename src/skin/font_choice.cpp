#include "skin/font_choice.h"

#include "core/text/text_rules.h"

#include <QFont>
#include <QFontDatabase>

#include <utility>

namespace paneda {

namespace {

// Nearest in width and weight first.
const QStringList& StandIns(bool small) {
    static const QStringList kForTahoma{
        kUsualFont,
        QStringLiteral("DejaVu Sans Condensed"),
        QStringLiteral("Verdana"),
        QStringLiteral("Noto Sans"),
        QStringLiteral("DejaVu Sans"),
        QStringLiteral("Segoe UI"),
        QStringLiteral("Liberation Sans"),
        QStringLiteral("Arial"),
    };
    // Those first that stay readable at 8 and 9 pixels without smoothing, bold ones too: their hints keep
    // strokes and decimal points apart.
    static const QStringList kForSmallFonts{
        QStringLiteral("Small Fonts"),
        QStringLiteral("DejaVu Sans"),
        QStringLiteral("Liberation Sans"),
        QStringLiteral("Arial"),
    };
    return small ? kForSmallFonts : kForTahoma;
}

} // namespace

FontChoice::FontChoice(QStringList installed) : asked_(true), installed_(std::move(installed)) {}

void FontChoice::Ask() {
    if (std::exchange(asked_, true))
        return;
    installed_ = QFontDatabase::families();
}

bool FontChoice::IsInstalled(const QString& family) {
    Ask();
    return !Installed(family).isEmpty();
}

QStringList FontChoice::Offered() {
    Ask();
    QStringList families = installed_;
    if (Installed(kUsualFont).isEmpty())
        families.append(kUsualFont);
    families.sort(Qt::CaseInsensitive);
    return families;
}

QString FontChoice::Family(const QString& wanted) {
    Ask();
    const QString key = wanted.toCaseFolded();
    const auto known = chosen_.constFind(key);
    if (known != chosen_.constEnd())
        return *known;
    return *chosen_.insert(key, Choose(wanted));
}

QString FontChoice::Choose(const QString& wanted) const {
    QStringList candidates{wanted};
    if (SameName(wanted, u"Small Fonts"))
        candidates += StandIns(true);
    candidates += StandIns(false);
    for (const QString& candidate : std::as_const(candidates)) {
        const QString family = Installed(candidate);
        if (!family.isEmpty())
            return family;
    }
    return installed_.isEmpty() ? QFont().defaultFamily() : installed_.first();
}

QString FontChoice::Installed(const QString& family) const {
    for (const QString& candidate : installed_) {
        if (SameName(candidate, family))
            return candidate;
    }
    return {};
}

} // namespace paneda
