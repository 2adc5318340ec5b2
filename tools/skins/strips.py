"""Strips: pieces that are the same in every column, so that they may be cut or tiled at any width.

A strip is described from top to bottom as a list of colours, one a row.
"""

from PIL import Image

from raster import mix, pixels, scale


class Shade(tuple):
    """A colour out of a ramp, with the colours that it changes through when a row is drawn as several."""

    finer = ()


def ramp(first, last, count):
    """`count` rows from the first colour to the last."""
    if count == 1:
        return [first]
    return [_shade(first, last, count, i) for i in range(count)]


def _shade(first, last, count, i):
    def at(place):
        return mix(first, last, min(1.0, max(0.0, place / (count - 1))))

    shade = Shade(at(i))
    shade.finer = [at(i + sample(part)) for part in range(scale())]
    return shade


def sample(pixel_number):
    """The middle of a picture's pixel in design pixels; the middle of design pixel 0 is at 0."""
    return (pixel_number + 0.5) / scale() - 0.5


def finer(rows):
    """A colour for each row of the picture."""
    return [part for row in rows for part in getattr(row, "finer", [row] * scale())]


def strip(rows, width=8):
    column = Image.new("RGBA", (1, len(rows) * scale()))
    column.putdata([pixel(row) for row in finer(rows)])
    return column.resize(pixels(width, len(rows)), Image.NEAREST)


def pixel(colour):
    r, g, b, a = colour
    return (round(r), round(g), round(b), round(a * 255))


def fading(rows_left, rows_right, reach, width):
    """A strip that changes over `reach` pixels from the left rows to the right ones and then stays as it is.

    It must be wider than the widest panel, since tiling would begin the fade again.
    """
    result = Image.new("RGBA", pixels(width, len(rows_left)))
    data = []
    for left, right in zip(finer(rows_left), finer(rows_right)):
        data += [pixel(mix(left, right, min(1.0, max(0.0, sample(x) / reach)))) for x in range(result.width)]
    result.putdata(data)
    return result


# Wider than the widest panel: a piece with a left end of its own is cut, and never begins anew.
WIDEST = 640


def with_left_end(image, end):
    """A strip as wide as any panel that starts with the columns of `end`."""
    result = image.crop((0, 0, 1, image.height)).resize((*pixels(WIDEST), image.height), Image.NEAREST)
    result.paste(end, (0, 0))
    return result
