#pragma once

#include "core/panel/panel_geometry.h"
#include "core/store/catalogue.h"
#include "skin/button_painter.h"
#include "skin/frame_geometry.h"

#include <QImage>
#include <QString>

namespace paneda {

// What the panel's pictures show. All that is referred to outlives the painter.
struct PanelScene {
    const CatalogueList& Catalogue;
    const PanelGeometry& Geometry; // of that catalogue
    const PieceSizes& Sizes;
    DensePicture Logo;          // null for none
    double Ratio = kLeastRatio; // of the screen
};

// Composes the picture of the window for each category, as it looks with that category opened, in the
// screen's pixels. What has no room above the bars is left out.
class PanelPainter {
public:
    PanelPainter(PanelScene scene, PaintTools& tools, ButtonSources& sources);

    // Frame, wallpaper, bottom piece and logo: what all categories have in common.
    const QImage& PaintFrame();

    // The picture of one category without the titles on the bars.
    QImage PaintBase(int category);

    // Writes the titles of all bars on the picture of one category.
    void DrawBarTitles(DrawingSurface& surface, int category);

private:
    void PaintEdges(DrawingSurface& surface);
    void PaintCorners(DrawingSurface& surface);
    void PaintCentres(DrawingSurface& surface);
    void PaintBottom(DrawingSurface& surface);
    void PaintHeader(DrawingSurface& surface, const GroupEntry& group, const TwipsRect& box, bool ofTree);
    void PaintBars(DrawingSurface& surface, int category);
    void PaintContent(DrawingSurface& surface, int category);
    void DrawTitle(DrawingSurface& surface, const QString& title, const TwipsRect& box, const SkinFont& font,
                   const SkinColor& color);

    PanelScene scene_;
    PaintTools& tools_;
    ButtonSources& sources_;
    TwipsSize window_;
    FrameGeometry frame_;
    QImage paintedFrame_;
};

} // namespace paneda
