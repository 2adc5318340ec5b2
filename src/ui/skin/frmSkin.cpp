#include "ui/skin/frmSkin.h"

#include "core/files/web_addresses.h"
#include "core/settings/config_settings.h"
#include "core/text/text_rules.h"
#include "core/text/twips.h"
#include "skin/skin_file.h"
#include "skin/skin_list.h"
#include "skin/skin_option.h"
#include "ui/common/busy_work.h"
#include "ui/common/place_beside.h"
#include "ui/common/tool_tip.h"
#include "ui/settings/paper_look.h"
#include "ui/skin/skin_archive.h"
#include "ui_frmSkin.h"

#include <QDir>
#include <QKeyEvent>
#include <QMimeData>
#include <QSignalBlocker>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

void KeepRoom(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
    control.hide();
}

// The list may be too narrow for a name.
void AddNames(QListWidget& list, const QStringList& names) {
    for (const QString& name : names)
        (new QListWidgetItem(name, &list))->setToolTip(RichTip(name));
}

QString NotInstalled(const QString& path, const QString& reason) {
    return QStringLiteral("%1 cannot be installed.\n\n%2").arg(QDir::toNativeSeparators(path), reason);
}

// The one zip file that is being dropped; empty for anything else.
QString DroppedZip(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    const QString path = urls.size() == 1 ? urls.front().toLocalFile() : QString();
    return path.endsWith(u".zip", Qt::CaseInsensitive) ? path : QString();
}

} // namespace

frmSkin::frmSkin(AppState& state, SkinServices services, QWidget* parent)
    : QDialog(parent), state_(state), services_(std::move(services)), ui_(std::make_unique<Ui::frmSkin>()) {
    ui_->setupUi(this);
    // So that nothing moves when another skin is selected.
    KeepRoom(*ui_->imgReadme);
    KeepRoom(*ui_->imgOption);
    KeepRoom(*ui_->cmdRestore);
    ui_->imgConfigure->setVisible(bool(services_.Configure));
    if (state_.CoBrand) {
        ui_->lblWebInfo->setText(QStringLiteral("Visit %1 for more skins").arg(state_.HomepageAddress));
        ui_->lblDonate->hide();
        ui_->imgFolder->setToolTip({});
    }
    connect(ui_->lstSkin, &QListWidget::currentRowChanged, this, &frmSkin::lstSkin_Click);
    connect(ui_->lstSkin, &QListWidget::itemDoubleClicked, this, &frmSkin::lstSkin_DblClick);
    connect(ui_->lstOption, &QListWidget::itemSelectionChanged, this, &frmSkin::lstOption_Click);
    connect(ui_->lstOption, &QListWidget::itemDoubleClicked, this, &frmSkin::ApplySkinOption);
    connect(ui_->imgAutoChange, &QPushButton::clicked, this, &frmSkin::imgAutoChange_Click);
    connect(ui_->imgOption, &QPushButton::clicked, this, &frmSkin::imgOption_Click);
    connect(ui_->imgConfigure, &QPushButton::clicked, this, &frmSkin::imgConfigure_Click);
    connect(ui_->imgFolder, &QPushButton::clicked, this, &frmSkin::imgFolder_Click);
    connect(ui_->imgReadme, &QPushButton::clicked, this, &frmSkin::imgReadme_Click);
    connect(ui_->cmdRestore, &QPushButton::clicked, this, &frmSkin::cmdRestore_Click);
    connect(ui_->cmdInstall, &QPushButton::clicked, this, &frmSkin::cmdInstall_Click);
    connect(ui_->imgClose, &QPushButton::clicked, this, &QDialog::reject);
    const WebAddresses web = WebAddressesOf(state_.HomepageAddress);
    connect(ui_->lblWebInfo, &QPushButton::clicked, this,
            [this, web] { services_.OpenUrl(web.Skins, ui_->lblWebInfo->text()); });
    connect(ui_->lblDonate, &QPushButton::clicked, this,
            [this, web] { services_.OpenUrl(web.Donate, QStringLiteral("Donate")); });
    connect(&preview_, &SkinPreview::Arrived, this, &frmSkin::ShowFacts);
    ui_->lstOption->installEventFilter(this);
    setAcceptDrops(true);
    Dress();
}

frmSkin::~frmSkin() = default;

void frmSkin::Form_Load() {
    ListAll(state_.SkinName);
    ui_->lstSkin->setFocus();
    const PlaceScene scene = services_.Scene();
    resize(size().boundedTo(RoomForDialog(scene)));
    PlaceDialog(*this, scene);
}

QString frmSkin::Skin() const {
    const QListWidgetItem* item = ui_->lstSkin->currentItem();
    return item ? item->text() : QString();
}

QString frmSkin::Option() const {
    const QList<QListWidgetItem*> selected = ui_->lstOption->selectedItems();
    return selected.isEmpty() ? QString() : selected.front()->text();
}

