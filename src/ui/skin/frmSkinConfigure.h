#pragma once

#include "core/prompts.h"
#include "skin/config_preview.h"
#include "skin/skin_config.h"

#include <QDialog>

#include <array>
#include <memory>
#include <vector>

class QLabel;
class QRadioButton;

namespace Ui {
class frmSkinConfigure;
} // namespace Ui

namespace paneda {

struct SkinConfigureServices {
    QString AppFolder; // host path
    paneda::Prompts& Prompts;
};

// Changes the fonts and colours of a skin, and what it decides for all buttons, with a preview. OK writes
// skin.ini; the caller then reloads the panel:
//
//     frmSkinConfigure window(skinName, services, this);
//     if (window.Form_Load() && window.exec() == QDialog::Accepted)
//         reloadPanel();
class frmSkinConfigure : public QDialog {
    Q_OBJECT

public:
    frmSkinConfigure(const QString& skinName, const SkinConfigureServices& services,
                     QWidget* parent = nullptr);
    ~frmSkinConfigure() override;

    // Shows the skin. False, after a notice that says why, for one that cannot be read. Call it once, before
    // the first show.
    bool Form_Load();

    void lblGroups_Click();
    void lblCategoriesActive_Click();
    void lblCategoriesInactive_Click();
    void lblLabel_Click();
    void cmdOK_Click();

protected:
    bool event(QEvent* event) override;

private:
    struct OverrideRow {
        OverrideChoice SkinConfig::*Field;
        std::array<QRadioButton*, 3> Options; // by OverrideChoice
    };

    std::array<OverrideRow, 3> Overrides() const;
    ThemeState Look() const;
    void AskFont(const QString& title, FontBlock& block);
    void ShowBlocks();
    void ShowBlock(const FontBlock& block, const std::vector<ColorRef>& colors, QLabel& swatch,
                   QLabel& words) const;
    void ReadOverrides();
    void RefreshPreview();

    QString skinName_;
    SkinConfigureServices services_;
    std::unique_ptr<Ui::frmSkinConfigure> ui_;
    IniText skin_;     // its skin.ini at the load
    ThemeState theme_; // of that
    SkinConfig config_;
    std::unique_ptr<ConfigPreview> preview_; // null until the skin has been read
};

} // namespace paneda
