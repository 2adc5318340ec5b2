"""Walnut Drawer: a mitred walnut frame round green felt, drawer fronts for tabs, brass at the foot."""

import cairo

from frame import BOTTOM_WIDTH, NOMINAL_HEIGHT, NOMINAL_WIDTH, Margins, cut_frame
from glyphs import BUTTON, HIDE_LEFT, MENU_LEFT, down_sign, menu_sign, tree_pictures
from raster import Canvas, black, cut, over, rgb, shadow, tiled, units_of, white
from scrollbar import chevron, skin_pieces, slab, trough
from skin import Option, Skin, settings, title_fonts, tree_colours
from strips import ramp, strip
from texture import cloth, turned, wood

NAME = "Walnut Drawer"
MARGINS = Margins(left=14, top=15, right=14, bottom=36)
SIDE, HEAD, FOOT, RADIUS = 4, 3, 6, 4
# Length after which the grain repeats.
PERIOD = 256

WALNUT = [rgb(c) for c in ("24130A", "422513", "5A351D", "6E4528", "7A4E2F")]
FRONT = [rgb(c) for c in ("3C2213", "57341D", "693F23", "764A2B", "7C5030")]
MAPLE = [rgb(c) for c in ("C79A5E", "D9B173", "E6C388", "EDCF99", "F2D9A8")]
GREEN = ("1C3B2E", "B8E0C4")
BURGUNDY = ("4A1822", "F2C3B6")


def frame():
    w, h = NOMINAL_WIDTH, NOMINAL_HEIGHT
    m, slab = MARGINS, (SIDE, HEAD, w - 2 * SIDE, h - HEAD - FOOT)
    canvas = Canvas(w, h)
    ctx = canvas.ctx
    canvas.round_path(*slab, RADIUS)
    ctx.clip()
    upright = turned(wood(PERIOD, m.left, WALNUT, 71, 0.6))
    canvas.put(tiled(upright, m.left, h))
    canvas.put(tiled(upright.transpose(1), m.right, h).transpose(0), w - m.right, 0)
    _sides_profile(canvas, w, h)
    _rail(canvas, w)
    _foot(canvas, w, h)
    ctx.reset_clip()
    canvas.ring(*slab, RADIUS, rgb("180B04"))
    ix, iy, iw, ih = m.inner(w, h)
    canvas.ring(ix - 1, iy - 1, iw + 2, ih + 2, 0, rgb("140A05"))
    canvas.ring(ix - 2, iy - 2, iw + 4, ih + 4, 0, rgb("C39A6A", 0.35))
    return over(canvas.image(), shadow(w, h, slab, RADIUS, 2.3, 0.6, drop=1.5))


def _round_profile(canvas, x0, y0, x1, y1):
    """The light on a rounded moulding, across it from the outer to the inner edge."""
    stops = [(0, white(0.05)), (0.22, rgb("FFE2B8", 0.26)), (0.5, white(0.02)), (0.8, black(0.22)), (1, black(0.38))]
    canvas.fade(x0, y0, x1, y1, stops)


def _sides_profile(canvas, w, h):
    m = MARGINS
    _round_profile(canvas, SIDE, 0, m.left - 1, 0)
    canvas.rect(SIDE, 0, m.left - SIDE, h)
    _round_profile(canvas, w - SIDE, 0, w - m.right + 1, 0)
    canvas.rect(w - m.right, 0, m.right - SIDE, h)


def _rail(canvas, w):
    """The upper board, mitred against the sides."""
    m, ctx = MARGINS, canvas.ctx
    ctx.save()
    path = [(SIDE - 1, HEAD - 1), (w - SIDE + 1, HEAD - 1), (w - m.right, m.top), (m.left, m.top)]
    ctx.move_to(*path[0])
    for point in path[1:]:
        ctx.line_to(*point)
    ctx.close_path()
    ctx.clip()
    canvas.put(tiled(wood(PERIOD, m.top, WALNUT, 37, 0.5), w, m.top))
    _round_profile(canvas, 0, HEAD, 0, m.top - 1)
    canvas.rect(0, 0, w, m.top)
    ctx.restore()
    for side in (0, 1):
        edge, inner = (w - SIDE, w - m.right) if side else (SIDE, m.left)
        canvas.line([(edge, HEAD), (inner, m.top)], black(0.45), 0.8)


def _foot(canvas, w, h):
    """The lower board runs from edge to edge, as on a chest."""
    top, height = h - MARGINS.bottom, MARGINS.bottom - FOOT
    board = wood(PERIOD, height, WALNUT, 53, 0.4)
    canvas.put(tiled(board, w, height), 0, top)
    stops = [(0, rgb("FFE2B8", 0.20)), (0.12, white(0.05)), (0.7, black(0.05)), (1, black(0.35))]
    canvas.fade(0, top, 0, top + height, stops)
    canvas.rect(0, top, w, height)
    canvas.rect(0, top, w, 1, rgb("140A05"))
    canvas.rect(0, top + 1, w, 1, rgb("D9AE7C", 0.35))


BRASS = [(0, rgb("F3DE9C")), (0.45, rgb("D4B057")), (0.55, rgb("C49C42")), (1, rgb("D9B863"))]


def _brass(canvas, top, bottom):
    canvas.fade(0, top, 0, bottom, BRASS)


