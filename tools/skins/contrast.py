"""Legibility: every text of a skin against the worst ground it can stand on."""

from drawing import em_pixels
from raster import rgb

LEAST = 4.5

# A panel with alpha lets the desktop through, and that may be anything between these.
DESKTOPS = ((255, 255, 255), (0, 0, 0))


def luminance(colour):
    def linear(value):
        value /= 255
        return value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4

    r, g, b = (linear(c) for c in colour[:3])
    return 0.2126 * r + 0.7152 * g + 0.0722 * b


def ratio(a, b):
    light, dark = sorted((luminance(a), luminance(b)), reverse=True)
    return (light + 0.05) / (dark + 0.05)


def _blend(top, below):
    alpha = top[3] / 255
    return tuple(t * alpha + b * (1 - alpha) for t, b in zip(top, below))


# Titles start this many pixels from the left end of their bar; a mark may stand there.
TITLE_LEFT = 4


def _colours(picture, rows=None, left=0):
    if rows:
        picture = picture.crop((left, rows[0], picture.width, rows[1]))
    return set(picture.getdata())


def _text_rows(height, em):
    """The rows between the top of the capitals and the base line of a line centred in a bar."""
    middle = height / 2
    return max(0, int(middle - em / 2)), min(height, int(middle + em / 2))


def _wall(skin):
    """The darkest and the lightest ground that the wallpaper makes over any desktop."""
    grounds = [_blend(pixel, desk) for pixel in _colours(skin.pieces["back"]) for desk in DESKTOPS]
    return min(grounds, key=luminance), max(grounds, key=luminance)


def _worst(colour, picture, below, mode, rows, left=0):
    worst = 99.0
    for pixel in _colours(picture, rows, left):
        for ground in DESKTOPS if mode == "Clear" else below:
            worst = min(worst, ratio(colour, _blend(pixel, ground)))
    return worst


def measured(skin):
    """The worst ratio of each text of the skin, by a name that a designer can act on."""
    fonts, tree, pieces = skin.settings["Fonts"], skin.settings["Tree"], skin.pieces
    wall = _wall(skin)
    result = {}
    bars = (("category active", "categoryactive"), ("category inactive", "category"), ("group", "group"))
    for block, piece in bars:
        picture = pieces.get(piece) or pieces["category"]
        rows = _text_rows(picture.height, em_pixels(int(fonts[f"{block} font size"])))
        mode = fonts["group drawmode" if block == "group" else "category drawmode"]
        result[f"{block} title"] = _worst(rgb(fonts[f"{block} color"]), picture, wall, mode, rows, TITLE_LEFT)
    texts = ["button label color", "drive free space color", "drive capacity color", "drive N/A color", "drive letter color"]
    for key in texts:
        colour = rgb(fonts[key])
        result[f"{key} on back"] = min(ratio(colour, ground) for ground in wall)
        for piece in ("buttonbig", "buttonsmall"):
            if piece in pieces and not (piece == "buttonsmall" and key.startswith("drive")):
                mode = fonts["button background drawmode"]
                # The outermost rows are bevels that no letter reaches.
                rows = (2, pieces[piece].height - 2)
                result[f"{key} on {piece}"] = _worst(colour, pieces[piece], wall, mode, rows)
    result["button label on its border"] = ratio(rgb(fonts["button label color"]), rgb(fonts["button label border color"]))
    result["tree label"] = ratio(rgb(tree["label color"]), rgb(tree["background color"]))
    result["tree highlight"] = ratio(rgb(tree["highlight label color"]), rgb(tree["highlight color"]))
    return result


def faults(skin):
    return [f"contrast {value:.2f}, least is {LEAST}: {name}" for name, value in measured(skin).items() if value < LEAST]
