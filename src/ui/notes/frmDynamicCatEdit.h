#pragma once

#include "core/settings/app_state.h"
#include "notes/tree_manager.h"
#include "platform/opener.h"

#include <QColor>
#include <QDialog>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class QToolButton;

namespace Ui {
class frmDynamicCatEdit;
} // namespace Ui

namespace paneda {

class Prompts;

struct TreeEditServices {
    const AppState& State;
    paneda::Prompts& Prompts;
    paneda::Opener& Opener;
    // Asks for a colour, beginning with this one; an invalid one when the user chose none.
    std::function<QColor(const QColor&, QWidget*)> ChooseColor;
    // Asks for a folder, beginning with this one (host paths); empty when the user chose none.
    std::function<QString(const QString& title, const QString& folder, QWidget*)> ChooseFolder;
};

// The dialog that makes a tree, or changes one.
class frmDynamicCatEdit : public QDialog {
    Q_OBJECT

public:
    // `tree`: the one to be changed; empty to make one.
    frmDynamicCatEdit(TreeEditServices services, const QString& tree, QWidget* parent = nullptr);
    ~frmDynamicCatEdit() override;

    // Fills the controls. Call it once, before the first show.
    void Form_Load();

    // The name of the tree, when it was made or changed.
    const std::optional<QString>& Result() const { return result_; }

    void chkAuto_Click();
    void txtName_Change();
    // False when the name was refused, the user being told why.
    bool txtName_Validate();
    void txtTarget_Change();
    void lblSelect_Click();
    void lblBrowse_Click();
    void lblOK_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ChooseColor(QRgb& color);
    void ShowColors();
    void ShowActualPath();

    TreeEditServices services_;
    QString tree_;
    QStringList trees_; // all, as they were when the dialog was opened
    TreeForm form_;     // colours; name and path are in their boxes
    QString actualPath_;
    std::unique_ptr<Ui::frmDynamicCatEdit> ui_;
    std::optional<QString> result_;
};

} // namespace paneda
