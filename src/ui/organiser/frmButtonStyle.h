#pragma once

#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "core/store/style_form.h"
#include "organiser/restyling.h"
#include "platform/downloader.h"
#include "platform/file_icons.h"
#include "ui/organiser/style_pictures.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <vector>

class QButtonGroup;
class QGridLayout;
class QToolButton;

namespace Ui {
class frmButtonStyle;
} // namespace Ui

namespace paneda {

struct ButtonStyleServices {
    paneda::Prompts& Prompts;
    paneda::FileIcons& FileIcons;
    paneda::Downloader& Downloader;
};

// Designs a button, with a live preview, and gives the look to it, to its group or to its category.
//
// The controls of an array are named by the array and an index: txtWidth0 to txtWidth10, txtHeight0 and 1,
// optIconAlignment0 to 8, optLabelAlignment0 to 8, optPosition0 to 2. The pictures of the templates are
// picTemplateSmallIcon and the like.
class frmButtonStyle : public QDialog {
    Q_OBJECT

public:
    // `button`: its file.
    frmButtonStyle(const AppState& state, const ButtonStyleServices& services, const DiskPath& button,
                   QWidget* parent = nullptr);
    ~frmButtonStyle() override;

    // Shows the button's style. Call it once, before the first show.
    void Form_Load();

    // Whether something on the disk may have changed.
    bool HasChanges() const { return changed_; }

    // Of the button's file, as it is called now.
    QString FileName() const { return button_.Name(); }

    // Shows a style code, and reads the one that is shown.
    void DecodeStyle(const QString& code);
    QString EncodeStyle() const { return styleText_; }

    void imgOK_Click();
    void cmdDeletePicture_Click();
    void cmdRefreshUrl_Click();

protected:
    bool event(QEvent* event) override;

private:
    void AddCells();
    void AddAlignments(QGridLayout& layout, const QString& array, const QString& what, QButtonGroup& group);
    void AddTemplates();
    void ConnectControls();
    void OrderTabs();
    void DisableWhatTheSkinDecides();
    void ShowForm();
    void ReadForm();
    void RefreshPreview();
    void RefreshTemplates();
    void ShowPictureCommand();
    void ChangePicture(const std::function<void()>& change);
    StyleScope Scope() const;
    QString Stem() const; // host path of the button without extension

    const AppState& state_;
    ButtonStyleServices services_;
    DiskPath button_;
    std::unique_ptr<Ui::frmButtonStyle> ui_;
    StylePictures pictures_;
    StyleForm form_;
    QString styleText_;
    bool loading_ = false; // controls are being set
    bool changed_ = false;
    std::vector<QToolButton*> txtWidth_;
    std::vector<QToolButton*> txtHeight_;
    QButtonGroup* optIconAlignment_ = nullptr;
    QButtonGroup* optLabelAlignment_ = nullptr;
    QButtonGroup* optPosition_ = nullptr;
    QButtonGroup* optFont_ = nullptr;
};

} // namespace paneda
