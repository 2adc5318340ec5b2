#pragma once

#include "notes/tree_node.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class frmURL;
} // namespace Ui

namespace paneda {

class Prompts;

// The dialog for the name, the address and the description of a favorite.
class frmURL : public QDialog {
    Q_OBJECT

public:
    // `entered`: what the boxes begin with. `edits`: an existing favorite.
    frmURL(PendingNode entered, bool edits, Prompts& prompts, QWidget* parent = nullptr);
    ~frmURL() override;

    // Fills the controls. Call it once, before the first show.
    void Form_Load();

    // What was entered, when the dialog was closed by OK. Its type is "URL".
    const std::optional<PendingNode>& Result() const { return result_; }

    void lblOK_Click();

private:
    PendingNode entered_;
    bool edits_;
    Prompts& prompts_;
    std::unique_ptr<Ui::frmURL> ui_;
    std::optional<PendingNode> result_;
};

} // namespace paneda
