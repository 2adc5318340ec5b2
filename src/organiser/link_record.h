#pragma once

#include "core/files/ini_file.h"
#include "organiser/link_result.h"

namespace paneda {

// The fields of a record (.pnd) are the keys Target, Parameter, "Start In", "Window State" and Description of
// its section Properties.

// Name is left empty. A file that cannot be read has no fields.
LinkResult ReadLink(const DiskPath& record);

// Sets all fields in a record's text. Fails for a text that is too long for an INI file.
IniResult SetLink(IniText& record, const LinkResult& link);

// Writes all fields at once and leaves the rest of the file as it is. Fails when the file is missing or
// cannot be read, and for a text that is too long; then nothing has changed.
FileResult RewriteLink(const DiskPath& record, const LinkResult& link);

} // namespace paneda
