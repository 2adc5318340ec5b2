#include "ui/organiser/frmLink.h"

#include "core/prompts.h"
#include "core/store/names.h"
#include "organiser/link_record.h"
#include "ui/common/busy_work.h"
#include "ui_frmLink.h"

#include <QDir>

#include <algorithm>

namespace paneda {

frmLink::frmLink(LinkRequest request, const AppState& state, Prompts& prompts, QWidget* parent)
    : QDialog(parent)
    , request_(std::move(request))
    , state_(state)
    , prompts_(prompts)
    , place_{state.Drives, state.AppPath}
    , ui_(std::make_unique<Ui::frmLink>()) {
    ui_->setupUi(this);
    AlignBoxes();
    connect(ui_->txtTarget, &QLineEdit::textChanged, this, &frmLink::txtTarget_Change);
    connect(ui_->chkFolder, &QCheckBox::toggled, this, &frmLink::chkFolder_Click);
    connect(ui_->lblSelect, &QToolButton::clicked, this, &frmLink::lblSelect_Click);
    connect(ui_->lblOK, &QPushButton::clicked, this, &frmLink::lblOK_Click);
    connect(ui_->lblCancel, &QPushButton::clicked, this, &frmLink::reject);
    for (PathLabel* label : {ui_->lblPathRelative, ui_->lblPathAbsolute, ui_->lblPathAbsoluteNoDrive}) {
        // They show their form's name until there is a target, and that is none to be taken.
        label->setEnabled(false);
        connect(label, &PathLabel::clicked, ui_->txtTarget,
                [this, label] { ui_->txtTarget->setText(label->text()); });
    }
}

frmLink::~frmLink() = default;

// The boxes of both frames begin at the same place.
void frmLink::AlignBoxes() {
    int width = 0;
    for (const QWidget* label :
         {ui_->lblName, ui_->lblTarget, ui_->lblParameter, ui_->lblStartIn, ui_->lblRun, ui_->lblDescription})
        width = std::max(width, label->sizeHint().width());
    ui_->layTarget->setColumnMinimumWidth(0, width);
    ui_->layDetail->setColumnMinimumWidth(0, width);
}

void frmLink::Form_Load() {
    linkPath_ = request_.LinkSource;
    if (request_.LinkMode == 1 || request_.LinkMode == 3)
        setWindowTitle(QStringLiteral("  Edit Shortcut"));
    ui_->lblConvertPath->setText(ui_->lblConvertPath->text() + QStringLiteral("  [Current Paneda Path: ") +
                                 QDir::toNativeSeparators(state_.AppFolder) + u']');
    const bool isFolder = request_.LinkType == u"Folder";
    LinkResult link;
    if (request_.LinkMode == 1) {
        WorkShownBy (*this)([&] { link = ReadLink(DiskPath(request_.LinkFolder) / request_.LinkFileName); });
        link.Name = request_.LinkName;
    } else if (request_.LinkMode == 2 || request_.LinkMode == 3) {
        link = Typed();
        link.Name = request_.LinkName;
        link.Description = request_.LinkDescription;
        link.Target = request_.LinkTarget;
        link.Parameter = request_.LinkParameter.value_or(link.Parameter);
        link.StartIn = request_.LinkStartIn.value_or(link.StartIn);
        link.WindowState = request_.LinkWindowState.value_or(link.WindowState);
    } else {
        link = NewLink(linkPath_, isFolder, place_);
    }
    if (isFolder)
        link.Name = NewLink(linkPath_, true, place_).Name;
    Show(link);
    linkResult_.reset();
    ui_->chkFolder->setChecked(isFolder);
    ui_->txtName->selectAll();
}

void frmLink::Show(const LinkResult& link) {
    ui_->txtName->setText(link.Name);
    ui_->txtTarget->setText(link.Target);
    ui_->txtParameter->setText(link.Parameter);
    ui_->txtStartIn->setText(link.StartIn);
    // Another word selects none.
    ui_->cboRun->setCurrentIndex(ui_->cboRun->findText(link.WindowState));
    ui_->txtDescription->setText(link.Description);
    // The begin of a long path says more than its end.
    for (QLineEdit* box : {ui_->txtTarget, ui_->txtParameter, ui_->txtStartIn, ui_->txtDescription})
        box->setCursorPosition(0);
}

void frmLink::CompactLayout() {
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->lblParameter, ui_->txtParameter, ui_->lblStartIn,
                                         ui_->txtStartIn, ui_->lblStartInDesc, ui_->lblRun, ui_->cboRun})
        control->hide();
    adjustSize();
}

void frmLink::chkFolder_Click() {
    const QString& source = request_.LinkSource;
    linkPath_ = ui_->chkFolder->isChecked() ? source.first(source.lastIndexOf(u'\\') + 1) : source;
}

void frmLink::lblSelect_Click() {
    const QString chosen = prompts_.ChooseFile(QStringLiteral("Hi, ") + state_.UserName +
                                                   QStringLiteral("\rPlease Select a File to be Linked to"),
                                               QDir::currentPath());
    if (chosen.isEmpty())
        return;
    linkPath_ = state_.Drives.ToStored(chosen);
    const LinkResult link = NewLink(linkPath_, false, place_);
    ui_->txtTarget->setText(link.Target);
    ui_->txtName->setText(link.Name);
}

void frmLink::txtTarget_Change() {
    const TargetForms forms = FormsOfTarget(ui_->txtTarget->text(), place_);
    ui_->lblPathRelative->ShowPath(forms.Relative);
    ui_->lblPathAbsolute->ShowPath(forms.Absolute);
    ui_->lblPathAbsoluteNoDrive->ShowPath(forms.AbsoluteNoDrive);
}

LinkResult frmLink::Typed() const {
    return {ui_->txtName->text(),    ui_->txtTarget->text(),     ui_->txtParameter->text(),
            ui_->txtStartIn->text(), ui_->cboRun->currentText(), ui_->txtDescription->text()};
}

void frmLink::lblOK_Click() {
    const LinkResult typed = Typed();
    if (request_.Accept && !request_.Accept(typed))
        return;
    if (request_.LinkMode != 1)
        linkResult_ = typed;
    accept();
}

} // namespace paneda
