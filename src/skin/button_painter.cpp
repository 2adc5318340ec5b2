#include "skin/button_painter.h"

#include "core/store/style_code.h"
#include "skin/button_label.h"
#include "skin/button_layout.h"

namespace paneda {

namespace {

constexpr double kNoCap = 100; // units; no style asks for more

// One button being painted.
class Painting {
public:
    Painting(DrawingSurface& surface, const ButtonSpec& button, PaintTools& tools, ButtonSources& sources)
        : surface_(surface)
        , button_(button)
        , tools_(tools)
        , sources_(sources)
        , style_(DecodeStyle(button.Style))
        , size_(ButtonSize(button, sources))
        , layout_(LayOutButton(style_, size_))
        , box_{button.Left, button.Top, size_.Width, size_.Height} {}

    void PaintGround();
    void PaintPiece();
    void PaintIcon();
    void PaintLabel();

private:
    DrawingSurface& surface_;
    const ButtonSpec& button_;
    PaintTools& tools_;
    ButtonSources& sources_;
    ButtonStyle style_;
    TwipsSize size_;
    ButtonLayout layout_;
    TwipsRect box_;
};

void Painting::PaintGround() {
    if (button_.Background)
        surface_.FillRect(*button_.Background, box_);
    else if (tools_.Theme.ButtonBackColor)
        surface_.FillRect(tools_.Theme.ButtonBackArgb, box_);
    else if (button_.PreviewWallpaper)
        surface_.DrawPicture(tools_.Piece(tools_.Theme.Pieces.Back), box_, {.Mode = DrawMode::Over});
}

void Painting::PaintPiece() {
    if (button_.Background || !IsSwitchedOn(tools_.Theme.ButtonBackOverride, style_.Background))
        return;
    const SkinPieces& pieces = tools_.Theme.Pieces;
    surface_.DrawPicture(tools_.Piece(style_.IsHalfHeight() ? pieces.ButtonSmall : pieces.ButtonBig), box_,
                         {.Mode = tools_.Theme.ButtonDrawMode});
}

void Painting::PaintIcon() {
    if (!style_.DrawIcon)
        return;
    const int side = PixelsToTwips(layout_.IconPixels);
    const TwipsRect place{box_.Left + int(kTwipsPerPixel * layout_.IconLeft),
                          box_.Top + int(kTwipsPerPixel * layout_.IconTop), side, side};
    const ButtonPicture picture = sources_.PictureOf(button_.Target, {layout_.IconPixels, surface_.Ratio()});
    if (picture.IsOwnFile)
        surface_.DrawPicture(picture.Image, place, {.Mode = DrawMode::Over, .Fit = true});
    else
        surface_.DrawIcon({picture.Image, surface_.Ratio()},
                          {place.Left, place.Top, size_.Width, size_.Height});
}

void Painting::PaintLabel() {
    ButtonLabel(style_, button_.Caption, box_, tools_.Theme, tools_.Fonts).Paint(surface_);
}

} // namespace

TwipsSize ButtonSize(const ButtonSpec& button, const ButtonSources& sources) {
    return {ButtonWidthTwips(button.Style, button.LimitWidth ? sources.ButtonsPerRow : kNoCap),
            ButtonHeight(button.Style)};
}

void PaintButton(DrawingSurface& surface, const ButtonSpec& button, PaintTools& tools,
                 ButtonSources& sources) {
    Painting painting(surface, button, tools, sources);
    painting.PaintGround();
    painting.PaintPiece();
    painting.PaintIcon();
    painting.PaintLabel();
}

} // namespace paneda
