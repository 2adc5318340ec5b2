"""The application icon: the emblem on a blue tile, with more light and depth the larger it is."""

import emblem
from emblem_icons import tile
from surface import Canvas, fitted, rgb, shadow, white

SIZES = (16, 24, 32, 48, 64, 128, 256)
# From this size on there is room for a shadow around the tile and for its lights.
DETAILED = 48

TOP, BOTTOM = rgb("4C9BF5"), rgb("163F8A")
# Space around the tile, its corner radius and a hairline.
FRAME = {16: (0.5, 3.25, 0.125), 22: (1, 4, 0.25), 24: (1, 4.5, 0.5)}


def picture(size):
    canvas = Canvas(size, size)
    if size < DETAILED:
        tile(canvas, size)
    else:
        _detailed(canvas, size)
    return canvas.image()


def _detailed(canvas, size):
    space, radius, line = fitted(FRAME, size)
    edge = size - 2 * space
    rect = (space, space, edge, edge)
    canvas.put(shadow(size, size, rect, radius, space * 0.6, 0.5, drop=space * 0.4))
    canvas.round_path(*rect, radius)
    canvas.fade(0, space, 0, size - space, [(0, TOP), (1, BOTTOM)])
    canvas.ctx.fill()
    _gloss(canvas, size, rect, radius)
    canvas.round_path(*rect, radius)
    canvas.ctx.clip()
    canvas.ring(*rect, radius, white(0.35), line)
    canvas.ctx.reset_clip()
    layout = fitted(emblem.ON_TILE, size)
    canvas.put(_emblem_shadow(size, layout))
    emblem.draw(canvas, layout, (rgb("FFFFFF"), rgb("DCE8F6")), (rgb("DDF1FF"), rgb("8CCBFF")))


def _gloss(canvas, size, rect, radius):
    """A pane of light whose lower edge runs across the tile."""
    ctx = canvas.ctx
    ctx.save()
    canvas.round_path(*rect, radius)
    ctx.clip()
    ctx.move_to(0, 0)
    ctx.line_to(size, 0)
    ctx.line_to(size, size * 0.34)
    ctx.curve_to(size * 0.66, size * 0.56, size * 0.34, size * 0.5, 0, size * 0.62)
    ctx.close_path()
    canvas.fade(0, 0, 0, size * 0.6, [(0, white(0.26)), (1, white(0.05))])
    ctx.fill()
    ctx.restore()


def _emblem_shadow(size, layout):
    left, top, stem, height, gap, width, round_height, radius = layout
    tall = shadow(size, size, (left, top, stem, height), radius, size / 64, 0.4, drop=size / 64)
    tall.alpha_composite(shadow(size, size, (left + stem + gap, top, width, round_height), round_height / 2, size / 64, 0.4, drop=size / 64))
    return tall
