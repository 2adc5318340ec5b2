#pragma once

#include "core/files/drive_map.h"
#include "core/files/file_io.h"
#include "core/store/catalogue.h"
#include "notes/tree_node.h"
#include "notes/tree_store.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace paneda {

struct AppState;

// Making, changing and removing trees, and which category of the panel shows which of them. A tree's content
// folder stays when the tree is removed or gets another name.

// Where a store lies. A copy, for work on another thread.
struct TreePlace {
    QString AppFolder; // host path
    QString AppPath;   // stored form
    DriveMap Drives;

    static TreePlace Of(const AppState& state);
};

// What the user enters about a tree.
struct TreeForm {
    QString Name;
    QString Path; // of the content folder, as typed
    // The content folder is made if it is missing.
    bool CreatesFolder = false;
    QRgb NoteBackColor = 0xFF0000FF; // opaque, as the next two
    QRgb NoteTitleColor = 0xFFFFFF00;
    QRgb NoteTitle2Color = 0xFF00FF00;
};

// The content folder of a tree that takes the usual one: "Data\" and the name, with "-" for each of
// \ / : * ? " < > |.
QString UsualTreePath(const QString& name);

// Where that path leads; see TreeSettings.
TreeSettings ResolveTreePath(const QString& path, const TreePlace& place);

// What is wrong with a tree's name, as a text for the user; empty when nothing is. `trees` are all trees,
// `oldName` the one that is edited; empty for a new one.
QString TreeNameProblem(const QString& name, const QStringList& trees, const QString& oldName);

// Reads the form of an existing tree.
TreeForm ReadTreeForm(const TreePlace& place, const QString& tree);

// Makes a tree, or changes the one called `oldName`; what its settings file holds beside the form stays.
// Returns what to tell the user; empty when it is done.
QString SaveTree(const TreePlace& place, const TreeForm& form, const QString& oldName);

// Removes a tree's settings file. A missing one is no failure.
FileResult RemoveTreeFile(const TreePlace& place, const QString& tree);

// The tree that one category shows (by its place in the catalogue) becomes `tree`. The other categories that
// show `from` show `to` instead. Other categories, and those that show no trees, stay.
struct TreeBinding {
    int Category = -1;
    QString Tree = {};
    QString From = {}; // empty: there is none
    QString To = {};
};
CatalogueList BindTree(CatalogueList catalogue, const TreeBinding& binding);

// Writes the tree of each category that differs between the two into its Properties.ini.
std::vector<FileError> WriteBoundTrees(const TreePlace& place, const CatalogueList& before,
                                       const CatalogueList& after);

} // namespace paneda
