"""The tray pictures that show the emblem, on a ground of its own or bare."""

import emblem
from surface import fitted, mix, rgb, white

WHITE = rgb("FFFFFF")
NIGHT = rgb("1C2733")
# These two stand out from a dark and from a light tray alike.
AZURE, ORANGE = rgb("2F7DE1"), rgb("DD6420")
MINT = (rgb("8DF0BE"), rgb("3FC98A"))

TILE_RADIUS = {16: (3,), 22: (4,), 24: (5,)}
RING = {16: (1,), 22: (1,), 24: (1,)}


def tile(canvas, size):
    """The application's own icon."""
    (radius,) = fitted(TILE_RADIUS, size)
    canvas.fade(0, 0, 0, size, [(0, rgb("3F8DEB")), (1, rgb("1A4C9E"))])
    canvas.round_rect(0, 0, size, size, radius)
    emblem.draw(canvas, fitted(emblem.ON_TILE, size), WHITE, (rgb("D5ECFF"), rgb("9AD4FF")))


def colours(canvas, size):
    emblem.draw(canvas, fitted(emblem.ALONE, size), AZURE, ORANGE)


def light(canvas, size):
    emblem.draw(canvas, fitted(emblem.ALONE, size), WHITE, WHITE)


def dark(canvas, size):
    emblem.draw(canvas, fitted(emblem.ALONE, size), NIGHT, NIGHT)


def outlined(canvas, size):
    layout = fitted(emblem.OUTLINED, size)
    emblem.outline(canvas, layout, rgb("3A2A12"), fitted(RING, size)[0])
    emblem.draw(canvas, layout, rgb("FFF6E6"), (rgb("FFC566"), rgb("FF9F2E")))


def badge(canvas, size):
    """A night-dark disc with a mint ring."""
    (ring,) = fitted(RING, size)
    middle = size / 2
    canvas.fade(0, 0, 0, size, [(0, MINT[0]), (1, MINT[1])])
    canvas.disc(middle, middle, middle)
    canvas.fade(0, 0, 0, size, [(0, mix(NIGHT, white(1.0), 0.12)), (1, NIGHT)])
    canvas.disc(middle, middle, middle - ring)
    emblem.draw(canvas, fitted(emblem.ON_DISC, size), rgb("EAF3F0"), MINT)
