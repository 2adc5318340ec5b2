#include "ui/skin/frmSetFont.h"

#include "core/text/device_pixels.h"
#include "core/text/ranges.h"
#include "core/text/text_rules.h"
#include "ui/common/busy_work.h"
#include "ui_frmSetFont.h"

#include <QButtonGroup>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QRadioButton>

#include <utility>

namespace paneda {

namespace {

constexpr int kAlignments = 9;
constexpr int kNameWidth = 240; // pixels

QString AlignmentName(int index) {
    static const char* const kNames[]{"Top left", "Top",         "Top right", "Left",        "Centre",
                                      "Right",    "Bottom left", "Bottom",    "Bottom right"};
    return QLatin1String(kNames[index]);
}

void SelectRow(QListWidget& list, const QString& text) {
    list.setCurrentRow(-1);
    for (int row = 0; row < list.count(); ++row) {
        if (SameName(list.item(row)->text(), text)) {
            list.setCurrentRow(row);
            list.scrollToItem(list.item(row), QAbstractItemView::PositionAtCenter);
            return;
        }
    }
}

} // namespace

frmSetFont::frmSetFont(const QString& title, const FontDialogValues& values, const FontDialogLimits& limits,
                       const QString& appFolder, QWidget* parent)
    : QDialog(parent), values_(values), last_(appFolder), ui_(std::make_unique<Ui::frmSetFont>()) {
    ui_->setupUi(this);
    setWindowTitle(title + QStringLiteral(" Font"));
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    AddAlignments();
    ui_->Label3->SetUp(QStringLiteral("Colour of the text"), last_);
    ui_->imgBorder->SetUp(QStringLiteral("Colour of the border"), last_);
    ui_->Text1->installEventFilter(this);
    SwitchOff(limits.NoEffects, {ui_->chkItalic, ui_->chkUnderline, ui_->chkStrikethru});
    SwitchOff(limits.NoSize, {ui_->lblSize, ui_->Text1, ui_->List2, ui_->chkBold});
    SwitchOff(limits.NoAlignment, {ui_->fraAlignment});
    ConnectControls();
}

frmSetFont::~frmSetFont() = default;

void frmSetFont::AddAlignments() {
    constexpr int kSide = 3;
    static_assert(kSide * kSide == kAlignments);
    optAlignment_ = new QButtonGroup(this);
    for (int i = 0; i < kAlignments; ++i) {
        auto* option = new QRadioButton(ui_->fraAlignment);
        option->setObjectName(QStringLiteral("optAlignment%1").arg(i));
        option->setAccessibleName(AlignmentName(i));
        option->setToolTip(option->accessibleName());
        ui_->layOptions->addWidget(option, i / kSide, i % kSide);
        optAlignment_->addButton(option, i + 1);
    }
    ui_->layOptions->setColumnStretch(kSide, 1);
    QWidget* before = ui_->chkAntiAlias;
    for (QAbstractButton* option : optAlignment_->buttons()) {
        setTabOrder(before, option);
        before = option;
    }
}

void frmSetFont::SwitchOff(const QString& reason, const std::vector<QWidget*>& controls) {
    if (reason.isEmpty())
        return;
    for (QWidget* control : controls) {
        control->setEnabled(false);
        control->setToolTip(reason);
    }
}

void frmSetFont::ConnectControls() {
    connect(ui_->List1, &QListWidget::currentRowChanged, this, &frmSetFont::List1_Click);
    connect(ui_->List2, &QListWidget::currentRowChanged, this, &frmSetFont::List2_Click);
    connect(ui_->Text1, &QLineEdit::textChanged, this, &frmSetFont::Text1_Change);
    for (const QCheckBox* box :
         {ui_->chkBold, ui_->chkItalic, ui_->chkUnderline, ui_->chkStrikethru, ui_->chkAntiAlias})
        connect(box, &QCheckBox::toggled, this, &frmSetFont::ReadControls);
    connect(optAlignment_, &QButtonGroup::idClicked, this, &frmSetFont::ReadControls);
    for (const ColourButton* button : {ui_->Label3, ui_->imgBorder})
        connect(button, &ColourButton::Chosen, this, &frmSetFont::ReadControls);
    connect(ui_->Command1, &QPushButton::clicked, this, &frmSetFont::Command1_Click);
    connect(ui_->Command2, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSetFont::Form_Load() {
    // As the painters take any other code.
    if (values_.Alignment < 1 || values_.Alignment > kAlignments)
        values_.Alignment = kAlignments;
    if (!SameName(values_.Name, kUsualFont) && !fonts_.IsInstalled(values_.Name)) {
        missing_ = values_.Name;
        values_.Name = kUsualFont;
    }
    loading_ = true;
    ShowValues();
    loading_ = false;
    ShowFontNote();
}

void frmSetFont::ShowValues() {
    ui_->List1->addItems(fonts_.Offered());
    SelectRow(*ui_->List1, values_.Name);
    ui_->Text1->setText(QString::number(values_.Size));
    FillSizes();
    ui_->chkBold->setChecked(values_.Bold);
    ui_->chkItalic->setChecked(values_.Italic);
    ui_->chkUnderline->setChecked(values_.Underline);
    ui_->chkStrikethru->setChecked(values_.Strikethrough);
    ui_->chkAntiAlias->setChecked(values_.AntiAlias);
    optAlignment_->button(values_.Alignment)->setChecked(true);
    ui_->Label3->SetColour(values_.TextColor);
    ui_->shpBorder->setVisible(values_.BorderColor.has_value());
    ui_->imgBorder->SetColour(values_.BorderColor.value_or(0));
    if (values_.BorderColor)
        ui_->Frame2->setTitle(QStringLiteral("Color / Border"));
}

void frmSetFont::FillSizes() {
    const QString family = fonts_.Family(values_.Name);
    QList<int> sizes = QFontDatabase::pointSizes(family);
    if (sizes.isEmpty())
        sizes = QFontDatabase::standardSizes();
    const QSignalBlocker silent(ui_->List2);
    ui_->List2->clear();
    for (const int size : std::as_const(sizes))
        ui_->List2->addItem(QString::number(size));
    SelectTypedSize();
}

void frmSetFont::SelectTypedSize() {
    const QSignalBlocker silent(ui_->List2);
    const std::optional<double> size = TypedFontSize(ui_->Text1->text());
    SelectRow(*ui_->List2, size ? QString::number(*size) : QString());
}

void frmSetFont::List1_Click() {
    if (loading_ || !ui_->List1->currentItem())
        return;
    values_.Name = ui_->List1->currentItem()->text();
    missing_.clear();
    ShowFontNote();
    FillSizes();
    RefreshFontSample();
}

void frmSetFont::List2_Click() {
    if (!loading_ && ui_->List2->currentItem())
        ui_->Text1->setText(ui_->List2->currentItem()->text());
}

void frmSetFont::Text1_Change() {
    SelectTypedSize();
    const std::optional<double> size = TypedFontSize(ui_->Text1->text());
    ui_->Command1->setEnabled(size.has_value());
    if (size)
        values_.Size = *size;
    ShowFontNote();
    RefreshFontSample();
}

// The line says what keeps the user from seeing what was asked for.
void frmSetFont::ShowFontNote() {
    QString note;
    if (!TypedFontSize(ui_->Text1->text()))
        note = QStringLiteral("A size is a number from %1 to %2.")
                   .arg(range::kFontSize.Lowest)
                   .arg(range::kFontSize.Highest);
    else if (!missing_.isEmpty())
        note = QStringLiteral("Font Not found : %1. %2 is used instead.")
                   .arg(fontMetrics().elidedText(missing_, Qt::ElideRight, kNameWidth), values_.Name);
    else if (!fonts_.IsInstalled(values_.Name))
        note = QStringLiteral("%1 is shown as %2 on this computer.")
                   .arg(values_.Name, fonts_.Family(values_.Name));
    ui_->lblFontNotFound->setText(note);
}

void frmSetFont::ReadControls() {
    if (loading_)
        return;
    values_.Bold = ui_->chkBold->isChecked();
    values_.Italic = ui_->chkItalic->isChecked();
    values_.Underline = ui_->chkUnderline->isChecked();
    values_.Strikethrough = ui_->chkStrikethru->isChecked();
    values_.AntiAlias = ui_->chkAntiAlias->isChecked();
    values_.Alignment = optAlignment_->checkedId();
    values_.TextColor = ui_->Label3->Colour();
    if (values_.BorderColor)
        values_.BorderColor = ui_->imgBorder->Colour();
    RefreshFontSample();
}

void frmSetFont::RefreshFontSample() {
    // Until the window is shown, neither its screen nor the size of the sample is known.
    if (!isVisible())
        return;
    ui_->Label4->setPixmap(QPixmap::fromImage(
        DrawFontSample(values_, fonts_, ui_->Label4->size(), PictureRatio(devicePixelRatioF()))));
}

bool frmSetFont::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal)
        RefreshFontSample();
    return handled;
}

// The arrows walk the list of sizes while the cursor is in the line above it.
bool frmSetFont::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->Text1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(ui_->List2, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmSetFont::Command1_Click() {
    chosen_ = values_;
    // Ignored: the colours are a convenience, and what was chosen does not depend on them.
    WorkShownBy (*this)([this] { (void)last_.Save(); });
    accept();
}

} // namespace paneda
