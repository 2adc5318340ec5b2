#include "ui/notes/frmTextNote.h"

#include "core/prompts.h"
#include "notes/node_properties.h"
#include "ui/common/busy_work.h"
#include "ui/common/show_node_icon.h"
#include "ui/organiser/frmIconSelect.h"
#include "ui_frmTextNote.h"

#include <QMenu>

namespace paneda {

frmTextNote::frmTextNote(TextNoteRequest request, const AppState& state, FileIcons& icons, Prompts& prompts,
                         QWidget* parent)
    : QDialog(parent)
    , request_(std::move(request))
    , state_(state)
    , icons_(icons)
    , prompts_(prompts)
    , ui_(std::make_unique<Ui::frmTextNote>()) {
    ui_->setupUi(this);
    auto* menu = new QMenu(ui_->cmdNoteLink);
    menu->setObjectName(QStringLiteral("mnuNoteLinkMenu"));
    const auto add = [this, menu](const QString& caption, const QString& name, const QString& type) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, [this, type] { mnuNoteLink_Click(type); });
    };
    add(QStringLiteral("Link File"), QStringLiteral("mnuNoteLink0"), kFileNode);
    add(QStringLiteral("Link URL"), QStringLiteral("mnuNoteLink1"), kUrlNode);
    add(QStringLiteral("Clear Link"), QStringLiteral("mnuNoteLink3"), QString());
    ui_->cmdNoteLink->setMenu(menu);
    connect(ui_->cmdIcon, &QToolButton::clicked, this, &frmTextNote::imgIcon_Click);
    connect(ui_->lblOK, &QPushButton::clicked, this, &frmTextNote::lblOK_Click);
    connect(ui_->lblCancel, &QPushButton::clicked, this, &frmTextNote::reject);
}

frmTextNote::~frmTextNote() = default;

void frmTextNote::Form_Load() {
    if (request_.Edits)
        setWindowTitle(QStringLiteral(" Edit Note Properties"));
    ui_->lblFirstNote->setVisible(request_.IsFirst);
    ui_->txtName->setText(request_.Entered.Name);
    ui_->txtDescription->setText(request_.Entered.Description);
    ui_->txtDescription->setCursorPosition(0);
    ui_->txtName->selectAll();
    ShowIcon(request_.Picture);
    ShowLink();
    adjustSize();
}

void frmTextNote::ShowIcon(const QString& picture) {
    QLabel& label = *ui_->imgIcon;
    if (request_.PlainIcon) {
        const double ratio = devicePixelRatioF();
        QImage plain = request_.PlainIcon(qRound(label.minimumWidth() * ratio));
        plain.setDevicePixelRatio(ratio);
        label.setPixmap(QPixmap::fromImage(std::move(plain)));
    }
    if (!picture.isEmpty())
        ShowNodeIcon({.Path = picture, .IsImageFile = true, .Kind = {}, .Target = {}}, label,
                     palette().color(QPalette::Button), state_, icons_, WorkShownBy(*this));
}

void frmTextNote::ShowLink() {
    const PendingNode& entered = request_.Entered;
    ui_->lblNoteLink->setText(entered.LinkData.Target);
    ui_->lblNoteLink->setToolTip(entered.LinkData.Target);
    for (QAction* action : ui_->cmdNoteLink->menu()->actions()) {
        if (action->objectName() == u"mnuNoteLink3")
            action->setEnabled(!entered.Type.isEmpty());
    }
}

void frmTextNote::imgIcon_Click() {
    const QString chosen = request_.SelectIcon ? request_.SelectIcon(this) : kKeepIcon;
    if (chosen == kKeepIcon)
        return;
    request_.Entered.IconSource = chosen == kNoIcon ? QString() : chosen;
    ShowIcon(request_.Entered.IconSource);
}

void frmTextNote::mnuNoteLink_Click(const QString& type) {
    if (type.isEmpty()) {
        request_.Entered.Type.clear();
        request_.Entered.LinkData = {};
        ShowLink();
        return;
    }
    const auto linked = request_.AskLink ? request_.AskLink(Typed(), type, this) : std::nullopt;
    if (!linked)
        return;
    request_.Entered.Type = linked->Type;
    request_.Entered.LinkData = linked->LinkData;
    ui_->txtName->setText(linked->Name);
    ui_->txtDescription->setText(linked->Description);
    ShowLink();
}

PendingNode frmTextNote::Typed() const {
    PendingNode typed = request_.Entered;
    typed.Name = ui_->txtName->text();
    typed.Description = ui_->txtDescription->text();
    return typed;
}

void frmTextNote::lblOK_Click() {
    const PendingNode typed = Typed();
    if (const QString problem = EntryProblem(typed); !problem.isEmpty()) {
        prompts_.Notice(problem);
        ui_->txtName->setFocus();
        return;
    }
    result_ = typed;
    accept();
}

} // namespace paneda
