"""Strips: pieces that are the same in every column, so that they may be cut or tiled at any width.

A strip is described from top to bottom as a list of colours, one a row.
"""

from PIL import Image

from raster import mix


def ramp(first, last, count):
    """`count` rows from the first colour to the last."""
    if count == 1:
        return [first]
    return [mix(first, last, i / (count - 1)) for i in range(count)]


def strip(rows, width=8):
    column = Image.new("RGBA", (1, len(rows)))
    column.putdata([pixel(row) for row in rows])
    return column.resize((width, len(rows)), Image.NEAREST)


def pixel(colour):
    r, g, b, a = colour
    return (round(r), round(g), round(b), round(a * 255))


def fading(rows_left, rows_right, reach, width):
    """A strip that changes over `reach` pixels from the left rows to the right ones and then stays as it is.

    It must be wider than the widest panel, since tiling would begin the fade again.
    """
    height = len(rows_left)
    result = Image.new("RGBA", (width, height))
    data = []
    for left, right in zip(rows_left, rows_right):
        data += [pixel(mix(left, right, min(1.0, x / reach))) for x in range(width)]
    result.putdata(data)
    return result


# Wider than the widest panel: a piece with a left end of its own is cut, and never begins anew.
WIDEST = 640


def with_left_end(image, end):
    """A strip as wide as any panel that starts with the columns of `end`."""
    result = image.crop((0, 0, 1, image.height)).resize((WIDEST, image.height), Image.NEAREST)
    result.paste(end, (0, 0))
    return result
