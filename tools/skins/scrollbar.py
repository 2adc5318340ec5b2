"""Pictures of a scroll bar: the ground, the thumb and the arrows, each 16 pixels wide.

The ground is the same in every row and the thumb between its two caps, so that both may be drawn out to any length.
"""

import math

from raster import Canvas, rgb

WIDTH = 16
THUMB_LENGTH = 24
# At either end of the thumb this much keeps its shape.
CAP = 4
# Quarter turns of the upward arrow.
TURNS = {"up": 0, "right": 1, "down": 2, "left": 3}


def ground(paint):
    """paint(canvas) fills a square of WIDTH."""
    canvas = Canvas(WIDTH, WIDTH)
    paint(canvas)
    return canvas.image()


def thumb(paint):
    """paint(canvas, length) fills the picture; its corners have to lie in the caps."""
    canvas = Canvas(WIDTH, THUMB_LENGTH)
    paint(canvas, THUMB_LENGTH)
    return canvas.image()


def arrow(way, sign):
    """sign(canvas) draws an arrow that points up from (8, 5)."""
    canvas = Canvas(WIDTH, WIDTH)
    ctx = canvas.ctx
    ctx.translate(WIDTH / 2, WIDTH / 2)
    ctx.rotate(TURNS[way] * math.pi / 2)
    ctx.translate(-WIDTH / 2, -WIDTH / 2)
    sign(canvas)
    return canvas.image()


def chevron(colour, width=1.75):
    return lambda canvas: canvas.line([(4.5, 9.75), (8, 6.25), (11.5, 9.75)], colour, width)


def triangle(colour):
    return lambda canvas: canvas.polygon([(3, 10), (8, 5), (13, 10)], colour)


def skin_pieces(paint_ground, paint_thumb, sign):
    """The four pieces of a skin, whose tree has an upright bar."""
    return {
        "scrollback": ground(paint_ground),
        "scrollthumb": thumb(paint_thumb),
        "scrollup": arrow("up", sign),
        "scrolldown": arrow("down", sign),
    }


def slab(radius, stops, line, inner):
    """A thumb with a line round it and a lighter one within; the stops of its colour run from left to right."""

    def paint(canvas, length):
        rect = (2, 1, WIDTH - 4, length - 2)
        canvas.round_path(*rect, radius)
        canvas.fade(2, 0, WIDTH - 2, 0, stops)
        canvas.ctx.fill()
        canvas.ring(3, 2, WIDTH - 6, length - 4, radius - 1, inner)
        canvas.ring(*rect, radius, line)

    return paint


def trough(colour, line, far=None):
    """A ground with a line at its left, where it borders on the tree, and perhaps another at its right."""

    def paint(canvas):
        canvas.rect(0, 0, WIDTH, WIDTH, colour)
        canvas.rect(0, 0, 1, WIDTH, line)
        if far:
            canvas.rect(WIDTH - 1, 0, 1, WIDTH, far)

    return paint


def plain_pictures():
    """The built-in bar: greys that are seen on a dark and on a light ground, upright and lying."""

    def paint_ground(canvas):
        canvas.rect(0, 0, WIDTH, WIDTH, rgb("808890", 0.18))

    def paint_thumb(canvas, length):
        canvas.round_rect(2, 2, WIDTH - 4, length - 4, 2, rgb("8B939C"))
        canvas.ring(2, 2, WIDTH - 4, length - 4, 2, rgb("6C747D"))

    pictures = {"background": ground(paint_ground), "thumb": thumb(paint_thumb)}
    pictures.update({way: arrow(way, chevron(rgb("747C85"), 2)) for way in TURNS})
    return pictures


def length_faults(pieces):
    """What would show when the ground and the thumb are drawn out."""
    result = []
    for name, picture in pieces.items():
        if name in ("background", "scrollback"):
            first, last = 0, picture.height
        elif name.endswith("thumb"):
            first = CAP * picture.width // WIDTH
            last = picture.height - first
        else:
            continue
        rows = {picture.crop((0, y, picture.width, y + 1)).tobytes() for y in range(first, last)}
        if len(rows) > 1:
            result.append(f"{name} changes along its length")
    return result
