#pragma once

#include "core/panel/window_places.h"
#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "platform/opener.h"
#include "ui/skin/skin_preview.h"

#include <QDialog>
#include <QDropEvent>

#include <functional>
#include <memory>

namespace Ui {
class frmSkin;
} // namespace Ui

namespace paneda {

// The services that the skin chooser uses. A service has the name of its type.
struct SkinServices {
    paneda::Prompts& Prompts;
    paneda::Opener& Opener;
    // Replaces the panel by one in the skin that `config` names. Returns when the new panel is shown.
    std::function<void()> ReloadPanel;
    // Rectangle of the panel and its screen, as they are now.
    std::function<PlaceScene()> Scene;
    // Opens a web address; `name` is what the user has pressed.
    std::function<void(const QString& url, const QString& name)> OpenUrl;
    // Lets the user edit the fonts and colours of a skin, in front of `parent`. True when its skin.ini has
    // changed. Without it the command is not shown.
    std::function<bool(const QString& skinName, QWidget* parent)> Configure = {};
};

// The skin chooser: the skins in the folder `skin` with their screenshots and options.
class frmSkin : public QDialog {
    Q_OBJECT

public:
    frmSkin(AppState& state, SkinServices services, QWidget* parent = nullptr);
    ~frmSkin() override;

    // Lists the skins and places the window. Call it once, before the first show.
    void Form_Load();

    void lstSkin_Click();
    void lstSkin_DblClick();
    void lstOption_Click();
    void imgAutoChange_Click();
    void imgOption_Click();
    void imgConfigure_Click();
    void imgFolder_Click();
    void imgReadme_Click();
    void cmdRestore_Click();
    void cmdInstall_Click();

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override { TakeCopy(*event); }
    void dragMoveEvent(QDragMoveEvent* event) override { TakeCopy(*event); }
    void dropEvent(QDropEvent* event) override;

private:
    QString Skin() const;   // name of the selected one; empty for none
    QString Option() const; // likewise
    bool Work(const std::function<void()>& work);
    void ListAll(const QString& selected);
    void Install(const QString& path);
    static void TakeCopy(QDropEvent& event);
    void ShowPreview();
    void ShowFacts(const SkinFacts& facts);
    void EnableCommands();
    void MarkUsed();
    void ChangeSkin();
    void ApplySkinOption();
    void Reload();
    void OpenPath(const QString& hostPath, const QString& name);
    void Dress();

    AppState& state_;
    SkinServices services_;
    std::unique_ptr<Ui::frmSkin> ui_;
    SkinPreview preview_;
    bool isBusy_ = false; // with the disk, on another thread
};

} // namespace paneda
