#pragma once

#include "core/panel/shell_link.h"
#include "platform/opener.h"

#include <QString>

namespace paneda {

// More shortcuts that lead from one to the next are taken for a circle.
inline constexpr int kMaxShortcutsInARow = 8;

// What a Windows shortcut file leads to on this host.
struct ShortcutTarget {
    QString Path; // host path of what is there; it may be a shortcut again
    ShellLink Link;
};

// Takes the first form of the target that exists here: its path by the drive map, one without environment
// variables, its network path, its path from the shortcut's own folder. The reason of a failure names the
// target and says what the user can do.
tl::expected<ShortcutTarget, FileError> ResolveShortcut(const QString& file, const LaunchPaths& paths);

// The host path of an absolute Windows path; empty when nothing is there, and for any other text.
QString FindAbsolute(const QString& windowsPath, const LaunchPaths& paths);

// The request itself, or, where its target is a shortcut, what that stands for. The shortcut's arguments come
// first, its working folder goes before the request's, and its show state counts where the request has none.
tl::expected<LaunchRequest, FileError> FollowShortcuts(LaunchRequest request, const LaunchPaths& paths);

} // namespace paneda
