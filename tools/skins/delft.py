"""Delft Porcelain: white glaze with lines of cobalt, and a cobalt tab."""

from frame import NOMINAL_HEIGHT, NOMINAL_WIDTH, Margins, cut_frame
from glyphs import BUTTON, HIDE_LEFT, MENU_LEFT, down_sign, menu_sign, tree_pictures
from raster import Canvas, black, over, pixels, rgb, shadow, units_of, white
from scrollbar import chevron, skin_pieces, trough
from skin import Option, Skin, settings, title_fonts, tree_colours
from strips import ramp, strip

NAME = "Delft Porcelain"
MARGINS = Margins(left=12, top=16, right=12, bottom=33)
SIDE, HEAD, FOOT, RADIUS = 4, 3, 6, 8

# Ink from light to dark.
COBALT = ("8FA9DD", "4A6FBE", "2B4F9E", "1B3675")
CELADON = ("8CC5B0", "3F8C74", "2A6A57", "184638")


def frame(ink):
    w, h = NOMINAL_WIDTH, NOMINAL_HEIGHT
    x, y, sw, sh = slab = (SIDE, HEAD, w - 2 * SIDE, h - HEAD - FOOT)
    canvas = Canvas(w, h)
    canvas.round_rect(*slab, RADIUS, rgb("F8FAFD"))
    _foot(canvas, slab)
    canvas.ring(*slab, RADIUS, rgb("A9B7CC"))
    canvas.ring(x + 1, y + 1, sw - 2, sh - 2, RADIUS - 1, white(1.0))
    canvas.ring(x + 2, y + 2, sw - 4, sh - 4, RADIUS - 2, rgb(ink[1], 0.9))
    ix, iy, iw, ih = MARGINS.inner(w, h)
    canvas.ring(ix - 2, iy - 2, iw + 4, ih + 4, 2, white(1.0))
    canvas.ring(ix - 1, iy - 1, iw + 2, ih + 2, 0, rgb("B4C2D8"))
    return over(canvas.image(), shadow(w, h, slab, RADIUS, 2.2, 0.34, drop=1.5))


def _foot(canvas, slab):
    x, y, w, h = slab
    top = NOMINAL_HEIGHT - MARGINS.bottom
    canvas.ctx.save()
    canvas.round_path(*slab, RADIUS)
    canvas.ctx.clip()
    canvas.fade(0, top, 0, y + h, [(0, rgb("FFFFFF")), (0.5, rgb("F3F6FB")), (1, rgb("E3EAF4"))])
    canvas.rect(x, top, w, h)
    canvas.ctx.restore()


def bottom_signs(piece, ink):
    canvas = Canvas(*units_of(piece))
    canvas.put(piece)
    top = button_top()
    for left, sign in ((HIDE_LEFT, down_sign), (MENU_LEFT, menu_sign)):
        canvas.disc(left + 8, top + 8.5, 8, black(0.10))
        canvas.disc(left + 8, top + 8, 8, rgb(ink[1]))
        canvas.fade(0, top, 0, top + BUTTON, [(0, white(1.0)), (1, rgb("E9EFF8"))])
        canvas.disc(left + 8, top + 8, 7)
        sign(canvas, left, top, rgb(ink[3]))
    return canvas.image()


def button_top():
    return (MARGINS.bottom - FOOT - 3 - BUTTON) // 2 + 1


def flower(piece, ink):
    """A painted blossom with two leaves in the middle of the upper edge."""
    width, _ = units_of(piece)
    canvas = Canvas(*units_of(piece))
    canvas.put(piece)
    middle = width / 2
    canvas.rect(middle - 19, 5, 38, 1, rgb("F8FAFD"))
    for side in (-1, 1):
        ctx = canvas.ctx
        ctx.move_to(middle + side * 5, 9)
        ctx.curve_to(middle + side * 8, 4.5, middle + side * 13, 4.5, middle + side * 19, 5.6)
        ctx.curve_to(middle + side * 15, 10.5, middle + side * 9, 11.5, middle + side * 5, 9)
        canvas.colour(rgb(ink[1]))
        ctx.fill()
        canvas.line([(middle + side * 6, 8.8), (middle + side * 15, 6.8)], white(0.9), 0.9)
        canvas.disc(middle + side * 10, 12, 1.0, rgb(ink[1]))
    for dx, dy in ((0, -3), (2.85, -0.93), (1.76, 2.43), (-1.76, 2.43), (-2.85, -0.93)):
        canvas.disc(middle + dx, 8 + dy, 2.1, rgb(ink[2]))
    canvas.disc(middle, 8, 1.7, rgb("FFFFFF"))
    canvas.disc(middle, 8, 0.9, rgb(ink[3]))
    return canvas.image()


