#include "skin/skin_option.h"

#include "core/files/change_files.h"
#include "core/files/ini_file.h"
#include "core/text/text_rules.h"
#include "skin/option_plan.h"
#include "skin/skin_file.h"
#include "skin/skin_list.h"

#include <algorithm>

namespace paneda {

namespace {

const QString kSkinIni = QStringLiteral("skin.ini");

// Reads files up to a sum of their sizes.
class BoundedReader {
public:
    tl::expected<QByteArray, QString> Read(const DiskPath& file, qint64 limit) {
        auto bytes = ReadFileBytes(file, limit);
        if (!bytes)
            return tl::make_unexpected(bytes.error().Text());
        left_ -= bytes->size();
        if (left_ < 0)
            return tl::make_unexpected(QStringLiteral("The files have more than %1 MB in all.")
                                           .arg(kMaxOptionBytes / (1024 * 1024)));
        return std::move(*bytes);
    }

private:
    qint64 left_ = kMaxOptionBytes;
};

// The files of a folder in byte order of names, without hidden ones. Folders are passed over; anything else
// is refused.
tl::expected<QStringList, QString> ListOptionFiles(const DiskPath& folder) {
    const auto entries = ListEntries(folder);
    if (!entries)
        return tl::make_unexpected(entries.error().Error.Text());
    QStringList names;
    for (const DiskEntry& entry : *entries) {
        if (entry.Hidden || entry.Kind == EntryKind::Folder || entry.Name.startsWith(kUnfinishedPrefix))
            continue;
        if (entry.Kind != EntryKind::File || !IsListed(entry))
            return tl::make_unexpected(
                Failure((folder / entry.Name).Text(),
                        entry.Kind == EntryKind::Link
                            ? QStringLiteral("This is a link. Links in skins are not followed.")
                            : QStringLiteral("This is not a file that can be used."))
                    .value()
                    .Text());
        names.append(entry.Name);
    }
    if (names.size() > kMostOptionFiles)
        return tl::make_unexpected(QStringLiteral("It has more than %1 files.").arg(kMostOptionFiles));
    std::sort(names.begin(), names.end(),
              [](const QString& a, const QString& b) { return CompareText(a, b) < 0; });
    return names;
}

tl::expected<std::vector<OptionFile>, QString> ReadOption(const DiskPath& folder, BoundedReader& reader) {
    const auto names = ListOptionFiles(folder);
    if (!names)
        return tl::make_unexpected(names.error());
    std::vector<OptionFile> files;
    for (const QString& name : *names) {
        // The text of one that only names a file to remove does not matter.
        const bool isRead = !DeletedName(name);
        const bool isIni = IsInstruction(name) || SameName(name, kSkinIni);
        auto bytes =
            isRead ? reader.Read(folder / name, isIni ? kMaxIniFile : kMaxOptionBytes) : QByteArray();
        if (!bytes)
            return tl::make_unexpected(bytes.error());
        files.push_back({name, std::move(*bytes)});
    }
    return files;
}

tl::expected<QByteArray, QString> ReadIniOf(const DiskPath& skin) {
    const DiskPath file = FindEntry(skin, kSkinIni);
    if (!EntryExists(file))
        return QByteArray();
    auto bytes = ReadFileBytes(file, kMaxIniFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error().Text());
    return std::move(*bytes);
}

const SkinChange* FindChange(const std::vector<SkinChange>& changes, QStringView name) {
    const auto found = std::find_if(changes.begin(), changes.end(),
                                    [name](const SkinChange& each) { return SameName(each.Name, name); });
    return found == changes.end() ? nullptr : &*found;
}

// Empty if a skin can still be used with these changes.
QString ProblemAfter(const std::vector<SkinChange>& changes, const DiskPath& skin, const QByteArray& iniNow) {
    const auto remains = [&](const QString& name) {
        const SkinChange* change = FindChange(changes, name);
        return change ? change->Bytes.has_value() : LookAt(FindEntry(skin, name)).Kind == EntryKind::File;
    };
    if (!remains(QStringLiteral("bottom.png")) && !remains(QStringLiteral("bottom.jpg")))
        return QStringLiteral("The skin would have no picture \"bottom\".");
    if (!remains(kSkinIni))
        return QStringLiteral("The skin would have no skin.ini.");
    const SkinChange* ini = FindChange(changes, kSkinIni);
    const auto theme = ReadTheme(IniText(ini ? *ini->Bytes : iniNow), skin.Name(), (skin / kSkinIni).Text());
    return theme ? QString() : theme.error().Text();
}

// What has to be kept of the files that change, and is not yet. The files are those of `original`.
tl::expected<std::vector<FileChange>, QString> KeepOriginals(const std::vector<SkinChange>& changes,
                                                             const DiskPath& skin, const DiskPath& original,
                                                             BoundedReader& reader) {
    std::vector<FileChange> kept;
    for (const SkinChange& change : changes) {
        const QString deleting = DeletingFile(change.Name);
        if (EntryExists(FindEntry(original, change.Name)) || EntryExists(FindEntry(original, deleting)))
            continue;
        const DiskPath file = skin / change.Name;
        if (!EntryExists(file)) {
            kept.push_back({original / deleting, QByteArray()});
            continue;
        }
        auto bytes = reader.Read(file, kMaxOptionBytes);
        if (!bytes)
            return tl::make_unexpected(bytes.error());
        kept.push_back({original / change.Name, std::move(*bytes)});
    }
    return kept;
}

void AppendChanges(std::vector<FileChange>& all, std::vector<SkinChange> changes, const DiskPath& skin) {
    for (SkinChange& change : changes)
        all.push_back({skin / change.Name, std::move(change.Bytes)});
}

OptionResult AsOptionResult(const FileResult& result) {
    return result ? OptionResult() : tl::make_unexpected(result.error().Text());
}

// What an option does to its skin, and what the skin has now.
struct Prepared {
    QByteArray Ini;
    std::vector<SkinChange> Changes;
};

tl::expected<Prepared, QString> Prepare(const DiskPath& skin, const DiskPath& option, DenserRule rule) {
    BoundedReader reader;
    const auto files = ReadOption(option, reader);
    if (!files)
        return tl::make_unexpected(files.error());
    auto ini = ReadIniOf(skin);
    if (!ini)
        return tl::make_unexpected(ini.error());
    auto changes = PlanOption(*files, ListFiles(skin), *ini, rule);
    if (!changes)
        return tl::make_unexpected(changes.error());
    return Prepared{std::move(*ini), std::move(*changes)};
}

OptionResult Apply(const DiskPath& skin, const DiskPath& option) {
    auto prepared = Prepare(skin, option, DenserRule::TakeAlong);
    if (!prepared)
        return tl::make_unexpected(prepared.error());
    const QString problem = ProblemAfter(prepared->Changes, skin, prepared->Ini);
    if (!problem.isEmpty())
        return tl::make_unexpected(problem);
    if (prepared->Changes.empty())
        return {};
    const DiskPath original = FindEntry(skin, kOriginalOption.toString());
    const bool isNew = !EntryExists(original);
    BoundedReader reader;
    auto all = KeepOriginals(prepared->Changes, skin, original, reader);
    if (!all)
        return tl::make_unexpected(all.error());
    AppendChanges(*all, std::move(prepared->Changes), skin);
    if (const FileResult made = MakeFolder(original); !made)
        return AsOptionResult(made);
    const FileResult changed = ChangeFiles(*all);
    // A folder of originals would offer to undo what has not been done.
    if (!changed && isNew)
        (void)RemoveTree(original);
    return AsOptionResult(changed);
}

OptionResult Restore(const DiskPath& skin, const DiskPath& original) {
    auto prepared = Prepare(skin, original, DenserRule::Leave);
    if (!prepared)
        return tl::make_unexpected(prepared.error());
    // The folder may have come with the skin, from anybody.
    const QString problem = ProblemAfter(prepared->Changes, skin, prepared->Ini);
    if (!problem.isEmpty())
        return tl::make_unexpected(problem);
    std::vector<FileChange> all;
    AppendChanges(all, std::move(prepared->Changes), skin);
    if (const FileResult changed = ChangeFiles(all); !changed)
        return AsOptionResult(changed);
    // The next option keeps what is there then, for instance other fonts. If the folder stays, it is offered
    // once more and does no harm.
    (void)RemoveTree(original);
    return {};
}

} // namespace

OptionResult ApplyOption(const QString& appFolder, const QString& skinName, const QString& option) {
    const DiskPath skin = SkinFolderOf(appFolder, skinName);
    OptionResult applied = Apply(skin, skin / option);
    if (applied)
        return applied;
    return tl::make_unexpected(
        QStringLiteral("The option \"%1\" of \"%2\" cannot be applied; the skin is as it was.\n\n%3")
            .arg(option, skinName, applied.error()));
}

bool HasOriginal(const DiskPath& skin) {
    return LookAt(FindEntry(skin, kOriginalOption.toString())).Kind == EntryKind::Folder;
}

OptionResult RestoreOriginal(const QString& appFolder, const QString& skinName) {
    const DiskPath skin = SkinFolderOf(appFolder, skinName);
    OptionResult restored = Restore(skin, FindEntry(skin, kOriginalOption.toString()));
    if (restored)
        return restored;
    return tl::make_unexpected(
        QStringLiteral("The original of \"%1\" cannot be put back; the skin is as it was.\n\n%2")
            .arg(skinName, restored.error()));
}

} // namespace paneda
