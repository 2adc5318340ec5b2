#include "ui/organiser/frmButton.h"

#include "core/store/names.h"
#include "core/store/store_layout.h"
#include "core/text/text_rules.h"
#include "organiser/file_kinds.h"
#include "organiser/organiser_words.h"
#include "ui/common/busy_work.h"
#include "ui/common/menu_choice.h"
#include "ui/common/place_beside.h"
#include "ui/organiser/command_icons.h"
#include "ui/organiser/store_list.h"
#include "ui_frmButton.h"

#include <QShortcut>

namespace paneda {

frmButton::frmButton(AppState& state, OrganiserServices services, QWidget* parent)
    : QDialog(parent)
    , state_(state)
    , services_(std::move(services))
    , ui_(std::make_unique<Ui::frmButton>())
    , work_([this, work = WorkShownBy(*this)](const std::function<void()>& act) {
        const bool wasBusy = std::exchange(isBusy_, true);
        work(act);
        isBusy_ = wasBusy;
    })
    , organiser_(std::make_unique<Organiser>(SettingFolder(state.AppFolder), work_))
    , source_(new SourceList(state, services_.Sources, this)) {
    ui_->setupUi(this);
    ui_->laySource->addWidget(source_);
    setWindowTitle(OrganiserTitle(state.ProductName, state.ProductVersion, state.BuildDate));
    columns_ = {Column{StoreLevel::Categories, ui_->lstCategories, ui_->cmdCategoryAdd,
                       ui_->cmdCategoryDelete, ui_->cmdCategoryRename, ui_->cmdCategoryMoveUp,
                       ui_->cmdCategoryMoveDown, ui_->cmdCategorySort},
                Column{StoreLevel::Groups, ui_->lstGroups, ui_->cmdGroupAdd, ui_->cmdGroupDelete,
                       ui_->cmdGroupRename, ui_->cmdGroupMoveUp, ui_->cmdGroupMoveDown, ui_->cmdGroupSort},
                Column{StoreLevel::Buttons, ui_->lstButtons, ui_->cmdButtonAdd, ui_->cmdButtonDelete, nullptr,
                       ui_->cmdButtonMoveUp, ui_->cmdButtonMoveDown, ui_->cmdButtonSort}};
    for (const Column& column : columns_)
        ConnectColumn(column);
    connect(ui_->cmdLink, &QPushButton::clicked, this, &frmButton::cmdLink_Click);
    connect(ui_->cmdButtonStyle, &QPushButton::clicked, this, &frmButton::cmdButtonStyle_Click);
    connect(ui_->cmdOrganiseButton, &QPushButton::clicked, this, &frmButton::cmdOrganiseButton_Click);
    connect(ui_->cmdHow, &QPushButton::clicked, this, &frmButton::cmdHow_Click);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, [this] { services_.OpenHelp(); });
    connect(ui_->cmdApply, &QPushButton::clicked, this, &frmButton::cmdApply_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmButton::cmdSave_Click);
    TabThroughSources();
    connect(source_, &SourceList::AddWanted, ui_->cmdButtonAdd, &QAbstractButton::click);
    ui_->lstButtons->TakeFiles(true);
    connect(ui_->lstButtons, &StoreList::FilesDropped, this, &frmButton::AddDropped, Qt::QueuedConnection);
    // Drawn when the event loop is idle, so that a held key does not wait for icons.
    preview_.setSingleShot(true);
    connect(&preview_, &QTimer::timeout, this, &frmButton::ShowPreview);
    // The list keeps its height when there is no preview.
    for (QWidget* part : {static_cast<QWidget*>(ui_->picIcon), static_cast<QWidget*>(ui_->lblFileType)}) {
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        part->setSizePolicy(policy);
    }
    DrawSigns();
}

frmButton::~frmButton() = default;

