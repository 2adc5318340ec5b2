#pragma once

#include "core/files/ini_file.h"
#include "notes/note_disk.h"
#include "notes/note_load.h"
#include "notes/note_save.h"
#include "support/store_builder.h"

#include <QDir>
#include <QFile>

#include <climits>

namespace paneda::test {

inline const QString kRoot = QStringLiteral("Data/Tree");
inline const QString kParent = QStringLiteral("Data/Tree/000003");
inline const QString kNote = QStringLiteral("Data/Tree/000003/000001");
inline const QByteArray kEmptyRtf = "{\\rtf1 }";

// A disk on which only the first steps happen, as if the program ended behind them or the disk were full.
class StoppingDisk : public NoteDisk {
public:
    int StepsLeft = INT_MAX;

    FileResult Replace(const DiskPath& path, const QByteArray& bytes, const DiskPath& like) override {
        return Step() ? NoteDisk::Replace(path, bytes, like) : Stopped(path);
    }
    FileResult Copy(const DiskPath& from, const DiskPath& to) override {
        return Step() ? NoteDisk::Copy(from, to) : Stopped(to);
    }
    FileResult Remove(const DiskPath& path) override {
        return Step() ? NoteDisk::Remove(path) : Stopped(path);
    }
    FileResult Flush(const DiskPath& folder) override {
        return Step() ? NoteDisk::Flush(folder) : Stopped(folder);
    }
    FileResult WriteKeys(const NotePlace& place, const DiskPath& folder, const NoteKeyValues& keys,
                         GuardWait& wait) override {
        return Step() ? NoteDisk::WriteKeys(place, folder, keys, wait) : Stopped(folder);
    }

private:
    bool Step() { return StepsLeft-- > 0; }
    static FileResult Stopped(const DiskPath& path) {
        return tl::make_unexpected(FileError{path.Text(), QStringLiteral("No space left on device")});
    }
};

// A tree with one note two levels down, and its user at 2026-11-21 06:30:43.
class NoteMaker {
public:
    StoreBuilder Store;
    StoppingDisk Disk;
    NotePlace Place;
    NoteSession Session;

    explicit NoteMaker(bool multiUser = false) {
        Store.AddFolder(kNote);
        Place = {Store.Path(kNote), Store.Path(kRoot), multiUser};
        Session.UserName = QStringLiteral("Ann");
        Session.Now = QDateTime({2026, 11, 21}, {6, 30, 43});
    }

    // A name in the note's folder.
    QString In(const QString& name) const { return kNote + u'/' + name; }
    void Put(const QString& name, const QByteArray& bytes) const { Store.AddFile(In(name), bytes); }
    QByteArray Bytes(const QString& name) const { return Store.Bytes(In(name)); }
    // All names in the note's folder that begin with "content".
    QStringList Contents() const {
        return QDir(Store.Path(kNote)).entryList({QStringLiteral("content*")}, QDir::AllEntries, QDir::Name);
    }
    QString Key(const QString& key, const QString& folder = kNote) const {
        return ReadIni(QStringLiteral("Properties"), key,
                       Store.Path(folder + QStringLiteral("/Properties.ini")));
    }
    void SetKey(const QString& key, const QString& value) const {
        (void)WriteIni(QStringLiteral("Properties"), key, value,
                       Store.Path(In(QStringLiteral("Properties.ini"))));
    }
    void SetTime(const QString& name, const QDateTime& time) const {
        QFile file(Store.Path(In(name)));
        if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(time, QFileDevice::FileModificationTime))
            qFatal("a test cannot set a time");
    }

    LoadedNote Load() { return LoadNote(Place, Session, kEmptyRtf, Disk); }
    tl::expected<SavedNote, FileError> Save(const QByteArray& rtf, const LoadedNote& loaded) {
        return SaveNote(Place, Session, {rtf, loaded.OnDisk, loaded.Lock.LockedByOther}, Disk);
    }
};

} // namespace paneda::test
