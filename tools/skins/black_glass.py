"""Paneda Black Glass: a slab of smoked glass with a lit azure tab."""

import scrollbar
from frame import NOMINAL_HEIGHT, NOMINAL_WIDTH, Margins, cut_frame
from glyphs import BUTTON, HIDE_LEFT, MENU_LEFT, down_sign, menu_sign, tree_pictures
from raster import Canvas, black, cut, over, rgb, shadow, units_of, white
from skin import Option, Skin, settings, title_fonts, tree_colours
from strips import WIDEST, fading, ramp, strip

NAME = "Paneda Black Glass"
BODY = (17, 19, 24)
# Height of the bottom bar and, from the window's upper edge, of the light on the sides.
BAR, SHEEN = 26, 64
BUTTON_TOP = (BAR - BUTTON) // 2


class Slab:
    """The glass and the room for the soft shadow round it, in pixels."""

    def __init__(self, side, head, foot, radius, alpha):
        self.side, self.head, self.foot, self.radius, self.alpha = side, head, foot, radius, alpha
        self.margins = Margins(left=side + 7, top=head + 11, right=side + 7, bottom=foot + BAR)
        self.rect = (side, head, NOMINAL_WIDTH - 2 * side, NOMINAL_HEIGHT - head - foot)


GLASS = Slab(side=4, head=3, foot=6, radius=7, alpha=0.93)
# For desktops that show no alpha: square, so that no corner would turn black, and without shadow.
SOLID = Slab(side=0, head=0, foot=0, radius=0, alpha=1.0)


def frame(slab):
    """The empty slab with its shadow."""
    w, h = NOMINAL_WIDTH, NOMINAL_HEIGHT
    rect, radius, alpha, head = slab.rect, slab.radius, slab.alpha, slab.head
    canvas = Canvas(w, h)
    canvas.round_path(*rect, radius)
    canvas.fade(0, head, 0, SHEEN, [(0, rgb("59626F", alpha)), (0.16, rgb("2E343D", alpha)), (1, BODY + (alpha,))])
    canvas.ctx.fill()
    _foot(canvas, slab)
    canvas.ring(*rect, radius, black(0.9))
    _rim(canvas, rect, radius)
    x, y, iw, ih = slab.margins.inner(w, h)
    canvas.ring(x - 2, y - 2, iw + 4, ih + 4, 1, white(0.09))
    canvas.ring(x - 1, y - 1, iw + 2, ih + 2, 0, black(0.75))
    if not slab.side:
        return canvas.image()
    return over(canvas.image(), shadow(w, h, rect, radius, 2.3, 0.6, drop=1.5))


def _foot(canvas, slab):
    """The bottom bar: a gloss that breaks at half its height."""
    x, y, w, h = slab.rect
    bottom = y + h
    top = bottom - BAR
    canvas.ctx.save()
    canvas.round_path(*slab.rect, slab.radius)
    canvas.ctx.clip()
    middle = (top + bottom) // 2
    canvas.fade(0, top, 0, middle, [(0, white(0.17)), (1, white(0.09))])
    canvas.rect(x, top, w, middle - top)
    canvas.fade(0, middle, 0, bottom, [(0, white(0.01)), (1, white(0.07))])
    canvas.rect(x, middle, w, bottom - middle)
    canvas.ctx.restore()


def _rim(canvas, rect, radius):
    """Light caught by the upper edge, fading down the sides."""
    x, y, w, h = rect
    canvas.fade(0, y, 0, SHEEN, [(0, white(0.62)), (0.2, white(0.30)), (1, white(0.13))])
    canvas.ring(x + 1, y + 1, w - 2, h - 2, radius - 1)


def bottom_signs(piece):
    """The two round glass buttons on the bottom piece."""
    canvas = Canvas(*units_of(piece))
    canvas.put(piece)
    top = BUTTON_TOP
    for left, sign in ((HIDE_LEFT, down_sign), (MENU_LEFT, menu_sign)):
        cx, cy = left + BUTTON / 2, top + BUTTON / 2
        canvas.disc(cx, cy, 8, black(0.55))
        canvas.fade(0, top, 0, top + BUTTON, [(0, rgb("6B7686")), (0.5, rgb("343B46")), (0.52, rgb("1F242C")), (1, rgb("3B4552"))])
        canvas.disc(cx, cy, 7)
        canvas.ctx.arc(cx, cy, 6.5, 0, 6.2832)
        canvas.ctx.set_line_width(1)
        canvas.fade(0, top, 0, top + BUTTON, [(0, white(0.5)), (0.6, white(0.08)), (1, white(0.16))])
        canvas.ctx.stroke()
        sign(canvas, left, top, rgb("F2F6FB"))
    return canvas.image()


