#include "skin/button_painter.h"

#include "core/files/ini_file.h"
#include "core/files/path_conversion.h"
#include "core/store/names.h"
#include "core/store/style_code.h"
#include "core/text/text_rules.h"
#include "skin/button_layout.h"
#include "skin/font_size.h"
#include "skin/picture_loader.h"
#include "skin/wrap_label.h"

namespace paneda {

namespace {

constexpr double kNoCap = 100;   // units; no style asks for more
constexpr int kSmoothExtra = 45; // twips that a smooth label may reach beyond its room

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
    QString IconPath() const;
    void PaintSmoothLabel(const LabelFontChoice& choice);
    void PaintSharpLabel(const LabelFontChoice& choice);

    bool HasBorder() const { return IsSwitchedOn(tools_.Theme.LabelBorderOverride, style_.LabelBorder); }
    bool IsBold() const { return IsSwitchedOn(tools_.Theme.LabelBoldOverride, style_.LabelBold); }

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

// What the icon is asked of: the target of a record, else the file itself.
QString Painting::IconPath() const {
    if (!SameName(ExtensionOf(button_.Target), u"PND"))
        return button_.Target;
    const QString record = sources_.Drives.ToHost(button_.Target, sources_.AppPath);
    const QString target = ReadIni(QStringLiteral("Properties"), QStringLiteral("Target"), record);
    if (target.startsWith(u'\\') && target.mid(1, 1) != u"\\")
        return sources_.AppPath.left(2) + target;
    return ResolveRelativePath(target, sources_.AppPath);
}

void Painting::PaintIcon() {
    if (!style_.DrawIcon || button_.Target.isEmpty())
        return;
    const int side = PixelsToTwips(layout_.IconPixels);
    const TwipsRect place{box_.Left + int(kTwipsPerPixel * layout_.IconLeft),
                          box_.Top + int(kTwipsPerPixel * layout_.IconTop), side, side};
    const QString file = sources_.Drives.ToHost(button_.Target, sources_.AppPath);
    const QString picture = sources_.Finder.Find(PictureStem(file));
    if (!picture.isEmpty()) {
        surface_.DrawPicture(LoadPicture(picture, layout_.IconPixels), place,
                             {.Mode = DrawMode::Over, .Fit = true});
        return;
    }
    const QString path = IconPath();
    if (!path.isEmpty())
        surface_.DrawIcon(sources_.Icons.Icon(path, layout_.IconPixels),
                          {place.Left, place.Top, size_.Width, size_.Height});
}

void Painting::PaintLabel() {
    if (!style_.LabelOn)
        return;
    const LabelFontChoice choice = ChooseLabelFont(style_);
    if (choice.IsSharp())
        PaintSharpLabel(choice);
    else
        PaintSmoothLabel(choice);
}

void Painting::PaintSmoothLabel(const LabelFontChoice& choice) {
    const ThemeState& theme = tools_.Theme;
    LabelStyle label;
    label.Font.Family = tools_.Fonts.Family(theme.LabelFontName);
    label.Font.EmSize = FontPixelSize(choice.Points);
    label.Font.Bold = IsBold();
    label.Font.AntiAlias = theme.LabelAntiAlias;
    label.Color = HexToArgb(theme.LabelHex);
    label.AtColumn = AlignColumn(style_.LabelAlignment);
    label.AtRow = AlignRow(style_.LabelAlignment);
    label.Border = HasBorder();
    label.BorderColor = HexToArgb(theme.LabelBorderHex);
    surface_.DrawLabel(
        button_.Caption,
        {box_.Left + layout_.LabelLeft, box_.Top, layout_.LabelWidth + kSmoothExtra, box_.Height}, label);
}

void Painting::PaintSharpLabel(const LabelFontChoice& choice) {
    TextFont font;
    font.Family = tools_.Fonts.Family(QString::fromUtf16(choice.Family));
    font.EmSize = FontPixelSize(choice.Points);
    font.Bold = IsBold();
    font.AntiAlias = false;
    std::optional<Argb> outline;
    if (HasBorder())
        outline = ColorToArgb(tools_.Theme.LabelBorderColor.value_or(0), 255);
    const auto measure = [&font](const QString& text) { return MeasureText(text, font); };
    const double room = double(size_.Width - layout_.LabelIndent) / kTwipsPerPixel;
    const QStringList lines = WrapLabel(button_.Caption, room, choice.MaxLines, measure);
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = TrimBlanks(lines[i]);
        const int width = int(kTwipsPerPixel * measure(line));
        const LinePlace place = PlaceLine(style_, layout_, size_, width, i, int(lines.size()));
        surface_.PrintLine(line, box_.Left + place.Left, box_.Top + place.Top, box_, font,
                           ColorToArgb(tools_.Theme.LabelColor, 255), outline);
    }
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

bool IsSwitchedOn(const QString& skinOverride, bool own) {
    if (skinOverride == u"YES")
        return true;
    return skinOverride == u"NO" ? false : own;
}

} // namespace paneda
