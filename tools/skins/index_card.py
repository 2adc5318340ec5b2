"""Index Card: cream cards in a manila folder, ruled in red."""

from frame import NOMINAL_HEIGHT, NOMINAL_WIDTH, Margins, cut_frame
from glyphs import BUTTON, HIDE_LEFT, MENU_LEFT, down_sign, menu_sign, tree_pictures
from raster import Canvas, black, cut, mix, over, rgb, shadow, tiled, units_of, white
from scrollbar import chevron, skin_pieces, slab, trough
from skin import Option, Skin, settings, title_fonts, tree_colours
from strips import ramp, strip
from texture import paper

NAME = "Index Card"
MARGINS = Margins(left=10, top=15, right=10, bottom=32)
SIDE, HEAD, FOOT, RADIUS = 4, 3, 6, 3
PERIOD = 128

INK = "2E2A33"
RED = "A32A22"
MANILA = "E6D2A0"
BLUE_FOLDER = "B5CADA"


def stock(tone, depth=7, seed=5):
    return paper(PERIOD, rgb(tone), depth, seed)


def frame(tone):
    w, h = NOMINAL_WIDTH, NOMINAL_HEIGHT
    slab = (SIDE, HEAD, w - 2 * SIDE, h - HEAD - FOOT)
    canvas = Canvas(w, h)
    canvas.round_path(*slab, RADIUS)
    canvas.ctx.clip()
    canvas.put(tiled(stock(tone), w, h))
    top = h - MARGINS.bottom
    canvas.fade(0, top, 0, h - FOOT, [(0, black(0.16)), (0.14, black(0.03)), (0.8, black(0.0)), (1, black(0.10))])
    canvas.rect(0, top, w, MARGINS.bottom)
    canvas.ctx.reset_clip()
    edge = mix(rgb(tone), rgb("4A3410"), 0.45)
    x, y, sw, sh = slab
    canvas.ring(x + 1, y + 1, sw - 2, sh - 2, RADIUS - 1, white(0.45))
    canvas.ring(*slab, RADIUS, edge)
    ix, iy, iw, ih = MARGINS.inner(w, h)
    canvas.ring(ix - 2, iy - 2, iw + 4, ih + 4, 0, black(0.06))
    canvas.ring(ix - 1, iy - 1, iw + 2, ih + 2, 0, edge[:3] + (0.75,))
    return over(canvas.image(), shadow(w, h, slab, RADIUS, 2.2, 0.42, drop=1.5))


def stamped_signs(piece):
    """Signs as a rubber stamp leaves them: a thin ring of ink."""
    canvas = Canvas(*units_of(piece))
    canvas.put(piece)
    top = button_top()
    for left, sign in ((HIDE_LEFT, down_sign), (MENU_LEFT, menu_sign)):
        canvas.disc(left + 8, top + 8, 8, white(0.35))
        canvas.ring(left, top, BUTTON, BUTTON, 8, rgb(INK, 0.75))
        sign(canvas, left, top, rgb(INK))
    return canvas.image()


def button_top():
    return (MARGINS.bottom - FOOT - BUTTON) // 2


def tape(piece):
    """A strip of paper tape over the upper edge, torn at both ends."""
    w, h = units_of(piece)
    canvas = Canvas(w, h)
    canvas.put(piece)
    zigzag = [(1, 2), (3, 4), (1, 6), (3, 8), (1, 10), (3, 12)]
    outline = [(3, 1)] + zigzag + [(w - x, y) for x, y in reversed(zigzag)] + [(w - 3, 1)]
    canvas.polygon([(x, y + 1) for x, y in outline], black(0.14))
    canvas.fade(0, 1, 0, 12, [(0, rgb("F3F1E4", 0.92)), (1, rgb("E2E3D6", 0.92))])
    canvas.polygon(outline)
    for x in range(7, w - 6, 6):
        canvas.line([(x + 2, 2), (x - 2, 11.4)], rgb("B0413A", 0.42), 1.6)
    return canvas.image()


def divider(tone):
    """A folder's divider: a lit edge and the shade that the next one throws on it."""
    sheet = stock(tone, 6, 9)
    sheet = tiled(sheet, PERIOD, 22)
    edge = mix(rgb(tone), rgb("4A3410"), 0.5)
    light = [white(0.70)] + ramp(white(0.22), white(0.02), 9) + ramp(black(0.0), black(0.035), 8) + [black(0.06), black(0.10), black(0.16)]
    return over(strip(light + [edge], PERIOD), sheet)


def open_card(tone):
    """The open category: a cream card that stands out of the folder over its red rule."""
    sheet = tiled(stock("FFFDF5", 4, 9), PERIOD, 22)
    edge = mix(rgb(tone), rgb("4A3410"), 0.5)
    light = [rgb("FFFFFF")] + [white(0.0)] * 17 + [rgb("C8453B")] + [white(0.0)] + [black(0.08), edge]
    return over(strip(light, PERIOD), sheet)


def group():
    """A title over a red rule with a pale blue one below, as cards are printed."""
    return strip([white(0.0)] * 14 + [rgb("C8453B", 0.85), white(0.0), rgb("8FB2D6", 0.75)])


def button(height):
    """A slip of white paper that casts a little shade."""
    rows = [rgb("E9E0C8")] + [white(0.85)] * (height - 3)
    return strip(rows + [rgb("DDD2B6"), rgb("C9BB97")])


def scroll_pieces(tone):
    """The thumb is a tab of the folder."""
    edge = mix(rgb(tone), rgb("4A3410"), 0.5)
    card = [(0, rgb(tone)), (1, mix(rgb(tone), edge, 0.12))]
    return skin_pieces(trough(rgb("EFE8D4"), rgb("CDBF9A")), slab(2, card, edge, white(0.5)), chevron(rgb(INK), 1.75))


def foldered(tone):
    """Every piece that carries the folder's colour."""
    pieces = cut_frame(frame(tone), MARGINS, tile=PERIOD)
    pieces["top"] = tape(cut(pieces["topa"], 0, 0, 54, MARGINS.top))
    pieces["bottom"] = stamped_signs(pieces["bottom"])
    pieces.update(category=divider(tone), categoryactive=open_card(tone), **scroll_pieces(tone))
    return pieces


def build():
    pieces = foldered(MANILA)
    pieces.update(
        back=stock("FAF5E6", 6, 3),
        group=group(),
        buttonbig=button(32),
        buttonsmall=button(16),
        **tree_pictures(False, rgb("C8453B")),
    )
    fonts = {
        **title_fonts(size=9, bold=True, name="Georgia"),
        "group font size": "8",
        "group font alignment": "1",
        "category active color": RED,
        "category inactive color": "3A2E1C",
        "group color": INK,
        "button label color": INK,
        "button label border color": "FFFDF5",
        "drive free space color": "1F6A3F",
        "drive capacity color": INK,
        "drive N/A color": RED,
        "drive letter color": "2A4A78",
        "drive bar border color": "6B6470",
        "drive bar free space color": "C8453B",
    }
    tree = tree_colours("FAF5E6", INK, "2A4A78", "FFFFFF")
    keys = settings(fonts, tree, buttons_top=button_top(), logo=7, logo_top=6, logo_left=23)
    return Skin(NAME, pieces, keys, README, [Option("Blue Folder", foldered(BLUE_FOLDER)), Option("No Tape", deleted=["top"])])


README = """Cream cards in a manila folder, titles over a red rule, and a strip of
tape at the upper edge. The open category is the card that stands out.

Options
  Blue Folder  a grey-blue folder instead of manila
  No Tape      a plain upper edge
"""
