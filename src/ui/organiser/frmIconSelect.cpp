#include "ui/organiser/frmIconSelect.h"

#include "core/files/file_io.h"
#include "organiser/icon_library.h"
#include "platform/opener.h"
#include "skin/colour.h"
#include "skin/skin_file.h"
#include "skin/skin_folder.h"
#include "ui/organiser/icon_paper.h"
#include "ui_frmIconSelect.h"

#include <QCoreApplication>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace paneda {

namespace {

// Empty if it is not there.
QString SkinPath(const AppState& state) {
    return FindSkinFolder(state.AppFolder, state.SkinName).value_or(QString());
}

QColor SheetColor(const QString& skinPath) {
    const IniText ini = skinPath.isEmpty() ? IniText() : ReadSkinIni(skinPath);
    return QColor::fromRgb(HexToArgb(ReadTreeColors(ini).Background));
}

} // namespace

frmIconSelect::frmIconSelect(const AppState& state, IconSelectServices services, const QString& iconResult,
                             QWidget* parent)
    : QDialog(parent)
    , state_(state)
    , services_(std::move(services))
    , ui_(std::make_unique<Ui::frmIconSelect>())
    , iconResult_(iconResult)
    , iconBase_(IconBase(state.AppFolder)) {
    ui_->setupUi(this);
    picPaper_ = new IconPaper(ui_->picMain);
    ui_->layMain->insertWidget(0, picPaper_, 1);
    ui_->vsbScrollBar->SetPictures(LoadScrollBarPictures(SkinPath(state)));
    ui_->vsbScrollBar->SetSmallChange(kIconRowHeight);
    ui_->vsbScrollBar->SetLargeChange(kSheetHeight);
    ui_->vsbScrollBar->setFocusPolicy(Qt::NoFocus);
    QWidget::setTabOrder(ui_->lstIcon, picPaper_);
    QWidget::setTabOrder(picPaper_, ui_->cmdOpenFolder);
    connect(picPaper_, &IconPaper::Picked, this, &frmIconSelect::imgIcon_Click);
    connect(picPaper_, &IconPaper::ColorAsked, this, &frmIconSelect::ChooseColor);
    connect(picPaper_, &IconPaper::TopWanted, ui_->vsbScrollBar, &dtVisualScrollBar::SetValue);
    connect(picPaper_, &IconPaper::Wheeled, ui_->vsbScrollBar,
            [this](QWheelEvent* event) { QCoreApplication::sendEvent(ui_->vsbScrollBar, event); });
    connect(picPaper_, &IconPaper::LaidOut, this, &frmIconSelect::FitScrollBar);
    connect(ui_->vsbScrollBar, &dtVisualScrollBar::Change, this,
            [this] { picPaper_->SetTop(ui_->vsbScrollBar->Value()); });
    connect(&thumbnails_, &IconThumbnails::Arrived, picPaper_, &IconPaper::SetPicture);
    connect(ui_->lstIcon, &QListWidget::currentRowChanged, this, [this] { lstIcon_Click(); });
    connect(ui_->cmdOpenFolder, &QPushButton::clicked, this, &frmIconSelect::cmdOpenFolder_Click);
    connect(ui_->cmdSelectNone, &QPushButton::clicked, this, &frmIconSelect::cmdSelectNone_Click);
}

frmIconSelect::~frmIconSelect() = default;

void frmIconSelect::Form_Load() {
    SetColor(SheetColor(SkinPath(state_)));
    ui_->lstIcon->addItems(ListFolders(iconBase_));
    ui_->lstIcon->setCurrentRow(0);
    if (ui_->lstIcon->count() == 0)
        FitScrollBar();
    const bool hasFolders = ui_->lstIcon->count() > 0;
    ui_->cmdOpenFolder->setEnabled(hasFolders);
    (hasFolders ? static_cast<QWidget*>(picPaper_) : ui_->cmdSelectNone)->setFocus();
}

QString frmIconSelect::Folder() const {
    const QListWidgetItem* item = ui_->lstIcon->currentItem();
    return item ? item->text() : QString();
}

void frmIconSelect::lstIcon_Click() {
    const QString folder = iconBase_ + Folder() + u'/';
    IconFolder icons = ReadIconFolder(folder);
    iconFiles_ = std::move(icons.Files);
    picPaper_->SetFiles(iconFiles_);
    ui_->vsbScrollBar->SetValue(0);
    thumbnails_.Load(folder, iconFiles_,
                     int(std::ceil(TwipsToPixels(kIconSide) * picPaper_->devicePixelRatioF())));
    if (icons.TooMany)
        services_.Prompts.Notice(TooManyIconsText());
}

// The whole sheet fits where the bar has nothing to scroll; a bar has a range all the same.
void frmIconSelect::FitScrollBar() {
    const int range = picPaper_->Sheet().Range();
    ui_->vsbScrollBar->SetMax(std::max(range, 1));
    ui_->vsbScrollBar->SetEnabled(range > 0);
}

void frmIconSelect::imgIcon_Click(int index) {
    iconResult_ = iconBase_ + Folder() + u'/' + iconFiles_[index];
    accept();
}

void frmIconSelect::cmdSelectNone_Click() {
    iconResult_ = kNoIcon;
    accept();
}

void frmIconSelect::cmdOpenFolder_Click() {
    const QString app = state_.AppPath.endsWith(u'\\') ? state_.AppPath : state_.AppPath + u'\\';
    LaunchRequest request;
    request.What = LaunchRequest::Action::OpenTarget;
    request.Target = app + QStringLiteral("Icons\\") + Folder() + u'\\';
    request.Name = Folder();
    services_.Opener.Open(request, {state_.Drives, state_.AppPath});
}

void frmIconSelect::SetColor(const QColor& color) {
    color_ = color;
    picPaper_->SetColor(color);
    // A skin's track may be a veil over the sheet.
    ui_->vsbScrollBar->SetBackColor(color);
}

void frmIconSelect::ChooseColor() {
    const QColor chosen = services_.ChooseColor(color_, this);
    if (!chosen.isValid())
        return;
    SetColor(chosen);
    lstIcon_Click();
}

} // namespace paneda