def back(alpha):
    """Smoked glass with one curved reflection; soft enough to be stretched to any panel."""
    w, h = 192, 384
    canvas = Canvas(w, h)
    canvas.fade(0, 0, 0, h, [(0, rgb("22262E", alpha)), (0.35, rgb("16191F", alpha)), (1, rgb("0E1014", alpha))])
    canvas.rect(0, 0, w, h)
    ctx = canvas.ctx
    ctx.move_to(0, 0)
    ctx.line_to(w, 0)
    ctx.line_to(w, h * 0.17)
    ctx.curve_to(w * 0.62, h * 0.20, w * 0.25, h * 0.34, 0, h * 0.56)
    ctx.close_path()
    canvas.fade(0, 0, w * 0.5, h * 0.5, [(0, white(0.075)), (1, white(0.025))])
    ctx.fill()
    return canvas.image()


def tab():
    """Solid: above a tree the inner area is clear, and a bar has to be read there as well."""
    rows = [rgb("51565F")] + ramp(rgb("363B43"), rgb("2A2F36"), 10) + ramp(rgb("1B1F25"), rgb("23282F"), 10) + [rgb("05070A")]
    return strip(rows)


def lit_tab(bright, light, middle, deep, low):
    """The open category: bright upper edge, gloss, and light that gathers at the foot."""
    rows = [rgb(bright)] + ramp(rgb(light), rgb(middle), 10) + ramp(rgb(deep), rgb(low), 10) + [rgb("05090F", 0.9)]
    return strip(rows)


def group(glow):
    left = ramp(white(0.15), white(0.08), 14) + [rgb(glow, 0.75), black(0.6)]
    right = ramp(white(0.07), white(0.03), 14) + [rgb(glow, 0.18), black(0.35)]
    return fading(left, right, 240, WIDEST)


def button(height):
    upper = height // 2
    rows = [white(0.20)] + ramp(white(0.115), white(0.07), upper - 1) + ramp(white(0.04), white(0.06), height - upper - 1)
    return strip(rows + [black(0.45)])


def grip(whole, slab):
    """Three dots in the middle of the upper edge, where a hand would take the panel."""
    left, height = (NOMINAL_WIDTH - 30) // 2, slab.margins.top
    canvas = Canvas(30, height)
    canvas.put(cut(whole, left, 0, left + 30, height))
    for x in (9, 15, 21):
        canvas.disc(x, slab.head + 5.5, 1.8, black(0.55))
        canvas.disc(x, slab.head + 5, 1.5, rgb("B9C3CF"))
    return canvas.image()


def scroll_pieces():
    glass = [(0, rgb("5A6472")), (0.48, rgb("3C444F")), (0.52, rgb("2A313A")), (1, rgb("3A4350"))]
    return scrollbar.skin_pieces(
        scrollbar.trough(rgb("0D0F13"), rgb("05070A"), white(0.05)),
        scrollbar.slab(3, glass, rgb("05070A"), white(0.32)),
        scrollbar.chevron(rgb("AEB9C6"), 2),
    )


def framed(slab):
    """The pieces that differ between the glass and the solid slab."""
    whole = frame(slab)
    pieces = cut_frame(whole, slab.margins, corner_height=SHEEN)
    pieces.update(top=grip(whole, slab), bottom=bottom_signs(pieces["bottom"]), back=back(slab.alpha))
    return pieces


AZURE = ("A9D6FF", "3F78B8", "2C65A8", "17498A", "2A6CB4")
AMBER = ("FFDC9A", "96631A", "83520F", "6A3F06", "8C5A12")


def build():
    pieces = framed(GLASS)
    pieces.update(
        group=group("6FB4F5"),
        category=tab(),
        categoryactive=lit_tab(*AZURE),
        buttonbig=button(32),
        buttonsmall=button(16),
        **tree_pictures(True, rgb("4FA3F0")),
        **scroll_pieces(),
    )
    fonts = {
        **title_fonts(size=8, bold=True),
        "category active color": "FFFFFF",
        "category inactive color": "D5DDE7",
        "group color": "BFE0FF",
        "background drawmethod": "stretch",
        "button label color": "F1F5FA",
        "button label border color": "07090C",
        "drive free space color": "B2EBC4",
        "drive capacity color": "DDE5EE",
        "drive N/A color": "FFC9BA",
        "drive letter color": "FFFFFF",
        "drive bar border color": "8FA3B8",
        "drive bar free space color": "58B0FF",
    }
    tree = tree_colours("14171C", "E6ECF3", "2A63A6", "FFFFFF")
    keys = settings(fonts, tree, buttons_top=BUTTON_TOP, logo=1, logo_top=6, logo_left=23)
    return Skin(NAME, pieces, keys, README, [Option("Solid", framed(SOLID)), _amber(), Option("No Grip", deleted=["top"])])


def _amber():
    pieces = {"categoryactive": lit_tab(*AMBER), "group": group("FFC061")}
    changes = {
        "Fonts": {"group color": "FFE0A8", "drive bar free space color": "FFB545", "drive free space color": "FFD98A"},
        "Tree": {"highlight color": "80500E"},
    }
    return Option("Amber Lamp", pieces, settings=changes)


README = """A slab of smoked glass with a soft shadow. What lies behind the panel
shimmers through; the open category is lit from below.

Options
  Amber Lamp  an amber tab instead of the azure one
  No Grip     without the three dots at the upper edge
  Solid       no translucency and no shadow, for desktops that cannot
              show a see-through window
"""
