#include "ui/settings/frmSetting.h"

#include "core/files/ini_file.h"
#include "core/settings/key_table.h"
#include "core/store/store_layout.h"
#include "ui/common/place_beside.h"
#include "ui/settings/drive_box.h"
#include "ui/settings/frmSettingAdvance.h"
#include "ui/settings/paper_look.h"
#include "ui/settings/setting_words.h"
#include "ui_frmSetting.h"

#include <QApplication>
#include <QButtonGroup>
#include <QEvent>
#include <QStyle>

namespace paneda {

namespace {

constexpr int kReplyTime = 5'000; // milliseconds

} // namespace

frmSetting::frmSetting(AppState& state, SettingServices services, QWidget* parent)
    : QDialog(parent)
    , state_(state)
    , services_(std::move(services))
    , ui_(std::make_unique<Ui::frmSetting>()) {
    ui_->setupUi(this);
    AddDriveBoxes();
    for (const KeyRow& row : KeyTable())
        ui_->cboOtherKey->addItem(row.Text, row.Key);
    ui_->lblNoHotkey->setText(NoHotkeyText());
    ui_->lblNoHotkey->setVisible(services_.Hotkey.Kind() == Hotkey::Means::None);
    connect(ui_->lblSave, &QPushButton::clicked, this, &frmSetting::lblSave_Click);
    connect(ui_->lblAdvance, &QPushButton::clicked, this, &frmSetting::lblAdvance_Click);
    replyTimer_.setSingleShot(true);
    replyTimer_.setInterval(kReplyTime);
    connect(&replyTimer_, &QTimer::timeout, ui_->lblReply, &QLabel::clear);
    connect(ui_->txtButtonsPerRow, &QLineEdit::textChanged, this, &frmSetting::ShowHint);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { ScrollTo(now); });
    DressAsPaper();
}

frmSetting::~frmSetting() {
    // The end of the window moves the focus, at a time when this class is gone and only its base is left.
    disconnect(qApp, nullptr, this, nullptr);
}

void frmSetting::AddDriveBoxes() {
    QWidget* before = ui_->chkHideAfterLaunch;
    auto* group = new QButtonGroup(this);
    group->setExclusive(false);
    const auto add = [&](const QString& text, const QString& name, const QString& toolTip) {
        auto* box = new DriveBox(text, group->buttons().isEmpty(), ui_->picPaper);
        box->setObjectName(name);
        box->setToolTip(toolTip);
        box->setAccessibleName(toolTip);
        group->addButton(box);
        ui_->layDrives->addWidget(box);
        setTabOrder(before, box);
        before = box;
        return box;
    };
    for (int i = 1; i <= 26; ++i) {
        const QString letter(QChar(u'A' + i - 1));
        txtDrive_[std::size_t(i)] = add(letter, QStringLiteral("txtDrive") + QString::number(i),
                                        DriveToolTip(letter, state_.Drives.RootOf(letter.front())));
    }
    ui_->layDrives->addSpacing(8);
    txtDrivePaneda_ =
        add(QStringLiteral("9"), QStringLiteral("txtDrivePaneda"),
            QStringLiteral("Select '9' to show the information of the drive which Paneda located, useful "
                           "for portable drive"));
    ui_->layDrives->addStretch();
    // The label's letter would click a button that is its buddy, and so switch drive A.
    auto* way = new QWidget(ui_->picPaper);
    way->hide();
    way->setFocusPolicy(Qt::ClickFocus);
    way->setFocusProxy(txtDrive_[1]);
    ui_->lblText8->setBuddy(way);
}

void frmSetting::DressAsPaper() {
    ui_->picPaper->setBackgroundRole(kPaperRole);
    ui_->picPaper->setPalette(PaperPalette(palette()));
    ui_->picPaper->setFont(PaperFont(font(), 1.1));
    ui_->lblButtonsPerRow->setFont(font());
    // The paper's font does not reach a control with a style sheet.
    ui_->lblAdvance->setFont(PaperFont(font(), 1.1));
    ui_->lblDear->setFont(PaperFont(font(), 1.7));
    ui_->lblSave->setMinimumSize(ui_->lblSave->sizeHint() + QSize(28, 8));
    const int digit = ui_->txtButtonsPerRow->fontMetrics().horizontalAdvance(u'0');
    ui_->txtButtonsPerRow->setFixedWidth(6 * digit);
    ui_->txtFeedHeight->setFixedWidth(8 * digit);
    ui_->txtUser->setFixedWidth(24 * digit);
    ui_->txtID->setFixedWidth(18 * digit);
}

void frmSetting::Form_Load() {
    // If `config` cannot be read, the form shows the values in use; the error appears at a save.
    const ConfigFile config = ConfigFile::Load(ConfigFilePath(state_.AppFolder)).value_or(ConfigFile());
    const SettingForm form = ReadSettingForm(config, ReadIniFile(SettingIniFile(state_.AppFolder)), state_);
    autostartAtLoad_ = form.Autostart;
    answeredQuestion_ = HotkeyQuestion(form);
    ShowForm(form);
    FitToScreen();
    PlaceDialog(*this, services_.Scene());
}

// Makes the dialog as large as the paper, or as large as the panel's screen allows; the paper then scrolls.
void frmSetting::FitToScreen() {
    // The layouts still have the sizes of the former font.
    ui_->picPaper->layout()->activate();
    ui_->picDesk->layout()->activate();
    const QSize wanted = ui_->picDesk->sizeHint() + QSize(0, ui_->laySave->sizeHint().height());
    const QSize room = RoomForDialog(services_.Scene());
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    resize((wanted + QSize(wanted.height() > room.height() ? scrollBar : 0, 0)).boundedTo(room));
}

