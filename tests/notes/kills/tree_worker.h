#pragma once

#include <QString>

namespace paneda::test {

// One process that works on a tree: it adds, moves, renames and deletes nodes and saves notes, at random but
// by its seed alone.
//
// The journal gets a line before each operation and one behind it, unless it failed:
//   add NODE / added NODE        move NODE / moved NODE       delete NODE NODE... / deleted NODE
//   save NODE SAVE BASE / saved NODE SAVE BASE
// Names of nodes are "<who>-<number>", a blank, and any text.
struct TreeWork {
    QString Content; // folder of the tree
    QString Journal; // file outside of it
    QString Who;     // begins the names of the nodes that it adds
    quint32 Seed = 1;
    int FirstNumber = 1; // of its nodes and saves
    int Operations = 1'000'000;
    // Deletes and moves its own nodes alone, and puts nothing below those that it deletes.
    bool Shared = false;
};

// Works until all operations are done. Returns the exit status of the process.
int RunTreeWork(const TreeWork& work);

// The node in a name.
QString NodeOfName(const QString& name);

} // namespace paneda::test