// The sources were made after the form, and stand before its last row.
void frmButton::TabThroughSources() {
    QWidget* before = ui_->cmdButtonStyle;
    std::vector<QWidget*> controls;
    for (QWidget* next = source_->nextInFocusChain(); source_->isAncestorOf(next);
         next = next->nextInFocusChain())
        controls.push_back(next);
    for (QWidget* control : controls) {
        setTabOrder(before, control);
        before = control;
    }
    setTabOrder(before, ui_->cmdOrganiseButton);
}

void frmButton::ConnectColumn(const Column& column) {
    const StoreLevel level = column.Level;
    const auto onClick = [this](QAbstractButton* button, auto act) {
        connect(button, &QAbstractButton::clicked, this, act);
    };
    onClick(column.Add, [this, level] { AddTo(level); });
    onClick(column.Delete, [this, level] { DeleteFrom(level); });
    onClick(column.Up, [this, level] { MoveIn(level, organiser_->Selected(level) - 1); });
    onClick(column.Down, [this, level] { MoveIn(level, organiser_->Selected(level) + 1); });
    onClick(column.Sort, [this, level] { SortIn(level); });
    if (column.Rename)
        onClick(column.Rename, [this, level] { RenameIn(level); });
    connect(column.List, &StoreList::currentRowChanged, this, [this, level](int row) { Select(level, row); });
    connect(column.List, &StoreList::itemDoubleClicked, this, [this, level] { EditIn(level); });
    // Later, when the list has ended the drag.
    connect(
        column.List, &StoreList::Moved, this, [this, level](int, int to) { MoveIn(level, to); },
        Qt::QueuedConnection);
    AddKeys(column);
}

