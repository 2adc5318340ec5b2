#pragma once

#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "ui/organiser/icon_thumbnails.h"

#include <QColor>
#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmIconSelect;
} // namespace Ui

namespace paneda {

class IconPaper;
class Opener;

struct IconSelectServices {
    paneda::Prompts& Prompts;
    paneda::Opener& Opener;
    // Asks for a colour, beginning with this one; an invalid one when the user chose none.
    std::function<QColor(const QColor&, QWidget*)> ChooseColor;
};

// Lets the user choose a picture of the icon library, a theme for each of its folders.
class frmIconSelect : public QDialog {
    Q_OBJECT

public:
    // `iconResult`: what comes back when the window is just closed.
    frmIconSelect(const AppState& state, IconSelectServices services, const QString& iconResult,
                  QWidget* parent = nullptr);
    ~frmIconSelect() override;

    // Fills the window. Call it once, before the first show.
    void Form_Load();

    // The host path of the chosen picture, kNoIcon, or what was given.
    const QString& IconResult() const { return iconResult_; }

    void lstIcon_Click();
    void imgIcon_Click(int index);
    void cmdOpenFolder_Click();
    void cmdSelectNone_Click();

private:
    QString Folder() const; // name of the selected one; empty for none
    void SetColor(const QColor& color);
    void ChooseColor();
    void FitScrollBar();

    const AppState& state_;
    IconSelectServices services_;
    std::unique_ptr<Ui::frmIconSelect> ui_;
    IconPaper* picPaper_ = nullptr;
    IconThumbnails thumbnails_;
    QString iconResult_;
    QString iconBase_;
    QStringList iconFiles_; // of the sheet
    QColor color_;
};

// In place of a path: the user wants no icon.
inline const QString kNoIcon = QStringLiteral("Select None");

} // namespace paneda
