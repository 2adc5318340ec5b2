#pragma once

#include "core/settings/app_state.h"
#include "organiser/link_result.h"
#include "organiser/new_link.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class frmLink;
} // namespace Ui

namespace paneda {

class Prompts;

// What the shortcut dialog is opened for.
struct LinkRequest {
    // 0: a new shortcut to LinkSource. 1: the record LinkFileName in LinkFolder is edited. 2: a note of a
    // tree is to become a shortcut. 3: a shortcut of a tree is edited. 4: as 0, for a tree.
    int LinkMode = 0;
    QString LinkSource = {}; // stored form; a folder ends with a backslash
    QString LinkType = {};   // "Folder" when the shortcut is to open the folder
    QString LinkFolder = {}; // host path; mode 1
    QString LinkFileName = {};
    QString LinkName = {};        // modes 1 to 3
    QString LinkDescription = {}; // modes 2 and 3
    QString LinkTarget = {};      // modes 2 and 3, as it was typed
    // Modes 2 and 3; without a value the box stays as it is designed.
    std::optional<QString> LinkParameter = {};
    std::optional<QString> LinkStartIn = {};
    std::optional<QString> LinkWindowState = {};
    // Takes what was typed when the user presses OK. The dialog stays open when it returns false. An empty
    // one takes everything.
    std::function<bool(const LinkResult& typed)> Accept = {};
};

// The dialog for the fields of a shortcut. It shows the target in three forms, of which two work on a drive
// that changes its letter.
class frmLink : public QDialog {
    Q_OBJECT

public:
    frmLink(LinkRequest request, const AppState& state, Prompts& prompts, QWidget* parent = nullptr);
    ~frmLink() override;

    // Fills the controls. Call it once, before the first show.
    void Form_Load();

    // Leaves name, target and description alone.
    void CompactLayout();

    // What was typed, when the dialog was closed by OK in another mode than 1.
    const std::optional<LinkResult>& Result() const { return linkResult_; }

    void chkFolder_Click();
    void lblSelect_Click();
    void txtTarget_Change();
    void lblOK_Click();

private:
    void AlignBoxes();
    LinkResult Typed() const;
    void Show(const LinkResult& link);

    LinkRequest request_;
    const AppState& state_;
    Prompts& prompts_;
    LinkPlace place_;
    std::unique_ptr<Ui::frmLink> ui_;
    QString linkPath_; // the target as it was last chosen, stored form
    std::optional<LinkResult> linkResult_;
};

} // namespace paneda
