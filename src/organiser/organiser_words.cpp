#include "organiser/organiser_words.h"

#include "core/text/english_dates.h"

#include <array>

namespace paneda {

namespace {

// By level: "Category", "Group", "Button"; the plural is that of the lists.
struct Words {
    QString One;
    QString Many;
};

const Words& WordsOf(StoreLevel level) {
    static const std::array<Words, 3> kWords{Words{QStringLiteral("Category"), QStringLiteral("Categories")},
                                             Words{QStringLiteral("Group"), QStringLiteral("Groups")},
                                             Words{QStringLiteral("Button"), QStringLiteral("Buttons")}};
    return kWords[std::size_t(level)];
}

QString Small(const QString& word) {
    return word.toLower();
}

} // namespace

QString OrganiserTitle(const QString& product, const QString& version, const QDate& built) {
    return QStringLiteral("Organize Button - %1 %2 (built %3 %4) ")
        .arg(product, version, EnglishMonthName(built.month()))
        .arg(built.year(), 4, 10, QLatin1Char('0'));
}

Question DeleteQuestion(StoreLevel level, const QString& title) {
    if (level == StoreLevel::Categories && title == kDynamicCategory)
        return {QStringLiteral("Delete Confirmation"),
                QStringLiteral("Are you sure you want to delete this dynamic category?")};
    const QString contents = level == StoreLevel::Categories ? QStringLiteral(" and all its groups/buttons")
                             : level == StoreLevel::Groups   ? QStringLiteral(" and all its buttons")
                                                             : QString();
    return {QStringLiteral("Delete Confirmation"), QStringLiteral("Are you sure you want to delete the ") +
                                                       Small(WordsOf(level).One) + QStringLiteral(" '") +
                                                       title + u'\'' + contents + QStringLiteral(" ?")};
}

Question SortQuestion(StoreLevel level) {
    const QString& many = WordsOf(level).Many;
    return {QStringLiteral("Sort ") + many,
            QStringLiteral("Do you want want to sort the ") + Small(many) + QStringLiteral(" ?")};
}

QString AddTitle(StoreLevel level) {
    return QStringLiteral("Add ") + WordsOf(level).One;
}

QString RenameTitle(StoreLevel level) {
    return QStringLiteral("Rename ") + WordsOf(level).One;
}

QString DeleteProblem(StoreLevel level, const QStringList& titles) {
    return level == StoreLevel::Categories && titles.size() == 1
               ? QStringLiteral("At least one category have to be maintained")
               : QString();
}

QString MoveProblem(StoreLevel level, const QStringList& titles, int from, int to) {
    if (level != StoreLevel::Categories || std::min(from, to) > 0)
        return {};
    const QString& first = to == 0 ? titles[from] : titles[1];
    return first == kDynamicCategory ? QStringLiteral("'Dynamic Category' cannot be first category")
                                     : QString();
}

Question FileManagerHelp(const QString& homepage) {
    const QStringList lines{
        QStringLiteral("This is the alternative method of manage your Paneda buttons"),
        QStringLiteral("NOT RECOMMENDED FOR FIRST TIME USER"),
        {},
        QStringLiteral("1.) Click [Open File Explorer]"),
        QStringLiteral("2.) Then copy any shortcut from Windows, e.g. desktop or start menu"),
        QStringLiteral("3.) Paste it to the folder setting\\[category x]\\[group x]"),
        QStringLiteral("4.) You may rename [category x] and [group x] to your desired title"),
        QStringLiteral("5.) Remember to click Apply after the changing"),
        {},
        QStringLiteral("Use only either the File Explorer method or default easy method at a time"),
        QStringLiteral("Visit ") + homepage + QStringLiteral(" for more help")};
    return {QStringLiteral("Help on using File Explorer to organize your button"), lines.join(u'\r') + u'\r'};
}

} // namespace paneda
