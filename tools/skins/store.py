"""Writes a skin's folder: the same bytes in every run."""

import os
import shutil

from PIL import Image



def write_text(path, text):
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text.replace("\n", "\r\n"))


def ini_text(settings):
    blocks = []
    for section, keys in settings.items():
        blocks.append("\n".join([f"[{section}]"] + [f"{key}={value}" for key, value in keys.items()]) + "\n")
    return "\n".join(blocks)


# The larger pictures, for screens of more dots per inch, have this many times the pixels.
FINER = (2, 3)


def file_name(name, scale=1):
    return f"{name}.png" if scale == 1 else f"{name}@{scale}x.png"


def write_pieces(folder, pieces, scale=1):
    for name in sorted(pieces):
        picture = pieces[name] if scale == 1 else compact(pieces[name])
        picture.save(os.path.join(folder, file_name(name, scale)), optimize=True)


def compact(picture):
    """The same pixels with a palette where that holds them all, or at least without alpha where nothing is clear."""
    colours = sorted((colour for _, colour in picture.getcolors(256) or []), key=lambda colour: colour[3])
    if not colours:
        return picture.convert("RGB") if picture.getextrema()[3] == (255, 255) else picture
    places = {colour: place for place, colour in enumerate(colours)}
    result = Image.new("P", picture.size)
    result.putdata([places[colour] for colour in picture.getdata()])
    result.putpalette([value for colour in colours for value in colour[:3]])
    if colours[0][3] < 255:
        result.info["transparency"] = bytes(colour[3] for colour in colours)
    return result


# Made by make_screenshots, with the painters of the program.
SCREENSHOTS = ("screenshot.jpg", "screenshot@2x.jpg")


def clear(folder, options):
    """Removes all but the screenshots of a skin and of these options."""
    for entry in os.scandir(folder) if os.path.isdir(folder) else ():
        if entry.name in options:
            clear(entry.path, ())
        elif entry.is_dir():
            shutil.rmtree(entry.path)
        elif entry.name not in SCREENSHOTS:
            os.remove(entry.path)


def write_skin(root, skin, finer):
    """`finer` has the same skin drawn at larger scales, by scale."""
    folder = os.path.join(root, skin.name)
    clear(folder, [option.name for option in skin.options])
    os.makedirs(folder, exist_ok=True)
    write_pieces(folder, skin.pieces)
    for scale, large in finer.items():
        write_pieces(folder, large.pieces, scale)
    write_text(os.path.join(folder, "skin.ini"), ini_text(skin.settings))
    write_text(os.path.join(folder, "readme.txt"), readme_text(skin))
    for number, option in enumerate(skin.options):
        write_option(folder, option, {scale: large.options[number] for scale, large in finer.items()})


def readme_text(skin):
    return f"{skin.name}\n{'=' * len(skin.name)}\n\n{skin.readme}\nBy the Paneda team\n"


def write_option(folder, option, finer):
    place = os.path.join(folder, option.name)
    os.makedirs(place, exist_ok=True)
    write_pieces(place, option.pieces)
    for scale, large in finer.items():
        write_pieces(place, large.pieces, scale)
    for name in option.deleted:
        for scale in (1, *finer):
            write_text(os.path.join(place, f"DELETE {file_name(name, scale)}.txt"), "")
    if option.settings:
        write_text(os.path.join(place, "CHANGE SKIN.INI"), ini_text(option.settings))
