#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace paneda {

// Why a skin cannot be used.
struct SkinError {
    QString Skin; // its name
    QString File; // host path of its skin.ini, or of the folder that is not there
    QString Key;  // of the section Buttons, missing or empty; empty when it is the file that fails
    QString Reason;

    // One line for the user.
    QString Text() const;
};

// Host folder of a skin, with a separator at its end: a folder directly below `skin` in the program's folder,
// both found in any case of letters. Fails when there is none, or when the name is no plain folder name.
tl::expected<QString, SkinError> FindSkinFolder(const QString& appFolder, const QString& skinName);

// A checksum of names, sizes and times of skin.ini and the skin's pictures, which changes when one of them
// does. `skinPath` is the host folder. Files in folders below it do not count. 0 for a folder without such
// files.
quint64 SkinStamp(const QString& skinPath);

// An error of a file or folder of the skin.
SkinError SkinFileError(const QString& skin, const QString& file, const QString& reason);

} // namespace paneda
