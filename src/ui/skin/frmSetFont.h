#pragma once

#include "skin/font_values.h"
#include "ui/skin/last_colours.h"

#include <QDialog>

#include <memory>
#include <optional>
#include <vector>

class QButtonGroup;
class QListWidget;

namespace Ui {
class frmSetFont;
} // namespace Ui

namespace paneda {

// What the text that gets the font cannot have. Its controls are switched off, with the reason as their tool
// tip; an empty reason leaves them on.
struct FontDialogLimits {
    QString NoEffects; // italic, underline, strikethrough
    QString NoSize;    // size and bold
    QString NoAlignment;
};

// Lets the user choose a font, its style, alignment and colours, with a sample of them. For texts of skins
// and of notes.
//
// The options of the array optAlignment are named optAlignment0 to optAlignment8.
class frmSetFont : public QDialog {
    Q_OBJECT

public:
    // The window's title is `title` and " Font". Of a text without border there is no colour for one to
    // choose. The store in `appFolder` (host path) keeps the colours chosen last.
    frmSetFont(const QString& title, const FontDialogValues& values, const FontDialogLimits& limits,
               const QString& appFolder, QWidget* parent = nullptr);
    ~frmSetFont() override;

    // Shows the values. A font that is not installed is named, and Tahoma taken for it. Call it once, before
    // the first show.
    void Form_Load();

    // The values at OK; nothing when the dialog was cancelled.
    const std::optional<FontDialogValues>& Chosen() const { return chosen_; }

    void List1_Click();
    void List2_Click();
    void Text1_Change();
    void Command1_Click();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddAlignments();
    void ConnectControls();
    void SwitchOff(const QString& reason, const std::vector<QWidget*>& controls);
    void ShowValues();
    void FillSizes();
    void SelectTypedSize();
    void ShowFontNote();
    void ReadControls();
    void RefreshFontSample();

    FontDialogValues values_;
    std::optional<FontDialogValues> chosen_;
    FontChoice fonts_;
    LastColours last_;
    QString missing_; // the font that was asked for and is not installed
    bool loading_ = false;
    std::unique_ptr<Ui::frmSetFont> ui_;
    QButtonGroup* optAlignment_ = nullptr;
};

} // namespace paneda
