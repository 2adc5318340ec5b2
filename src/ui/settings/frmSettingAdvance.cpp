#include "ui/settings/frmSettingAdvance.h"

#include "core/files/ini_file.h"
#include "core/store/store_layout.h"
#include "ui_frmSettingAdvance.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace paneda {

namespace {

constexpr int kIconColumns = 6;
constexpr int kIconSide = 22; // pixels

} // namespace

frmSettingAdvance::frmSettingAdvance(AppState& state, Prompts& messages, const std::vector<QIcon>& trayIcons,
                                     QWidget* parent)
    : QDialog(parent), state_(state), messages_(messages), ui_(std::make_unique<Ui::frmSettingAdvance>()) {
    ui_->setupUi(this);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    AddIcons(trayIcons);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmSettingAdvance::cmdSave_Click);
    // Whoever types a program means it.
    connect(ui_->txtBrowserOther, &QLineEdit::textEdited, ui_->optBrowserOther,
            [this] { ui_->optBrowserOther->setChecked(true); });
}

frmSettingAdvance::~frmSettingAdvance() = default;

void frmSettingAdvance::AddIcons(const std::vector<QIcon>& trayIcons) {
    for (int i = 0; i < kTrayIconCount; ++i) {
        const QString number = QString::number(i);
        auto* option = new QRadioButton(ui_->fraTray);
        option->setObjectName(QStringLiteral("optIcon") + number);
        option->setAccessibleName(QStringLiteral("Picture ") + QString::number(i + 1));
        auto* picture = new QToolButton(ui_->fraTray);
        picture->setObjectName(QStringLiteral("imgIcon") + number);
        picture->setAutoRaise(true);
        picture->setFocusPolicy(Qt::NoFocus);
        picture->setIconSize({kIconSide, kIconSide});
        if (std::size_t(i) < trayIcons.size())
            picture->setIcon(trayIcons[std::size_t(i)]);
        connect(picture, &QToolButton::clicked, option, &QRadioButton::click);
        auto* pair = new QHBoxLayout;
        pair->setSpacing(0);
        pair->addWidget(option);
        pair->addWidget(picture);
        ui_->layIcons->addLayout(pair, i / kIconColumns, i % kIconColumns);
        optIcon_.push_back(option);
    }
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
    const AdvanceForm form = ReadAdvanceForm(ReadIniFile(SettingIniFile(state_.AppFolder)), state_);
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

void frmSettingAdvance::cmdSave_Click() {
    const std::vector<FileError> failures = WriteAdvanceForm(TypedForm(), state_);
    if (failures.empty())
        close();
    else
        messages_.Notice(QStringLiteral("The settings could not be saved:\n\n") + FailureText(failures));
}

} // namespace paneda