def back(ink):
    """Glaze with a diaper of small crosses, faint as a watermark."""
    size = 24
    canvas = Canvas(size, size)
    canvas.rect(0, 0, size, size, rgb("F1F5FA"))
    for cx, cy in ((6, 6), (18, 18)):
        for dx, dy in ((0, 0), (-1, 0), (1, 0), (0, -1), (0, 1)):
            canvas.rect(cx + dx, cy + dy, 1, 1, rgb(ink[0], 0.26 if dx or dy else 0.06))
    for cx, cy in ((18, 6), (6, 18)):
        canvas.rect(cx, cy, 1, 1, rgb(ink[0], 0.34))
    return canvas.image()


def tab():
    rows = [rgb("FFFFFF")] + ramp(rgb("FCFDFE"), rgb("F3F6FA"), 10) + ramp(rgb("EFF3F8"), rgb("E6ECF5"), 10)
    return strip(rows + [rgb("B9C6DA")])


def inked_tab(ink):
    """Full colour with the double white line that runs round a plate."""
    body = ramp(rgb(ink[2]), rgb(ink[3]), 21)
    body[1] = body[19] = rgb(ink[0])
    return strip(body + [rgb("B9C6DA")])


def group(ink):
    """A white band over a thick and a thin line."""
    rows = ramp(white(0.95), white(0.7), 13) + [rgb(ink[2]), white(0.8), rgb(ink[0])]
    return strip([rgb("D9E2EF")] + rows)


def button(height):
    rows = [white(1.0)] + ramp(white(0.95), rgb("F0F4FA", 0.95), height - 3) + [rgb("DCE4F0")]
    return strip(rows + [rgb("AEBDD4")])


def scroll_pieces(ink):
    """A thumb of glaze with the double line of a plate."""

    def thumb(canvas, length):
        canvas.round_path(2, 1, 12, length - 2, 3)
        canvas.fade(2, 0, 14, 0, [(0, white(1.0)), (1, rgb("E9EFF8"))])
        canvas.ctx.fill()
        canvas.ring(4, 3, 8, length - 6, 1, rgb(ink[0]))
        canvas.ring(2, 1, 12, length - 2, 3, rgb(ink[1]))

    return skin_pieces(trough(rgb("E3EAF4"), rgb("B9C6DA")), thumb, chevron(rgb(ink[2]), 2))


def painted(ink, accent):
    """Every piece that carries ink."""
    pieces = cut_frame(frame(ink), MARGINS)
    start = pieces["topa"].resize(pixels(44, MARGINS.top))
    pieces["bottom"] = bottom_signs(pieces["bottom"], ink)
    pieces.update(top=flower(start, ink), back=back(ink), group=group(ink), categoryactive=inked_tab(ink))
    pieces.update(tree_pictures(False, rgb(accent)), **scroll_pieces(ink))
    return pieces


def inked_fonts(ink):
    return {
        "category inactive color": ink[3],
        "group color": ink[3],
        "drive capacity color": ink[3],
        "drive bar border color": ink[2],
        "drive bar free space color": ink[1],
    }


def build():
    pieces = {**painted(COBALT, COBALT[1]), "category": tab(), "buttonbig": button(32), "buttonsmall": button(16)}
    fonts = {
        **title_fonts(size=8, bold=True),
        **inked_fonts(COBALT),
        "category active color": "FFFFFF",
        # The title stands at the top of its band, clear of the two lines.
        "group font alignment": "1",
        "button label color": "1C2A48",
        "button label border color": "FFFFFF",
        "drive free space color": "1E6B45",
        "drive N/A color": "A8322A",
        "drive letter color": "1C2A48",
    }
    tree = tree_colours("F4F7FB", "1C2A48", "2B4F9E", "FFFFFF")
    keys = settings(fonts, tree, buttons_top=button_top(), logo=2, logo_top=6, logo_left=23)
    return Skin(NAME, pieces, keys, README, [_celadon(), Option("No Flower", deleted=["top"])])


def _celadon():
    changes = {
        "Fonts": inked_fonts(CELADON),
        "Buttons": {"paneda logo design": "4", "paneda logo left": "28"},
        "Tree": {"highlight color": CELADON[2]},
    }
    return Option("Celadon", painted(CELADON, CELADON[1]), settings=changes)


README = """White glaze, a painted rim and a blossom at the upper edge. A light
skin for bright desktops; labels stand in dark ink without an outline.

Options
  Celadon    green ink instead of cobalt
  No Flower  a plain upper edge
"""
