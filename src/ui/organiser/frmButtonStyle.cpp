#include "ui/organiser/frmButtonStyle.h"

#include "core/store/names.h"
#include "organiser/file_kinds.h"
#include "skin/picture_files.h"
#include "ui/common/busy_work.h"
#include "ui/organiser/fetch_favicon.h"
#include "ui_frmButtonStyle.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QPainter>
#include <QToolButton>

#include <utility>

namespace paneda {

namespace {

constexpr int kMostUnits = 10;
constexpr int kHalfCell = kMostUnits + 1; // "half a unit more", behind the widths

// Above the painted picture of a template.
class TemplateButton : public QAbstractButton {
public:
    using QAbstractButton::QAbstractButton;

protected:
    void paintEvent(QPaintEvent*) override {
        if (!hasFocus() && !underMouse())
            return;
        QPainter painter(this);
        QColor color = palette().color(QPalette::Highlight);
        if (!isDown())
            color.setAlphaF(underMouse() ? 0.35F : 0.0F);
        painter.fillRect(rect(), color);
        if (hasFocus()) {
            painter.setPen(palette().color(QPalette::Highlight));
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        }
    }
    void enterEvent(QEnterEvent*) override { update(); }
    void leaveEvent(QEvent*) override { update(); }
};

QString AlignmentName(int index) {
    static const char* const kNames[]{"top left", "top",         "top right", "left",        "centre",
                                      "right",    "bottom left", "bottom",    "bottom right"};
    return QLatin1String(kNames[index]);
}

void Check(QButtonGroup& group, int code) {
    group.button(code)->setChecked(true);
}

} // namespace

frmButtonStyle::frmButtonStyle(const AppState& state, const ButtonStyleServices& services,
                               const DiskPath& button, QWidget* parent)
    : QDialog(parent)
    , state_(state)
    , services_(services)
    , button_(button)
    , ui_(std::make_unique<Ui::frmButtonStyle>())
    , pictures_(state, services_.FileIcons, state.Drives.ToStored(button.Text())) {
    ui_->setupUi(this);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    AddTemplates();
    AddCells();
    optIconAlignment_ = new QButtonGroup(this);
    AddAlignments(*ui_->layIconAlignment, QStringLiteral("optIconAlignment"), QStringLiteral("Icon "),
                  *optIconAlignment_);
    optLabelAlignment_ = new QButtonGroup(this);
    AddAlignments(*ui_->layLabelAlignment, QStringLiteral("optLabelAlignment"), QStringLiteral("Label "),
                  *optLabelAlignment_);
    optPosition_ = new QButtonGroup(this);
    optFont_ = new QButtonGroup(this);
    auto* size = new QButtonGroup(this);
    size->addButton(ui_->optIconBig);
    size->addButton(ui_->optIconSmall);
    const std::pair<QButtonGroup*, std::vector<QRadioButton*>> options[] = {
        {optPosition_, {ui_->optPosition0, ui_->optPosition1, ui_->optPosition2}},
        {optFont_, {ui_->optSmallFonts6, ui_->optSmallFonts7, ui_->optTahoma8, ui_->optTahoma9}}};
    for (const auto& [group, buttons] : options) {
        for (std::size_t i = 0; i < buttons.size(); ++i)
            group->addButton(buttons[i], int(i) + 1);
    }
    ConnectControls();
    OrderTabs();
}

frmButtonStyle::~frmButtonStyle() = default;

void frmButtonStyle::AddTemplates() {
    for (std::size_t i = 0; i < kStyleTemplates.size(); ++i) {
        const StyleTemplate& style = kStyleTemplates[i];
        auto* button = new TemplateButton(ui_->picTemplates);
        button->setObjectName(QStringLiteral("picTemplate") + QLatin1String(style.Name));
        button->setAccessibleName(QLatin1String(style.Spoken));
        button->setToolTip(QLatin1String(style.Spoken));
        button->setFocusPolicy(Qt::StrongFocus);
        button->setGeometry(ToPixels(pictures_.TemplatePlace(i)));
        connect(button, &QAbstractButton::clicked, this,
                [this, &style] { DecodeStyle(QLatin1String(style.Style)); });
    }
}

void frmButtonStyle::AddCells() {
    const auto add = [this](QHBoxLayout& layout, const QString& name, const QString& text,
                            const QString& spoken, std::vector<QToolButton*>& cells) {
        auto* cell = new QToolButton(ui_->fraSize);
        cell->setObjectName(name);
        cell->setText(text);
        cell->setAccessibleName(spoken);
        cell->setCheckable(true);
        cell->setFocusPolicy(Qt::StrongFocus);
        cell->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("+0.5")) + 12);
        // The same green on every desktop, so that the chosen size is seen at once.
        cell->setStyleSheet(QStringLiteral(
            "QToolButton { background: palette(base); color: palette(text); border: 1px solid palette(mid);"
            " padding: 3px 0 }"
            "QToolButton:checked { background: #C0FFC0; color: black }"
            "QToolButton:focus { border-color: palette(highlight) }"));
        layout.addWidget(cell);
        cells.push_back(cell);
    };
    const auto units = [](int i) { return i == 0 ? QStringLiteral("0.5") : QString::number(i); };
    for (int i = 0; i <= kMostUnits; ++i)
        add(*ui_->layWidth, QStringLiteral("txtWidth%1").arg(i), units(i),
            QStringLiteral("Width %1").arg(units(i)), txtWidth_);
    add(*ui_->layWidth, QStringLiteral("txtWidthHalf"), QStringLiteral("+0.5"),
        QStringLiteral("Half a unit wider"), txtWidth_);
    for (int i = 0; i <= 1; ++i)
        add(*ui_->layHeight, QStringLiteral("txtHeight%1").arg(i), units(i),
            QStringLiteral("Height %1").arg(units(i)), txtHeight_);
    ui_->layWidth->addStretch();
    ui_->layHeight->addStretch();
}

