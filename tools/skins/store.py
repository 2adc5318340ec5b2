"""Writes a skin's folder: the same bytes in every run."""

import os
import shutil

from PIL import Image

from compose import Preview, on_desktop
from skin import original_option


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


def preview(skin, logos, per_row=5):
    return on_desktop(Preview(skin, logos, per_row).draw())


def write_skin(root, skin, logos, finer):
    """`finer` has the same skin drawn at larger scales, by scale."""
    folder = os.path.join(root, skin.name)
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    write_pieces(folder, skin.pieces)
    for scale, large in finer.items():
        write_pieces(folder, large.pieces, scale)
    write_text(os.path.join(folder, "skin.ini"), ini_text(skin.settings))
    write_text(os.path.join(folder, "readme.txt"), readme_text(skin))
    save_preview(folder, skin, logos)
    finer_options = {scale: _all_options(large) for scale, large in finer.items()}
    for number, option in enumerate(_all_options(skin)):
        write_option(folder, skin, option, logos, {scale: options[number] for scale, options in finer_options.items()})


def _all_options(skin):
    back = original_option(skin)
    return [*skin.options, back] if back else []


def readme_text(skin):
    return f"{skin.name}\n{'=' * len(skin.name)}\n\n{skin.readme}\nBy the Paneda team\n"


def write_option(folder, skin, option, logos, finer):
    place = os.path.join(folder, option.name)
    os.makedirs(place)
    write_pieces(place, option.pieces)
    for scale, large in finer.items():
        write_pieces(place, large.pieces, scale)
    for name in option.deleted:
        for scale in (1, *finer):
            write_text(os.path.join(place, f"DELETE {file_name(name, scale)}.txt"), "")
    if option.settings:
        write_text(os.path.join(place, "CHANGE SKIN.INI"), ini_text(option.settings))
    save_preview(place, skin.with_option(option), logos)


def save_preview(folder, skin, logos):
    preview(skin, logos).save(os.path.join(folder, "screenshot.jpg"), quality=88, optimize=True, subsampling=0)
