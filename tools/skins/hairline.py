"""Hairline: no frame to speak of, thin lines, small bars; the most panel for the fewest pixels."""

from frame import NOMINAL_HEIGHT, NOMINAL_WIDTH, Margins, cut_frame
from glyphs import HIDE_LEFT, MENU_LEFT, hide_sign, menu_sign, tree_pictures
from raster import Canvas, hex_of, rgb, units_of
from scrollbar import chevron, skin_pieces, trough
from skin import Option, Skin, font_block, settings, title_fonts, tree_colours
from strips import strip, with_left_end

NAME = "Hairline"
MARGINS = Margins(left=3, top=4, right=3, bottom=19)
BUTTON_TOP = 1


class Palette:
    """ground, raised ground, lit ground, line, edge, text, quiet text, accent."""

    NAMES = ("ground", "raised", "lit", "line", "edge", "text", "quiet", "accent")

    def __init__(self, *colours):
        for name, colour in zip(self.NAMES, colours):
            setattr(self, name, rgb(colour))


NIGHT = Palette("16181B", "1E2125", "293D35", "33383E", "5B636C", "EEF1F4", "A9B3BD", "5FE3A4")
DAY = Palette("F7F8F9", "ECEEF0", "DFF0E8", "CDD2D7", "8D969F", "1C2126", "505A64", "0D6B4A")


def frame(p):
    w, h = NOMINAL_WIDTH, NOMINAL_HEIGHT
    canvas = Canvas(w, h)
    canvas.round_rect(0, 0, w, h, 3, p.raised)
    canvas.ring(0, 0, w, h, 3, p.edge)
    x, y, iw, ih = MARGINS.inner(w, h)
    canvas.ring(x - 1, y - 1, iw + 2, ih + 2, 0, p.line)
    return canvas.image()


def bottom_signs(piece, p):
    canvas = Canvas(*units_of(piece))
    canvas.put(piece)
    hide_sign(canvas, HIDE_LEFT, BUTTON_TOP - 2, p.text)
    menu_sign(canvas, MENU_LEFT, BUTTON_TOP, p.text)
    return canvas.image()


def tab(p):
    return strip([p.raised] * 18 + [p.line])


def active_tab(p):
    lit = strip([p.lit] * 18 + [p.line], 1)
    return with_left_end(lit, strip([p.accent] * 18 + [p.line], 2))


def group(p):
    return strip([p.ground[:3] + (0.0,)] * 14 + [p.line])


def button(height, p):
    return strip([p.raised] * (height - 1) + [p.line])


def scroll_pieces(p):
    def thumb(canvas, length):
        canvas.rect(5, 1, 7, length - 2, p.edge)

    return skin_pieces(trough(p.ground, p.line), thumb, chevron(p.quiet, 1.5))


def coloured(p):
    pieces = cut_frame(frame(p), MARGINS)
    pieces["bottom"] = bottom_signs(pieces["bottom"], p)
    pieces.update(
        back=strip([p.ground] * 32, 32),
        group=group(p),
        category=tab(p),
        categoryactive=active_tab(p),
        buttonbig=button(32, p),
        buttonsmall=button(16, p),
        **tree_pictures(p is NIGHT, p.accent),
        **scroll_pieces(p),
    )
    return pieces


def coloured_fonts(p):
    text, quiet = hex_of(p.text), hex_of(p.quiet)
    return {
        "category active color": text,
        "category inactive color": quiet,
        "group color": quiet,
        "button label color": text,
        "button label border color": hex_of(p.ground),
        "drive free space color": hex_of(p.accent),
        "drive capacity color": text,
        "drive N/A color": quiet,
        "drive letter color": text,
        "drive bar border color": hex_of(p.edge),
        "drive bar free space color": hex_of(p.accent),
    }


def tree(p):
    return tree_colours(hex_of(p.ground), hex_of(p.text), hex_of(p.lit), hex_of(p.text))


def build():
    fonts = {
        **title_fonts(size=8, bold=False),
        **font_block("category active", size=8, bold=True),
        **coloured_fonts(NIGHT),
    }
    keys = settings(fonts, tree(NIGHT), buttons_top=BUTTON_TOP, logo=11, logo_top=2, logo_left=26)
    return Skin(NAME, coloured(NIGHT), keys, README, [_daylight(), Option("Bare Buttons", deleted=["buttonbig", "buttonsmall"])])


def _daylight():
    changes = {
        "Fonts": coloured_fonts(DAY),
        "Buttons": {"paneda logo design": "4", "paneda logo top": "1", "paneda logo left": "28"},
        "Tree": tree(DAY),
    }
    return Option("Daylight", coloured(DAY), settings=changes)


README = """Three pixels of frame, thin lines and small bars: the most panel for the
fewest pixels. Take it by any edge or by the bottom bar to drag it.

Options
  Bare Buttons  no plates behind the buttons
  Daylight      dark on light instead of light on dark
"""
