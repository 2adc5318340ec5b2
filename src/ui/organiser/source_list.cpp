#include "ui/organiser/source_list.h"

#include "core/panel/launch.h"
#include "organiser/store_lists.h"
#include "skin/picture_loader.h"
#include "ui/common/run_aside.h"
#include "ui/organiser/source_lines.h"
#include "ui_source_list.h"

#include <QApplication>
#include <QDateTime>
#include <QMouseEvent>
#include <QShortcut>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kIconSide = 32;       // pixels at scale 1; 480 twips
constexpr int kShowSlowAfter = 300; // milliseconds
const QString kWidestLabel = QStringLiteral("Shortcut :");
constexpr Source kModes[] = {Source::Desktop, Source::StartMenu, Source::MyComputer, Source::Favorites};

QString LineOf(const BrowserEntry& entry) {
    const QString line = ListTitle(entry.Shown);
    return entry.Hint.isEmpty() ? line : line + QStringLiteral("   ") + entry.Hint;
}

} // namespace

SourceList::SourceList(AppState& state, SourceServices services, QWidget* parent)
    : QWidget(parent)
    , state_(state)
    , services_(std::move(services))
    , ui_(std::make_unique<Ui::SourceList>()) {
    ui_->setupUi(this);
    ui_->cmdFolderUp->setIcon(style()->standardIcon(QStyle::SP_FileDialogToParent));
    ui_->optUrlLink->hide();
    // The options keep their places when the word in front of them changes.
    ui_->lblSource->setMinimumWidth(ui_->lblSource->fontMetrics().horizontalAdvance(kWidestLabel));
    ui_->lstWindows->viewport()->installEventFilter(this);
    ui_->txtFolder->installEventFilter(this);
    ui_->picWindowsIcon->installEventFilter(this);
    connect(ui_->cboFolderMode, &QComboBox::activated, this, &SourceList::cboFolderMode_Click);
    connect(ui_->cmdFolderUp, &QToolButton::clicked, this, &SourceList::cmdFolderUp_Click);
    connect(ui_->lstWindows, &QListWidget::itemSelectionChanged, this, &SourceList::lstWindows_Click);
    connect(ui_->lstWindows, &QListWidget::itemClicked, this, [this](const QListWidgetItem* line) {
        const BrowserEntry* entry = EntryAt(ui_->lstWindows->row(line));
        if (!entry || !entry->IsFolder() || QApplication::keyboardModifiers() != Qt::NoModifier)
            return;
        enteredAt_ = QDateTime::currentMSecsSinceEpoch();
        OpenFolder(FolderIn(browserFolder_, entry->Name));
    });
    connect(ui_->lstWindows, &QListWidget::itemDoubleClicked, this, &SourceList::lstWindows_DblClick);
    slow_.setSingleShot(true);
    slow_.setInterval(kShowSlowAfter);
    connect(&slow_, &QTimer::timeout, this, [this] { ShowMessage(QStringLiteral("Reading...")); });
    // When the event loop is idle, so that a held key does not wait for icons.
    previewSoon_.setSingleShot(true);
    connect(&previewSoon_, &QTimer::timeout, this, &SourceList::ShowPreview);
    AddKeys();
}

SourceList::~SourceList() = default;

void SourceList::AddKeys() {
    const auto onKey = [this](const QKeySequence& key, QWidget* control, auto act) {
        auto* shortcut = new QShortcut(key, control, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        onKey(key, ui_->lstWindows, [this] { lstWindows_DblClick(); });
        onKey(key, ui_->txtFolder, [this] { txtFolder_Click(); });
    }
    onKey(Qt::Key_Insert, ui_->lstWindows, [this] { Q_EMIT AddWanted(); });
    onKey(Qt::Key_Backspace, ui_->lstWindows, [this] { cmdFolderUp_Click(); });
}

bool SourceList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->txtFolder && event->type() == QEvent::MouseButtonRelease) {
        // After the box itself has placed its caret.
        QTimer::singleShot(0, this, &SourceList::txtFolder_Click);
    }
    if (event->type() != QEvent::MouseButtonDblClick)
        return false;
    if (watched == ui_->picWindowsIcon)
        lstWindows_DblClick();
    // Who double-clicks a folder has entered it by the first click, and means nothing in the new list.
    return watched == ui_->lstWindows->viewport() &&
           QDateTime::currentMSecsSinceEpoch() - enteredAt_ < QApplication::doubleClickInterval();
}

void SourceList::Form_Load() {
    ui_->cboFolderMode->setCurrentIndex(0);
    cboFolderMode_Click();
}

void SourceList::cboFolderMode_Click() {
    browserMode_ = kModes[std::max(ui_->cboFolderMode->currentIndex(), 0)];
    ui_->txtFolder->setPlaceholderText(ui_->cboFolderMode->currentText());
    if (browserMode_ == Source::MyComputer) {
        // A stick may have been plugged in.
        services_.Volumes.Refresh(state_.Drives);
        OfferFolder(true);
    } else {
        OfferFolder(false);
        ui_->optButtonCopy->setChecked(true);
    }
    cameFrom_.clear();
    OpenFolder({});
}

