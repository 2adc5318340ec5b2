#include "ui/notes/frmURL.h"

#include "core/prompts.h"
#include "notes/node_properties.h"
#include "ui_frmURL.h"

namespace paneda {

frmURL::frmURL(PendingNode entered, bool edits, Prompts& prompts, QWidget* parent)
    : QDialog(parent)
    , entered_(std::move(entered))
    , edits_(edits)
    , prompts_(prompts)
    , ui_(std::make_unique<Ui::frmURL>()) {
    ui_->setupUi(this);
    connect(ui_->lblOK, &QPushButton::clicked, this, &frmURL::lblOK_Click);
    connect(ui_->lblCancel, &QPushButton::clicked, this, &frmURL::reject);
}

frmURL::~frmURL() = default;

void frmURL::Form_Load() {
    setWindowTitle(windowTitle() + (edits_ ? QStringLiteral("  Edit") : QStringLiteral("  New")));
    ui_->txtName->setText(entered_.Name);
    ui_->txtURL->setText(entered_.LinkData.Target);
    ui_->txtDescription->setText(entered_.Description);
    // The begin of a long address says more than its end.
    ui_->txtURL->setCursorPosition(0);
    ui_->txtDescription->setCursorPosition(0);
    ui_->txtName->selectAll();
    adjustSize();
}

void frmURL::lblOK_Click() {
    PendingNode typed = entered_;
    typed.Name = ui_->txtName->text();
    typed.Description = ui_->txtDescription->text();
    typed.Type = kUrlNode;
    typed.LinkData = {ui_->txtURL->text().trimmed(), {}, {}, {}};
    if (const QString problem = EntryProblem(typed); !problem.isEmpty()) {
        prompts_.Notice(problem);
        ui_->txtName->setFocus();
        return;
    }
    result_ = typed;
    accept();
}

} // namespace paneda
