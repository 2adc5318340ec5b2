#pragma once

#include "core/settings/app_state.h"
#include "core/store/catalogue_cache.h"
#include "platform/drive_space.h"
#include "platform/file_icons.h"
#include "skin/drive_painter.h"
#include "skin/font_choice.h"
#include "skin/panel_painter.h"
#include "skin/piece_sizes.h"
#include "skin/theme_state.h"
#include "ui/panel/panel_look.h"

#include <memory>
#include <optional>
#include <vector>

namespace paneda {

// The look of a skin. Pictures lie in the cache folder; one that is missing there, or made for another size
// of the window, is composed when it is asked for. A cache folder that cannot be written costs time and
// nothing else.
class SkinnedPanelLook : public PanelLook {
public:
    // Pictures on file are used if `cache` is given; else they are all dropped and made anew.
    SkinnedPanelLook(const AppState& state, ThemeState theme, const CacheRecord* cache, FileIcons& icons,
                     DriveSpace& space);
    ~SkinnedPanelLook() override;

    PanelMetrics Metrics() const override;
    void SetGeometry(const PanelGeometry& geometry) override;
    QImage Picture(int category) override;
    QRect HideArea() const override;
    QRect MenuArea() const override;
    QRect LogoArea() const override;
    void RefreshDrives() override;
    QString DriveTip(int controlIndex) const override;
    bool CutsLabel(const ButtonEntry& button, const QSize& size) override;
    bool PrepareNext() override;

    // The sizes of the skin's pictures, for the cache.
    const PieceSizes& Sizes() const { return sizes_; }

private:
    class Composition;

    QImage LoadFitting(int category) const;
    QImage Compose(int category);
    QSize WindowSize() const;

    const AppState& state_;
    ThemeState theme_;
    FileIcons& icons_;
    DriveSpace& space_;
    FontChoice fonts_;
    QString folder_;
    PieceSizes sizes_;
    const PanelGeometry* geometry_ = nullptr;
    std::vector<DriveState> drives_;
    // Alive as long as pictures are composed one after another: it has read the skin's pictures.
    std::unique_ptr<Composition> composition_;
    // The next category to look at in PrepareNext.
    int next_ = 0;
};

} // namespace paneda
