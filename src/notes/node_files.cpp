#include "notes/node_files.h"

#include "notes/node_properties.h"

#include <QUuid>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace paneda {

namespace {

constexpr int kAttempts = 50;
constexpr qint64 kLeftoverDays = 1;
const QString kMoving = QStringLiteral(".moving-");
const QString kDeleted = QStringLiteral(".deleted-");

QString FolderName(double number) {
    return QString::number(std::llround(number)).rightJustified(6, u'0');
}

// A folder of our own that no loader shows.
tl::expected<DiskPath, FileError> MakeHiddenFolder(const DiskPath& contentFolder, const QString& prefix) {
    const DiskPath path = contentFolder / (prefix + QUuid::createUuid().toString(QUuid::Id128));
    if (const EntryResult made = MakeNewFolder(path); !made)
        return tl::make_unexpected(made.error().Error);
    return path;
}

// A copy that another program is making must not be touched.
void RemoveLeftovers(const DiskPath& contentFolder, const QDateTime& now) {
    // Whatever stays is tried again the next time.
    for (const DiskEntry& entry : ListEntries(contentFolder).value_or(std::vector<DiskEntry>())) {
        const bool isMoving = entry.Name.startsWith(kMoving);
        if (entry.Kind != EntryKind::Folder || !(isMoving || entry.Name.startsWith(kDeleted)))
            continue;
        const DiskPath folder = contentFolder / entry.Name;
        if (!isMoving || LookAt(folder).Modified.daysTo(now) > kLeftoverDays)
            std::ignore = RemoveTree(folder);
    }
}

tl::expected<MovedFolder, FileError> PlaceCopy(const NodeMove& move, const DiskPath& copy) {
    if (const FileResult copied = CopyTree(move.SourceFolder, copy); !copied)
        return tl::make_unexpected(copied.error());
    const FileResult sorted = WriteSort(copy, move.ChooseSort(ScanSiblings(move.TargetLevel)));
    if (!sorted)
        return tl::make_unexpected(sorted.error());
    auto claimed =
        ClaimFolder(move.TargetLevel, [&copy](const DiskPath& path) { return RenameEntry(copy, path); });
    if (!claimed)
        return tl::make_unexpected(claimed.error().Error);
    return MovedFolder{std::move(*claimed), {}};
}

tl::expected<MovedFolder, FileError> MoveToOtherVolume(const NodeMove& move) {
    const auto hidden = MakeHiddenFolder(move.TargetContent, kMoving);
    if (!hidden)
        return tl::make_unexpected(hidden.error());
    auto moved = PlaceCopy(move, *hidden / QStringLiteral("node"));
    const FileResult cleaned = RemoveTree(*hidden);
    if (!moved)
        return moved;
    if (!cleaned)
        moved->Failures.push_back(cleaned.error());
    // The copy is the only one from here on, so its names have to be on the disk.
    for (const DiskPath& folder : {move.TargetLevel / moved->Claimed.Folder, move.TargetLevel}) {
        if (const EntryResult flushed = FlushFolder(folder); !flushed) {
            moved->Failures.push_back(flushed.error().Error);
            return moved;
        }
    }
    const FileResult removed = RemoveNodeFolder(move.SourceContent, move.SourceFolder, move.Now);
    if (!removed)
        moved->Failures.push_back(removed.error());
    return moved;
}

// Gives a folder its name again, or the next free one where that is taken.
FileResult PutBack(const DiskPath& taken, const DiskPath& nodeFolder, const DiskPath& hidden) {
    if (!RenameEntry(taken, nodeFolder)) {
        const auto claimed = ClaimFolder(nodeFolder.Parent(),
                                         [&taken](const DiskPath& path) { return RenameEntry(taken, path); });
        if (!claimed)
            return tl::make_unexpected(claimed.error().Error);
    }
    // Empty, and otherwise removed by the next delete.
    std::ignore = RemoveTree(hidden);
    return Failure(nodeFolder.Text(),
                   QStringLiteral("Another node is in this place now. It was not deleted."));
}

} // namespace

tl::expected<ClaimedFolder, EntryError> ClaimFolder(const DiskPath& levelFolder,
                                                    const std::function<EntryResult(const DiskPath&)>& take) {
    double number = 0;
    for (int attempt = 1;; ++attempt) {
        ClaimedFolder claimed{{}, ScanSiblings(levelFolder)};
        // What has the name need not be a folder that a scan sees.
        number = std::max(claimed.Scan.HighestNumber, number) + 1;
        claimed.Folder = FolderName(number);
        const EntryResult taken = take(levelFolder / claimed.Folder);
        if (taken)
            return claimed;
        if (taken.error().Problem != EntryProblem::AlreadyThere || attempt == kAttempts)
            return tl::make_unexpected(taken.error());
    }
}

tl::expected<MovedFolder, FileError> MoveNodeFolder(const NodeMove& move) {
    auto claimed = ClaimFolder(
        move.TargetLevel, [&move](const DiskPath& path) { return RenameEntry(move.SourceFolder, path); });
    if (!claimed && claimed.error().Problem == EntryProblem::OtherVolume)
        return MoveToOtherVolume(move);
    if (!claimed)
        return tl::make_unexpected(claimed.error().Error);
    MovedFolder moved{std::move(*claimed), {}};
    const FileResult sorted =
        WriteSort(move.TargetLevel / moved.Claimed.Folder, move.ChooseSort(moved.Claimed.Scan));
    if (!sorted)
        moved.Failures.push_back(sorted.error());
    return moved;
}

FileResult RemoveNodeFolder(const DiskPath& contentFolder, const DiskPath& nodeFolder, const QDateTime& now,
                            const std::function<bool(const DiskPath&)>& isIt) {
    RemoveLeftovers(contentFolder, now);
    if (!EntryExists(nodeFolder))
        return {};
    const auto hidden = MakeHiddenFolder(contentFolder, kDeleted);
    if (!hidden)
        return tl::make_unexpected(hidden.error());
    const DiskPath taken = *hidden / QStringLiteral("node");
    const EntryResult renamed = RenameEntry(nodeFolder, taken);
    if (renamed && isIt && !isIt(taken))
        return PutBack(taken, nodeFolder, *hidden);
    const FileResult removed = RemoveTree(*hidden);
    if (renamed)
        return removed;
    // On a volume of its own it can only be removed where it is.
    if (renamed.error().Problem == EntryProblem::OtherVolume)
        return RemoveTree(nodeFolder);
    return tl::make_unexpected(renamed.error().Error);
}

} // namespace paneda
