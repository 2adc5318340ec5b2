#include "ui/skin/frmSkinConfigure.h"

#include "core/text/device_pixels.h"
#include "skin/skin_file.h"
#include "ui/common/busy_work.h"
#include "ui/common/tool_tip.h"
#include "ui/skin/colour_button.h"
#include "ui/skin/frmSetFont.h"
#include "ui_frmSkinConfigure.h"

namespace paneda {

namespace {

constexpr QSize kSwatch(28, 14);

FontDialogLimits LimitsOf(bool isLabel) {
    FontDialogLimits limits;
    limits.NoEffects = QStringLiteral("The texts of a panel are upright and have no lines");
    if (isLabel) {
        limits.NoSize = QStringLiteral("The style of each button decides this");
        limits.NoAlignment = limits.NoSize;
    }
    return limits;
}

} // namespace

frmSkinConfigure::frmSkinConfigure(const QString& skinName, const SkinConfigureServices& services,
                                   QWidget* parent)
    : QDialog(parent)
    , skinName_(skinName)
    , services_(services)
    , ui_(std::make_unique<Ui::frmSkinConfigure>()) {
    ui_->setupUi(this);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    connect(ui_->lblGroups, &QPushButton::clicked, this, &frmSkinConfigure::lblGroups_Click);
    connect(ui_->lblCategoriesActive, &QPushButton::clicked, this,
            &frmSkinConfigure::lblCategoriesActive_Click);
    connect(ui_->lblCategoriesInactive, &QPushButton::clicked, this,
            &frmSkinConfigure::lblCategoriesInactive_Click);
    connect(ui_->lblLabel, &QPushButton::clicked, this, &frmSkinConfigure::lblLabel_Click);
    for (const OverrideRow& row : Overrides()) {
        for (const QRadioButton* option : row.Options)
            connect(option, &QRadioButton::clicked, this, &frmSkinConfigure::ReadOverrides);
    }
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmSkinConfigure::cmdOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmSkinConfigure::~frmSkinConfigure() = default;

std::array<frmSkinConfigure::OverrideRow, 3> frmSkinConfigure::Overrides() const {
    return {
        {{&SkinConfig::ButtonBack, {ui_->optBackgroundCustom, ui_->optBackgroundYes, ui_->optBackgroundNo}},
         {&SkinConfig::LabelBold, {ui_->optBoldCustom, ui_->optBoldYes, ui_->optBoldNo}},
         {&SkinConfig::LabelBorder, {ui_->optBorderCustom, ui_->optBorderYes, ui_->optBorderNo}}}};
}

bool frmSkinConfigure::Form_Load() {
    tl::expected<ThemeState, SkinError> theme;
    tl::expected<IniText, FileError> skin;
    WorkShownBy (*this)([&] {
        theme = ReadSkin(services_.AppFolder, skinName_);
        if (theme)
            skin = LoadSkinIni(theme->SkinPath);
    });
    if (!theme) {
        services_.Prompts.Notice(theme.error().Text());
        return false;
    }
    if (!skin) {
        services_.Prompts.Notice(skin.error().Text());
        return false;
    }
    theme_ = *theme;
    skin_ = std::move(*skin);
    config_ = ReadSkinConfig(skin_);
    preview_ = std::make_unique<ConfigPreview>(theme_);
    const int frame = 2 * ui_->picPreview->frameWidth();
    ui_->picPreview->setFixedSize(preview_->Size() + QSize(frame, frame));
    for (const OverrideRow& row : Overrides())
        row.Options[std::size_t(config_.*row.Field)]->setChecked(true);
    ShowBlocks();
    return true;
}

// Read back from the text that would be written, so that the preview is what the panel will show.
ThemeState frmSkinConfigure::Look() const {
    IniText changed = skin_;
    // Ignored: what is too long is named when it is written.
    (void)SetSkinConfig(changed, config_);
    ThemeState look = ReadTheme(changed, skinName_, theme_.SkinPath).value_or(theme_);
    look.SkinPath = theme_.SkinPath;
    look.Pieces = theme_.Pieces;
    return look;
}

void frmSkinConfigure::ShowBlocks() {
    const ThemeState look = Look();
    ShowBlock(config_.Group, {look.GroupColor.Color}, *ui_->lblGroupsColor, *ui_->lblGroupsFont);
    ShowBlock(config_.CategoryActive, {look.CategoryActiveColor.Color}, *ui_->lblCategoriesActiveColor,
              *ui_->lblCategoriesActiveFont);
    ShowBlock(config_.CategoryInactive, {look.CategoryInactiveColor.Color}, *ui_->lblCategoriesInactiveColor,
              *ui_->lblCategoriesInactiveFont);
    ShowBlock(config_.Label, {look.LabelColor, look.LabelBorderColor.value_or(0)}, *ui_->lblLabelColor,
              *ui_->lblLabelFont);
    RefreshPreview();
}

void frmSkinConfigure::ShowBlock(const FontBlock& block, const std::vector<ColorRef>& colors, QLabel& swatch,
                                 QLabel& words) const {
    swatch.setPixmap(SwatchOf(colors, kSwatch, devicePixelRatioF()));
    QString text = block.Font.Name;
    if (&block != &config_.Label)
        text += QStringLiteral(", %1%2").arg(QString::number(block.Font.Size),
                                             block.Font.Bold ? QStringLiteral(", bold") : QString());
    words.setText(words.fontMetrics().elidedText(text, Qt::ElideRight, words.minimumWidth()));
    words.setToolTip(RichTip(text));
}

void frmSkinConfigure::lblGroups_Click() {
    AskFont(QStringLiteral("Group"), config_.Group);
}

void frmSkinConfigure::lblCategoriesActive_Click() {
    AskFont(QStringLiteral("Category (active)"), config_.CategoryActive);
}

void frmSkinConfigure::lblCategoriesInactive_Click() {
    AskFont(QStringLiteral("Category (inactive)"), config_.CategoryInactive);
}

void frmSkinConfigure::lblLabel_Click() {
    AskFont(QStringLiteral("Button Label"), config_.Label);
}

void frmSkinConfigure::AskFont(const QString& title, FontBlock& block) {
    const bool isLabel = &block == &config_.Label;
    const ThemeState look = Look();
    FontDialogValues values;
    values.Name = block.Font.Name;
    values.Size = block.Font.Size;
    values.Bold = block.Font.Bold;
    values.AntiAlias = block.Font.AntiAlias;
    values.TextColor = isLabel ? look.LabelColor : HexToColor(block.ColorHex);
    if (isLabel)
        values.BorderColor = look.LabelBorderColor.value_or(0);
    values.Alignment = AlignmentCode(block.Font.Alignment);

    frmSetFont dialog(title, values, LimitsOf(isLabel), services_.AppFolder, this);
    dialog.Form_Load();
    dialog.exec();
    if (!dialog.Chosen())
        return;
    const FontDialogValues& chosen = *dialog.Chosen();
    block.Font = {chosen.Size, chosen.Bold, chosen.AntiAlias, chosen.Name, QString::number(chosen.Alignment)};
    // A colour that the skin takes from another key follows that key until the user chooses one.
    if (chosen.TextColor != values.TextColor)
        block.ColorHex = ColorToHex(chosen.TextColor);
    if (isLabel && chosen.BorderColor != values.BorderColor)
        config_.LabelBorderHex = ColorToHex(*chosen.BorderColor);
    ShowBlocks();
}

void frmSkinConfigure::ReadOverrides() {
    for (const OverrideRow& row : Overrides()) {
        for (std::size_t i = 0; i < row.Options.size(); ++i) {
            if (row.Options[i]->isChecked())
                config_.*row.Field = OverrideChoice(i);
        }
    }
    RefreshPreview();
}

void frmSkinConfigure::RefreshPreview() {
    // Until the window is shown its screen is not known.
    if (preview_ && isVisible())
        ui_->picPreview->setPixmap(
            QPixmap::fromImage(preview_->DrawConfigPreview(Look(), PictureRatio(devicePixelRatioF()))));
}

bool frmSkinConfigure::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    if (preview_ && (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal))
        ShowBlocks();
    return handled;
}

void frmSkinConfigure::cmdOK_Click() {
    FileResult saved;
    WorkShownBy (*this)([&] { saved = SaveSkinConfig(theme_.SkinPath, config_); });
    if (saved)
        accept();
    else
        services_.Prompts.Notice(QStringLiteral("The skin could not be changed:\n\n") + saved.error().Text());
}

} // namespace paneda
