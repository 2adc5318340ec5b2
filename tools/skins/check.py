"""What must hold in every skin before it is written; each fault is a line that a designer can act on."""

import re

from contrast import faults as contrast_faults
from glyphs import button_rects
from scrollbar import length_faults
from skin import EMPTY_KEYS
from strips import WIDEST

REQUIRED = ["topa", "bottoma", "lefta", "righta", "bottom", "topleft", "topright", "bottomleft", "bottomright"]
PAINTED = ["back", "group", "category", "categoryactive"]

# A seam may differ from its neighbours as much as they do among themselves, times this.
SEAM_SLACK = 2.5
SEAM_FLOOR = 2.0


def faults(skin):
    missing = [f"piece {name} is missing" for name in REQUIRED + PAINTED if name not in skin.pieces]
    missing += [f"Buttons: {key} is missing" for key in button_rects(0) if key not in skin.settings["Buttons"]]
    if missing:
        return missing
    result = [*size_faults(skin), *seam_faults(skin), *length_faults(skin.pieces)]
    return [*result, *bottom_faults(skin), *setting_faults(skin), *contrast_faults(skin)]


def finer_faults(skin, finer):
    """What is wrong with the larger pictures of a skin; `finer` has the skin at other scales."""
    result = []
    for scale, large in finer.items():
        states = [(skin, large)] + [(a, b) for a, b in zip(skin.options, large.options)]
        for plain, fine in states:
            result += scaled_size_faults(plain.pieces, fine.pieces, scale)
        result += [f"at {scale}: {fault}" for fault in [*seam_faults(large), *length_faults(large.pieces)]]
    return result


def scaled_size_faults(plain, fine, scale):
    result = [f"{name} comes at one scale only" for name in sorted(plain.keys() ^ fine.keys())]
    for name in sorted(plain.keys() & fine.keys()):
        wanted = (plain[name].width * scale, plain[name].height * scale)
        if fine[name].size != wanted:
            result.append(f"{name} at {scale} is {fine[name].size}, not {wanted}")
    return result


def size_faults(skin):
    p = skin.pieces
    left, right = p["lefta"].width, p["righta"].width
    top, bottom = p["topa"].height, p["bottom"].height
    wanted = {
        "topleft width": (p["topleft"].width, left),
        "topright width": (p["topright"].width, right),
        "bottomleft size": (p["bottomleft"].size, (left, bottom)),
        "bottomright size": (p["bottomright"].size, (right, bottom)),
        "bottoma height": (p["bottoma"].height, bottom),
        "categoryactive height": (p["categoryactive"].height, p["category"].height),
    }
    for name, height in (("top", top), ("buttonbig", 32), ("buttonsmall", 16), ("shortcut", 18), ("favorite", 18)):
        if name in p:
            wanted[f"{name} height"] = (p[name].height, height)
    result = [f"{what} is {found}, not {right_one}" for what, (found, right_one) in wanted.items() if found != right_one]
    if p["topleft"].height < top or p["topright"].height < top:
        result.append("an upper corner is lower than the upper edge")
    if left != right:
        result.append("the side margins differ, so that the bottom piece cannot stand in the middle")
    return result


def _difference(a, b):
    total = sum(abs(x - y) for p, q in zip(a, b) for x, y in zip(p, q))
    return total / (4 * len(a))


def _columns(picture):
    width, height = picture.size
    data = list(picture.convert("RGBA").getdata())
    return [[data[y * width + x] for y in range(height)] for x in range(width)]


def has_seam(picture, down=False):
    """Whether tiling shows where one tile ends: across, or down when `down`."""
    columns = _columns(picture.transpose(5) if down else picture)
    if len(columns) == 1:
        return False
    steps = [_difference(a, b) for a, b in zip(columns, columns[1:])]
    usual = sum(steps) / len(steps)
    return _difference(columns[-1], columns[0]) > max(SEAM_SLACK * usual, SEAM_FLOOR)


def seam_faults(skin):
    p = skin.pieces
    result = []
    for name in ("topa", "bottoma", "group", "category", "categoryactive", "buttonbig", "buttonsmall"):
        if name in p and p[name].width % WIDEST and has_seam(p[name]):
            result.append(f"{name} shows a seam when tiled across")
    for name in ("lefta", "righta"):
        if has_seam(p[name], down=True):
            result.append(f"{name} shows a seam when tiled down")
    if skin.settings["Fonts"]["background drawmethod"] == "tile" and (has_seam(p["back"]) or has_seam(p["back"], down=True)):
        result.append("back shows a seam when tiled")
    return result


def bottom_faults(skin):
    """The bottom piece fits narrow panels, and its two buttons lie on it, clear of the logo."""
    width, height = skin.pieces["bottom"].size
    keys = skin.settings["Buttons"]
    result = [] if width <= 150 else [f"bottom is {width} pixels wide"]
    rects = {name: [int(keys[f"{name} button {side}"]) for side in ("left", "top", "right", "bottom")] for name in ("hide", "menu")}
    for name, (left, top, right, bottom) in rects.items():
        if not (0 <= left < right <= width and 0 <= top < bottom <= height):
            result.append(f"the {name} button does not lie on the bottom piece")
    if int(keys["paneda logo left"]) < rects["hide"][2]:
        result.append("the logo covers the hide button")
    return result


def logo_faults(skin, logos):
    keys = skin.settings["Buttons"]
    logo = logos[int(keys["paneda logo design"]) - 1]
    result = []
    if int(keys["paneda logo left"]) + logo.width > int(keys["menu button left"]):
        result.append("the logo covers the menu button")
    if int(keys["paneda logo top"]) + logo.height > skin.pieces["bottom"].height:
        result.append("the logo reaches below the bottom piece")
    return result


def setting_faults(skin):
    result = []
    for section, keys in skin.settings.items():
        for key, value in keys.items():
            if value == "" and key not in EMPTY_KEYS:
                result.append(f"{section}: {key} is empty")
            if key.endswith("color") and value and not re.fullmatch("[0-9A-F]{6}", value):
                result.append(f"{section}: {key} is not a colour: {value}")
    return result
