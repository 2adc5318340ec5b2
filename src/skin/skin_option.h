#pragma once

#include "core/disk/disk_path.h"

#include <QString>

#include <tl/expected.hpp>

namespace paneda {

// Of an error: why an option was not applied, for the user. The skin is then as it was.
using OptionResult = tl::expected<void, QString>;

// What the files of an option may ask for in all. Those that come with the program have up to 60 files.
inline constexpr int kMostOptionFiles = 1000;
inline constexpr qint64 kMaxOptionBytes = qint64(64) * 1024 * 1024;

// Changes a skin's folder as one of its options says, see option_plan.h; or changes nothing.
//
// Before that each file that is changed or removed is kept in the folder "[HIDDEN] Original" of the skin,
// with a "DELETE ..." file for each one that is added. What that folder has of a file stays, so that it keeps
// the state before the first of several options. It is an option itself.
//
// Nothing is followed or touched that is a link, and nothing outside of the skin's folder. Fails for an
// option that would leave a skin that cannot be used.
OptionResult ApplyOption(const QString& appFolder, const QString& skinName, const QString& option);

// Whether a skin has originals.
bool HasOriginal(const DiskPath& skin);

// Puts the originals back, and removes their folder. Fails, as ApplyOption does, where that would leave a
// skin that cannot be used.
OptionResult RestoreOriginal(const QString& appFolder, const QString& skinName);

} // namespace paneda
