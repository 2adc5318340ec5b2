#pragma once

#include "core/settings/app_state.h"
#include "platform/file_icons.h"
#include "skin/category_pictures.h"
#include "skin/font_choice.h"
#include "skin/frame_geometry.h"
#include "skin/icon_source.h"
#include "skin/theme_state.h"
#include "ui/panel/drive_figures.h"
#include "ui/panel/panel_look.h"

#include <memory>

namespace paneda {

// Draws the panel with a skin, and keeps the pictures of the categories as files.
class SkinnedPanelLook : public PanelLook {
public:
    // `cached` describes the picture files; null if they may show an older store. The files are used if they
    // were drawn with this skin for a window of the same size; otherwise they are removed.
    SkinnedPanelLook(const AppState& state, ThemeState theme, const PictureRecord* cached, FileIcons& icons,
                     DriveSpace& space);

    PanelMetrics Metrics() const override;
    void SetGeometry(const PanelGeometry& geometry) override;
    PictureRecord Record() const override { return record_; }
    void SetRatio(double ratio) override;
    QImage Picture(int category) override;
    std::vector<QRect> FrameAreas() const override;
    QRect HideArea() const override;
    QRect MenuArea() const override;
    QRect LogoArea() const override;
    void RefreshDrives() override;
    QString DriveTip(int controlIndex) const override { return drives_.TipOf(controlIndex); }
    void RedrawBarTitles() override;
    bool CutsLabel(const ButtonEntry& button, const QSize& size) override;
    std::vector<PictureError> TakeLeftOut() override { return pictures_->TakeLeftOut(); }
    bool PrepareNext() override { return pictures_->PrepareNext(); }

private:
    // Reads the icons of files from the desktop.
    class FileIconSource : public IconSource {
    public:
        FileIconSource(const AppState& state, FileIcons& icons) : state_(state), icons_(icons) {}
        QImage Icon(const QString& path, const IconSize& size) override;

    private:
        const AppState& state_;
        FileIcons& icons_;
    };

    const AppState& state_;
    ThemeState theme_;
    FontChoice fonts_;
    FileIconSource icons_;
    DriveFigures drives_;
    bool usesFiles_;
    double ratio_ = kLeastRatio;
    PictureRecord record_;
    FrameGeometry frame_;
    std::unique_ptr<CategoryPictures> pictures_;
};

} // namespace paneda
