#pragma once

#include "platform/source_places.h"

namespace paneda {

// Desktop: the user's desktop folder. Start menu: the applications, in folders by category. Favorites: the
// bookmarks of the file managers, and the links (.url, .desktop) and folders of a folder Favorites in the
// user's home. Desktop entries are called by their titles.
class LinuxSourcePlaces : public SourcePlaces {
public:
    SourceListing List(Source source, const QString& folder) const override;
    bool HasMedium(const QString& root) const override;
    SourceItem ItemOf(const QString& path) const override;
};

} // namespace paneda
