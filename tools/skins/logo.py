"""The eleven word marks for the bottom bar.

The letters are built from one ring and straight stems, so that they stay crisp at this size. The emblem is
a P made of two panes: a tall one and, at its shoulder, a round-ended one that carries the accent.
"""

import math

from raster import Canvas, black, cut, rgb, surface_of, units_of, white

STEM = 2
EMBLEM_WIDTH = 11
EMBLEM_HEIGHT = 13


class Word:
    """Draws letters with the pen at `x`; `size` is the height of the ring, in pixels."""

    def __init__(self, canvas, x, base, size, gap):
        self.canvas, self.x, self.base, self.size, self.gap = canvas, x, base, size, gap
        self.ctx = canvas.ctx
        self.ctx.set_line_width(STEM)
        canvas.colour(black(1.0))

    def write(self, text):
        for letter in text:
            self.x += getattr(self, "_" + letter)() + self.gap
        return self.x - self.gap

    def _stem(self, x, top, bottom):
        self.ctx.rectangle(x, top, STEM, bottom - top)
        self.ctx.fill()

    def _ring(self, start=0.0, end=360.0):
        radius = (self.size - STEM) / 2
        centre = (self.x + self.size / 2, self.base - self.size / 2)
        self.ctx.arc(*centre, radius, math.radians(start), math.radians(end))
        self.ctx.stroke()

    def _p(self):
        self._ring()
        self._stem(self.x, self.base - self.size, self.base + 4)
        return self.size

    def _a(self):
        self._ring()
        self._stem(self.x + self.size - STEM, self.base - self.size, self.base)
        return self.size

    def _d(self):
        self._ring()
        self._stem(self.x + self.size - STEM, self.base - self.size - 4, self.base)
        return self.size

    def _n(self):
        width = self.size - 1
        radius = (width - STEM) / 2
        middle = self.base - self.size + 1 + radius
        self._stem(self.x, self.base - self.size, self.base)
        self.ctx.arc(self.x + width / 2, middle, radius, math.pi, 2 * math.pi)
        self.ctx.stroke()
        self._stem(self.x + width - STEM, middle, self.base)
        return width

    def _e(self):
        self._ring(38, 360)
        middle = self.base - self.size / 2
        self.ctx.rectangle(self.x + 1, math.floor(middle - 0.5), self.size - 1.6, 1.5)
        self.ctx.fill()
        return self.size


def word_mask(size, gap=2, left=0):
    """A black word on a clear ground, cut to its height: 4 pixels above and below the ring's height."""
    canvas = Canvas(90, size + 8)
    end = Word(canvas, left, size + 4, size, gap).write("paneda")
    return cut(canvas.image(), 0, 0, end, size + 8)


def emblem_masks(height, left, top):
    """The tall pane and the accent pane, as two masks of a picture of the given height."""
    masks = []
    for draw in (_tall_pane, _round_pane):
        canvas = Canvas(90, height)
        canvas.ctx.translate(left, top)
        draw(canvas)
        masks.append(canvas.image())
    return masks


def _tall_pane(canvas):
    canvas.round_rect(0, 0, 4, EMBLEM_HEIGHT, 1, black(1.0))


def _round_pane(canvas):
    ctx = canvas.ctx
    ctx.move_to(5, 1)
    ctx.arc(6, 1, 1, math.pi, 1.5 * math.pi)
    ctx.arc(7, 4, 4, -math.pi / 2, math.pi / 2)
    ctx.arc(6, 7, 1, math.pi / 2, math.pi)
    ctx.close_path()
    canvas.colour(black(1.0))
    ctx.fill()


def inked(size, *layers):
    """Paints masks on a clear picture; a layer is (mask, dx, dy, top colour, bottom colour)."""
    canvas = Canvas(*size)
    for mask, dx, dy, top, bottom in layers:
        canvas.fade(0, 2, 0, size[1] - 2, [(0, top), (1, bottom)])
        canvas.ctx.mask_surface(surface_of(mask), dx, dy)
    return canvas.image()


