"""What must hold in the pictures before they are written; each fault is a line that a designer can act on."""

from PIL import Image, ImageChops, ImageStat

import app_icon
from tray_set import ICONS, SIZES

GROUNDS = {"dark": (0x1F, 0x1F, 0x1F), "light": (0xF3, 0xF3, 0xF3)}
# The usual demand on signs that carry a meaning.
CONTRAST = 3.0
# How much of a picture has to stand out from its tray, and how far across.
SHARE, REACH = 0.12, 0.7
OFF_CENTRE = 1.0
ALIKE = 20.0


def _luminance(colour):
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in (v / 255 for v in colour)]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(a, b):
    first, second = sorted((_luminance(a) + 0.05, _luminance(b) + 0.05), reverse=True)
    return first / second


def standing_out(picture, ground):
    """A mask of the pixels that stand out from a ground of this colour."""
    laid = Image.new("RGB", picture.size, ground)
    laid.paste(picture, (0, 0), picture)
    known = {colour: contrast(colour, ground) >= CONTRAST for _, colour in laid.getcolors(laid.width * laid.height)}
    mask = Image.new("L", picture.size)
    mask.putdata([255 * known[colour] for colour in laid.getdata()])
    return mask


def visibility_faults(picture, trays):
    result = []
    for tray in trays:
        mask = standing_out(picture, GROUNDS[tray])
        share = ImageStat.Stat(mask).mean[0] / 255
        box = mask.getbbox() or (0, 0, 0, 0)
        reach = max(box[2] - box[0], box[3] - box[1]) / picture.width
        if share < SHARE or reach < REACH:
            result.append(f"is hard to see on a {tray} tray: {share:.2f} of it stands out, {reach:.2f} across")
    return result


def placement_faults(picture, size):
    if picture.size != (size, size):
        return [f"is {picture.width} by {picture.height}"]
    box = picture.getchannel("A").getbbox()
    if box is None:
        return ["is empty"]
    off = max(abs(box[0] + box[2] - size), abs(box[1] + box[3] - size)) / 2
    return [f"lies {off} pixels off the middle"] if off > OFF_CENTRE * size / 16 else []


def difference(a, b):
    """How far two pictures of one size lie apart on a grey ground, 0 to 255."""
    laid = []
    for picture in (a, b):
        ground = Image.new("RGB", picture.size, (128, 128, 128))
        ground.paste(picture, (0, 0), picture)
        laid.append(ground)
    return sum(ImageStat.Stat(ImageChops.difference(*laid)).mean) / 3


def tray_faults(icons=ICONS):
    lines = []
    for number, icon in enumerate(icons, 1):
        for size in SIZES:
            picture = icon.picture(size)
            faults = placement_faults(picture, size) or visibility_faults(picture, icon.trays)
            lines += [f"tray{number:02d}-{size} {fault}" for fault in faults]
    small = [icon.picture(16) for icon in icons]
    for b in range(len(small)):
        for a in range(b):
            if difference(small[a], small[b]) < ALIKE:
                lines.append(f"tray{b + 1:02d} looks like tray{a + 1:02d}")
    return lines


def app_faults():
    lines = []
    for size in app_icon.SIZES:
        picture = app_icon.picture(size)
        faults = placement_faults(picture, size) or visibility_faults(picture, GROUNDS)
        lines += [f"paneda-{size} {fault}" for fault in faults]
    return lines
