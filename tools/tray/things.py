"""The tray pictures of things: a panel, tiles, a rocket, a star, a start button and a mouse."""

import math

import cairo

from surface import fitted, rgb, white

AZURE, ORANGE, GREEN, VIOLET = rgb("2F7DE1"), rgb("DD6420"), rgb("24935A"), rgb("8A5BD6")
INK, PAPER = rgb("44546A"), rgb("F4F7FA")
TILE_COLOURS = [rgb(c) for c in ("2F7DE1", "1592A6", "24935A", "8A5BD6", "DD6420", "7A8B1E", "C44A8E", "D9483B", "B87A10")]

# x, y, width, height, frame, bar, space above and below buttons, pad beside them, their width and height, gap, foot.
PANEL = {
    16: (1, 0, 14, 16, 1, 2, 1, 2, 2, 2, 1, 2),
    22: (1, 0, 20, 22, 1, 3, 1, 2, 4, 4, 1, 2),
    24: (2, 0, 20, 24, 1, 4, 1, 2, 4, 4, 1, 2),
}
# Edge and gap of a tile, corner radius.
TILES = {16: (4, 2, 1), 22: (6, 2, 1), 24: (6, 3, 1)}
# Margin left and right, margin above and below, line, top of the wheel, its width and height.
MOUSE = {16: (3, 0, 1, 3, 2, 4), 22: (4, 0, 1, 4, 2, 6), 24: (4, 0, 1, 4, 2, 6)}


def panel(canvas, size):
    """The launcher's own: two bars with a row of buttons below each, and the foot."""
    x, y, w, h, frame, bar, space, pad, bw, bh, gap, foot = fitted(PANEL, size)
    canvas.round_rect(x, y, w, h, 2 * frame, INK)
    canvas.rect(x + frame, y + frame, w - 2 * frame, h - 2 * frame - foot, PAPER)
    top = y + frame
    for bar_colour, button_colours in ((AZURE, (ORANGE, GREEN, AZURE)), (ORANGE, (GREEN, AZURE, VIOLET))):
        canvas.rect(x + frame, top, w - 2 * frame, bar, bar_colour)
        for column, colour in enumerate(button_colours):
            canvas.rect(x + frame + pad + column * (bw + gap), top + bar + space, bw, bh, colour)
        top += bar + bh + 2 * space


def tiles(canvas, size):
    edge, gap, radius = fitted(TILES, size)
    for number, colour in enumerate(TILE_COLOURS):
        row, column = divmod(number, 3)
        canvas.round_rect(column * (edge + gap), row * (edge + gap), edge, edge, radius, colour)


def _scaled(canvas, size):
    """Coordinates in sixteenths from here on."""
    canvas.ctx.scale(size / 16, size / 16)


def rocket(canvas, size):
    ctx = canvas.ctx
    _scaled(canvas, size)
    canvas.polygon([(6.2, 11.5), (9.8, 11.5), (8, 16)], rgb("F08A1C"))
    for side in (-1, 1):
        canvas.polygon([(8 + side * 2.5, 7), (8 + side * 6, 11.2), (8 + side * 6, 14), (8 + side * 2.5, 12)], rgb("C93B30"))
    _hull(ctx)
    canvas.colour(INK)
    ctx.fill()
    ctx.save()
    _hull(ctx, 1)
    ctx.clip()
    canvas.rect(0, 0, 16, 16, PAPER)
    canvas.rect(0, 0, 16, 4, rgb("D9483B"))
    ctx.restore()
    canvas.disc(8, 7, 1.6, AZURE)


def _hull(ctx, inset=0.0):
    half = 4 - inset
    ctx.move_to(8, 1.4 * inset)
    ctx.curve_to(8 + half * 0.7, 2 + inset, 8 + half, 5, 8 + half, 7.5)
    ctx.curve_to(8 + half, 9.5, 8 + half * 0.85, 11, 8 + half * 0.65, 12.6 - inset)
    ctx.line_to(8 - half * 0.65, 12.6 - inset)
    ctx.curve_to(8 - half * 0.85, 11, 8 - half, 9.5, 8 - half, 7.5)
    ctx.curve_to(8 - half, 5, 8 - half * 0.7, 2 + inset, 8, 1.4 * inset)
    ctx.close_path()


def star(canvas, size):
    _scaled(canvas, size)
    ctx = canvas.ctx
    ctx.set_line_join(cairo.LINE_JOIN_ROUND)
    ctx.set_line_width(2.2)
    for number in range(10):
        radius = 7.2 if number % 2 == 0 else 3.3
        angle = number * math.pi / 5
        ctx.line_to(8 + radius * math.sin(angle), 8.5 - radius * math.cos(angle))
    ctx.close_path()
    canvas.colour(rgb("A85A12"))
    ctx.stroke_preserve()
    canvas.fade(0, 1, 0, 15, [(0, rgb("FFD95A")), (1, rgb("F5A51C"))])
    ctx.fill()


def start(canvas, size):
    _scaled(canvas, size)
    canvas.fade(0, 0, 0, 16, [(0, rgb("2CA56C")), (1, rgb("15764A"))])
    canvas.disc(8, 8, 8)
    canvas.polygon([(6, 4), (12.5, 8), (6, 12)], white(1.0))


def mouse(canvas, size):
    """The middle button, which calls the panel, is the coloured one."""
    side, above, line, wheel_top, wheel_width, wheel_height = fitted(MOUSE, size)
    width, height = size - 2 * side, size - 2 * above
    canvas.round_rect(side, above, width, height, width / 2, INK)
    canvas.round_rect(side + line, above + line, width - 2 * line, height - 2 * line, width / 2 - line, PAPER)
    split = above + wheel_top + wheel_height + line
    canvas.rect(side + line, split, width - 2 * line, line, INK)
    canvas.rect(size / 2 - wheel_width / 2 - line, above, wheel_width + 2 * line, split - above, INK)
    canvas.round_rect(size / 2 - wheel_width / 2, above + wheel_top - line, wheel_width, wheel_height + line, wheel_width / 2, rgb("F08A1C"))
