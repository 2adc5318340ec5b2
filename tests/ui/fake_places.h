#pragma once

#include "platform/source_places.h"

#include <QHash>
#include <QSemaphore>

#include <functional>

namespace paneda::test {

// Folders by "source number:folder"; the start menu does not answer until a test lets it.
class FakePlaces : public SourcePlaces {
public:
    QHash<QString, SourceListing> Listings;
    mutable QSemaphore Menu;
    std::function<void()> Look; // called for each file that is looked at, on any thread

    SourceListing List(Source source, const QString& folder) const override {
        if (source == Source::StartMenu)
            Menu.acquire();
        return Listings.value(QString::number(int(source)) + u':' + folder);
    }
    bool HasMedium(const QString& root) const override { return root == u'/' || root == u"C:/"; }
    SourceItem ItemOf(const QString& path) const override {
        if (Look)
            Look();
        return {path.section(u'/', -1), false, path};
    }
};

} // namespace paneda::test
