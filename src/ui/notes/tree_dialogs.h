#pragma once

#include "core/settings/app_state.h"
#include "platform/downloader.h"
#include "platform/file_icons.h"
#include "platform/opener.h"
#include "ui/notes/node_dialogs.h"

#include <QImage>

#include <functional>

namespace paneda {

class Prompts;

struct TreeDialogServices {
    const AppState& State;
    paneda::Prompts& Prompts;
    paneda::FileIcons& FileIcons;
    paneda::Opener& Opener;
    paneda::Downloader& Downloader;
    // The picture of notes without an icon of their own, this many pixels wide and high. Empty: none.
    std::function<QImage(int side)> PlainNoteIcon = {};
    // Shows the list of trees for the category that is opened.
    std::function<void(QWidget& window, const QPoint& mouse)> ShowTreeList = {};
};

// The dialogs of notes, shortcuts and favorites, in front of the tree window and beside the mouse.
class TreeDialogs : public NodeDialogs {
public:
    explicit TreeDialogs(TreeDialogServices services) : services_(std::move(services)) {}

    std::optional<PendingNode> Ask(const NodeQuestion& question) override;
    void ShowTreeList(QWidget& window, const QPoint& mouse) override;
    void FetchFavicon(QWidget& window, const QString& address, const DiskPath& file) override;

private:
    struct Begin;

    std::optional<PendingNode> AskNote(const NodeQuestion& question, const Begin& begin);
    std::optional<PendingNode> AskShortcut(const NodeQuestion& question, const Begin& begin);
    std::optional<PendingNode> AskFavorite(const NodeQuestion& question, const Begin& begin);
    std::optional<PendingNode> AskNoteLink(const PendingNode& note, const QString& type, QWidget* parent);
    QString SelectIcon(QWidget* parent);

    TreeDialogServices services_;
};

} // namespace paneda
