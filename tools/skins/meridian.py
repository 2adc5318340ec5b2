"""Meridian: flat colours, square edges, no light and no shade."""

from frame import NOMINAL_HEIGHT, NOMINAL_WIDTH, Margins, cut_frame
from glyphs import HIDE_LEFT, MENU_LEFT, hide_sign, menu_sign, tree_pictures
from raster import BLACK, Canvas, hex_of, mix, rgb, units_of
from scrollbar import skin_pieces, triangle
from skin import Option, Skin, font_block, settings, title_fonts, tree_colours
from strips import strip, with_left_end

NAME = "Meridian"
MARGINS = Margins(left=6, top=10, right=6, bottom=28)
BUTTON_TOP = 6


class Palette:
    """Six flat colours: deep frame, paler bar, paper, plate on paper, accent, ink on paper."""

    def __init__(self, deep, bar, paper, plate, accent, ink):
        self.deep, self.bar, self.paper, self.plate, self.accent, self.ink = map(rgb, (deep, bar, paper, plate, accent, ink))


PETROL = Palette("12455A", "1B5870", "F4EEE1", "E6DCC6", "FFB84D", "20343D")
BERRY = Palette("4A1D3F", "622A54", "F6EEF0", "E9DADF", "FF8A66", "3A1F33")


def frame(palette):
    canvas = Canvas(NOMINAL_WIDTH, NOMINAL_HEIGHT)
    canvas.round_rect(0, 0, NOMINAL_WIDTH, NOMINAL_HEIGHT, 4, palette.deep)
    # The one ornament: the meridian, a line of accent along the head.
    canvas.rect(MARGINS.left, MARGINS.top - 2, NOMINAL_WIDTH - 2 * MARGINS.left, 2, palette.accent)
    return canvas.image()


def bottom_signs(piece, palette):
    canvas = Canvas(*units_of(piece))
    canvas.put(piece)
    for left, sign in ((HIDE_LEFT, hide_sign), (MENU_LEFT, lambda *a: menu_sign(*a, thick=2))):
        canvas.round_rect(left, BUTTON_TOP, 16, 16, 2, palette.bar)
        sign(canvas, left, BUTTON_TOP, palette.paper)
    return canvas.image()


def tab(palette):
    return strip([palette.bar] * 20 + [palette.deep])


def active_tab(palette):
    return strip([palette.accent] * 20 + [palette.deep])


def group(palette):
    """A plain band that an accent mark opens."""
    band = strip([mix(palette.paper, palette.plate, 0.62)] * 16, 1)
    mark = strip([palette.accent] * 16, 2)
    return with_left_end(band, mark)


def button(height, palette):
    return strip([palette.plate] * height)


def scroll_pieces(palette):
    def ground(canvas):
        canvas.rect(0, 0, 16, 16, palette.plate)

    def thumb(canvas, length):
        canvas.rect(3, 1, 10, length - 2, palette.bar)

    return skin_pieces(ground, thumb, triangle(palette.deep))


def coloured(palette):
    pieces = cut_frame(frame(palette), MARGINS)
    pieces["bottom"] = bottom_signs(pieces["bottom"], palette)
    pieces.update(
        back=strip([palette.paper] * 32, 32),
        group=group(palette),
        category=tab(palette),
        categoryactive=active_tab(palette),
        buttonbig=button(32, palette),
        buttonsmall=button(16, palette),
        **scroll_pieces(palette),
    )
    return pieces


def coloured_fonts(palette):
    deep, ink = hex_of(palette.deep), hex_of(palette.ink)
    return {
        "category active color": hex_of(mix(palette.deep, BLACK, 0.45)),
        "category inactive color": hex_of(palette.paper),
        "group color": deep,
        "button label color": ink,
        "button label border color": hex_of(palette.paper),
        "drive capacity color": ink,
        "drive letter color": deep,
        "drive bar border color": deep,
        "drive bar free space color": hex_of(palette.bar),
    }


def build():
    pieces = {**coloured(PETROL), **tree_pictures(False, rgb("D98A14"))}
    fonts = {
        **title_fonts(size=8, bold=True),
        **font_block("category inactive", size=8, bold=False),
        **coloured_fonts(PETROL),
        "drive free space color": "1E6B3A",
        "drive N/A color": "A63A1E",
    }
    tree = tree_colours("F4EEE1", "20343D", "12455A", "FFFFFF")
    keys = settings(fonts, tree, buttons_top=BUTTON_TOP, logo=3, logo_top=6, logo_left=23)
    return Skin(NAME, pieces, keys, README, [_berry(), _bare()])


def _berry():
    changes = {"Fonts": coloured_fonts(BERRY), "Tree": {"background color": "F6EEF0", "label color": "3A1F33", "highlight color": "4A1D3F"}}
    return Option("Berry", coloured(BERRY), settings=changes)


def _bare():
    """Plates off, for those who want icons alone on the paper."""
    return Option("Bare Buttons", deleted=["buttonbig", "buttonsmall"])


README = """Flat colours and square edges, without light and shade. The open
category stands in mango, the others in petrol.

Options
  Bare Buttons  no plates behind the buttons
  Berry         plum and coral instead of petrol and mango
"""
