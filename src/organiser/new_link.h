#pragma once

#include "core/files/drive_map.h"
#include "organiser/link_result.h"

#include <QString>

namespace paneda {

// Where the program lies, which the portable forms of a path depend on.
struct LinkPlace {
    const DriveMap& Drives;
    QString AppPath; // stored form
};

// A target in the three forms that the shortcut dialog offers. A text that is a host path counts as its
// stored form; on a host without drive letters the absolute form is a host path.
struct TargetForms {
    QString Relative;
    QString Absolute;
    QString AbsoluteNoDrive;

    friend bool operator==(const TargetForms&, const TargetForms&) = default;
};

TargetForms FormsOfTarget(const QString& text, const LinkPlace& place);

// An absolute path of the stored form as this host's users write it.
QString ShownTarget(const QString& stored, const LinkPlace& place);

// What a new shortcut to a file begins with, or to a folder, whose path ends with a backslash. `path` is of
// the stored form.
LinkResult NewLink(const QString& path, bool isFolder, const LinkPlace& place);

} // namespace paneda
