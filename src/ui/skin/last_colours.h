#pragma once

#include "core/files/file_io.h"
#include "skin/colour.h"

#include <QString>

#include <vector>

namespace paneda {

// The colours that the user has chosen last. They are kept in setting.ini, and so travel with the store; the
// place where Qt would keep them lies outside of it.
class LastColours {
public:
    static constexpr std::size_t kMost = 8;

    // Reads them from the store in the program's folder (host path); with an empty path there are none, and
    // they are not kept.
    explicit LastColours(const QString& appFolder);

    // The latest first.
    const std::vector<ColorRef>& Colours() const { return colours_; }

    // Each colour is kept once.
    void Add(ColorRef color);

    // Writes them if one has been added.
    FileResult Save();

private:
    QString appFolder_;
    std::vector<ColorRef> colours_;
    bool changed_ = false;
};

} // namespace paneda