def flat(mask, colour, dx=0, dy=0):
    return (mask, dx, dy, colour, colour)


def _with_emblem(word_colours, pane, accent, *, below=None):
    """Emblem and word; `below` is a colour drawn one pixel lower first, as light or shade."""
    word = word_mask(7, left=EMBLEM_WIDTH + 4)
    width, height = units_of(word)
    height += 1
    tall, round_end = emblem_masks(height, 0, 1)
    layers = []
    if below:
        layers += [flat(mask, below, 0, 1) for mask in (word, tall, round_end)]
    layers += [(word, 0, 0, *word_colours), flat(tall, pane), (round_end, 0, 0, *accent)]
    return inked((width, height), *layers)


def _word_only(top, bottom, *, below=None, above=None):
    word = word_mask(8)
    layers = []
    if above:
        layers.append(flat(word, above, 0, 0))
    if below:
        layers.append(flat(word, below, 0, 2 if above else 1))
    layers.append((word, 0, 1 if above else 0, top, bottom))
    width, height = units_of(word)
    return inked((width, height + 2), *layers)


def _pill(ground, ink):
    """The word cut into a rounded plate."""
    word = word_mask(7)
    width, height = units_of(word)[0] + 13, 19
    canvas = Canvas(width, height)
    canvas.round_rect(0, 0, width, height, 5, ground)
    canvas.colour(ink)
    canvas.ctx.mask_surface(surface_of(word), 6, 2)
    return canvas.image()


def _outlined(line, ink):
    word = word_mask(7)
    width, height = units_of(word)[0] + 13, 19
    canvas = Canvas(width, height)
    canvas.ring(0, 0, width, height, 3, line)
    canvas.colour(ink)
    canvas.ctx.mask_surface(surface_of(word), 6, 2)
    return canvas.image()


def _emblem_alone(pane, accent, below):
    """The emblem between two hairlines, for bars that want no word."""
    width, height = 60, 16
    tall, round_end = emblem_masks(height, 24, 1)
    base = inked((width, height), flat(tall, below, 0, 1), flat(round_end, below, 0, 1), flat(tall, pane), (round_end, 0, 0, *accent))
    canvas = Canvas(width, height)
    canvas.fade(0, 0, 18, 0, [(0, pane[:3] + (0,)), (1, pane[:3] + (0.55,))])
    canvas.rect(0, 7, 18, 1)
    canvas.fade(42, 0, 60, 0, [(0, pane[:3] + (0.55,)), (1, pane[:3] + (0,))])
    canvas.rect(42, 7, 18, 1)
    canvas.put(base)
    return canvas.image()


def all_logos():
    """The pictures in the order of their numbers, 1 to 11."""
    azure = (rgb("9AD4FF"), rgb("3C96E8"))
    return [
        _with_emblem((rgb("FFFFFF"), rgb("C3CDD9")), rgb("E8EEF5"), azure, below=black(0.7)),
        _with_emblem((rgb("1D3B78"), rgb("2B55A3")), rgb("1D3B78"), (rgb("5B8FE0"), rgb("3A6CC4")), below=white(0.9)),
        _with_emblem((rgb("F6F0E4"),) * 2, rgb("F6F0E4"), (rgb("FFB84D"),) * 2),
        _word_only(rgb("26323A"), rgb("26323A")),
        _word_only(rgb("3A2410"), rgb("4A3018"), below=rgb("FFF0BE", 0.75)),
        _word_only(rgb("FFEFB0"), rgb("C9912F"), below=black(0.75)),
        _with_emblem((rgb("3B332B"),) * 2, rgb("3B332B"), (rgb("B8392E"),) * 2),
        _pill(rgb("F4F6F8", 0.92), rgb("1B2027")),
        _outlined(rgb("8FA0A8", 0.7), rgb("E6ECEF")),
        _word_only(rgb("D8DEE3"), rgb("D8DEE3")),
        _emblem_alone(rgb("DDE3EA"), (rgb("8DF0BE"), rgb("3FC98A")), black(0.6)),
    ]
