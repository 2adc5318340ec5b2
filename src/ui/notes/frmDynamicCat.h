#pragma once

#include "core/settings/app_state.h"
#include "notes/tree_manager.h"
#include "platform/opener.h"

#include <QColor>
#include <QDialog>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class frmDynamicCat;
} // namespace Ui

namespace paneda {

class Prompts;

struct TreeManagerServices {
    AppState& State;
    paneda::Prompts& Prompts;
    paneda::Opener& Opener;
    // See frmDynamicCatEdit.
    std::function<QColor(const QColor&, QWidget*)> ChooseColor = {};
    std::function<QString(const QString& title, const QString& folder, QWidget*)> ChooseFolder = {};
    // Closes the note window.
    std::function<void()> CloseNote = {};
    // Lets go of a tree that has been removed or changed, so that it is read again when it is shown.
    std::function<void(const QString& tree)> DropTree = {};
    // The category shows another tree: to be seen on its bar and beside the panel.
    std::function<void()> TreesBound = {};
};

// The list of all trees. A click on one gives it to the category that the list was opened for. It stays
// open until the user closes it, or the window that it belongs to is hidden.
class frmDynamicCat : public QDialog {
    Q_OBJECT

public:
    // `category`: its place in the state's catalogue. `parent`: the tree window or the panel.
    frmDynamicCat(TreeManagerServices services, int category, QWidget* parent);
    ~frmDynamicCat() override;

    // Fills the list. Call it once, before the first show.
    void Form_Load();

    void RefreshList();
    // Gives the category another tree.
    void RefreshTreeStru(const QString& tree);

    void lblManage_Click();
    void lblAdd_Click();
    void lblEdit_Click();
    void lblDelete_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class AtWork;

    QString Selected() const; // empty for none
    void Select(const QString& tree);
    void ShowLook();
    void TakeKeyboard();
    void ShowMenu(const QPoint& place);
    void EditTree(const QString& tree);
    // The name of the tree as entered; nothing when the dialog was cancelled.
    std::optional<QString> AskTree(const QString& tree);
    // The category's place in the catalogue, which may be read again meanwhile; -1 when it is gone.
    int Category() const;
    void Bind(const TreeBinding& binding);

    TreeManagerServices services_;
    QString category_; // name of its folder
    // How many of its operations are under way. Closing, which deletes it, waits for them.
    int atWork_ = 0;
    bool closesLater_ = false;
    std::unique_ptr<Ui::frmDynamicCat> ui_;
};

} // namespace paneda
