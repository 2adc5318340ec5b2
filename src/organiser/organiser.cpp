#include "organiser/organiser.h"

#include "core/files/file_tree.h"
#include "core/store/entries.h"
#include "core/store/names.h"
#include "organiser/link_record.h"
#include "organiser/picture_replacing.h"

#include <QHash>

#include <algorithm>

namespace paneda {

namespace {

QString& NameOf(StoreFolder& folder) {
    return folder.FolderName;
}

QString& NameOf(StoreButton& button) {
    return button.FileName;
}

void SortByTitle(std::vector<StoreFolder>& folders) {
    SortEntries(folders, {&StoreFolder::Title}, SortOrder::Ascending);
}

void SortByTitle(std::vector<StoreButton>& buttons) {
    SortEntries(buttons, {&StoreButton::TitleExt}, SortOrder::Ascending);
}

Renames PlanNumbers(const std::vector<StoreFolder>& folders, const QStringList& names) {
    return RenumberFolders(folders, names);
}

Renames PlanNumbers(const std::vector<StoreButton>& buttons, const QStringList& names) {
    return RenumberButtons(buttons, names);
}

Renames PlanTitle(const StoreFolder& folder, const QString& title, const QStringList&) {
    const QString name = RetitledFolder(folder.FolderName, title);
    return name == folder.FolderName ? Renames() : Renames{{folder.FolderName, name}};
}

Renames PlanTitle(const StoreButton& button, const QString& title, const QStringList& names) {
    return RenameButton(button.FileName, RetitledButton(button, title), names);
}

// Lists show no names that begin with a point.
FileResult CheckShown(const DiskPath& folder, const Renames& renames) {
    for (const Rename& rename : renames) {
        if (rename.To.isEmpty() || rename.To.startsWith(u'.'))
            return Failure(
                (folder / rename.From).Text(),
                QStringLiteral("A name without a number needs a first letter other than a point."));
    }
    return {};
}

FileResult WriteRecord(const LinkResult& link, const DiskPath& path) {
    IniText text;
    if (const IniResult set = SetLink(text, link); !set)
        return Failure(path.Text(), set.error());
    return AddFile(path, [&text](const DiskPath& hidden) { return ReplaceFile(hidden, text.Bytes()); });
}

} // namespace

Organiser::Organiser(const DiskPath& setting, DiskWork work) : setting_(setting), work_(std::move(work)) {}

template <class Function>
auto Organiser::WithList(StoreLevel level, const Function& function) {
    if (level == StoreLevel::Buttons)
        return function(buttons_);
    return function(level == StoreLevel::Groups ? groups_ : categories_);
}

void Organiser::RunWork(const std::function<void()>& work) const {
    work_ ? work_(work) : work();
}

QStringList Organiser::Titles(StoreLevel level) const {
    if (level == StoreLevel::Buttons)
        return TitlesOf(buttons_.Entries);
    return TitlesOf(level == StoreLevel::Groups ? groups_.Entries : categories_.Entries);
}

int Organiser::Selected(StoreLevel level) const {
    return level == StoreLevel::Buttons  ? buttons_.Selected
           : level == StoreLevel::Groups ? groups_.Selected
                                         : categories_.Selected;
}

DiskPath Organiser::FolderOf(StoreLevel level) const {
    if (level == StoreLevel::Categories)
        return setting_;
    const DiskPath category = setting_ / categories_.Entries[std::size_t(categories_.Selected)].FolderName;
    return level == StoreLevel::Groups ? category : GroupFolder();
}

DiskPath Organiser::GroupFolder() const {
    return FolderOf(StoreLevel::Groups) / groups_.Entries[std::size_t(groups_.Selected)].FolderName;
}

DiskPath Organiser::ButtonFile() const {
    return GroupFolder() / buttons_.Entries[std::size_t(buttons_.Selected)].FileName;
}

void Organiser::Load() {
    RunWork([this] {
        RemoveLeftovers(setting_);
        for (const QString& category : ListFolders(setting_))
            RemoveLeftovers(setting_ / category);
        Fill(StoreLevel::Categories, 0);
    });
}

// Reads a list and selects an entry, or the last one where the list is shorter; then those behind it.
void Organiser::Fill(StoreLevel level, int index) {
    ReadLevel(level);
    WithList(level, [index](auto& list) {
        const int last = int(list.Entries.size()) - 1;
        list.Selected = std::min(index, last);
    });
    if (level == StoreLevel::Categories)
        Fill(StoreLevel::Groups, 0);
    if (level == StoreLevel::Groups)
        Fill(StoreLevel::Buttons, 0);
}

void Organiser::ReadLevel(StoreLevel level) {
    switch (level) {
    case StoreLevel::Categories:
        categories_.Entries = ReadFolders(setting_);
        break;
    case StoreLevel::Groups:
        groups_.Entries =
            categories_.Selected < 0 ? std::vector<StoreFolder>() : ReadFolders(FolderOf(level));
        break;
    case StoreLevel::Buttons:
        buttons_.Entries = groups_.Selected < 0 ? std::vector<StoreButton>() : ReadButtons(FolderOf(level));
        break;
    }
}

void Organiser::Select(StoreLevel level, int index) {
    WithList(level, [index](auto& list) { list.Selected = index < int(list.Entries.size()) ? index : -1; });
    if (level == StoreLevel::Buttons)
        return;
    const auto next = StoreLevel(int(level) + 1);
    RunWork([this, next] { Fill(next, 0); });
}

// Where the entry that was selected is now: by its name, else by its title, else by its place.
template <class Entry>
static int PlaceOf(std::vector<Entry>& entries, Entry before, int index) {
    const auto byName = std::find_if(entries.begin(), entries.end(),
                                     [&](Entry& entry) { return NameOf(entry) == NameOf(before); });
    const auto found = byName != entries.end()
                           ? byName
                           : std::find_if(entries.begin(), entries.end(),
                                          [&](const Entry& entry) { return entry.Title == before.Title; });
    return found != entries.end() ? int(found - entries.begin()) : std::min(index, int(entries.size()) - 1);
}

void Organiser::Reread(StoreLevel level) {
    RunWork([this, level] { ReadAgain(level); });
}

void Organiser::ReadAgain(StoreLevel first) {
    for (int i = int(first); i <= int(StoreLevel::Buttons); ++i) {
        const auto level = StoreLevel(i);
        WithList(level, [this, level](auto& list) {
            const auto before = list;
            ReadLevel(level);
            const bool wasEmpty = before.Entries.empty();
            if (wasEmpty || before.Selected < 0)
                list.Selected = wasEmpty && !list.Entries.empty() ? 0 : -1;
            else
                list.Selected =
                    PlaceOf(list.Entries, before.Entries[std::size_t(before.Selected)], before.Selected);
        });
    }
}

void Organiser::RereadButtons(const QString& fileName) {
    changed_ = true;
    Reread(StoreLevel::Buttons);
    for (std::size_t i = 0; i < buttons_.Entries.size(); ++i) {
        if (buttons_.Entries[i].FileName == fileName)
            buttons_.Selected = int(i);
    }
}

void Organiser::ForgetChanges() {
    changed_ = false;
    categoryRenames_.clear();
}

QString Organiser::CategoryNow(const QString& folderName) const {
    QString name = folderName;
    for (const auto& [from, to] : categoryRenames_) {
        if (name == from)
            name = to;
    }
    return name;
}

// Does something with the disk, and reads the lists again when it fails: somebody else may have changed any.
template <class Act>
FileResult Organiser::Change(const Act& act) {
    changed_ = true;
    FileResult result;
    RunWork([&] {
        result = act();
        if (!result)
            ReadAgain(StoreLevel::Categories);
    });
    return result;
}

// Makes the renames and gives the entries of the list their new names.
FileResult Organiser::RunAndNote(StoreLevel level, const Renames& renames) {
    const DiskPath folder = FolderOf(level);
    FileResult result = CheckShown(folder, renames);
    if (result)
        result = RunRenames(folder, renames);
    if (!result)
        return result;
    if (level == StoreLevel::Categories)
        categoryRenames_.insert(categoryRenames_.end(), renames.begin(), renames.end());
    QHash<QString, QString> earlier; // by the present name
    for (const auto& [from, to] : renames)
        earlier.insert(to, earlier.contains(from) ? earlier.take(from) : from);
    QHash<QString, QString> now;
    for (auto entry = earlier.begin(); entry != earlier.end(); ++entry)
        now.insert(entry.value(), entry.key());
    WithList(level, [&now](auto& list) {
        for (auto& entry : list.Entries)
            NameOf(entry) = now.value(NameOf(entry), NameOf(entry));
    });
    return {};
}

FileResult Organiser::Renumber(StoreLevel level) {
    return WithList(level, [this, level](auto& list) -> FileResult {
        const auto names = NamesIn(FolderOf(level));
        return names ? RunAndNote(level, PlanNumbers(list.Entries, *names))
                     : tl::make_unexpected(names.error());
    });
}

FileResult Organiser::AddFolder(StoreLevel level, const QString& title) {
    return Change([&]() -> FileResult {
        if (const FileResult numbered = Renumber(level); !numbered)
            return numbered;
        std::vector<StoreFolder>& folders =
            level == StoreLevel::Groups ? groups_.Entries : categories_.Entries;
        const QString name = SafeFileName(NumberedName(int(folders.size()) + 1, title));
        if (const EntryResult made = MakeNewFolder(FolderOf(level) / name); !made)
            return WithoutProblem(made);
        AppendEntry(folders, FolderOfName(name));
        (level == StoreLevel::Groups ? groups_ : categories_).Selected = int(folders.size()) - 1;
        Fill(StoreLevel(int(level) + 1), 0);
        return {};
    });
}

FileResult Organiser::AddButton(const NewButton& button) {
    return Change([&]() -> FileResult {
        if (const FileResult numbered = Renumber(StoreLevel::Buttons); !numbered)
            return numbered;
        const QString name = AddedButtonName(buttons_.Entries, button.TitleExt);
        const DiskPath path = GroupFolder() / name;
        if (const FileResult aside = PutPicturesAside(path); !aside)
            return aside;
        const auto* link = std::get_if<LinkResult>(&button.Source);
        const FileResult added = link ? WriteRecord(*link, path)
                                      : PlaceCopy(std::get<QString>(button.Source), path, button.MoveSource);
        // A copy is there also when its source could not be deleted.
        if (!added && !EntryExists(path))
            return added;
        AppendEntry(buttons_.Entries, ButtonOfName(name));
        buttons_.Selected = int(buttons_.Entries.size()) - 1;
        return added;
    });
}

FileResult Organiser::RewriteRecord(const LinkResult& link) {
    return Change([&] { return RewriteLink(ButtonFile(), link); });
}

FileResult Organiser::PlaceCopy(const DiskPath& from, const DiskPath& to, bool removeSource) const {
    const FileResult copied =
        AddFile(to, [&from](const DiskPath& hidden) { return CopyWholeFile(from, hidden, from); });
    return copied && removeSource ? RemoveMoved(from, to.Parent()) : copied;
}

FileResult Organiser::Delete(StoreLevel level) {
    return Change([&] {
        return WithList(level, [&](auto& list) -> FileResult {
            const DiskPath folder = FolderOf(level);
            const QString name = NameOf(list.Entries[std::size_t(list.Selected)]);
            const auto names = NamesIn(folder);
            if (!names)
                return tl::make_unexpected(names.error());
            const QString picture = level == StoreLevel::Buttons ? PictureOf(name, *names) : QString();
            if (const FileResult deleted = DeleteTree(folder / name); !deleted)
                return deleted;
            if (!picture.isEmpty()) {
                if (const EntryResult removed = RemoveFile(folder / picture); !removed)
                    return WithoutProblem(removed);
            }
            RemoveEntry(list.Entries, std::size_t(list.Selected));
            list.Selected = std::min(list.Selected, int(list.Entries.size()) - 1);
            if (level != StoreLevel::Buttons)
                Fill(StoreLevel(int(level) + 1), 0);
            return {};
        });
    });
}

FileResult Organiser::Retitle(StoreLevel level, const QString& title) {
    return Change([&] {
        return WithList(level, [&](auto& list) -> FileResult {
            const auto& entry = list.Entries[std::size_t(list.Selected)];
            const auto names = NamesIn(FolderOf(level));
            if (!names)
                return tl::make_unexpected(names.error());
            const FileResult renamed = RunAndNote(level, PlanTitle(entry, title, *names));
            // The new title may change the order where two entries have one number.
            if (renamed)
                ReadAgain(StoreLevel::Categories);
            return renamed;
        });
    });
}

FileResult Organiser::Move(StoreLevel level, int to) {
    return Change([&] {
        return WithList(level, [&](auto& list) {
            const auto begin = list.Entries.begin();
            const auto from = begin + list.Selected;
            if (list.Selected < to)
                std::rotate(from, from + 1, begin + to + 1);
            else
                std::rotate(begin + to, from, from + 1);
            list.Selected = to;
            return Renumber(level);
        });
    });
}

FileResult Organiser::Sort(StoreLevel level) {
    return Change([&] {
        return WithList(level, [&](auto& list) {
            SortByTitle(list.Entries);
            list.Selected = 0;
            const FileResult numbered = Renumber(level);
            if (level != StoreLevel::Buttons)
                Fill(StoreLevel(int(level) + 1), 0);
            return numbered;
        });
    });
}

FileResult Organiser::SetPicture(const QString& picture, bool moveSource) {
    return Change([&] { return ReplacePicture(ButtonFile(), picture, moveSource); });
}

} // namespace paneda
