#include "ui/notes/frmDynamicCat.h"

#include "core/prompts.h"
#include "ui/common/busy_work.h"
#include "ui/common/menu_choice.h"
#include "ui/common/place_beside.h"
#include "ui/notes/frmDynamicCatEdit.h"
#include "ui/organiser/command_icons.h"
#include "ui/settings/paper_look.h"
#include "ui_frmDynamicCat.h"

#include <QKeyEvent>
#include <QPointer>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kGap = 8;           // pixels, to the dialog beside
constexpr double kHintSize = 0.9; // of the desktop's font

} // namespace

// While it lives, events are handled below, and one of them may hide the window that the list belongs to.
// After it the keyboard is the list's again: a key that is meant for a tree must not reach a node.
class frmDynamicCat::AtWork {
public:
    explicit AtWork(frmDynamicCat& list) : list_(&list) { ++list_->atWork_; }
    ~AtWork() {
        if (!list_ || --list_->atWork_ > 0)
            return;
        if (list_->closesLater_)
            list_->close();
        else if (list_->isVisible())
            list_->TakeKeyboard();
    }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;

private:
    const QPointer<frmDynamicCat> list_;
};

frmDynamicCat::frmDynamicCat(TreeManagerServices services, int category, QWidget* parent)
    : QDialog(parent, Qt::Tool | Qt::FramelessWindowHint)
    , services_(std::move(services))
    , ui_(std::make_unique<Ui::frmDynamicCat>()) {
    const CatalogueList& catalogue = services_.State.Catalogue;
    if (std::size_t(category) < catalogue.size())
        category_ = catalogue[std::size_t(category)].FolderName;
    ui_->setupUi(this);
    ui_->fraManage->hide();
    ui_->Label1->setFont(PaperFont(font(), kHintSize));
    ShowLook();
    ui_->lstList->installEventFilter(this);
    ui_->lstList->viewport()->installEventFilter(this);
    if (parent)
        parent->installEventFilter(this);
    connect(ui_->lstList, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* item) { RefreshTreeStru(item->text()); });
    connect(ui_->lstList, &QWidget::customContextMenuRequested, this, &frmDynamicCat::ShowMenu);
    connect(ui_->lblManage, &QToolButton::clicked, this, &frmDynamicCat::lblManage_Click);
    connect(ui_->lblAdd, &QToolButton::clicked, this, &frmDynamicCat::lblAdd_Click);
    connect(ui_->lblEdit, &QToolButton::clicked, this, &frmDynamicCat::lblEdit_Click);
    connect(ui_->lblDelete, &QToolButton::clicked, this, &frmDynamicCat::lblDelete_Click);
    connect(ui_->lblClose, &QToolButton::clicked, this, &frmDynamicCat::close);
}

frmDynamicCat::~frmDynamicCat() = default;

void frmDynamicCat::ShowLook() {
    ui_->fraTrees->setPalette(PaperPalette(palette()));
    ui_->fraTrees->setBackgroundRole(kPaperRole);
    QPalette hint = ui_->fraTrees->palette();
    hint.setColor(QPalette::WindowText, hint.color(QPalette::PlaceholderText));
    ui_->Label1->setPalette(hint);
    const QColor colour = palette().color(QPalette::ButtonText);
    const QColor disabled = palette().color(QPalette::Disabled, QPalette::ButtonText);
    ui_->lblAdd->setIcon(CommandIcon(CommandSign::Add, colour, disabled));
    ui_->lblDelete->setIcon(CommandIcon(CommandSign::Delete, colour, disabled));
    ui_->lblEdit->setIcon(CommandIcon(CommandSign::Rename, colour, disabled));
}

void frmDynamicCat::Form_Load() {
    const AtWork work(*this);
    RefreshList();
    if (Category() >= 0)
        Select(services_.State.Catalogue[std::size_t(Category())].TreeName);
    ui_->lstList->setFocus();
}

void frmDynamicCat::RefreshList() {
    QStringList trees;
    WorkShownBy (*this)([&trees, folder = services_.State.AppFolder] { trees = ListTrees(folder); });
    ui_->lstList->clear();
    ui_->lstList->addItems(trees);
}

QString frmDynamicCat::Selected() const {
    const QListWidgetItem* item = ui_->lstList->currentItem();
    return item ? item->text() : QString();
}

void frmDynamicCat::Select(const QString& tree) {
    const auto found = ui_->lstList->findItems(tree, Qt::MatchExactly | Qt::MatchCaseSensitive);
    ui_->lstList->setCurrentItem(found.isEmpty() ? nullptr : found.first());
}

int frmDynamicCat::Category() const {
    const CatalogueList& catalogue = services_.State.Catalogue;
    const auto found = std::find_if(catalogue.begin(), catalogue.end(), [this](const CategoryEntry& entry) {
        return entry.FolderName == category_;
    });
    return found == catalogue.end() ? -1 : int(found - catalogue.begin());
}

void frmDynamicCat::RefreshTreeStru(const QString& tree) {
    const AtWork work(*this);
    Bind({.Category = Category(), .Tree = tree});
}