void SourceList::OpenFolder(const QString& folder) {
    browserFolder_ = folder;
    ui_->txtFolder->setText(FolderText(folder));
    ui_->txtFolder->setToolTip(folder.isEmpty() ? QString() : FolderToolTip(folder));
    FillBrowser();
}

void SourceList::Refill() {
    FillBrowser();
}

void SourceList::cmdFolderUp_Click() {
    // At the root it is read again, with the sticks that have been plugged in.
    services_.Volumes.Refresh(state_.Drives);
    const QString above = FolderAbove(browserFolder_);
    cameFrom_ = browserFolder_.mid(above.size());
    cameFrom_.chop(1);
    OpenFolder(above);
}

void SourceList::txtFolder_Click() {
    if (!ui_->txtFolder->hasSelectedText())
        OpenFolder(FolderAtCaret(ui_->txtFolder->text(), ui_->txtFolder->cursorPosition()));
}

SourceList::Reading SourceList::ReadFolder(Source source, const QString& folder, const SourcePlaces& places,
                                           const LaunchPaths& paths) {
    if (source == Source::MyComputer && folder.isEmpty())
        return {DriveEntries(paths.Drives, [&places](const QString& root) { return places.HasMedium(root); }),
                {},
                {}};
    const bool isOfDisk = source == Source::MyComputer;
    const SourceListing listing =
        places.List(source, isOfDisk ? paths.Drives.ToHost(folder, paths.AppPath) : folder);
    Reading reading{FolderEntries(listing, source, paths.Drives), {}, listing.Problem};
    if (isOfDisk)
        reading.Folder = folder;
    else if (!listing.Folder.isEmpty())
        reading.Folder = paths.Drives.ToStored(listing.Folder) + u'\\';
    return reading;
}

void SourceList::FillBrowser() {
    const int number = ++reading_;
    browserEntries_.clear();
    ui_->lstWindows->clear();
    linkFolder_.clear();
    slow_.start();
    RunAside<Reading>(
        *this,
        [places = services_.SourcePlaces, paths = Paths(), mode = browserMode_, folder = browserFolder_] {
            return ReadFolder(mode, folder, *places, paths);
        },
        [this, number](Reading reading) {
            if (number == reading_)
                ShowReading(std::move(reading));
        });
}

void SourceList::ShowMessage(const QString& text) {
    auto* line = new QListWidgetItem(text, ui_->lstWindows);
    line->setFlags(Qt::NoItemFlags);
    line->setToolTip(text);
}

void SourceList::ShowReading(Reading reading) {
    slow_.stop();
    ui_->lstWindows->clear();
    browserEntries_ = std::move(reading.Entries);
    linkFolder_ = reading.Folder;
    for (const BrowserEntry& entry : browserEntries_) {
        auto* line = new QListWidgetItem(LineOf(entry), ui_->lstWindows);
        line->setToolTip(entry.FullPath.isEmpty()
                             ? entry.Name
                             : ShownTarget(entry.FullPath, {state_.Drives, state_.AppPath}));
        line->setData(SourceLines::kHostPath, state_.Drives.ToHost(entry.FullPath, state_.AppPath));
        if (entry.IsFolder() && entry.Name == cameFrom_)
            ui_->lstWindows->setCurrentItem(line, QItemSelectionModel::NoUpdate);
    }
    if (browserEntries_.empty() && !reading.Problem.isEmpty())
        ShowMessage(reading.Problem);
    else if (!ui_->lstWindows->currentItem() && !browserEntries_.empty())
        ui_->lstWindows->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    if (QListWidgetItem* current = ui_->lstWindows->currentItem())
        ui_->lstWindows->scrollToItem(current, QAbstractItemView::PositionAtCenter);
    cameFrom_.clear();
    if (browserMode_ != Source::MyComputer)
        OfferFolder(!linkFolder_.isEmpty());
    lstWindows_Click();
    Q_EMIT Filled();
}

void SourceList::OfferFolder(bool on) {
    ui_->optFolderLink->setEnabled(on);
    if (!on && ui_->optFolderLink->isChecked())
        ui_->optButtonCopy->setChecked(true);
}

QRadioButton* SourceList::OptionButton(SourceOption option) const {
    switch (option) {
    case SourceOption::Move:
        return ui_->optButtonMove;
    case SourceOption::LinkFile:
        return ui_->optButtonLink;
    case SourceOption::LinkFolder:
        return ui_->optFolderLink;
    case SourceOption::LinkUrl:
        return ui_->optUrlLink;
    case SourceOption::Copy:
        break;
    }
    return ui_->optButtonCopy;
}

