#pragma once

#include "notes/tree_node.h"
#include "platform/file_icons.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class frmTextNote;
} // namespace Ui

namespace paneda {

class Prompts;

// What the dialog of a note begins with, and what it asks others for.
struct TextNoteRequest {
    bool Edits = false;   // an existing note
    bool IsFirst = false; // the first one of its tree
    // For a new note without icon: IconSource is empty. For an existing one it is kKeepIcon.
    PendingNode Entered = {};
    QString Picture = {}; // host path of the icon that the note has; empty for none
    // The picture of notes without an icon of their own, this many device pixels wide and high.
    std::function<QImage(int side)> PlainIcon = {};
    // Lets the user choose an icon: a host path, kNoIcon, or kKeepIcon when the window was just closed.
    std::function<QString(QWidget*)> SelectIcon = {};
    // Asks for a link of this type, "File" or "URL". Nothing when the user closes the window.
    std::function<std::optional<PendingNode>(const PendingNode& note, const QString& type, QWidget*)>
        AskLink = {};
};

// The dialog for the name, the description and the icon of a note. From here a note becomes a shortcut or a
// favorite.
class frmTextNote : public QDialog {
    Q_OBJECT

public:
    frmTextNote(TextNoteRequest request, const AppState& state, FileIcons& icons, Prompts& prompts,
                QWidget* parent = nullptr);
    ~frmTextNote() override;

    // Fills the controls. Call it once, before the first show.
    void Form_Load();

    // What was entered, when the dialog was closed by OK.
    const std::optional<PendingNode>& Result() const { return result_; }

    void imgIcon_Click();
    void mnuNoteLink_Click(const QString& type); // "File", "URL"; empty clears the link
    void lblOK_Click();

private:
    PendingNode Typed() const;
    void ShowIcon(const QString& picture);
    void ShowLink();

    TextNoteRequest request_;
    const AppState& state_;
    FileIcons& icons_;
    Prompts& prompts_;
    std::unique_ptr<Ui::frmTextNote> ui_;
    std::optional<PendingNode> result_;
};

} // namespace paneda
