#include "organiser/restyling.h"

#include "core/store/names.h"
#include "core/text/text_rules.h"

namespace paneda {

namespace {

FileResult RestyleFolder(const StyleChange& change, const DiskPath& group, const QString& edited) {
    const auto names = NamesIn(group);
    return names ? RunRenames(group, RestyleGroup(change, edited, ReadButtons(group), *names))
                 : tl::make_unexpected(names.error());
}

QString WithTag(const QString& head, const QString& style, const QString& fileName) {
    return SafeFileName(head + QStringLiteral(" [") + style + QStringLiteral("].") +
                        ButtonOfName(fileName).Extension);
}

} // namespace

QString RestyledButton(const QString& fileName, const QString& title, const QString& style) {
    const qsizetype end = fileName.startsWith(u'[') ? fileName.indexOf(u']') : -1;
    const QString prefix = end < 0 ? QString() : fileName.first(end + 1) + u' ';
    return WithTag(prefix + title, style, fileName);
}

QString RestyledButton(const QString& fileName, const QString& style) {
    const qsizetype tagEnd = fileName.lastIndexOf(QLatin1String("]."));
    const qsizetype tag = tagEnd < 0 ? -1 : fileName.lastIndexOf(u'[', tagEnd);
    // A bracket at the beginning is the number's.
    const QString head = tag > 0 ? fileName.first(tag) : WithoutExtension(fileName);
    return WithTag(TrimBlanks(head), style, fileName);
}

Renames RestyleGroup(const StyleChange& change, const QString& edited,
                     const std::vector<StoreButton>& buttons, const QStringList& names) {
    Renames renames;
    if (!edited.isEmpty())
        renames.push_back({edited, RestyledButton(edited, change.Title, change.Style)});
    for (const StoreButton& button : buttons) {
        if (button.FileName != edited && change.Scope != StyleScope::Button)
            renames.push_back({button.FileName, RestyledButton(button.FileName, change.Style)});
    }
    return RenameButtons(renames, names);
}

FileResult ApplyStyle(const StyleChange& change) {
    const DiskPath group = change.Button.Parent();
    FileResult result = RestyleFolder(change, group, change.Button.Name());
    if (change.Scope != StyleScope::Category)
        return result;
    for (const StoreFolder& other : ReadFolders(group.Parent())) {
        if (result && other.FolderName != group.Name())
            result = RestyleFolder(change, group.Parent() / other.FolderName, {});
    }
    return result;
}

} // namespace paneda