// Null for a line that is a message, and for none.
const BrowserEntry* SourceList::EntryAt(int row) const {
    return row >= 0 && std::size_t(row) < browserEntries_.size() ? &browserEntries_[std::size_t(row)]
                                                                 : nullptr;
}

std::vector<const BrowserEntry*> SourceList::Selected() const {
    std::vector<const BrowserEntry*> selected;
    for (std::size_t i = 0; i < browserEntries_.size(); ++i) {
        const QListWidgetItem* line = ui_->lstWindows->item(int(i));
        if (line && line->isSelected())
            selected.push_back(&browserEntries_[i]);
    }
    return selected;
}

void SourceList::lstWindows_Click() {
    const std::vector<const BrowserEntry*> selected = Selected();
    const BrowserEntry* entry = selected.size() == 1 ? selected.front() : nullptr;
    // Among the drives no folder is open yet.
    const bool canLinkFolder = ui_->optFolderLink->isEnabled() && !Selection().OpenFolder.isEmpty();
    SelectedSource look = LookAtSelected(entry, canLinkFolder);
    if (selected.size() > 1) {
        look = {.Label = QStringLiteral("Files :"), .Option = SourceOption::Copy};
        look.TypeLabel = QString::number(selected.size()) + QStringLiteral(" selected");
    }
    ui_->lblSource->setText(look.Label);
    ui_->lblSource->setToolTip(look.ToolTip);
    ui_->lblWindowsFileType->setText(ui_->lblWindowsFileType->fontMetrics().elidedText(
        look.TypeLabel, Qt::ElideRight, ui_->lblWindowsFileType->width()));
    ui_->lblWindowsFileType->setToolTip(look.TypeLabel);
    ui_->picWindowsIcon->clear();
    ui_->picWindowsIcon->setToolTip({});
    if (look.Option)
        OptionButton(*look.Option)->setChecked(true);
    ++preview_;
    if (entry && !entry->IsFolder())
        previewSoon_.start();
    else
        previewSoon_.stop();
}

void SourceList::ShowPreview() {
    const std::vector<const BrowserEntry*> selected = Selected();
    if (selected.size() != 1)
        return;
    const BrowserEntry& entry = *selected.front();
    ui_->picWindowsIcon->setToolTip(services_.FileIcons.TypeNameOf(entry.Name));
    const IconSize size(kIconSide, devicePixelRatioF());
    if (!LookAtSelected(&entry, false).IsPicture) {
        ShowPicture(services_.FileIcons.IconOf(entry.FullPath, Paths(), size));
        return;
    }
    const QString path = state_.Drives.ToHost(entry.FullPath, state_.AppPath);
    RunAside<QImage>(
        *this, [path, side = size.OnScreen()] { return LoadFittingPicture(path, side); },
        [this, number = preview_](const QImage& picture) {
            if (number == preview_)
                ShowPicture(picture);
        });
}

void SourceList::ShowPicture(const QImage& picture) {
    QPixmap pixmap = QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    ui_->picWindowsIcon->setPixmap(pixmap);
}

// Of a file: the user can try it. Of a folder, which a key has selected: it is entered.
void SourceList::lstWindows_DblClick() {
    const BrowserEntry* entry = EntryAt(ui_->lstWindows->currentRow());
    if (!entry)
        return;
    if (entry->IsFolder())
        OpenFolder(FolderIn(browserFolder_, entry->Name));
    else
        services_.Opener.Open({LaunchRequest::Action::OpenTarget, entry->FullPath, {}, {}}, Paths());
}

AddRequest SourceList::Selection() const {
    AddRequest request;
    for (const SourceOption option :
         {SourceOption::Move, SourceOption::LinkFile, SourceOption::LinkFolder, SourceOption::LinkUrl}) {
        if (OptionButton(option)->isChecked())
            request.Option = option;
    }
    for (const BrowserEntry* entry : Selected())
        request.Entries.push_back(*entry);
    // A folder that a key has selected is meant, and not the one that it lies in.
    if (request.Entries.size() == 1)
        request.OpenFolder = FolderPath(request.Entries.front());
    if (request.OpenFolder.isEmpty())
        request.OpenFolder = browserMode_ == Source::MyComputer ? browserFolder_ : linkFolder_;
    request.UserName = state_.UserName;
    return request;
}

AddRequest SourceList::Dropped(const QStringList& hostPaths, const DiskWork& work) const {
    std::vector<SourceItem> items;
    work([&items, &hostPaths, places = services_.SourcePlaces] {
        for (const QString& path : hostPaths)
            items.push_back(places->ItemOf(path));
    });
    AddRequest request;
    for (const SourceItem& item : items)
        request.Entries.push_back(MakeEntry(item, state_.Drives));
    if (request.Entries.size() == 1)
        request.Option = UsualOption(request.Entries.front().Name);
    request.UserName = state_.UserName;
    return request;
}

} // namespace paneda
