"""Writes a skin's folder: the same bytes in every run."""

import os
import shutil

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


def file_name(name, scale=1):
    return f"{name}.png" if scale == 1 else f"{name}@{scale}x.png"


def write_pieces(folder, pieces, scale=1):
    for name in sorted(pieces):
        pieces[name].save(os.path.join(folder, file_name(name, scale)), optimize=True)


def preview(skin, logos, per_row=5):
    return on_desktop(Preview(skin, logos, per_row).draw())


def write_skin(root, skin, logos):
    folder = os.path.join(root, skin.name)
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    write_pieces(folder, skin.pieces)
    write_text(os.path.join(folder, "skin.ini"), ini_text(skin.settings))
    write_text(os.path.join(folder, "readme.txt"), readme_text(skin))
    save_preview(folder, skin, logos)
    for option in [*skin.options, original_option(skin)]:
        if option:
            write_option(folder, skin, option, logos)


def readme_text(skin):
    return f"{skin.name}\n{'=' * len(skin.name)}\n\n{skin.readme}\nBy the Paneda team\n"


def write_option(folder, skin, option, logos):
    place = os.path.join(folder, option.name)
    os.makedirs(place)
    write_pieces(place, option.pieces)
    for name in option.deleted:
        write_text(os.path.join(place, f"DELETE {name}.png.txt"), "")
    if option.settings:
        write_text(os.path.join(place, "CHANGE SKIN.INI"), ini_text(option.settings))
    save_preview(place, skin.with_option(option), logos)


def save_preview(folder, skin, logos):
    preview(skin, logos).save(os.path.join(folder, "screenshot.jpg"), quality=88, optimize=True, subsampling=0)
