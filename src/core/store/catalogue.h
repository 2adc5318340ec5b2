#pragma once

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace paneda {

// The store as the panel shows it: categories, their groups, their buttons, in this order.

// Subscripts 1 to 26 for drives A to Z; subscript 0 is unused.
using DriveTableFlags = std::array<bool, 27>;

struct ButtonEntry {
    // Full path of the button's file in the stored form; "Drive C" for a drive button, "Drive 9" for the one
    // that stands for the program's own drive.
    QString Path;
    // File name without extension, order prefix and style tag still in it; as Path for a drive button.
    QString Name;
    // Empty; for a drive button "Drive C:".
    QString Spare;
    // Number of the button's control, from 1, counted over the whole catalogue in the order of the listings.
    int ControlIndex = 0;
    // Style code; empty if the name has none.
    QString Style;

    friend bool operator==(const ButtonEntry&, const ButtonEntry&) = default;
};

// The entry of a file in a group's folder (stored form).
ButtonEntry FileButton(const QString& groupPath, const QString& fileName, int controlIndex);

// The entry of a drive; "9" stands for the program's own.
ButtonEntry DriveButton(QChar letter, int controlIndex);

// What the panel writes on a button: its file's name without prefix, style tag and extension; "Drive C" for a
// drive.
QString CaptionOf(const ButtonEntry& button);

struct GroupEntry {
    // With its prefix; "My Computer" for the group of drives.
    QString FolderName;
    std::vector<ButtonEntry> Buttons;
    // Number of the header's control, from 1, counted over the groups of all categories.
    int ControlIndex = 0;
    // Checksum of the names of the pictures in the folder, which buttons show; 0 for a folder without.
    quint64 PictureNames = 0;

    friend bool operator==(const GroupEntry&, const GroupEntry&) = default;
};

struct CategoryEntry {
    // With its prefix.
    QString FolderName;
    std::vector<GroupEntry> Groups;
    // "S" for buttons, "T" for a tree.
    QString Kind;
    // Of a tree category: its number among the tree categories, from 0. No value otherwise.
    std::optional<int> TreeNumber;
    // Of a tree category: the tree it shows; empty when none is chosen.
    QString TreeName;

    bool IsTree() const { return Kind == QStringLiteral("T"); }

    friend bool operator==(const CategoryEntry&, const CategoryEntry&) = default;
};

using CatalogueList = std::vector<CategoryEntry>;

// Title on a category's bar: its tree's name for a tree category, "**Right Click**" without one.
QString BarTitle(const CategoryEntry& category);

// Whether the first category has the group of drives.
bool HasDriveButtons(const CatalogueList& catalogue);

} // namespace paneda
