#include "organiser/store_steps.h"

#include "core/text/text_rules.h"

#include <QUuid>

#include <algorithm>

namespace paneda {

namespace {

constexpr qint64 kLeftoverDays = 1;
constexpr qsizetype kFitsEverywhere = 140; // bytes of a name; an encrypted folder of some systems takes 143
const QString kDeleted = kUnfinishedPrefix + QStringLiteral("deleted-");
const QString kNew = kUnfinishedPrefix + QStringLiteral("new-");

DiskPath HiddenPath(const DiskPath& folder, const QString& prefix) {
    return folder / (prefix + QUuid::createUuid().toString(QUuid::Id128));
}

FileResult RenameFailure(const DiskPath& from, const QString& to, const EntryError& error) {
    const QString reason = error.Problem == EntryProblem::AlreadyThere
                               ? QStringLiteral("There is another entry of this name.")
                               : error.Error.Reason;
    return Failure(from.Text(), QStringLiteral("It cannot be renamed to \"%1\". ").arg(to) + reason);
}

// Before the first rename, so that no button gets a name that its picture cannot follow.
FileResult CheckLengths(const DiskPath& folder, const Renames& renames) {
    for (const auto& [from, to] : renames) {
        if (to.toUtf8().size() <= kFitsEverywhere)
            continue;
        if (const EntryResult fits = CheckNameLength(folder / to); !fits)
            return RenameFailure(folder / from, to, fits.error());
    }
    return {};
}

bool Holds(const DiskPath& folder, const QString& name) {
    const auto entries = ListEntries(folder).value_or(std::vector<DiskEntry>());
    return std::any_of(entries.begin(), entries.end(),
                       [&name](const DiskEntry& entry) { return entry.Name == name; });
}

EntryResult RenameIn(const DiskPath& folder, const QString& from, const QString& to) {
    const EntryResult renamed = RenameEntry(folder / from, folder / to);
    if (!renamed || !SameName(from, to) || Holds(folder, to))
        return renamed;
    // To some file systems that ignore case another spelling is no change.
    const DiskPath detour = folder / (u'_' + to);
    const EntryResult away = RenameEntry(folder / from, detour);
    return away ? RenameEntry(detour, folder / to) : away;
}

} // namespace

tl::expected<QStringList, FileError> NamesIn(const DiskPath& folder) {
    const auto entries = ListEntries(folder);
    if (!entries)
        return tl::make_unexpected(entries.error().Error);
    QStringList names;
    for (const DiskEntry& entry : *entries)
        names.append(entry.Name);
    return names;
}

FileResult RunRenames(const DiskPath& folder, const Renames& renames) {
    if (const FileResult fit = CheckLengths(folder, renames); !fit)
        return fit;
    for (const auto& [from, to] : renames) {
        const EntryResult renamed = RenameIn(folder, from, to);
        if (!renamed)
            return RenameFailure(folder / from, to, renamed.error());
    }
    return {};
}

FileResult DeleteTree(const DiskPath& path) {
    RemoveLeftovers(path.Parent());
    const DiskPath hidden = HiddenPath(path.Parent(), kDeleted);
    if (const EntryResult renamed = RenameEntry(path, hidden); !renamed) {
        return renamed.error().Problem == EntryProblem::Missing
                   ? Failure(path.Text(), QStringLiteral("It is no longer there. Somebody else may have "
                                                         "deleted it, or given it another name."))
                   : WithoutProblem(renamed);
    }
    if (const FileResult removed = RemoveTree(hidden); !removed)
        return Failure(path.Text(),
                       QStringLiteral("It no longer shows, but not all of it could be removed. ") +
                           removed.error().Reason);
    return {};
}

FileResult AddFile(const DiskPath& path, const std::function<FileResult(const DiskPath& hidden)>& write) {
    return WriteHidden(path, write, [&path](const DiskPath& hidden) -> FileResult {
        const EntryResult renamed = RenameEntry(hidden, path);
        return renamed ? FileResult() : Failure(path.Text(), renamed.error().Error.Reason);
    });
}

FileResult WriteHidden(const DiskPath& shown, const std::function<FileResult(const DiskPath& hidden)>& write,
                       const std::function<FileResult(const DiskPath& hidden)>& place) {
    RemoveLeftovers(shown.Parent());
    const DiskPath hidden = HiddenPath(shown.Parent(), kNew);
    FileResult result = write(hidden);
    if (result)
        result = place(hidden);
    // The hidden name would mean nothing to a user.
    if (!result && result.error().Path == Failure(hidden.Text(), {}).value().Path)
        result = Failure(shown.Text(), result.error().Reason);
    // What cannot be removed now is removed as a leftover.
    if (!result)
        (void)RemoveFile(hidden);
    return result;
}

FileResult RemoveMoved(const DiskPath& source, const DiskPath& folder) {
    const EntryResult flushed = FlushFolder(folder);
    return WithoutProblem(flushed ? RemoveFile(source) : flushed);
}

void RemoveLeftovers(const DiskPath& folder) {
    for (const DiskEntry& entry : ListEntries(folder).value_or(std::vector<DiskEntry>())) {
        if (!entry.Name.startsWith(kUnfinishedPrefix))
            continue;
        const DiskPath path = folder / entry.Name;
        const bool isOld = LookAt(path).Modified.daysTo(QDateTime::currentDateTime()) > kLeftoverDays;
        if (entry.Name.startsWith(kDeleted) || isOld)
            (void)RemoveTree(path);
    }
}

} // namespace paneda
