#include "notes/note_disk.h"

#include "notes/node_properties.h"
#include "notes/note_files.h"

#include "core/files/file_tree.h"
#include "core/files/ini_file.h"

namespace paneda {

FileResult NoteDisk::Replace(const DiskPath& path, const QByteArray& bytes, const DiskPath& like) {
    return ReplaceFileLike(path, bytes, like);
}

FileResult NoteDisk::Copy(const DiskPath& from, const DiskPath& to) {
    if (LookAt(from).Size > kMaxNoteText)
        return WithoutProblem(RenameEntry(from, to));
    return CopyWholeFile(from, to, from);
}

FileResult NoteDisk::Flush(const DiskPath& folder) {
    return WithoutProblem(FlushFolder(folder));
}

FileResult NoteDisk::Remove(const DiskPath& path) {
    return EntryExists(path) ? WithoutProblem(RemoveFile(path)) : FileResult();
}

FileResult NoteDisk::WriteKeys(const NotePlace&, const DiskPath& folder, const NoteKeyValues& keys,
                               GuardWait& wait) {
    const DiskPath iniFile = NodeIniFile(folder);
    // The folder around the tree's root belongs to others, so no file is made there.
    const FileGuard guard(folder.IsRoot() ? iniFile : LevelGuardFile(folder.Parent()), wait);
    auto text = LoadIniFile(iniFile);
    if (!text)
        return tl::make_unexpected(text.error());
    const QByteArray before = text->Bytes();
    for (const auto& [key, value] : keys) {
        if (const IniResult set = text->SetValue(node_key::kProperties, key, value); !set)
            return Failure(iniFile.Text(), set.error());
    }
    return text->Bytes() == before ? FileResult() : ReplaceFile(iniFile, text->Bytes());
}

} // namespace paneda
