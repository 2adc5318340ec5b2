#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace paneda::test {

// One node as it lies on the disk. Read without the code that is tested.
struct NodeOnDisk {
    QString Node;
    QString Folder;
    QList<int> Texts; // of the note first, then of files kept beside it; -1 for one that no save wrote
    QString Editing;
};
QList<NodeOnDisk> ReadNodes(const QString& content);

// What a tree must hold and may hold, by the journals of those that worked on it. Each check gives the first
// thing that is wrong, or an empty text.
class TreeLedger {
public:
    // Forgets what was read; what the disk holds now is what counts.
    void Restart(const QList<NodeOnDisk>& nodes);

    // Takes the lines of a journal; the file may be missing.
    void Read(const QString& journal);

    // Each node stands once, and none is lost.
    QString NodeObjection(const QList<NodeOnDisk>& nodes) const;
    // The same, and each holds its last text or the one that was being saved. For one process at a time.
    QString Objection(const QList<NodeOnDisk>& nodes) const;
    // Every save that was told to be done is there, or was the base of another one.
    QString LostSave(const QList<NodeOnDisk>& nodes) const;

    int Nodes() const { return int(must_.size()); }
    int Saves() const { return int(saves_.size()); }

private:
    struct DoneSave {
        QString Node;
        int Save = 0;
        int Base = 0;
    };

    void ReadLine(const QStringList& words);
    void ReadDelete(const QStringList& nodes, bool done);

    // Node by the saves that it may hold, 0 for no text.
    QHash<QString, QList<int>> must_;
    QHash<QString, QList<int>> may_;
    QList<DoneSave> saves_;
};

} // namespace paneda::test
