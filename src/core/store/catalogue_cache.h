#pragma once

#include "core/files/file_io.h"
#include "core/store/catalogue.h"
#include "core/text/twips.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace paneda {

// What a start needs in order to read neither the store's folders nor the skin's pictures.
struct CacheRecord {
    QString ProductVersion;
    CatalogueList Catalogue;
    // Sizes of the skin's pictures.
    TwipsSize GroupHeight;
    TwipsSize CategoryWallpaper;
    TwipsSize Bottom;
    TwipsSize Top;
    TwipsSize Left;
    TwipsSize Right;
    TwipsSize TopLeft;
    TwipsSize TopRight;
    TwipsSize BottomLeft;
    TwipsSize BottomRight;
    // The panel shows drive buttons. Their free space has changed since, so it is to be drawn again.
    bool HasDriveButtons = false;

    friend bool operator==(const CacheRecord&, const CacheRecord&) = default;
};

// File layout: numbers of 4 bytes, little endian; a text is the number of its UTF-16 units and these; a list
// is the number of its entries and these.
//   mark       8 bytes
//   version    text, of the product
//   checksum   8 bytes, Fnv1a64OfWords of what follows
//   sizes      ten times width and height
//   flag       0 or 1, drive buttons
//   categories list of: folder name, tree number or -1, tree name, list of groups
//   group      folder name, control index, list of buttons
//   button     control index, 0 and file name or 1 and drive letter as a text
// The rest of a button is made from its file name, so that the file stays small and a store that moves keeps
// its cache.
QByteArray EncodeCache(const CacheRecord& record);

// No value for a cache of another version, and for a damaged, short or foreign file. `appPath` is the
// program's folder in the stored form, from which the buttons' paths are made.
std::optional<CacheRecord> DecodeCache(const QByteArray& bytes, const QString& productVersion,
                                       const QString& appPath);

// Reads the cache file; no value if it is missing, empty or not valid.
std::optional<CacheRecord> LoadCache(const QString& path, const QString& productVersion,
                                     const QString& appPath);

FileResult SaveCache(const QString& path, const CacheRecord& record);

} // namespace paneda
