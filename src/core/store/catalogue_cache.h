#pragma once

#include "core/files/file_io.h"
#include "core/store/catalogue.h"
#include "core/text/twips.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace paneda {

// Sizes of a skin's pictures that the frame and the panel are laid out by, in twips. A picture that is
// missing or cannot be loaded is empty, but for the first two, which always have a height.
struct PieceSizes {
    TwipsSize Group;    // of a group's header
    TwipsSize Category; // of a category's bar
    TwipsSize Bottom;
    TwipsSize TopA;
    TwipsSize LeftA;
    TwipsSize RightA;
    TwipsSize TopLeft;
    TwipsSize TopRight;
    TwipsSize BottomLeft;
    TwipsSize BottomRight;

    // Pieces that a frame may lack.
    TwipsSize Top;
    TwipsSize Left;
    TwipsSize Right;
    bool HasTopB = false;
    bool HasBottomB = false;
    bool HasLeftB = false;
    bool HasRightB = false;

    friend bool operator==(const PieceSizes&, const PieceSizes&) = default;
};

// What the categories' pictures in the cache folder show. All empty when the panel had its built-in look,
// which keeps no pictures.
struct PictureRecord {
    QString Skin;      // name of the skin's folder
    quint64 Stamp = 0; // of the skin's files, as they were when the pictures were composed
    PieceSizes Sizes;
    TwipsSize Window; // twips

    friend bool operator==(const PictureRecord&, const PictureRecord&) = default;
};

// What a start needs in order to read neither the store's folders nor the skin's pictures.
struct CacheRecord {
    QString ProductVersion;
    CatalogueList Catalogue;
    PictureRecord Pictures;
    // The panel shows drive buttons. Their free space has changed since, so it is to be drawn again.
    bool HasDriveButtons = false;

    friend bool operator==(const CacheRecord&, const CacheRecord&) = default;
};

// File layout: numbers of 4 bytes, little endian; a text is the number of its UTF-8 bytes and these; a list
// is the number of its entries and these.
//   mark       8 bytes
//   version    text, of the product
//   checksum   8 bytes, Fnv1a64OfWords of what follows
//   skin       its name and stamp (8 bytes)
//   sizes      14 times width and height: 13 of the skin's pictures, the window
//   flags      5 times 0 or 1: 4 of the skin's pictures, drive buttons
//   categories list of: folder name, tree number or -1, tree name, list of groups
//   group      folder name, control index, checksum of its pictures' names (8 bytes), list of buttons
//   button     control index, 0 and file name or 1 and drive letter as a text
// The rest of a button is made from its file name, so that the file stays small and a store that moves keeps
// its cache.
QByteArray EncodeCache(const CacheRecord& record);

// No value for a cache of another version, for a damaged, short or foreign file, and for one with a number
// out of its range (core/text/ranges.h) or with too many entries: the store is then scanned. `appPath` is the
// program's folder in the stored form, from which the buttons' paths are made.
std::optional<CacheRecord> DecodeCache(const QByteArray& bytes, const QString& productVersion,
                                       const QString& appPath);

// Reads the cache file; no value if it is missing, empty or not valid.
std::optional<CacheRecord> LoadCache(const QString& path, const QString& productVersion,
                                     const QString& appPath);

FileResult SaveCache(const QString& path, const CacheRecord& record);

} // namespace paneda
