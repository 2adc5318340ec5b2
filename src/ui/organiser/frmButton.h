#pragma once

#include "core/panel/window_places.h"
#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "organiser/organiser.h"
#include "platform/file_icons.h"
#include "platform/opener.h"
#include "ui/organiser/organiser_dialogs.h"
#include "ui/organiser/source_list.h"

#include <QDialog>
#include <QTimer>

#include <array>
#include <functional>
#include <memory>

class QAbstractButton;

namespace Ui {
class frmButton;
} // namespace Ui

namespace paneda {

class StoreList;

// The services that the organiser uses. A service has the name of its type.
struct OrganiserServices {
    paneda::Prompts& Prompts;
    paneda::Opener& Opener;
    paneda::FileIcons& FileIcons;
    // Replaces the panel by one that is made from the store. Returns when the new panel is shown.
    std::function<void()> ReloadPanel;
    // Rectangle of the panel and its screen, as they are now.
    std::function<PlaceScene()> Scene;
    std::function<void()> OpenHelp;
    SourceServices Sources;
    OrganiserDialogs Dialogs;
};

// The organiser: lists of categories, groups and buttons with their commands, and beside them the sources of
// new buttons. Every command changes the disk at once; the panel follows when the changes are applied, or
// when the window is closed.
class frmButton : public QDialog {
    Q_OBJECT

public:
    frmButton(AppState& state, OrganiserServices services, QWidget* parent = nullptr);
    ~frmButton() override;

    // Reads the store and places the dialog. Call it once, before the first show.
    void Form_Load();

    void cmdCategoryAdd_Click();
    void cmdApply_Click();
    void cmdSave_Click() { done(Accepted); }
    void cmdOrganiseButton_Click();
    void cmdHow_Click();
    void cmdLink_Click();
    void cmdButtonStyle_Click();
    void cmdButtonAdd_Click();

    // Ends the dialog; changes that have not been applied are applied.
    void done(int result) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    // A list with its commands.
    struct Column {
        StoreLevel Level;
        StoreList* List;
        QAbstractButton* Add;
        QAbstractButton* Delete;
        QAbstractButton* Rename; // of buttons: none
        QAbstractButton* Up;
        QAbstractButton* Down;
        QAbstractButton* Sort;
    };

    void TabThroughSources();
    void ConnectColumn(const Column& column);
    void AddKeys(const Column& column);
    void DrawSigns();
    void ShowLists();
    void EnableCommands();
    void ShowPreview();
    void ShowIcon(QImage icon, const QString& title);
    void AddTo(StoreLevel level);
    void AddNamed(StoreLevel level, const QString& name);
    void DeleteFrom(StoreLevel level);
    void RenameIn(StoreLevel level);
    void MoveIn(StoreLevel level, int to);
    void SortIn(StoreLevel level);
    void EditIn(StoreLevel level);
    void Select(StoreLevel level, int index);
    QStringList NamesFor(StoreLevel level) const;
    void AddSources(AddRequest request);
    void AddDropped(const QStringList& hostPaths);
    FileResult Take(const AddStep& step, const QString& file);
    FileResult AddButton(const NewButton& button);
    void Run(const std::function<FileResult()>& operation);
    void KeepPanelCategory();

    AppState& state_;
    OrganiserServices services_;
    std::unique_ptr<Ui::frmButton> ui_;
    std::array<Column, 3> columns_{};
    bool isBusy_ = false; // with the disk, on another thread, or with a list of new buttons
    bool explorerMode_ = false;
    DiskWork work_; // shows that it works, and lets nothing else begin meanwhile
    std::unique_ptr<Organiser> organiser_;
    SourceList* source_;
    QTimer preview_;
    int previewNumber_ = 0; // of the last selection; what was read for an older one is dropped
};

} // namespace paneda
