#pragma once

#include "core/panel/shell_link.h"
#include "platform/opener.h"

#include <QString>

namespace paneda {

// A longer chain of shortcuts is taken for a circle.
inline constexpr int kMaxShortcutsInARow = 8;

// The target of a Windows shortcut file on this host.
struct ShortcutTarget {
    QString Path; // host path of something that exists, perhaps another shortcut
    ShellLink Link;
};

// The first of these that exists here: the target's path by the drive map, its path with environment
// variables replaced, its network path, its path relative to the shortcut's folder. The reason of a failure
// names the target and says what the user can do.
tl::expected<ShortcutTarget, FileError> ResolveShortcut(const QString& file, const LaunchPaths& paths);

// The host path of an absolute Windows path; empty if nothing exists there, and for any other text.
QString FindAbsolute(const QString& windowsPath, const LaunchPaths& paths);

// The request itself, or, if its target is a shortcut, a request for the shortcut's target. The shortcut's
// arguments come before the request's, its working folder replaces the request's, and its show state is used
// if the request has none.
tl::expected<LaunchRequest, FileError> FollowShortcuts(LaunchRequest request, const LaunchPaths& paths);

} // namespace paneda
