#include "ui/panel/frmAbout.h"

#include "core/text/english_dates.h"
#include "ui_frmAbout.h"

namespace paneda {

frmAbout::frmAbout(const AppState& state, std::function<void(const QString&)> openUrl, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmAbout>()) {
    ui_->setupUi(this);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 1.5);
    ui_->lblProduct->setFont(large);
    ui_->lblProduct->setText(state.ProductName);
    ui_->lblVersion->setText(QStringLiteral("Version ") + state.ProductVersion);
    ui_->lblBuilt->setText(BuiltDateText(state.BuildDate));
    const QString address = state.HomepageAddress.toHtmlEscaped();
    ui_->lblWebsite->setText(QStringLiteral("<a href=\"%1\">%1</a>").arg(address));
    connect(ui_->lblWebsite, &QLabel::linkActivated, this,
            [open = std::move(openUrl)](const QString& link) { open(link); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::hide);
}

frmAbout::~frmAbout() = default;

} // namespace paneda
