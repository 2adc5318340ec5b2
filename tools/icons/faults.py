"""What must hold in the icons before they are written; each fault is a line that a designer can act on."""

import re

from PIL import Image

from library import SIZES, THEMES, picture
from pen import Pen

from check import contrast, difference, placement_faults

GROUNDS = {"dark": (0x23, 0x27, 0x2D), "light": (0xF3, 0xF4, 0xF6)}
# An icon's neighbours are known by their colour as well, so that less is asked than of a tray picture.
CONTRAST = 2.0
# How much of the icon has to stand out from its ground, and how far across.
SHARE, REACH = 0.12, 0.6
# A theme is a choice, and with fewer there would be no sense in a folder.
FEWEST = 15
# Arrows of the same disc differ by no more than their direction.
ALIKE = 4.0


def visibility_faults(icon):
    result = []
    for name, ground in GROUNDS.items():
        laid = Image.new("RGB", icon.size, ground)
        laid.paste(icon, (0, 0), icon)
        seen = {colour: contrast(colour, ground) >= CONTRAST for _, colour in laid.getcolors(icon.width * icon.height)}
        mask = Image.new("L", icon.size)
        mask.putdata([255 * seen[colour] for colour in laid.getdata()])
        left, top, right, bottom = mask.getbbox() or (0, 0, 0, 0)
        share = mask.histogram()[255] / (icon.width * icon.height)
        if share < SHARE or max(right - left, bottom - top) < REACH * icon.width:
            result.append(f"is hard to see on a {name} ground: {share:.2f} of it stands out")
    return result


def edge_faults(draw):
    """A corner that is turned out of the picture is cut off in the file."""
    size, around = 64, 16
    pen = Pen(size, around)
    draw(pen)
    # Softened edges may lie a little beyond.
    box = pen.image().getchannel("A").point(lambda value: 255 * (value > 64)).getbbox()
    inside = box and min(box) >= around and max(box) <= around + size
    return [] if inside else [f"reaches beyond its edges: {[value - around for value in box or ()]} of {size}"]


def found_faults(themes=None):
    lines, small = [], {}
    for theme, icons in (themes or THEMES).items():
        if len(icons) < FEWEST:
            lines.append(f"{theme} has {len(icons)} icons")
        for name, draw in icons.items():
            # Names become names of files, also on a stick that Windows reads.
            if not re.fullmatch("[A-Z][A-Za-z ]*[A-Za-z]", name):
                lines.append(f"{name} is no name for an icon")
            lines += [f"{name} {fault}" for fault in edge_faults(draw)]
            for size in SIZES:
                icon = picture(draw, size)
                lines += [f"{name} at {size} {fault}" for fault in placement_faults(icon, size) or visibility_faults(icon)]
            small[f"{theme}/{name}"] = picture(draw, 16)
    names = list(small)
    for number, name in enumerate(names):
        lines += [f"{name} looks like {other}" for other in names[:number] if difference(small[name], small[other]) < ALIKE]
    return lines
