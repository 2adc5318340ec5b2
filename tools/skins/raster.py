"""Drawing surfaces and colours.

Pieces are handed around as Pillow RGBA images with straight alpha; vector shapes are drawn with cairo
and turned into such an image. Colours are (red, green, blue, alpha) with alpha 0.0 to 1.0.

All measures are design pixels, those of a screen of 96 dots per inch. Within `drawn_at(2)` the same code draws
pictures of twice as many pixels a side; units_of() and cut() are for code that handles pictures.
"""

import contextlib
import math

import cairo
from PIL import Image, ImageFilter


_scale = 1


def scale():
    """Pixels of a picture for a design pixel."""
    return _scale


@contextlib.contextmanager
def drawn_at(wanted):
    global _scale
    before, _scale = _scale, wanted
    try:
        yield
    finally:
        _scale = before


def units_of(image):
    """Width and height in design pixels."""
    return image.width // _scale, image.height // _scale


def pixels(*units):
    return tuple(value * _scale for value in units)


def cut(image, left, top, right, bottom):
    return image.crop(pixels(left, top, right, bottom))


def rgb(hex_text, alpha=1.0):
    value = int(hex_text, 16)
    return (value >> 16, value >> 8 & 255, value & 255, alpha)


def hex_of(colour):
    return "%02X%02X%02X" % tuple(round(c) for c in colour[:3])


def mix(a, b, t):
    return tuple(p + (q - p) * t for p, q in zip(a, b))


WHITE = (255, 255, 255, 1.0)
BLACK = (0, 0, 0, 1.0)


def white(alpha):
    return (255, 255, 255, alpha)


def black(alpha):
    return (0, 0, 0, alpha)


class Canvas:
    """A cairo surface with the few shapes that skins are made of."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, width * _scale, height * _scale)
        self.surface.set_device_scale(_scale, _scale)
        self.ctx = cairo.Context(self.surface)

    def image(self):
        self.surface.flush()
        size = (self.surface.get_width(), self.surface.get_height())
        data = bytes(self.surface.get_data())
        return Image.frombuffer("RGBA", size, data, "raw", "BGRa", self.surface.get_stride(), 1).copy()

    def put(self, image, x=0, y=0):
        source = surface_of(image)
        self.ctx.set_source_surface(source, x, y)
        self.ctx.paint()

    def colour(self, colour):
        r, g, b, a = colour
        self.ctx.set_source_rgba(r / 255, g / 255, b / 255, a)

    def fade(self, x0, y0, x1, y1, stops):
        """Makes a linear gradient the source; stops are (position 0..1, colour)."""
        gradient = cairo.LinearGradient(x0, y0, x1, y1)
        for at, (r, g, b, a) in stops:
            gradient.add_color_stop_rgba(at, r / 255, g / 255, b / 255, a)
        self.ctx.set_source(gradient)

    def rect(self, x, y, w, h, colour=None):
        self.ctx.rectangle(x, y, w, h)
        self._fill(colour)

    def round_rect(self, x, y, w, h, radius, colour=None):
        self.round_path(x, y, w, h, radius)
        self._fill(colour)

    def round_path(self, x, y, w, h, radius):
        if radius <= 0:
            self.ctx.rectangle(x, y, w, h)
            return
        arc = self.ctx.arc
        self.ctx.new_sub_path()
        arc(x + w - radius, y + radius, radius, -math.pi / 2, 0)
        arc(x + w - radius, y + h - radius, radius, 0, math.pi / 2)
        arc(x + radius, y + h - radius, radius, math.pi / 2, math.pi)
        arc(x + radius, y + radius, radius, math.pi, 1.5 * math.pi)
        self.ctx.close_path()

    def ring(self, x, y, w, h, radius, colour=None, width=1):
        """A line inside the given rectangle, so that it covers whole pixels."""
        half = width / 2
        self.round_path(x + half, y + half, w - width, h - width, max(0, radius - half))
        if colour is not None:
            self.colour(colour)
        self.ctx.set_line_width(width)
        self.ctx.stroke()

    def disc(self, cx, cy, radius, colour=None):
        self.ctx.arc(cx, cy, radius, 0, 2 * math.pi)
        self._fill(colour)

    def line(self, points, colour, width=1.0, cap=cairo.LINE_CAP_ROUND):
        self.colour(colour)
        self.ctx.set_line_width(width)
        self.ctx.set_line_cap(cap)
        self.ctx.set_line_join(cairo.LINE_JOIN_ROUND)
        self.ctx.move_to(*points[0])
        for point in points[1:]:
            self.ctx.line_to(*point)
        self.ctx.stroke()

    def polygon(self, points, colour=None):
        self.ctx.move_to(*points[0])
        for point in points[1:]:
            self.ctx.line_to(*point)
        self.ctx.close_path()
        self._fill(colour)

    def _fill(self, colour):
        if colour is not None:
            self.colour(colour)
        self.ctx.fill()


def surface_of(image):
    """The cairo form of an RGBA image."""
    width, height = image.size
    data = bytearray(_premultiplied(image))
    surface = cairo.ImageSurface.create_for_data(data, cairo.FORMAT_ARGB32, width, height, width * 4)
    surface.set_device_scale(_scale, _scale)
    return surface


def _premultiplied(image):
    red, green, blue, alpha = image.convert("RGBa").split()
    return Image.merge("RGBA", (blue, green, red, alpha)).tobytes()


def shadow(width, height, rect, radius, blur, alpha, drop=0):
    """A soft black shadow of a rounded rectangle on a clear picture."""
    mask = Canvas(width, height)
    x, y, w, h = rect
    mask.round_rect(x, y + drop, w, h, radius, BLACK)
    soft = mask.image().getchannel("A").filter(ImageFilter.GaussianBlur(blur * _scale))
    result = Image.new("RGBA", soft.size, (0, 0, 0, 0))
    result.putalpha(soft.point(lambda value: round(value * alpha)))
    return result


def over(top, below):
    """`top` blended onto `below`, both of one size."""
    return Image.alpha_composite(below, top)


def tiled(image, width, height):
    result = Image.new("RGBA", pixels(width, height), (0, 0, 0, 0))
    for x in range(0, result.width, image.width):
        for y in range(0, result.height, image.height):
            result.paste(image, (x, y))
    return result
