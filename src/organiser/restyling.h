#pragma once

#include "organiser/store_steps.h"

namespace paneda {

// How far a new style goes.
enum class StyleScope {
    Button,   // this one, which also gets the title
    Group,    // and all buttons of its group, which keep their titles
    Category, // and those of all groups of its category
};

struct StyleChange {
    DiskPath Button; // the file of the button that was edited
    QString Title;   // its new one
    QString Style;
    StyleScope Scope = StyleScope::Button;
};

// The name of a button's file with another title and style. Number and extension stay.
QString RestyledButton(const QString& fileName, const QString& title, const QString& style);

// The same with the title as it is.
QString RestyledButton(const QString& fileName, const QString& style);

// The renames of one group. `edited`: the name of the button that was edited; empty when it is in another
// group. `names`: all names in the folder.
Renames RestyleGroup(const StyleChange& change, const QString& edited,
                     const std::vector<StoreButton>& buttons, const QStringList& names);

// Makes all renames, those of the edited button's group first. Stops at the first one that fails; those
// before it stay made.
FileResult ApplyStyle(const StyleChange& change);

} // namespace paneda
