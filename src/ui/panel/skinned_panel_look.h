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

// The look of a skin.
class SkinnedPanelLook : public PanelLook {
public:
    // `cached` is what the pictures on file show; null when they show another store. They are used if they
    // are of this skin and of the size that the window gets; else they are removed.
    SkinnedPanelLook(const AppState& state, ThemeState theme, const PictureRecord* cached, FileIcons& icons,
                     DriveSpace& space);

    PanelMetrics Metrics() const override;
    void SetGeometry(const PanelGeometry& geometry) override;
    PictureRecord Record() const override { return record_; }
    QImage Picture(int category) override { return pictures_->Picture(category); }
    std::vector<QRect> FrameAreas() const override;
    QRect HideArea() const override;
    QRect MenuArea() const override;
    QRect LogoArea() const override;
    void RefreshDrives() override;
    QString DriveTip(int controlIndex) const override { return drives_.TipOf(controlIndex); }
    bool CutsLabel(const ButtonEntry& button, const QSize& size) override;
    bool PrepareNext() override { return pictures_->PrepareNext(); }

private:
    // The icons of files as the desktop gives them.
    class FileIconSource : public IconSource {
    public:
        FileIconSource(const AppState& state, FileIcons& icons) : state_(state), icons_(icons) {}
        QImage Icon(const QString& path, int pixels) override;

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
    PictureRecord record_;
    FrameGeometry frame_;
    std::unique_ptr<CategoryPictures> pictures_;
};

} // namespace paneda
