#include "ui/organiser/organiser_dialogs.h"

#include "organiser/link_editing.h"
#include "organiser/organiser.h"
#include "skin/picture_files.h"
#include "ui/organiser/fetch_favicon.h"
#include "ui/organiser/frmButtonStyle.h"
#include "ui/organiser/frmGetText.h"
#include "ui/organiser/frmLink.h"

#include <QApplication>

namespace paneda {

namespace {

std::optional<LinkResult> AskNewLink(const QString& source, bool isFolder, const AppState& state,
                                     Prompts& prompts) {
    LinkRequest request;
    request.LinkSource = source;
    request.LinkType = isFolder ? QStringLiteral("Folder") : QString();
    frmLink dialog(std::move(request), state, prompts, QApplication::activeWindow());
    dialog.Form_Load();
    dialog.exec();
    return dialog.Result();
}

void EditSelectedLink(Organiser& organiser, const AppState& state, Prompts& prompts) {
    const StoreButton button = organiser.Buttons()[std::size_t(organiser.Selected(StoreLevel::Buttons))];
    LinkRequest request;
    request.LinkMode = 1;
    request.LinkFolder = organiser.GroupFolder().Text();
    request.LinkFileName = button.FileName;
    request.LinkName = button.Title;
    request.Accept = [&](const LinkResult& typed) { return EditLink(organiser, typed, prompts); };
    frmLink dialog(std::move(request), state, prompts, QApplication::activeWindow());
    dialog.Form_Load();
    dialog.exec();
}

} // namespace

OrganiserDialogs MakeOrganiserDialogs(const AppState& state, Prompts& prompts, FileIcons& icons,
                                      Downloader& downloader) {
    OrganiserDialogs dialogs;
    dialogs.AskText = [](const QString& title, const QString& prompt, const QString& text) {
        return AskText(QApplication::activeWindow(), title, prompt, text);
    };
    dialogs.NewLink = [&state, &prompts](const QString& source, bool isFolder) {
        return AskNewLink(source, isFolder, state, prompts);
    };
    dialogs.EditLink = [&state, &prompts](Organiser& organiser) {
        EditSelectedLink(organiser, state, prompts);
    };
    dialogs.EditStyle = [&state, &prompts, &icons, &downloader](const DiskPath& button) {
        frmButtonStyle dialog(state, {prompts, icons, downloader}, button, QApplication::activeWindow());
        dialog.Form_Load();
        dialog.exec();
        return dialog.HasChanges() ? dialog.FileName() : QString();
    };
    dialogs.FetchIcon = [&downloader](const DiskPath& webShortcut) {
        // A site without an icon is nothing to tell.
        (void)FetchFavicon(webShortcut.Text(), PictureStem(webShortcut.Text()) + QStringLiteral(".ico"),
                           FaviconKind::Shortcut, downloader, QApplication::activeWindow());
    };
    return dialogs;
}

} // namespace paneda