// Qt scrolls to a control that the Tab key reaches, but not to one that is reached by its letter. A control
// that is partly seen stays in its place, since the mouse may be about to click it.
void frmSetting::ScrollTo(QWidget* control) {
    if (control && ui_->picPaper->isAncestorOf(control) && control->visibleRegion().isEmpty())
        ui_->scrPaper->ensureWidgetVisible(control);
}

std::vector<frmSetting::FlagBinding> frmSetting::Flags() const {
    return {
        {ui_->chkHideAfterLaunch, &SettingForm::HideAfterLaunch},
        {ui_->chkEnableMouseClick, &SettingForm::MouseTriggerEnabled},
        {ui_->chkMouseCenter, &SettingForm::MouseShowCenter},
        {ui_->chkEnableHotKey, &SettingForm::HotkeyEnabled},
        {ui_->chkCtrKey, &SettingForm::HotkeyCtrl},
        {ui_->chkAltKey, &SettingForm::HotkeyAlt},
        {ui_->chkShiftKey, &SettingForm::HotkeyShift},
        {ui_->chkWinKey, &SettingForm::HotkeyWin},
        {ui_->chkHotkeyCenter, &SettingForm::HotkeyShowCenter},
        {ui_->chkAutoStart, &SettingForm::Autostart},
        {ui_->chkShowFeed, &SettingForm::ShowFeed},
    };
}

void frmSetting::ShowForm(const SettingForm& form) {
    for (std::size_t i = 1; i < txtDrive_.size(); ++i)
        txtDrive_[i]->setChecked(form.DriveTable[i]);
    txtDrivePaneda_->setChecked(form.DriveOfProgram);
    for (const auto& [box, field] : Flags())
        box->setChecked(form.*field);
    ui_->txtButtonsPerRow->setText(form.ButtonsPerRow);
    (form.MouseClick ? ui_->optMouseKey0 : ui_->optMouseKey1)->setChecked(true);
    ui_->cboOtherKey->setCurrentIndex(ui_->cboOtherKey->findData(form.HotkeyKey));
    ui_->txtUser->setText(form.UserName);
    ui_->txtID->setText(form.UserId);
    ui_->txtFeedHeight->setText(form.FeedHeight);
}

SettingForm frmSetting::TypedForm() const {
    SettingForm form;
    for (std::size_t i = 1; i < txtDrive_.size(); ++i)
        form.DriveTable[i] = txtDrive_[i]->isChecked();
    form.DriveOfProgram = txtDrivePaneda_->isChecked();
    for (const auto& [box, field] : Flags())
        form.*field = box->isChecked();
    form.ButtonsPerRow = ui_->txtButtonsPerRow->text();
    form.MouseClick = ui_->optMouseKey0->isChecked();
    // With a stored key that is not in the table nothing is selected; this gives 0, no key.
    form.HotkeyKey = ui_->cboOtherKey->currentData().toInt();
    form.UserName = ui_->txtUser->text();
    form.UserId = ui_->txtID->text();
    form.FeedHeight = ui_->txtFeedHeight->text();
    return form;
}

void frmSetting::ShowHint() {
    const NumberHint hint = ButtonsPerRowHint(ui_->txtButtonsPerRow->text());
    ui_->lblButtonsPerRow->setText(hint.Text);
    ui_->lblButtonsPerRow->setForegroundRole(hint.Usual ? QPalette::PlaceholderText : QPalette::WindowText);
}

void frmSetting::lblSave_Click() {
    const SettingForm form = TypedForm();
    const QString question = HotkeyQuestion(form);
    if (!question.isEmpty() && question != answeredQuestion_ && !services_.Prompts.Confirm(question, {}))
        return;
    const SettingOutcome outcome = WriteSettings(PlanSettings(form, autostartAtLoad_), state_.AppFolder,
                                                 [this](bool on) { return SetAutoStart(on); });
    const QString problem = SaveProblem(outcome, form.Autostart);
    if (!outcome.Written) {
        services_.Prompts.Notice(problem);
        return;
    }
    answeredQuestion_ = question;
    // If autostart could not be changed, the box shows the former state again.
    ui_->chkAutoStart->setChecked(autostartAtLoad_);
    services_.ReloadPanel();
    // The new panel may cover the dialog.
    raise();
    activateWindow();
    if (problem.isEmpty()) {
        ui_->lblReply->setText(QStringLiteral("Done."));
        replyTimer_.start();
    }
    for (const QString& notice : {problem, HotkeyProblemNow(form)}) {
        if (!notice.isEmpty())
            services_.Prompts.Notice(notice);
    }
}

FileResult frmSetting::SetAutoStart(bool on) {
    FileResult result = services_.Autostart.Set(on, services_.ExecutablePath);
    if (result)
        autostartAtLoad_ = on;
    return result;
}

QString frmSetting::HotkeyProblemNow(const SettingForm& form) const {
    // On a desktop without hotkeys the dialog has a permanent text instead.
    return services_.Hotkey.Kind() == Hotkey::Means::None ? QString()
                                                          : HotkeyProblem(form, services_.Hotkey.State());
}

void frmSetting::lblAdvance_Click() {
    auto* advance = new frmSettingAdvance(state_, services_, this);
    advance->setAttribute(Qt::WA_DeleteOnClose);
    advance->Form_Load();
    advance->open();
}

void frmSetting::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ui_->picPaper->setPalette(PaperPalette(palette()));
}

} // namespace paneda
