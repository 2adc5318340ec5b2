#include "ui/notes/frmDynamicCatEdit.h"

#include "core/prompts.h"
#include "organiser/new_link.h"
#include "ui/common/busy_work.h"
#include "ui_frmDynamicCatEdit.h"

#include <QDir>
#include <QFocusEvent>
#include <QPainter>
#include <QTimer>

namespace paneda {

namespace {

// What a colour looks like: that of the border as it is, those of the titles as letters on the border's.
QIcon Sample(const QToolButton& button, QRgb ground, std::optional<QRgb> letters) {
    const double ratio = button.devicePixelRatioF();
    const QSize size = button.iconSize();
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(QColor(ground));
    QPainter painter(&image);
    if (letters) {
        QFont font = button.font();
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(QColor(*letters));
        painter.drawText(QRect({}, size), Qt::AlignCenter, QStringLiteral("Abc"));
    }
    painter.setPen(button.palette().color(QPalette::Mid));
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1, size.height() - 1));
    painter.end();
    return QPixmap::fromImage(image);
}

} // namespace

frmDynamicCatEdit::frmDynamicCatEdit(TreeEditServices services, const QString& tree, QWidget* parent)
    : QDialog(parent)
    , services_(std::move(services))
    , tree_(tree)
    , ui_(std::make_unique<Ui::frmDynamicCatEdit>()) {
    ui_->setupUi(this);
    ui_->txtName->installEventFilter(this);
    connect(ui_->txtName, &QLineEdit::textChanged, this, &frmDynamicCatEdit::txtName_Change);
    connect(ui_->txtTarget, &QLineEdit::textChanged, this, &frmDynamicCatEdit::txtTarget_Change);
    connect(ui_->chkAuto, &QCheckBox::toggled, this, &frmDynamicCatEdit::chkAuto_Click);
    connect(ui_->lblSelect, &QToolButton::clicked, this, &frmDynamicCatEdit::lblSelect_Click);
    connect(ui_->lblBrowse, &QToolButton::clicked, this, &frmDynamicCatEdit::lblBrowse_Click);
    connect(ui_->lblNoteBackgroundColor, &QToolButton::clicked, this,
            [this] { ChooseColor(form_.NoteBackColor); });
    connect(ui_->lblNoteTitleColor, &QToolButton::clicked, this,
            [this] { ChooseColor(form_.NoteTitleColor); });
    connect(ui_->lblNoteTitle2Color, &QToolButton::clicked, this,
            [this] { ChooseColor(form_.NoteTitle2Color); });
    connect(ui_->lblOK, &QPushButton::clicked, this, &frmDynamicCatEdit::lblOK_Click);
    connect(ui_->lblCancel, &QPushButton::clicked, this, &frmDynamicCatEdit::reject);
}

frmDynamicCatEdit::~frmDynamicCatEdit() = default;

void frmDynamicCatEdit::Form_Load() {
    const TreePlace place = TreePlace::Of(services_.State);
    WorkShownBy (*this)([&] {
        trees_ = ListTrees(place.AppFolder);
        if (!tree_.isEmpty())
            form_ = ReadTreeForm(place, tree_);
    });
    if (!tree_.isEmpty()) {
        setWindowTitle(QStringLiteral(" Edit Tree"));
        ui_->chkAuto->setChecked(false);
        ui_->chkAuto->hide();
        ui_->txtTarget->setText(form_.Path);
    }
    ui_->txtName->setText(tree_);
    ui_->txtName->selectAll();
    chkAuto_Click();
    txtTarget_Change();
    ShowColors();
    adjustSize();
}

void frmDynamicCatEdit::chkAuto_Click() {
    const bool isAutomatic = ui_->chkAuto->isChecked();
    ui_->txtTarget->setEnabled(!isAutomatic);
    if (isAutomatic)
        txtName_Change();
}

void frmDynamicCatEdit::txtName_Change() {
    if (ui_->chkAuto->isChecked())
        ui_->txtTarget->setText(UsualTreePath(ui_->txtName->text()));
}