void frmButtonStyle::AddAlignments(QGridLayout& layout, const QString& array, const QString& what,
                                   QButtonGroup& group) {
    constexpr int kSide = 3;
    QWidget* box = &group == optIconAlignment_ ? ui_->fraIcon : ui_->fraLabel;
    for (int i = 0; i < kSide * kSide; ++i) {
        auto* option = new QRadioButton(box);
        option->setObjectName(array + QString::number(i));
        option->setAccessibleName(what + AlignmentName(i));
        option->setToolTip(option->accessibleName());
        layout.addWidget(option, i / kSide, i % kSide);
        group.addButton(option, i + 1);
    }
    layout.setColumnStretch(kSide, 1);
}

void frmButtonStyle::ConnectControls() {
    for (int i = 0; i <= kMostUnits; ++i)
        connect(txtWidth_[std::size_t(i)], &QToolButton::clicked, this, [this, i] {
            form_ = WithWidth(form_, i);
            ShowForm();
        });
    connect(txtWidth_[kHalfCell], &QToolButton::clicked, this, [this] {
        form_ = WithWidthHalf(form_);
        ShowForm();
    });
    for (int i = 0; i <= 1; ++i)
        connect(txtHeight_[std::size_t(i)], &QToolButton::clicked, this, [this, i] {
            form_ = WithHeight(form_, i);
            ShowForm();
        });
    for (QGroupBox* box : {ui_->fraIcon, ui_->fraLabel}) {
        for (QAbstractButton* control : box->findChildren<QAbstractButton*>())
            connect(control, &QAbstractButton::toggled, this, &frmButtonStyle::ReadForm);
    }
    connect(ui_->chkBackground, &QCheckBox::toggled, this, &frmButtonStyle::ReadForm);
    connect(ui_->txtLabel, &QLineEdit::textChanged, this, &frmButtonStyle::RefreshPreview);
    connect(ui_->imgOK, &QPushButton::clicked, this, &frmButtonStyle::imgOK_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cmdDeletePicture, &QPushButton::clicked, this, &frmButtonStyle::cmdDeletePicture_Click);
    connect(ui_->cmdRefreshUrl, &QPushButton::clicked, this, &frmButtonStyle::cmdRefreshUrl_Click);
}