// False if other work is being done.
bool frmSkin::Work(const std::function<void()>& work) {
    if (std::exchange(isBusy_, true))
        return false;
    WorkShownBy (*this)(work);
    isBusy_ = false;
    return true;
}

void frmSkin::ListAll(const QString& selected) {
    QStringList skins;
    if (!Work([this, &skins] { skins = ListSkins(state_.AppFolder); }))
        return;
    {
        const QSignalBlocker blocker(ui_->lstSkin);
        ui_->lstSkin->clear();
        AddNames(*ui_->lstSkin, skins);
        const auto found = std::find_if(skins.begin(), skins.end(), [&selected](const QString& name) {
            return SameName(name, selected);
        });
        ui_->lstSkin->setCurrentRow(found == skins.end() ? -1 : int(found - skins.begin()));
    }
    MarkUsed();
    lstSkin_Click();
}

void frmSkin::lstSkin_Click() {
    // Before the disk has been looked at: an option of the skin before must not be applied to this one.
    ui_->lstOption->clear();
    EnableCommands();
    ShowPreview();
}

// The skin itself is meant.
void frmSkin::lstSkin_DblClick() {
    ui_->lstOption->clearSelection();
    ChangeSkin();
}

void frmSkin::lstOption_Click() {
    EnableCommands();
    ShowPreview();
}

void frmSkin::ShowPreview() {
    if (Skin().isEmpty()) {
        ShowFacts({});
        return;
    }
    const double ratio = devicePixelRatioF();
    const QSize room = ui_->imgScreenshot->size().expandedTo(ui_->imgScreenshot->sizeHint());
    preview_.Show(
        {state_.AppFolder, Skin(), Option(), ratio, int(std::max(room.width(), room.height()) * ratio)});
}

void frmSkin::ShowFacts(const SkinFacts& facts) {
    ui_->imgScreenshot->SetPicture(facts.Screenshot);
    ui_->imgScreenshot->setAccessibleName(facts.Screenshot.IsNull()
                                              ? QStringLiteral("No screenshot")
                                              : QStringLiteral("Screenshot of ") + Skin());
    ui_->imgReadme->setVisible(facts.HasReadme);
    ui_->cmdRestore->setVisible(facts.HasOriginal);
    QStringList shown;
    for (int i = 0; i < ui_->lstOption->count(); ++i)
        shown.append(ui_->lstOption->item(i)->text());
    if (shown != facts.Options) {
        const QSignalBlocker blocker(ui_->lstOption);
        ui_->lstOption->clear();
        AddNames(*ui_->lstOption, facts.Options);
    }
    EnableCommands();
}

void frmSkin::EnableCommands() {
    const bool hasSkin = !Skin().isEmpty();
    const bool hasOption = !Option().isEmpty();
    for (QWidget* control : {static_cast<QWidget*>(ui_->imgAutoChange),
                             static_cast<QWidget*>(ui_->imgConfigure), static_cast<QWidget*>(ui_->imgFolder)})
        control->setEnabled(hasSkin);
    ui_->lstOption->setEnabled(ui_->lstOption->count() > 0);
    ui_->imgOption->setVisible(hasOption);
    ui_->imgAutoChange->setText(hasOption ? QStringLiteral("A&pply Option") : QStringLiteral("&Use Skin"));
    ui_->imgAutoChange->setToolTip(
        hasOption ? QStringLiteral("Changes the files of the skin as the option says, and shows it")
                  : QStringLiteral("Shows the panel in this skin (Enter)"));
}

// The one that the panel shows.
void frmSkin::MarkUsed() {
    for (int i = 0; i < ui_->lstSkin->count(); ++i) {
        QListWidgetItem* item = ui_->lstSkin->item(i);
        QFont font = ui_->lstSkin->font();
        font.setBold(SameName(item->text(), state_.SkinName));
        item->setFont(font);
    }
}

void frmSkin::imgAutoChange_Click() {
    if (Option().isEmpty())
        ChangeSkin();
    else
        ApplySkinOption();
}

void frmSkin::imgOption_Click() {
    ui_->lstOption->clearSelection();
    ui_->lstOption->setCurrentItem(nullptr);
    ui_->lstOption->setFocus();
}

// The skin is looked at before its name is written: the panel would show another one at each start.
void frmSkin::ChangeSkin() {
    const QString skin = Skin();
    if (skin.isEmpty())
        return;
    QString problem;
    const bool worked = Work([this, skin, &problem] {
        if (const auto theme = ReadSkin(state_.AppFolder, skin); !theme)
            problem = theme.error().Text();
        else if (const FileResult saved = SaveSkinName(state_.AppFolder, skin); !saved)
            problem = QStringLiteral("The skin could not be changed:\n\n") + saved.error().Text();
    });
    if (!problem.isEmpty())
        services_.Prompts.Notice(problem);
    else if (worked)
        Reload();
}