bool frmDynamicCatEdit::txtName_Validate() {
    const QString problem = TreeNameProblem(ui_->txtName->text(), trees_, tree_);
    if (problem.isEmpty())
        return true;
    services_.Prompts.Notice(problem);
    ui_->txtName->setFocus();
    return false;
}

void frmDynamicCatEdit::txtTarget_Change() {
    actualPath_ = ResolveTreePath(ui_->txtTarget->text(), TreePlace::Of(services_.State)).ShownFolder;
    ui_->lblBrowse->setEnabled(!actualPath_.isEmpty());
    ShowActualPath();
}

void frmDynamicCatEdit::ShowActualPath() {
    ui_->lblActualPath->setText(
        ui_->lblActualPath->fontMetrics().elidedText(actualPath_, Qt::ElideMiddle, ui_->txtTarget->width()));
    ui_->lblActualPath->setToolTip(actualPath_);
}

void frmDynamicCatEdit::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    // When the boxes have their new widths.
    QTimer::singleShot(0, this, &frmDynamicCatEdit::ShowActualPath);
}

// A name is looked at when its box is left for another one.
bool frmDynamicCatEdit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->txtName && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool leaves = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                            reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
        // Not within the event of the mouse or the key, which has to reach its control first. OK looks at
        // the name itself.
        if (leaves)
            QTimer::singleShot(0, this, [this] {
                const QWidget* next = focusWidget();
                if (isVisible() && next != ui_->txtName && next != ui_->lblCancel && next != ui_->lblOK)
                    txtName_Validate();
            });
    }
    return QDialog::eventFilter(watched, event);
}

void frmDynamicCatEdit::lblSelect_Click() {
    const QString title = QStringLiteral("Hi, ") + services_.State.UserName +
                          QStringLiteral("\rPlease Select/Create a Folder for the Content of Tree '") +
                          ui_->txtName->text() + u'\'';
    const QString chosen = services_.ChooseFolder(title, QDir::currentPath(), this);
    if (chosen.isEmpty())
        return;
    ui_->chkAuto->setChecked(false);
    const AppState& state = services_.State;
    ui_->txtTarget->setText(ShownTarget(state.Drives.ToStored(chosen), {state.Drives, state.AppPath}));
}

void frmDynamicCatEdit::lblBrowse_Click() {
    const AppState& state = services_.State;
    LaunchRequest request;
    request.What = LaunchRequest::Action::OpenTarget;
    request.Target =
        state.Drives.ToStored(ResolveTreePath(ui_->txtTarget->text(), TreePlace::Of(state)).ContentFolder);
    request.Name = actualPath_;
    services_.Opener.Open(request, {state.Drives, state.AppPath});
}

void frmDynamicCatEdit::ChooseColor(QRgb& color) {
    const QColor chosen = services_.ChooseColor(QColor(color), this);
    if (!chosen.isValid())
        return;
    color = chosen.rgb();
    ShowColors();
}

void frmDynamicCatEdit::ShowColors() {
    const auto show = [this](QToolButton& button, std::optional<QRgb> letters) {
        button.setIcon(Sample(button, form_.NoteBackColor, letters));
    };
    show(*ui_->lblNoteBackgroundColor, std::nullopt);
    show(*ui_->lblNoteTitleColor, form_.NoteTitleColor);
    show(*ui_->lblNoteTitle2Color, form_.NoteTitle2Color);
}

void frmDynamicCatEdit::lblOK_Click() {
    if (!txtName_Validate())
        return;
    form_.Name = ui_->txtName->text();
    form_.Path = ui_->txtTarget->text();
    form_.CreatesFolder = ui_->chkAuto->isChecked();
    QString problem;
    const TreePlace place = TreePlace::Of(services_.State);
    WorkShownBy (*this)([&] { problem = SaveTree(place, form_, tree_); });
    if (!problem.isEmpty()) {
        services_.Prompts.Notice(problem);
        return;
    }
    result_ = form_.Name == tree_ ? tree_ : form_.Name.trimmed();
    accept();
}

} // namespace paneda