// As one reads; the order of creation is another.
void frmButtonStyle::OrderTabs() {
    QWidgetList order;
    const auto add = [&order](const auto& widgets) {
        for (QWidget* widget : widgets)
            order.append(widget);
    };
    add(ui_->picTemplates->findChildren<QAbstractButton*>());
    add(txtWidth_);
    add(txtHeight_);
    add(QWidgetList{ui_->chkIcon, ui_->optIconBig, ui_->optIconSmall});
    add(optIconAlignment_->buttons());
    add(QWidgetList{ui_->chkLabel, ui_->txtLabel});
    add(optFont_->buttons());
    add(QWidgetList{ui_->chkBold, ui_->chkBorder});
    add(optPosition_->buttons());
    add(optLabelAlignment_->buttons());
    add(QWidgetList{ui_->chkBackground, ui_->optButton, ui_->optGroup, ui_->optCategory,
                    ui_->cmdDeletePicture, ui_->cmdRefreshUrl, ui_->imgOK, ui_->cmdCancel});
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

QString frmButtonStyle::Stem() const {
    return PictureStem(button_.Text());
}

void frmButtonStyle::Form_Load() {
    const StoreButton button = ButtonOfName(button_.Name());
    const FileKind kind = KindOfFile(button.TitleExt);
    loading_ = true;
    ui_->txtLabel->setText(button.Title);
    loading_ = false;
    ui_->lblType->setText(kind == FileKind::Shortcut ? QStringLiteral("Shortcut") : button.Extension);
    ui_->cmdRefreshUrl->setVisible(kind == FileKind::WebShortcut);
    ShowPictureCommand();
    DisableWhatTheSkinDecides();
    DecodeStyle(TagOf(button_.Name()));
}

void frmButtonStyle::ShowPictureCommand() {
    bool isThere = false;
    WorkShownBy (*this)([&] { isThere = !FindPictureFile(Stem()).isEmpty(); });
    ui_->cmdDeletePicture->setVisible(isThere);
}

void frmButtonStyle::DisableWhatTheSkinDecides() {
    const ThemeState& theme = pictures_.Theme();
    const std::pair<QCheckBox*, QString> switches[] = {{ui_->chkBackground, theme.ButtonBackOverride},
                                                       {ui_->chkBold, theme.LabelBoldOverride},
                                                       {ui_->chkBorder, theme.LabelBorderOverride}};
    for (const auto& [box, decision] : switches) {
        const bool decided = decision == u"YES" || decision == u"NO";
        box->setEnabled(!decided);
        box->setToolTip(decided ? QStringLiteral("The skin decides this for all buttons") : QString());
    }
}

void frmButtonStyle::DecodeStyle(const QString& code) {
    form_ = DecodeStyleForm(code);
    ShowForm();
}

void frmButtonStyle::ShowForm() {
    loading_ = true;
    const int cell = WidthCell(form_);
    for (int i = 0; i <= kMostUnits; ++i)
        txtWidth_[std::size_t(i)]->setChecked(i == cell);
    txtWidth_[kHalfCell]->setChecked(form_.WidthIsHalf);
    txtHeight_[0]->setChecked(form_.HeightCode == u'0');
    txtHeight_[1]->setChecked(form_.HeightCode != u'0');
    ui_->chkIcon->setChecked(form_.Icon);
    (form_.IconIsBig ? ui_->optIconBig : ui_->optIconSmall)->setChecked(true);
    Check(*optIconAlignment_, form_.IconAlignment);
    Check(*optFont_, form_.LabelFont);
    ui_->chkBorder->setChecked(form_.Border);
    ui_->chkBold->setChecked(form_.Bold);
    Check(*optPosition_, form_.LabelPosition);
    Check(*optLabelAlignment_, form_.LabelAlignment);
    ui_->chkLabel->setChecked(form_.Label);
    ui_->chkBackground->setChecked(form_.Background);
    loading_ = false;
    RefreshPreview();
}

void frmButtonStyle::ReadForm() {
    if (loading_)
        return;
    form_.Icon = ui_->chkIcon->isChecked();
    form_.IconIsBig = ui_->optIconBig->isChecked();
    form_.IconAlignment = optIconAlignment_->checkedId();
    form_.LabelFont = optFont_->checkedId();
    form_.Border = ui_->chkBorder->isChecked();
    form_.Bold = ui_->chkBold->isChecked();
    form_.LabelPosition = optPosition_->checkedId();
    form_.LabelAlignment = optLabelAlignment_->checkedId();
    form_.Label = ui_->chkLabel->isChecked();
    form_.Background = ui_->chkBackground->isChecked();
    RefreshPreview();
}

void frmButtonStyle::RefreshPreview() {
    if (loading_)
        return;
    styleText_ = paneda::EncodeStyle(form_);
    // What a change means is seen when the window is shown; until then its screen is not known.
    if (isVisible())
        ui_->picViewButton->setPixmap(QPixmap::fromImage(
            pictures_.Preview(styleText_, ui_->txtLabel->text(), PictureRatio(devicePixelRatioF()))));
}

void frmButtonStyle::RefreshTemplates() {
    ui_->picTemplates->setPixmap(QPixmap::fromImage(pictures_.Templates(PictureRatio(devicePixelRatioF()))));
}

bool frmButtonStyle::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal) {
        RefreshTemplates();
        RefreshPreview();
    }
    return handled;
}

StyleScope frmButtonStyle::Scope() const {
    if (ui_->optButton->isChecked())
        return StyleScope::Button;
    return ui_->optCategory->isChecked() ? StyleScope::Category : StyleScope::Group;
}

void frmButtonStyle::imgOK_Click() {
    const QString title = ui_->txtLabel->text();
    if (ValidateName(title, {}, kNoException, services_.Prompts))
        return;
    const StyleChange change{button_, title, styleText_, Scope()};
    FileResult applied;
    WorkShownBy (*this)([&] {
        applied = ApplyStyle(change);
        // It may have its new name although a later rename has failed.
        if (applied || !EntryExists(button_))
            button_ = button_.Parent() / RestyledButton(button_.Name(), title, styleText_);
    });
    changed_ = true;
    if (!applied)
        services_.Prompts.Notice(applied.error().Text());
    // Also after a failure: the names of the lists may be old, and so may the one of this button.
    accept();
}

void frmButtonStyle::cmdDeletePicture_Click() {
    FileResult deleted;
    ChangePicture([&] { deleted = DeletePictureFile(Stem()); });
    if (!deleted)
        services_.Prompts.Notice(deleted.error().Text());
}

void frmButtonStyle::cmdRefreshUrl_Click() {
    const bool isThere = FetchFavicon(button_.Text(), Stem() + QStringLiteral(".ico"), FaviconKind::Shortcut,
                                      services_.Downloader, this);
    ChangePicture([] {});
    if (!isThere)
        services_.Prompts.Notice(QStringLiteral("No icon was downloaded."));
}

void frmButtonStyle::ChangePicture(const std::function<void()>& change) {
    changed_ = true;
    WorkShownBy (*this)(change);
    RefreshTemplates();
    RefreshPreview();
    ShowPictureCommand();
}

} // namespace paneda
