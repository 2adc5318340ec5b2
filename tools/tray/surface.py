"""The drawing surface of the skins' generator, and layouts that keep to whole pixels.

A layout is a table from 16, 22 and 24 pixels to numbers that were chosen for that size by hand. The larger sizes
are whole multiples of one of these, so that every edge stays on a pixel there too.
"""

import os
import sys

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "skins"))

from raster import Canvas, mix, rgb, shadow, white  # noqa: E402, F401  (handed on to the motifs)

BASES = (24, 22, 16)


def base_of(size):
    """The hand-made size that `size` is a multiple of; ValueError if there is none."""
    for base in BASES:
        if size % base == 0:
            return base
    raise ValueError(f"no layout fits {size} pixels")


def fitted(table, size):
    base = base_of(size)
    return tuple(value * (size // base) for value in table[base])
