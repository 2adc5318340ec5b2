#pragma once

#include "core/catalogue.h"
#include "core/file_io.h"
#include "core/twips.h"

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
    // The panel shows drive buttons, whose free space has to be drawn anew.
    bool HasDriveButtons = false;

    friend bool operator==(const CacheRecord&, const CacheRecord&) = default;
};

// File layout, big endian (QDataStream of Qt 6.0):
//   u64   mark
//   text  product version
//   u32   FNV-1a checksum of what follows
//   data  the sizes, the flag, the categories with their groups and buttons
// Of a button's path the file name alone is stored, so that a store that moves keeps its cache.
QByteArray EncodeCache(const CacheRecord& record);

// Nothing for another version, a damaged, short or foreign file. `appPath` is the program's folder in the
// stored form, from which paths are formed anew.
std::optional<CacheRecord> DecodeCache(const QByteArray& bytes, const QString& productVersion,
                                       const QString& appPath);

// Reads the cache file; nothing if it is missing, empty or not valid.
std::optional<CacheRecord> LoadCache(const QString& path, const QString& productVersion,
                                     const QString& appPath);

FileResult SaveCache(const QString& path, const CacheRecord& record);

} // namespace paneda
