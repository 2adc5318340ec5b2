"""Pieces tiled and words written as the panel does it, for tests and contact sheets."""

import cairo
from PIL import Image

from raster import Canvas, rgb

# The preview's stand-ins for fonts that this system need not have.
FAMILIES = {"tahoma": "DejaVu Sans Condensed", "small fonts": "DejaVu Sans Condensed", "georgia": "DejaVu Serif Condensed"}

EM_PIXELS = {10: 13, 9: 12, 8: 11, 7: 9, 6: 8.5}


def em_pixels(points):
    return EM_PIXELS.get(points, int(1.35 * points))


def lay(picture, piece, x, y, w=None, h=None):
    """Tiles a piece over a rectangle, without a size over its own, and replaces what is below, alpha included."""
    width, height = piece.size
    w, h = (width, height) if w is None else (w, h)
    layer = Image.new("RGBA", (w, h), (0, 0, 0, 0))
    for tx in range(0, w, width):
        for ty in range(0, h, height):
            layer.paste(piece, (tx, ty))
    picture.paste(layer, (x, y))


class Text:
    """One line of text in a cairo font with whole-pixel advances, as panels show it."""

    def __init__(self, font_name, em, bold, anti_alias=True):
        weight = cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL
        family = FAMILIES.get(font_name.lower(), font_name)
        options = cairo.FontOptions()
        options.set_antialias(cairo.ANTIALIAS_GRAY if anti_alias else cairo.ANTIALIAS_NONE)
        options.set_hint_style(cairo.HINT_STYLE_SLIGHT if anti_alias else cairo.HINT_STYLE_FULL)
        options.set_hint_metrics(cairo.HINT_METRICS_ON)
        face = cairo.ToyFontFace(family, cairo.FONT_SLANT_NORMAL, weight)
        identity = cairo.Matrix()
        self.font = cairo.ScaledFont(face, cairo.Matrix(em, 0, 0, em, 0, 0), identity, options)
        self.em = em

    def width(self, text):
        return self.font.text_extents(text).x_advance

    def draw(self, picture, text, x, y, w, h, colour, *, column="L", row="C", border=None):
        """Places the line in the rectangle by column letter L C R and row letter T C B."""
        ascent, descent = self.font.extents()[:2]
        left = {"L": x, "C": x + (w - self.width(text)) / 2, "R": x + w - self.width(text)}[column]
        top = {"T": y, "C": y + (h - ascent - descent) / 2, "B": y + h - ascent - descent}[row]
        baseline = round(top + ascent)
        canvas = Canvas(*picture.size)
        ctx = canvas.ctx
        ctx.set_scaled_font(self.font)
        if border:
            canvas.colour(rgb(border))
            for dx in (-1, 0, 1):
                for dy in (-1, 0, 1):
                    ctx.move_to(round(left) + dx, baseline + dy)
                    ctx.show_text(text)
        canvas.colour(rgb(colour))
        ctx.move_to(round(left), baseline)
        ctx.show_text(text)
        picture.alpha_composite(canvas.image())
