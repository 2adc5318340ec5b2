#pragma once

#include "core/disk/disk_path.h"
#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "organiser/link_result.h"
#include "platform/downloader.h"
#include "platform/file_icons.h"

#include <QString>

#include <functional>
#include <optional>

namespace paneda {

class Organiser;

// The windows that the organiser opens in front of itself. Each returns when it is closed. What is empty is
// shown disabled, or left out.
struct OrganiserDialogs {
    // Asks for a text (frmGetText); gives `text` back when the user closes the window.
    std::function<QString(const QString& title, const QString& prompt, const QString& text)> AskText = {};

    // Asks for the fields of a new record (frmLink) that points to `source` (stored form). Nothing when the
    // user closes the window.
    std::function<std::optional<LinkResult>(const QString& source, bool isFolder)> NewLink = {};

    // Lets the user change the selected button, a record (frmLink).
    std::function<void(Organiser& organiser)> EditLink = {};

    // Lets the user design a button (frmButtonStyle), its group or its category, by host paths. The name that
    // the button's file has now; empty when nothing on the disk can have changed.
    std::function<QString(const DiskPath& button)> EditStyle = {};

    // Fetches the icon of the site that a web shortcut leads to, and keeps it beside the file.
    std::function<void(const DiskPath& webShortcut)> FetchIcon = {};
};

// The real ones, in front of the active window.
OrganiserDialogs MakeOrganiserDialogs(const AppState& state, Prompts& prompts, FileIcons& icons,
                                      Downloader& downloader);

} // namespace paneda
