#pragma once

#include "core/files/sources.h"

#include <QString>

namespace paneda {

// The places of the user's desktop from which the organiser makes buttons. All functions may be called on any
// thread, at the same time, and may take as long as the disk does.
class SourcePlaces {
public:
    virtual ~SourcePlaces() = default;

    // What one folder of a source holds. `folder` is a text of names with a backslash behind each, empty for
    // the source's root. Of My Computer it is a host path. A folder that does not exist is empty.
    virtual SourceListing List(Source source, const QString& folder) const = 0;

    // Whether a drive (its host folder) has a medium with room for files.
    virtual bool HasMedium(const QString& root) const = 0;

    // A file or folder (host path) as the listings have it.
    virtual SourceItem ItemOf(const QString& path) const = 0;
};

} // namespace paneda
