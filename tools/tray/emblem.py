"""The product's emblem: a P made of two panes, a tall one and a round-ended one at its shoulder."""

import math

# Left, top, width of the tall pane, height, gap, width and height of the round pane, corner radius.
ALONE = {
    16: (2, 1, 4, 14, 1, 7, 8, 1),
    22: (3, 1, 5, 20, 2, 9, 12, 1.5),
    24: (3, 1, 6, 22, 2, 10, 14, 1.5),
}
OUTLINED = {
    16: (3, 2, 3, 12, 1, 6, 8, 0.5),
    22: (4, 2, 4, 18, 2, 8, 10, 1),
    24: (4, 2, 5, 20, 2, 9, 12, 1),
}
# A little to the right, as a P has its weight on the left.
ON_TILE = {
    16: (4, 3, 3, 10, 1, 5, 6, 0.5),
    22: (6, 4, 4, 14, 1, 7, 8, 1),
    24: (6, 4, 4, 16, 2, 8, 10, 1),
}
ON_DISC = {
    16: (5, 4, 2, 9, 1, 4, 6, 0.5),
    22: (6, 5, 3, 13, 1, 6, 8, 0.5),
    24: (7, 5, 3, 14, 1, 6, 8, 0.5),
}


def tall_path(canvas, layout):
    left, top, stem, height, _, _, _, radius = layout
    canvas.round_path(left, top, stem, height, radius)


def round_path(canvas, layout):
    """Square on the left, half a circle on the right."""
    left, top, stem, _, gap, width, height, radius = layout
    x, end = left + stem + gap, height / 2
    arc = canvas.ctx.arc
    canvas.ctx.new_sub_path()
    arc(x + radius, top + radius, radius, math.pi, 1.5 * math.pi)
    arc(x + width - end, top + end, end, -math.pi / 2, math.pi / 2)
    arc(x + radius, top + height - radius, radius, math.pi / 2, math.pi)
    canvas.ctx.close_path()


def draw(canvas, layout, pane, accent):
    """Each colour is one colour or a pair, from the top of the emblem to its foot."""
    _, top, _, height, _, _, round_height, _ = layout
    for path, colour, reach in ((tall_path, pane, height), (round_path, accent, round_height)):
        path(canvas, layout)
        if isinstance(colour[0], tuple):
            canvas.fade(0, top, 0, top + reach, [(0, colour[0]), (1, colour[1])])
        else:
            canvas.colour(colour)
        canvas.ctx.fill()


def outline(canvas, layout, colour, width):
    """A line of the given width around the panes, which also fills the gap between them."""
    canvas.colour(colour)
    canvas.ctx.set_line_width(2 * width)
    canvas.ctx.set_line_join(1)
    for path in (tall_path, round_path):
        path(canvas, layout)
        canvas.ctx.stroke()
    left, top, stem, _, gap, _, height, _ = layout
    canvas.rect(left + stem, top, gap, height, colour)
