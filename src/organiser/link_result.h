#pragma once

#include <QString>

namespace paneda {

// What the shortcut dialog gives: the fields of a record (.pnd).
struct LinkResult {
    QString Name;        // without extension
    QString Target;      // stored form, or an address
    QString Parameter;   // empty for none, like the next two
    QString StartIn;     // empty: the target's folder
    QString WindowState; // "Normal Window", "Minimized", "Maximized"
    QString Description;
};

} // namespace paneda
