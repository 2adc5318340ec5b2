#pragma once

#include <QStringView>

namespace paneda {

// Keys of a note's Properties.ini that loading and saving a note deal with.
namespace note_key {
inline constexpr QStringView kSection = u"Properties";
inline constexpr QStringView kEditing = u"Editing";
inline constexpr QStringView kLastEditUser = u"Last Edit User";
inline constexpr QStringView kLastEditDate = u"Last Edit Date";
inline constexpr QStringView kLastEditTime = u"Last Edit Time";
inline constexpr QStringView kLastAllLevelEditTime = u"Last All Level Edit Time";
inline constexpr QStringView kWidth = u"Width";
inline constexpr QStringView kHeight = u"Height";
} // namespace note_key

} // namespace paneda
