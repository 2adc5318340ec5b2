#pragma once

#include "platform/source_places.h"

namespace paneda {

// The shell's folders of this user and of all users.
class ShellSourcePlaces : public SourcePlaces {
public:
    SourceListing List(Source source, const QString& folder) const override;
    bool HasMedium(const QString& root) const override;
    SourceItem ItemOf(const QString& path) const override;
};

} // namespace paneda