void frmSkin::ApplySkinOption() {
    const QString skin = Skin();
    const QString option = Option();
    if (skin.isEmpty() || option.isEmpty())
        return;
    OptionResult applied;
    if (!Work([&] { applied = ApplyOption(state_.AppFolder, skin, option); }))
        return;
    if (!applied) {
        services_.Prompts.Notice(applied.error());
        return;
    }
    ChangeSkin();
}

void frmSkin::cmdRestore_Click() {
    const QString skin = Skin();
    const QString question =
        QStringLiteral(
            "All files of \"%1\" that options have changed become what they were before the first "
            "of them. What has been changed in these files since then is lost.\n\nDo you want this?")
            .arg(skin);
    if (skin.isEmpty() || !services_.Prompts.Confirm(question, QStringLiteral("Restore Original")))
        return;
    OptionResult restored;
    if (!Work([&] { restored = RestoreOriginal(state_.AppFolder, skin); }))
        return;
    if (!restored) {
        services_.Prompts.Notice(restored.error());
        return;
    }
    // What was selected is no longer applied, and the button that has the keyboard goes.
    ui_->lstOption->clearSelection();
    ui_->lstSkin->setFocus();
    if (SameName(skin, state_.SkinName))
        Reload();
    else
        ShowPreview();
}

void frmSkin::Reload() {
    services_.ReloadPanel();
    // The new panel may cover the window.
    raise();
    activateWindow();
    MarkUsed();
    // The option stays selected, so that the next one is one key away.
    ShowPreview();
}

void frmSkin::imgConfigure_Click() {
    if (!Skin().isEmpty() && services_.Configure(Skin(), this))
        Reload();
}

void frmSkin::imgFolder_Click() {
    const QString skin = Skin();
    QString folder;
    Work([&] { folder = SkinFolderOf(state_.AppFolder, skin).Text(); });
    if (!folder.isEmpty())
        OpenPath(folder + u'/', skin);
}

void frmSkin::imgReadme_Click() {
    const QString skin = Skin();
    QString file;
    Work([&] { file = FindReadme(SkinFolderOf(state_.AppFolder, skin)); });
    if (!file.isEmpty())
        OpenPath(file, QStringLiteral("Read Me"));
}

void frmSkin::cmdInstall_Click() {
    const QString path = services_.Prompts.ChooseFileOf(QStringLiteral("Zip files (*.zip *.ZIP)"),
                                                        QStringLiteral("Choose the zip file of a skin"), {});
    if (!path.isEmpty())
        Install(path);
}

void frmSkin::Install(const QString& path) {
    SkinArchive archive;
    tl::expected<SkinInstall, QString> install;
    QString taken;
    const bool looked = Work([&] {
        install = archive.Open(path);
        if (install)
            taken = InstallProblem(state_.AppFolder, install->Skin);
    });
    if (!looked)
        return;
    if (!install || !taken.isEmpty()) {
        services_.Prompts.Notice(install ? taken : NotInstalled(path, install.error()));
        return;
    }
    if (!services_.Prompts.ConfirmUsual(InstallQuestion(*install), QStringLiteral("Install a Skin")))
        return;
    tl::expected<void, QString> installed;
    if (!Work([&] { installed = archive.Install(state_.AppFolder, *install); }))
        return;
    if (installed)
        ListAll(install->Skin);
    else
        services_.Prompts.Notice(NotInstalled(path, installed.error()));
}

// While no option is selected the list takes its first one for the present one, and Down would pass over it.
bool frmSkin::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->lstOption && event->type() == QEvent::KeyPress && Option().isEmpty()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_Home) {
            ui_->lstOption->setCurrentRow(0);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

// After a move the giver would delete its file.
void frmSkin::TakeCopy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!DroppedZip(*event.mimeData()).isEmpty());
}

void frmSkin::dropEvent(QDropEvent* event) {
    TakeCopy(*event);
    const QString path = DroppedZip(*event->mimeData());
    // Later, so that the giver does not wait for the answer to a question.
    QTimer::singleShot(0, this, [this, path] {
        activateWindow();
        Install(path);
    });
}

void frmSkin::OpenPath(const QString& hostPath, const QString& name) {
    LaunchRequest request;
    request.What = LaunchRequest::Action::OpenTarget;
    request.Target = state_.Drives.ToStored(hostPath);
    request.Name = name;
    services_.Opener.Open(request, {state_.Drives, state_.AppPath});
}

void frmSkin::Dress() {
    ui_->picPaper->setBackgroundRole(kPaperRole);
    ui_->picPaper->setPalette(PaperPalette(palette()));
}

void frmSkin::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Dress();
}

void frmSkin::done(int result) {
    // A window manager may ask for the end in the middle of the work.
    if (!isBusy_)
        QDialog::done(result);
}

} // namespace paneda
