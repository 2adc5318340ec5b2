#include "ui/notes/tree_dialogs.h"

#include "core/prompts.h"
#include "core/store/names.h"
#include "notes/node_icon.h"
#include "notes/node_properties.h"
#include "ui/common/busy_work.h"
#include "ui/common/place_beside.h"
#include "ui/notes/frmTextNote.h"
#include "ui/notes/frmURL.h"
#include "ui/organiser/fetch_favicon.h"
#include "ui/organiser/frmIconSelect.h"
#include "ui/organiser/frmLink.h"

#include <QApplication>
#include <QColorDialog>

namespace paneda {

namespace {

PendingNode FromLink(const LinkResult& link, NodePosition position) {
    return {link.Name,        {},        position,
            link.Description, kFileNode, {link.Target, link.Parameter, link.StartIn, link.WindowState}};
}

std::optional<QString> IfAny(const QString& text) {
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

bool IsAccepted(const PendingNode& entered, Prompts& prompts) {
    const QString problem = EntryProblem(entered);
    if (!problem.isEmpty())
        prompts.Notice(problem);
    return problem.isEmpty();
}

template <class Dialog>
void Run(Dialog& dialog, const QPoint& mouse) {
    dialog.Form_Load();
    PlaceAtPoint(dialog, mouse);
    dialog.exec();
}

} // namespace

// What a dialog begins with.
struct TreeDialogs::Begin {
    std::optional<TreeNode> Node; // the edited one
    NodeLink Link;                // as it was typed
    QString Picture;              // host path of the node's own icon
};

std::optional<PendingNode> TreeDialogs::Ask(const NodeQuestion& question) {
    Begin begin;
    if (question.Node) {
        // A copy, since the tree may change while the disk is read.
        begin.Node = *question.Node;
        WorkShownBy (*question.Window)([&] {
            begin.Link = ReadTypedLink(ReadNodeIni(question.NodeFolder));
            begin.Picture = FindNodeIcon(question.NodeFolder);
        });
    }
    const QString type = begin.Node ? begin.Node->Type : question.Type;
    if (type == kFileNode)
        return AskShortcut(question, begin);
    return type == kUrlNode ? AskFavorite(question, begin) : AskNote(question, begin);
}

std::optional<PendingNode> TreeDialogs::AskNote(const NodeQuestion& question, const Begin& begin) {
    TextNoteRequest request;
    request.Edits = begin.Node.has_value();
    request.IsFirst = question.IsFirst;
    request.Entered.Position = question.Position;
    if (begin.Node) {
        request.Entered.Name = begin.Node->Name;
        request.Entered.Description = begin.Node->Description;
        request.Entered.IconSource = kKeepIcon;
        request.Picture = begin.Picture;
    }
    request.PlainIcon = services_.PlainNoteIcon;
    request.SelectIcon = [this](QWidget* parent) { return SelectIcon(parent); };
    request.AskLink = [this](const PendingNode& note, const QString& type, QWidget* parent) {
        return AskNoteLink(note, type, parent);
    };
    frmTextNote dialog(std::move(request), services_.State, services_.FileIcons, services_.Prompts,
                       question.Window);
    Run(dialog, question.Mouse);
    return dialog.Result();
}

std::optional<PendingNode> TreeDialogs::AskShortcut(const NodeQuestion& question, const Begin& begin) {
    LinkRequest request;
    request.LinkMode = begin.Node ? 3 : 4;
    if (begin.Node) {
        request.LinkName = begin.Node->Name;
        request.LinkDescription = begin.Node->Description;
        request.LinkTarget = begin.Link.Target;
        request.LinkParameter = IfAny(begin.Link.Parameter);
        request.LinkStartIn = IfAny(begin.Link.StartIn);
        request.LinkWindowState = IfAny(begin.Link.WindowState);
    }
    request.Accept = [&](const LinkResult& typed) {
        return IsAccepted(FromLink(typed, question.Position), services_.Prompts);
    };
    frmLink dialog(std::move(request), services_.State, services_.Prompts, question.Window);
    Run(dialog, question.Mouse);
    const auto& link = dialog.Result();
    return link ? std::optional(FromLink(*link, question.Position)) : std::nullopt;
}

std::optional<PendingNode> TreeDialogs::AskFavorite(const NodeQuestion& question, const Begin& begin) {
    PendingNode entered;
    entered.Position = question.Position;
    if (begin.Node) {
        entered.Name = begin.Node->Name;
        entered.Description = begin.Node->Description;
        entered.LinkData = begin.Link;
    }
    frmURL dialog(entered, begin.Node.has_value(), services_.Prompts, question.Window);
    Run(dialog, question.Mouse);
    auto result = dialog.Result();
    // The icon is fetched again only where it may be another one: the network is slow.
    if (result && begin.Node && !begin.Picture.isEmpty() && result->LinkData.Target == begin.Link.Target)
        result->IconSource = kKeepIcon;
    return result;
}

// The dialogs of a note's link begin with what the note's dialog shows.
std::optional<PendingNode> TreeDialogs::AskNoteLink(const PendingNode& note, const QString& type,
                                                    QWidget* parent) {
    const NodeLink link = note.Type == type ? note.LinkData : NodeLink();
    if (type == kUrlNode) {
        PendingNode entered = note;
        entered.LinkData = link;
        frmURL dialog(entered, false, services_.Prompts, parent);
        dialog.Form_Load();
        dialog.exec();
        return dialog.Result();
    }
    LinkRequest request;
    request.LinkMode = 2;
    request.LinkName = note.Name;
    request.LinkDescription = note.Description;
    request.LinkTarget = link.Target;
    request.LinkParameter = IfAny(link.Parameter);
    request.LinkStartIn = IfAny(link.StartIn);
    request.LinkWindowState = IfAny(link.WindowState);
    request.Accept = [&](const LinkResult& typed) {
        return !ValidateName(typed.Name + QStringLiteral(".pnd"), {}, kNoException, services_.Prompts) &&
               IsAccepted(FromLink(typed, note.Position), services_.Prompts);
    };
    frmLink dialog(std::move(request), services_.State, services_.Prompts, parent);
    dialog.Form_Load();
    dialog.exec();
    const auto& result = dialog.Result();
    return result ? std::optional(FromLink(*result, note.Position)) : std::nullopt;
}

QString TreeDialogs::SelectIcon(QWidget* parent) {
    const auto chooseColor = [](const QColor& color, QWidget* window) {
        return QColorDialog::getColor(color, window);
    };
    frmIconSelect dialog(services_.State, {services_.Prompts, services_.Opener, chooseColor}, kKeepIcon,
                         parent);
    dialog.Form_Load();
    dialog.exec();
    return dialog.IconResult();
}

void TreeDialogs::ShowTreeList(QWidget& window, const QPoint& mouse) {
    if (services_.ShowTreeList)
        services_.ShowTreeList(window, mouse);
}

void TreeDialogs::FetchFavicon(QWidget& window, const QString& address, const DiskPath& file) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // A site without an icon is nothing to tell.
    (void)paneda::FetchFavicon(address, file, FaviconKind::Address, services_.Downloader, &window);
    QApplication::restoreOverrideCursor();
}

} // namespace paneda
