#pragma once

#include "core/files/disk_work.h"
#include "organiser/link_result.h"
#include "organiser/store_lists.h"
#include "organiser/store_steps.h"

#include <QStringList>

#include <variant>

namespace paneda {

enum class StoreLevel { Categories, Groups, Buttons };

// A button that is to be added.
struct NewButton {
    QString TitleExt; // "Notepad.pnd"
    // The fields of a record that is made, or the host path of a file that is copied.
    std::variant<LinkResult, QString> Source;
    bool MoveSource = false; // the file is deleted when its copy is complete
};

// The categories, the groups of the selected category and the buttons of the selected group, and what can be
// done with them. Each operation works on the selected entry of its list and changes the disk at once. The
// disk decides: after a failure the lists are read again, with the same entry selected if it is still there,
// and the error names a path and the reason. Renames that were made before a failure stay.
//
// Names are not checked here: ValidateName does that before.
class Organiser {
public:
    // `setting`: the folder of the categories. Without `work` the disk is used by the caller's thread.
    explicit Organiser(const DiskPath& setting, DiskWork work = {});

    // Reads the categories and selects the first one. Removes what killed operations have left.
    void Load();

    const std::vector<StoreFolder>& Categories() const { return categories_.Entries; }
    const std::vector<StoreFolder>& Groups() const { return groups_.Entries; }
    const std::vector<StoreButton>& Buttons() const { return buttons_.Entries; }
    QStringList Titles(StoreLevel level) const;

    // Index of the selected entry; -1 for none, as in an empty list.
    int Selected(StoreLevel level) const;

    // Selects an entry and reads what is in it, of which the first is selected. -1, or an index beyond the
    // list, selects nothing.
    void Select(StoreLevel level, int index);

    // Reads a list and those behind it again, and keeps what is selected as far as it is still there.
    void Reread(StoreLevel level);

    // Reads the buttons again after another window has changed them, and selects this file; where none has
    // the name, the one that was selected.
    void RereadButtons(const QString& fileName);

    // Whether an operation has touched the disk since the last ForgetChanges.
    bool HasChanges() const { return changed_; }
    void ForgetChanges();

    // What a category of this folder name is called now, after the renames since the last ForgetChanges.
    QString CategoryNow(const QString& folderName) const;

    // Adds a category or a group behind the others and selects it.
    FileResult AddFolder(StoreLevel level, const QString& title);

    // Adds a button behind the others and selects it.
    FileResult AddButton(const NewButton& button);

    // Writes the fields of the selected button, a record. Its name stays.
    FileResult RewriteRecord(const LinkResult& link);

    // Deletes the entry for good with all that is in it, a button with its picture. The next one is selected.
    FileResult Delete(StoreLevel level);

    FileResult Retitle(StoreLevel level, const QString& title);

    // Moves the entry to another index of its list.
    FileResult Move(StoreLevel level, int to);

    // Sorts by title, buttons by title and extension, and selects the first.
    FileResult Sort(StoreLevel level);

    // Makes a copy of a file (host path) the picture of the button, in place of the one that it has.
    FileResult SetPicture(const QString& picture, bool moveSource);

    // Host paths of the selected group, and of the selected button's file.
    DiskPath GroupFolder() const;
    DiskPath ButtonFile() const;

private:
    template <class Entry>
    struct List {
        std::vector<Entry> Entries;
        int Selected = -1;
    };

    template <class Act>
    FileResult Change(const Act& act);
    template <class Function>
    auto WithList(StoreLevel level, const Function& function);
    void RunWork(const std::function<void()>& work) const;
    DiskPath FolderOf(StoreLevel level) const;
    void ReadLevel(StoreLevel level);
    void Fill(StoreLevel level, int index);
    void ReadAgain(StoreLevel first);
    FileResult RunAndNote(StoreLevel level, const Renames& renames);
    FileResult Renumber(StoreLevel level);
    FileResult PlaceCopy(const DiskPath& from, const DiskPath& to, bool removeSource) const;

    DiskPath setting_;
    DiskWork work_;
    List<StoreFolder> categories_;
    List<StoreFolder> groups_;
    List<StoreButton> buttons_;
    bool changed_ = false;
    Renames categoryRenames_; // since the last ForgetChanges
};

} // namespace paneda