void frmButton::AddKeys(const Column& column) {
    const StoreLevel level = column.Level;
    const auto onKey = [this, &column](const QKeySequence& key, auto act) {
        auto* shortcut = new QShortcut(key, column.List, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    // A key does what its button does, and nothing while that is disabled.
    onKey(Qt::Key_Insert, [add = column.Add] { add->click(); });
    onKey(Qt::Key_Delete, [remove = column.Delete] { remove->click(); });
    onKey(Qt::CTRL | Qt::Key_Up, [up = column.Up] { up->click(); });
    onKey(Qt::CTRL | Qt::Key_Down, [down = column.Down] { down->click(); });
    onKey(Qt::Key_F2, [this, level] { RenameIn(level); });
    onKey(Qt::Key_Return, [this, level] { EditIn(level); });
    onKey(Qt::Key_Enter, [this, level] { EditIn(level); });
}

void frmButton::DrawSigns() {
    const QColor colour = palette().color(QPalette::Active, QPalette::ButtonText);
    const QColor disabled = palette().color(QPalette::Disabled, QPalette::ButtonText);
    for (const Column& column : columns_) {
        const std::pair<QAbstractButton*, CommandSign> signs[] = {
            {column.Add, CommandSign::Add},       {column.Delete, CommandSign::Delete},
            {column.Rename, CommandSign::Rename}, {column.Up, CommandSign::Up},
            {column.Down, CommandSign::Down},     {column.Sort, CommandSign::Sort}};
        for (const auto& [button, sign] : signs) {
            if (button)
                button->setIcon(CommandIcon(sign, colour, disabled));
        }
    }
}

void frmButton::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        DrawSigns();
}

void frmButton::Form_Load() {
    organiser_->Load();
    source_->Form_Load();
    ShowLists();
    ui_->lstCategories->setFocus();
    const PlaceScene scene = services_.Scene();
    resize(size().boundedTo(RoomForDialog(scene)));
    PlaceDialog(*this, scene);
}

void frmButton::ShowLists() {
    for (const Column& column : columns_)
        column.List->ShowTitles(organiser_->Titles(column.Level), organiser_->Selected(column.Level));
    EnableCommands();
    ui_->picIcon->hide();
    ui_->lblFileType->hide();
    ++previewNumber_;
    preview_.start();
}

void frmButton::EnableCommands() {
    const int category = organiser_->Selected(StoreLevel::Categories);
    const bool isDynamic =
        category >= 0 && organiser_->Categories()[std::size_t(category)].Title == kDynamicCategory;
    for (const Column& column : columns_) {
        const bool isCategory = column.Level == StoreLevel::Categories;
        const bool on = !explorerMode_ && (isCategory || !isDynamic);
        const bool hasEntry = on && organiser_->Selected(column.Level) >= 0;
        column.List->setEnabled(on);
        column.Add->setEnabled(on);
        for (QAbstractButton* command : {column.Delete, column.Up, column.Down, column.Sort})
            command->setEnabled(hasEntry);
        if (column.Rename)
            column.Rename->setEnabled(hasEntry && !isDynamic);
    }
    const int button = organiser_->Selected(StoreLevel::Buttons);
    const bool edits = !explorerMode_ && !isDynamic && button >= 0;
    const bool isRecord =
        edits && KindOfFile(organiser_->Buttons()[std::size_t(button)].TitleExt) == FileKind::Record;
    ui_->cmdLink->setEnabled(isRecord && services_.Dialogs.EditLink);
    ui_->cmdButtonStyle->setEnabled(edits && services_.Dialogs.EditStyle);
}

void frmButton::Select(StoreLevel level, int index) {
    organiser_->Select(level, index);
    ShowLists();
}

// Carries out a change and shows what is there now.
void frmButton::Run(const std::function<FileResult()>& operation) {
    const FileResult result = operation();
    ShowLists();
    if (!result)
        services_.Prompts.Notice(result.error().Text());
}

// The names that a new one is compared with.
QStringList frmButton::NamesFor(StoreLevel level) const {
    return level == StoreLevel::Buttons ? TitlesWithExtension(organiser_->Buttons())
                                        : organiser_->Titles(level);
}

void frmButton::AddTo(StoreLevel level) {
    if (level == StoreLevel::Buttons) {
        cmdButtonAdd_Click();
        return;
    }
    if (level == StoreLevel::Categories) {
        cmdCategoryAdd_Click();
        return;
    }
    if (organiser_->Selected(StoreLevel::Categories) < 0) {
        services_.Prompts.Notice(QStringLiteral("Hi, no category found, please add a category first"));
        return;
    }
    AddNamed(level, services_.Dialogs.AskText(AddTitle(level), {}, {}));
}

void frmButton::AddNamed(StoreLevel level, const QString& typed) {
    const QString name = TrimBlanks(typed);
    if (ValidateName(name, NamesFor(level), kNoException, services_.Prompts) || name.isEmpty())
        return;
    Run([&] { return organiser_->AddFolder(level, name); });
}

void frmButton::cmdCategoryAdd_Click() {
    const std::vector<PopItem> items{
        {QStringLiteral("mnuAddCategory1"), QStringLiteral("Add Static Category ( Quick Launch )")},
        {QStringLiteral("mnuAddCategory2"),
         QStringLiteral("Add Dynamic Category ( Tree Notes/Shortcuts/Favorites )")}};
    const QPoint below = ui_->cmdCategoryAdd->mapToGlobal(ui_->cmdCategoryAdd->rect().bottomLeft());
    const int choice = MenuChoice(items, below);
    if (choice == 1)
        AddNamed(StoreLevel::Categories, services_.Dialogs.AskText(AddTitle(StoreLevel::Categories), {}, {}));
    // Several may have this name.
    if (choice == 2)
        Run([this] { return organiser_->AddFolder(StoreLevel::Categories, kDynamicCategory); });
}

void frmButton::DeleteFrom(StoreLevel level) {
    const QStringList titles = organiser_->Titles(level);
    const int index = organiser_->Selected(level);
    const QString problem = DeleteProblem(level, titles);
    if (!problem.isEmpty())
        services_.Prompts.Notice(problem);
    if (!problem.isEmpty() || index < 0)
        return;
    const Question question = DeleteQuestion(level, titles[index]);
    if (services_.Prompts.Confirm(question.Text, question.Title))
        Run([&] { return organiser_->Delete(level); });
}

void frmButton::RenameIn(StoreLevel level) {
    const int index = organiser_->Selected(level);
    const Column& column = columns_[std::size_t(level)];
    if (index < 0 || !(column.Rename ? column.Rename : column.Delete)->isEnabled())
        return;
    const bool isButton = level == StoreLevel::Buttons;
    const QString title =
        isButton ? organiser_->Buttons()[std::size_t(index)].Title : organiser_->Titles(level)[index];
    const QString extension =
        isButton ? u'.' + organiser_->Buttons()[std::size_t(index)].Extension : QString();
    const QString name = TrimBlanks(services_.Dialogs.AskText(RenameTitle(level), {}, title));
    // A folder may be called by its number alone.
    if (isButton && name.isEmpty())
        return;
    if (name != title && !ValidateName(name + extension, NamesFor(level), index, services_.Prompts))
        Run([&] { return organiser_->Retitle(level, name); });
}

void frmButton::MoveIn(StoreLevel level, int to) {
    const QStringList titles = organiser_->Titles(level);
    const int from = organiser_->Selected(level);
    if (from < 0 || to < 0 || to >= titles.size() || to == from)
        return;
    const QString problem = MoveProblem(level, titles, from, to);
    if (problem.isEmpty())
        Run([&] { return organiser_->Move(level, to); });
    else
        services_.Prompts.Notice(problem);
}

void frmButton::SortIn(StoreLevel level) {
    const Question question = SortQuestion(level);
    if (organiser_->Selected(level) >= 0 && services_.Prompts.Confirm(question.Text, question.Title))
        Run([&] { return organiser_->Sort(level); });
}

// What Enter and a double click do.
void frmButton::EditIn(StoreLevel level) {
    if (level == StoreLevel::Buttons && ui_->cmdLink->isEnabled())
        cmdLink_Click();
    else
        RenameIn(level);
}

void frmButton::cmdLink_Click() {
    if (organiser_->Selected(StoreLevel::Buttons) < 0)
        return;
    services_.Dialogs.EditLink(*organiser_);
    ShowLists();
}

void frmButton::cmdButtonStyle_Click() {
    if (organiser_->Selected(StoreLevel::Buttons) < 0)
        return;
    const QString fileName = services_.Dialogs.EditStyle(organiser_->ButtonFile());
    if (!fileName.isEmpty())
        organiser_->RereadButtons(fileName);
    ShowLists();
}

void frmButton::cmdOrganiseButton_Click() {
    LaunchRequest request{
        LaunchRequest::Action::OpenTarget, state_.Drives.ToStored(SettingFolder(state_.AppFolder)), {}, {}};
    services_.Opener.Open(request, {state_.Drives, state_.AppPath});
    explorerMode_ = true;
    EnableCommands();
}

void frmButton::cmdHow_Click() {
    const Question help = FileManagerHelp(state_.HomepageAddress);
    services_.Prompts.Notice(help.Text, help.Title);
}

// The panel's category is kept by its place, which may have changed.
void frmButton::KeepPanelCategory() {
    if (state_.SelectedCategory < 0 || state_.SelectedCategory >= int(state_.Catalogue.size()))
        return;
    const QString shown = state_.Catalogue[std::size_t(state_.SelectedCategory)].FolderName;
    const QString now = organiser_->CategoryNow(shown);
    // Not those of the list, which the file manager may have changed.
    std::vector<StoreFolder> categories;
    work_([&] { categories = ReadFolders(SettingFolder(state_.AppFolder)); });
    const auto found = std::find_if(categories.begin(), categories.end(),
                                    [&now](const StoreFolder& each) { return each.FolderName == now; });
    if (found != categories.end())
        state_.SelectedCategory = int(found - categories.begin());
}

void frmButton::cmdApply_Click() {
    KeepPanelCategory();
    organiser_->ForgetChanges();
    services_.ReloadPanel();
    // The new panel may cover the dialog.
    raise();
    activateWindow();
}

void frmButton::done(int result) {
    // A window manager may ask for the end in the middle of an operation.
    if (isBusy_)
        return;
    if (organiser_->HasChanges())
        cmdApply_Click();
    QDialog::done(result);
}

} // namespace paneda
