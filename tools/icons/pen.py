"""The drawing board of the icons and their colours.

An icon is drawn in sixteenths of its edge. What lies on whole sixteenths is sharp at 16, 32, 48, 64 and 96 pixels
alike, so edges and lines keep to them; halves are for what is left out at 16 pixels or may be soft there.
"""

import contextlib
import math
import os
import sys
from dataclasses import dataclass

import cairo

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path += [os.path.join(HERE, "..", "tray"), os.path.join(HERE, "..", "skins")]

from raster import Canvas, rgb  # noqa: E402


@dataclass(frozen=True)
class Tone:
    """A colour that is seen on a dark and on a light ground, with a lighter and a darker one that go with it."""

    mid: tuple
    light: tuple
    dark: tuple


def _tone(mid, light, dark):
    return Tone(rgb(mid), rgb(light), rgb(dark))


BLUE = _tone("3A86E8", "B5D7FF", "2160B4")
TEAL = _tone("1A9BAE", "A6E8EF", "0F6F7E")
GREEN = _tone("2FA568", "A8E6C4", "1D7548")
AMBER = _tone("E5981A", "FFE09A", "B06A08")
ORANGE = _tone("E5702B", "FFC7A0", "B14E14")
RED = _tone("DE5145", "FFBDB5", "A8342A")
PINK = _tone("D05A9C", "F8C0E0", "98386F")
VIOLET = _tone("9068DC", "D9C7FB", "6744AE")
SLATE = _tone("7C8EA6", "C9D4E0", "56687F")
BROWN = _tone("A9774A", "E2C19B", "7A512C")
FACE = _tone("EDB98F", "F8D9BF", "C98C5E")

PAPER = rgb("F7F9FB")
SHADE = rgb("D5DEE8")
INK = rgb("3D4B5E")


class Pen:
    def __init__(self, size, around=0):
        """`around` pixels of the picture lie beyond each edge of the icon."""
        self.size = size
        self.canvas = Canvas(size + 2 * around, size + 2 * around)
        self.ctx = self.canvas.ctx
        self.ctx.translate(around, around)
        self.ctx.scale(size / 16, size / 16)
        self.ctx.set_line_join(cairo.LINE_JOIN_MITER)

    @property
    def fine(self):
        """Whether there is room for details of half a sixteenth."""
        return self.size > 16

    def image(self):
        return self.canvas.image()

    def rect(self, x, y, w, h, colour, radius=0.0):
        self.canvas.round_rect(x, y, w, h, radius, colour)

    def disc(self, x, y, radius, colour):
        self.canvas.disc(x, y, radius, colour)

    def poly(self, colour, *points):
        self.canvas.polygon(points, colour)

    def oval(self, x, y, w, h, colour):
        with self.moved(x + w / 2, y + h / 2, stretch=(w / 2, h / 2)):
            self.ctx.arc(0, 0, 1, 0, 2 * math.pi)
        self.canvas.colour(colour)
        self.ctx.fill()

    def line(self, colour, width, *points, round_ends=False, closed=False):
        ctx = self.ctx
        self.canvas.colour(colour)
        ctx.set_line_width(width)
        ctx.set_line_cap(cairo.LINE_CAP_ROUND if round_ends else cairo.LINE_CAP_BUTT)
        ctx.set_line_join(cairo.LINE_JOIN_ROUND if round_ends else cairo.LINE_JOIN_MITER)
        for point in points:
            ctx.line_to(*point)
        if closed:
            ctx.close_path()
        ctx.stroke()

    def hoop(self, x, y, radius, colour, width=1.0, start=0.0, end=360.0, round_ends=False):
        """A ring of the given outer radius, or a part of one; degrees clockwise from the right."""
        self.canvas.colour(colour)
        self.ctx.set_line_width(width)
        self.ctx.set_line_cap(cairo.LINE_CAP_ROUND if round_ends else cairo.LINE_CAP_BUTT)
        self.ctx.new_sub_path()
        self.ctx.arc(x, y, radius - width / 2, math.radians(start), math.radians(end))
        self.ctx.stroke()

    def slice(self, x, y, radius, colour, start, end):
        """A piece of cake."""
        self.ctx.move_to(x, y)
        self.ctx.arc(x, y, radius, math.radians(start), math.radians(end))
        self.ctx.close_path()
        self.canvas.colour(colour)
        self.ctx.fill()

    def curve(self, colour, start, *parts):
        """A filled outline; a part is a point, or three of them for a curve."""
        self.ctx.move_to(*start)
        for part in parts:
            if isinstance(part[0], tuple):
                self.ctx.curve_to(*part[0], *part[1], *part[2])
            else:
                self.ctx.line_to(*part)
        self.ctx.close_path()
        self.canvas.colour(colour)
        self.ctx.fill()

    def block(self, x, y, w, h, tone, radius=1.0):
        """A body that stands on a darker foot."""
        self.rect(x, y, w, h, tone.dark, radius)
        with self.clipped(lambda: self.ctx.rectangle(x, y, w, h - 1)):
            self.rect(x, y, w, h, tone.mid, radius)

    def ball(self, x, y, radius, tone):
        self.disc(x, y, radius, tone.dark)
        with self.clipped(lambda: self.ctx.arc(x, y, radius, 0, 2 * math.pi)):
            self.disc(x, y - 1, radius, tone.mid)

    def sheet(self, x, y, w, h, tone, radius=1.0):
        """Paper in a coloured line."""
        self.rect(x, y, w, h, tone.mid, radius)
        self.rect(x + 1, y + 1, w - 2, h - 2, PAPER, max(0.0, radius - 1))

    @contextlib.contextmanager
    def clipped(self, path):
        self.ctx.save()
        path()
        self.ctx.clip()
        yield
        self.ctx.restore()

    @contextlib.contextmanager
    def moved(self, x, y, degrees=0.0, stretch=(1, 1)):
        """The origin lies at (x, y) and the axes are turned clockwise."""
        self.ctx.save()
        self.ctx.translate(x, y)
        self.ctx.rotate(math.radians(degrees))
        self.ctx.scale(*stretch)
        yield
        self.ctx.restore()

    @contextlib.contextmanager
    def turned(self, quarters):
        """A quarter turn is about the middle, so that what is sharp stays sharp."""
        with self.moved(8, 8, 90 * quarters):
            self.ctx.translate(-8, -8)
            yield

    @contextlib.contextmanager
    def cleared(self):
        """What is drawn makes the ground show through; for the gap round a sign that lies on another."""
        self.ctx.set_operator(cairo.OPERATOR_DEST_OUT)
        yield
        self.ctx.set_operator(cairo.OPERATOR_OVER)
