#include "organiser/picture_replacing.h"

#include "core/files/file_tree.h"
#include "core/store/names.h"
#include "core/text/text_rules.h"

#include <QFileInfo>

#include <algorithm>

namespace paneda {

namespace {

FileResult MoveAside(const DiskPath& folder, const QString& picture, const QStringList& names) {
    return RunRenames(folder, {{picture, PlaceAside(picture, names)}});
}

// Moves those aside that a button would show instead of `picture`, which is empty for none at all.
FileResult LetShow(const DiskPath& folder, const QString& button, const QString& picture, QStringList names) {
    FileResult result;
    for (QString shown; result && (shown = PictureOf(button, names)) != picture; names.removeOne(shown))
        result = MoveAside(folder, shown, names);
    return result;
}

// Another picture that has the new one's name, also in another case of letters; empty for none.
QString InTheWay(const QString& name, const QString& former, const QStringList& names) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const QString& each) {
        return SameName(each, name) && each != former;
    });
    return found == names.end() ? QString() : *found;
}

// The former picture goes only when the new one is in its place. `given`: what the new one was copied from.
FileResult Place(const DiskPath& hidden, const QString& name, const QString& given) {
    const DiskPath folder = hidden.Parent();
    auto names = NamesIn(folder);
    if (!names)
        return tl::make_unexpected(names.error());
    const QString former = PictureOf(name, *names);
    const QString other = InTheWay(name, former, *names);
    const bool isGiven = QFileInfo((folder / other).Text()).canonicalFilePath() == given;
    if (!other.isEmpty() && !isGiven) {
        if (const FileResult moved = MoveAside(folder, other, *names); !moved)
            return moved;
    }
    const bool mayReplace = isGiven || SameName(former, name);
    const EntryResult placed =
        mayReplace ? RenameOver(hidden, folder / name) : RenameEntry(hidden, folder / name);
    if (!placed)
        return WithoutProblem(placed);
    names = NamesIn(folder);
    if (!names)
        return tl::make_unexpected(names.error());
    // Where case does not tell names apart, the former one was replaced although it is spelled otherwise.
    if (former != name && names->contains(former) && names->contains(name)) {
        if (const EntryResult removed = RemoveFile(folder / former); !removed)
            return WithoutProblem(removed);
        names->removeOne(former);
    }
    return names->contains(name) ? LetShow(folder, name, name, *names) : FileResult();
}

} // namespace

FileResult PutPicturesAside(const DiskPath& button) {
    const auto names = NamesIn(button.Parent());
    return names ? LetShow(button.Parent(), button.Name(), {}, *names) : tl::make_unexpected(names.error());
}

FileResult ReplacePicture(const DiskPath& button, const QString& picture, bool moveSource) {
    const DiskPath folder = button.Parent();
    const QString stem = WithoutExtension(button.Name());
    const QString name = stem + u'.' + ExtensionOf(picture);
    const DiskPath source(picture);
    const QString given = QFileInfo(picture).canonicalFilePath();
    const FileResult replaced = WriteHidden(
        folder / name, [&source](const DiskPath& hidden) { return CopyWholeFile(source, hidden, source); },
        [&](const DiskPath& hidden) { return Place(hidden, name, given); });
    // A picture of the button's own is not taken away from it.
    const QString ownStem = QFileInfo(folder.Text()).canonicalFilePath() + u'/' + stem;
    if (!replaced || !moveSource || SameName(WithoutExtension(given), ownStem))
        return replaced;
    return RemoveMoved(source, folder);
}

} // namespace paneda
