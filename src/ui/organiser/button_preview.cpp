#include "organiser/store_lists.h"
#include "skin/picture_files.h"
#include "skin/picture_loader.h"
#include "ui/common/run_aside.h"
#include "ui/organiser/frmButton.h"
#include "ui/panel/button_icons.h"
#include "ui_frmButton.h"

namespace paneda {

namespace {

constexpr int kIconSide = 32; // pixels at scale 1

// What a look at the disk gives.
struct Preview {
    QImage Picture; // the button's own, or null
    QString Target; // whose icon is shown where there is no picture
};

Preview ReadPreview(const DiskPath& file, const LaunchPaths& paths, const IconSize& size) {
    const QString picture = FindPictureFile(PictureStem(file.Text()));
    Preview preview;
    if (!picture.isEmpty())
        preview.Picture = LoadFittingPicture(picture, size.OnScreen());
    if (preview.Picture.isNull())
        preview.Target = IconTarget(paths.Drives.ToStored(file.Text()), paths);
    return preview;
}

} // namespace

void frmButton::ShowPreview() {
    const int index = organiser_->Selected(StoreLevel::Buttons);
    if (isBusy_ || index < 0)
        return;
    const LaunchPaths paths{state_.Drives, state_.AppPath};
    const IconSize size(kIconSide, devicePixelRatioF());
    RunAside<Preview>(
        *this, [file = organiser_->ButtonFile(), paths, size] { return ReadPreview(file, paths, size); },
        [this, number = previewNumber_, paths, size,
         title = ListTitle(organiser_->Buttons()[std::size_t(index)].TitleExt)](const Preview& preview) {
            if (number == previewNumber_)
                ShowIcon(preview.Picture.isNull() ? services_.FileIcons.IconOf(preview.Target, paths, size)
                                                  : preview.Picture,
                         title);
        });
}

void frmButton::ShowIcon(QImage icon, const QString& title) {
    icon.setDevicePixelRatio(devicePixelRatioF());
    ui_->picIcon->setPixmap(QPixmap::fromImage(icon));
    const QFontMetrics metrics = ui_->lblFileType->fontMetrics();
    ui_->lblFileType->setText(metrics.elidedText(title, Qt::ElideRight, ui_->lblFileType->width()));
    ui_->lblFileType->setToolTip(title);
    ui_->picIcon->show();
    ui_->lblFileType->show();
}

} // namespace paneda
