#include "ui/settings/frmSettingAdvance.h"

#include "core/files/ini_file.h"
#include "core/store/store_layout.h"
#include "ui/settings/frmSetting.h"
#include "ui_frmSettingAdvance.h"

#include <QButtonGroup>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QToolButton>

namespace paneda {

namespace {

constexpr int kIconColumns = 6;
constexpr int kIconSide = 22; // pixels

} // namespace

frmSettingAdvance::frmSettingAdvance(AppState& state, const SettingServices& services, QWidget* parent)
    : QDialog(parent), state_(state), services_(services), ui_(std::make_unique<Ui::frmSettingAdvance>()) {
    ui_->setupUi(this);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    AddIcons();
    connect(ui_->cmdBrowse, &QPushButton::clicked, this, &frmSettingAdvance::cmdBrowse_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmSettingAdvance::cmdSave_Click);
    // Typing the name of a program also selects its option.
    connect(ui_->txtBrowserOther, &QLineEdit::textEdited, ui_->optBrowserOther,
            [this] { ui_->optBrowserOther->setChecked(true); });
}

frmSettingAdvance::~frmSettingAdvance() = default;

void frmSettingAdvance::AddIcons() {
    // Without a group of their own they would belong to the group of the browsers, and Tab would skip them.
    auto* group = new QButtonGroup(this);
    QWidget* before = ui_->chkHideOnStartup;
    for (int i = 0; i < kTrayIconCount; ++i) {
        auto* option = new QRadioButton(ui_->fraTray);
        option->setObjectName(QStringLiteral("optIcon") + QString::number(i));
        option->setAccessibleName(QStringLiteral("Picture ") + QString::number(i + 1));
        group->addButton(option);
        setTabOrder(before, option);
        before = option;
        auto* pair = new QHBoxLayout;
        pair->setSpacing(2);
        pair->addWidget(option);
        pair->addWidget(AddPicture(i, *option));
        ui_->layIcons->addLayout(pair, i / kIconColumns, i % kIconColumns);
        optIcon_.push_back(option);
    }
}

// The picture beside an option; a click on it selects the option. The selected picture has a frame, since the
// mark of an option without text is easily overlooked.
QToolButton* frmSettingAdvance::AddPicture(int index, QRadioButton& option) {
    auto* picture = new QToolButton(ui_->fraTray);
    picture->setObjectName(QStringLiteral("imgIcon") + QString::number(index));
    picture->setCheckable(true);
    picture->setFocusPolicy(Qt::NoFocus);
    picture->setIconSize({kIconSide, kIconSide});
    if (std::size_t(index) < services_.TrayIcons.size())
        picture->setIcon(services_.TrayIcons[std::size_t(index)]);
    connect(&option, &QRadioButton::toggled, picture, &QToolButton::setChecked);
    connect(picture, &QToolButton::clicked, &option, [picture, &option] {
        option.click();
        picture->setChecked(true);
    });
    return picture;
}

QRadioButton* frmSettingAdvance::BrowserOption(BrowserChoice choice) const {
    switch (choice) {
    case BrowserChoice::Explorer:
        return ui_->optBrowserIE;
    case BrowserChoice::Firefox:
        return ui_->optBrowserFirefox;
    case BrowserChoice::Other:
        return ui_->optBrowserOther;
    case BrowserChoice::Default:
        break;
    }
    return ui_->optBrowserDefault;
}

void frmSettingAdvance::Form_Load() {
    const AdvanceForm form =
        ReadAdvanceForm(ReadIniFile(SettingIniFile(state_.AppFolder)), state_, services_.RunsWindowsPrograms);
    ui_->optBrowserIE->setVisible(form.OffersExplorer);
    BrowserOption(form.Browser)->setChecked(true);
    ui_->txtBrowserOther->setText(form.OtherBrowser);
    ui_->chkHideOnStartup->setChecked(form.HideOnStartup);
    optIcon_[std::size_t(form.TrayIcon - 1)]->setChecked(true);
}

AdvanceForm frmSettingAdvance::TypedForm() const {
    AdvanceForm form;
    for (const auto choice : {BrowserChoice::Explorer, BrowserChoice::Firefox, BrowserChoice::Other}) {
        if (BrowserOption(choice)->isChecked())
            form.Browser = choice;
    }
    form.OtherBrowser = ui_->txtBrowserOther->text();
    form.HideOnStartup = ui_->chkHideOnStartup->isChecked();
    for (std::size_t i = 0; i < optIcon_.size(); ++i) {
        if (optIcon_[i]->isChecked())
            form.TrayIcon = int(i) + 1;
    }
    return form;
}

void frmSettingAdvance::cmdBrowse_Click() {
    const QString present = state_.Drives.ToHost(ui_->txtBrowserOther->text(), state_.AppPath);
    const QString folder = present.isEmpty() ? QString() : QFileInfo(present).path();
    const QString chosen =
        services_.Prompts.ChooseFile(QStringLiteral("Choose the program of your browser"), folder);
    if (chosen.isEmpty())
        return;
    ui_->txtBrowserOther->setText(QDir::toNativeSeparators(chosen));
    ui_->optBrowserOther->setChecked(true);
}

void frmSettingAdvance::cmdSave_Click() {
    const std::vector<FileError> failures = WriteAdvanceForm(TypedForm(), state_);
    if (failures.empty())
        close();
    else
        services_.Prompts.Notice(QStringLiteral("The settings could not be saved:\n\n") +
                                 FailureText(failures));
}

} // namespace paneda