def plaque(piece):
    """The brass plate of the bottom piece with a knob at either end."""
    canvas = Canvas(*units_of(piece))
    canvas.put(piece)
    top, height = 4, MARGINS.bottom - FOOT - 7
    canvas.round_rect(0, top, BOTTOM_WIDTH, height + 1, 3, black(0.6))
    _brass(canvas, top, top + height)
    canvas.round_rect(0, top, BOTTOM_WIDTH, height, 3)
    canvas.ring(0, top, BOTTOM_WIDTH, height, 3, rgb("6B4A12"))
    canvas.ring(1, top + 1, BOTTOM_WIDTH - 2, height - 2, 2, rgb("FFF3C4", 0.55))
    for left, sign in ((HIDE_LEFT, down_sign), (MENU_LEFT, menu_sign)):
        _knob(canvas, left + BUTTON / 2, button_top() + BUTTON / 2)
        sign(canvas, left, button_top(), rgb("3A2408"))
    return canvas.image()


def _knob(canvas, cx, cy):
    canvas.disc(cx, cy + 0.8, 7.6, rgb("4A300A", 0.55))
    canvas.disc(cx, cy, 7.5, rgb("7A5718"))
    light = cairo.RadialGradient(cx - 2, cy - 3, 1, cx, cy, 7)
    for at, tone in ((0, "FFF6D2"), (0.55, "EACB7C"), (1, "B98F38")):
        r, g, b, _ = rgb(tone)
        light.add_color_stop_rgb(at, r / 255, g / 255, b / 255)
    canvas.ctx.set_source(light)
    canvas.disc(cx, cy, 6.6)


def button_top():
    return 4 + (MARGINS.bottom - FOOT - 7 - BUTTON) // 2


def keyhole(piece):
    """A brass plate with a keyhole in the middle of the upper board."""
    w, h = units_of(piece)
    canvas = Canvas(w, h)
    canvas.put(piece)
    canvas.round_rect(0, HEAD + 2, w, h - HEAD - 4, 2, black(0.55))
    _brass(canvas, HEAD + 1, h - 3)
    canvas.round_rect(0, HEAD + 1, w, h - HEAD - 4, 2)
    canvas.ring(0, HEAD + 1, w, h - HEAD - 4, 2, rgb("6B4A12"))
    middle = w / 2
    canvas.disc(middle, 7, 1.6, rgb("1E1206"))
    canvas.polygon([(middle - 0.6, 7), (middle + 0.6, 7), (middle + 1.4, 10.4), (middle - 1.4, 10.4)], rgb("1E1206"))
    for x in (3.5, w - 3.5):
        canvas.disc(x, 8, 1, rgb("7A5718"))
    return canvas.image()


def drawer(tones, seed, edge, gap):
    """A drawer front: a lit upper edge, a rounded lower one and the dark gap to the next."""
    front = wood(PERIOD, 22, tones, seed, 0.5)
    light = [edge] + ramp(white(0.10), white(0.0), 8) + ramp(black(0.0), black(0.16), 10) + [black(0.34), gap, gap]
    return over(strip(light, PERIOD), front)


def group(glow):
    """A ledge over the felt that ends in a line of brass."""
    return strip(ramp(black(0.26), black(0.40), 14) + [rgb(glow, 0.9), black(0.55)])


def button(height):
    """A shallow recess pressed into the felt."""
    return strip([black(0.50), black(0.36)] + ramp(black(0.28), black(0.20), height - 3) + [white(0.16)])


def scroll_pieces():
    """A groove in the felt with a slider of brass."""
    groove = trough(black(0.34), black(0.5), white(0.10))
    return skin_pieces(groove, slab(3, BRASS, rgb("4A300A"), rgb("FFF3C4", 0.5)), chevron(rgb("D9B863"), 2))


def felt(tone):
    return cloth(128, rgb(tone), 17, 11)


def build():
    pieces = cut_frame(frame(), MARGINS, tile=PERIOD)
    pieces["bottom"] = plaque(pieces["bottom"])
    pieces.update(
        top=keyhole(cut(pieces["topa"], 100, 0, 122, MARGINS.top)),
        back=felt(GREEN[0]),
        group=group("C79F4E"),
        category=drawer(FRONT, 19, rgb("C99C6B", 0.55), rgb("140A05")),
        categoryactive=drawer(MAPLE, 23, rgb("FFF4D6", 0.9), rgb("2A1608")),
        buttonbig=button(32),
        buttonsmall=button(16),
        **tree_pictures(True, rgb("D9B863")),
        **scroll_pieces(),
    )
    fonts = {
        **title_fonts(size=8, bold=True),
        "category active color": "2E1808",
        "category inactive color": "FBEFD8",
        "group color": "F0D48C",
        "button label color": "FBF5E6",
        "button label border color": "0E1F18",
        "drive free space color": GREEN[1],
        "drive capacity color": "F3E9D2",
        "drive N/A color": "FFC3A8",
        "drive letter color": "FFFFFF",
        "drive bar border color": "C79F4E",
        "drive bar free space color": "E8C77A",
    }
    tree = tree_colours("183328", "F5EEDC", "C79F4E", "22140A")
    keys = settings(fonts, tree, buttons_top=button_top(), logo=5, logo_top=8, logo_left=28)
    return Skin(NAME, pieces, keys, README, [_burgundy(), Option("No Keyhole", deleted=["top"])])


def _burgundy():
    changes = {
        "Fonts": {"drive free space color": BURGUNDY[1], "button label border color": "260A10"},
        "Tree": {"background color": "3E141D"},
    }
    return Option("Burgundy Felt", {"back": felt(BURGUNDY[0])}, settings=changes)


README = """A walnut frame with mitred corners round a field of felt. Each category
is a drawer; the open one has a front of maple.

Options
  Burgundy Felt  wine-red felt instead of green
  No Keyhole     without the brass plate at the upper edge
"""
