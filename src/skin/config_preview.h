#pragma once

#include "core/store/catalogue.h"
#include "skin/panel_painter.h"

#include <QImage>
#include <QSize>

#include <memory>

namespace paneda {

// The picture by which a user judges a skin's fonts: the inner part of a panel of two categories, the first
// one open, with a group of buttons that show the kinds of labels. The panel's own painter makes it.
class ConfigPreview {
public:
    // `skin` is the skin as it is on the disk.
    explicit ConfigPreview(const ThemeState& skin);
    Q_DISABLE_COPY_MOVE(ConfigPreview)

    // In layout pixels.
    QSize Size() const;

    // The preview with the fonts, colours and overrides of `look`, which is of the same skin; its pictures
    // are read once for each ratio. The picture is for a screen of this ratio, and has it. What is
    // transparent shows a checker.
    QImage DrawConfigPreview(const ThemeState& look, double ratio);

private:
    // None of the buttons has an icon.
    class NoIcons : public IconSource {
    public:
        QImage Icon(const QString&, const IconSize&) override { return {}; }
    };

    ThemeState theme_; // of the painter
    PieceSizes sizes_;
    CatalogueList catalogue_;
    PanelGeometry geometry_;
    FontChoice fonts_;
    NoIcons icons_;
    DriveMap drives_;
    ButtonSources sources_;
    std::unique_ptr<PaintTools> tools_;
    std::unique_ptr<PanelPainter> painter_;
    double ratio_ = 0; // of the painter
};

} // namespace paneda