void frmDynamicCat::Bind(const TreeBinding& binding) {
    AppState& state = services_.State;
    const CatalogueList before = state.Catalogue;
    const CatalogueList after = BindTree(before, binding);
    std::vector<FileError> failures;
    WorkShownBy (*this)(
        [&, place = TreePlace::Of(state)] { failures = WriteBoundTrees(place, before, after); });
    // Only these: the panel goes by the other fields.
    for (std::size_t i = 0; i < std::min(after.size(), state.Catalogue.size()); ++i) {
        if (state.Catalogue[i].FolderName == after[i].FolderName)
            state.Catalogue[i].TreeName = after[i].TreeName;
    }
    if (!failures.empty())
        services_.Prompts.Notice(FailureText(failures));
    if (services_.TreesBound)
        services_.TreesBound();
}

void frmDynamicCat::TakeKeyboard() {
    raise();
    activateWindow();
    ui_->lstList->setFocus();
}

void frmDynamicCat::lblManage_Click() {
    // The list gives the strip its room.
    ui_->fraManage->setVisible(!ui_->fraManage->isVisible());
}

void frmDynamicCat::lblAdd_Click() {
    EditTree({});
}

void frmDynamicCat::lblEdit_Click() {
    const AtWork work(*this);
    if (Selected().isEmpty())
        services_.Prompts.Notice(QStringLiteral("Please select a Tree to Edit"));
    else
        EditTree(Selected());
}

void frmDynamicCat::EditTree(const QString& tree) {
    const AtWork work(*this);
    const std::optional<QString> name = AskTree(tree);
    if (!name)
        return;
    // Another folder or other colours are seen when it is read again.
    if (!tree.isEmpty() && services_.DropTree)
        services_.DropTree(tree);
    RefreshList();
    Select(*name);
    Bind({.Category = Category(), .Tree = *name, .From = tree, .To = *name});
}

std::optional<QString> frmDynamicCat::AskTree(const QString& tree) {
    frmDynamicCatEdit dialog({.State = services_.State,
                              .Prompts = services_.Prompts,
                              .Opener = services_.Opener,
                              .ChooseColor = services_.ChooseColor,
                              .ChooseFolder = services_.ChooseFolder},
                             tree, this);
    dialog.Form_Load();
    PlaceNextTo(dialog, *this, kGap);
    dialog.exec();
    return dialog.Result();
}

void frmDynamicCat::lblDelete_Click() {
    const AtWork work(*this);
    const QString tree = Selected();
    if (tree.isEmpty()) {
        services_.Prompts.Notice(QStringLiteral("Please select a Tree to Delete"));
        return;
    }
    if (!services_.Prompts.Confirm(QStringLiteral("Are you sure you want to delete the tree '") + tree +
                                       QStringLiteral("' ?\rPlease note that the Content of Tree Will Not be "
                                                      "Deleted, you can delete it by using file explorer"),
                                   QStringLiteral("Delete Tree")))
        return;
    FileResult removed;
    WorkShownBy (*this)(
        [&, place = TreePlace::Of(services_.State)] { removed = RemoveTreeFile(place, tree); });
    if (!removed) {
        services_.Prompts.Notice(removed.error().Text());
        return;
    }
    if (services_.DropTree)
        services_.DropTree(tree);
    RefreshList();
    ui_->lstList->setCurrentRow(0);
    Bind({.Category = Category(), .Tree = Selected(), .From = tree, .To = {}});
}

void frmDynamicCat::ShowMenu(const QPoint& place) {
    const AtWork work(*this);
    if (QListWidgetItem* item = ui_->lstList->itemAt(place))
        ui_->lstList->setCurrentItem(item);
    const std::vector<PopItem> items{{QStringLiteral("mnuTree0"), QStringLiteral("Add Tree")},
                                     {QStringLiteral("mnuTree1"), QStringLiteral("Edit Tree")},
                                     {QStringLiteral("mnuTree2"), QStringLiteral("Delete Tree")}};
    const int choice = MenuChoice(items, ui_->lstList->viewport()->mapToGlobal(place)) - 1;
    if (choice == 0)
        lblAdd_Click();
    else if (choice == 1)
        lblEdit_Click();
    else if (choice == 2)
        lblDelete_Click();
    if (services_.CloseNote)
        services_.CloseNote();
}

bool frmDynamicCat::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Hide) {
        closesLater_ = true;
        if (atWork_ == 0)
            close();
    } else if (watched == ui_->lstList->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const bool isLeft = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        if (isLeft && ui_->lstList->count() == 0)
            QMetaObject::invokeMethod(this, &frmDynamicCat::lblAdd_Click, Qt::QueuedConnection);
    } else if (watched == ui_->lstList && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (Selected().isEmpty())
                lblAdd_Click();
            else
                RefreshTreeStru(Selected());
            return true;
        case Qt::Key_Insert:
            lblAdd_Click();
            return true;
        case Qt::Key_F2:
            lblEdit_Click();
            return true;
        case Qt::Key_Delete:
            lblDelete_Click();
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace paneda
