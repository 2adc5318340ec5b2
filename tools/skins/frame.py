"""Cuts the frame's pieces out of one whole picture of an empty panel.

Painting the frame whole and cutting it afterwards is what makes the pieces meet without a seam.
"""

from dataclasses import dataclass

from raster import cut, units_of

NOMINAL_WIDTH = 720
NOMINAL_HEIGHT = 720


@dataclass
class Margins:
    """Pixels that the frame takes on each side, its soft shadow included."""

    left: int
    top: int
    right: int
    bottom: int

    def inner(self, width=NOMINAL_WIDTH, height=NOMINAL_HEIGHT):
        return (self.left, self.top, width - self.left - self.right, height - self.top - self.bottom)


# As wide as the inner area of the narrowest panel meant to look right, three buttons a row.
BOTTOM_WIDTH = 112


def cut_frame(picture, margins, corner_height=0, tile=8):
    """The pieces of `picture`, a frame of nominal size.

    corner_height: how far the upper corners reach down, when the light on the sides changes there; 0 for
    the top margin. tile: length of the edge pieces, the period of their texture.
    """
    m = margins
    width, height = units_of(picture)
    tall = corner_height or m.top
    # Edges come from the middle, where no corner's shadow reaches, a whole number of periods from the corner.
    along = m.left + (width // 2 - m.left) // tile * tile
    down = tall + (height // 2 - tall) // tile * tile

    def part(x, y, w, h):
        return cut(picture, x, y, x + w, y + h)

    return {
        "topleft": part(0, 0, m.left, tall),
        "topright": part(width - m.right, 0, m.right, tall),
        "bottomleft": part(0, height - m.bottom, m.left, m.bottom),
        "bottomright": part(width - m.right, height - m.bottom, m.right, m.bottom),
        "topa": part(along, 0, tile, m.top),
        "bottoma": part(along, height - m.bottom, tile, m.bottom),
        "lefta": part(0, down, m.left, tile),
        "righta": part(width - m.right, down, m.right, tile),
        "bottom": part((width - BOTTOM_WIDTH) // 2, height - m.bottom, BOTTOM_WIDTH, m.bottom),
    }
