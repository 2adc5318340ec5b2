"""Contact sheets of the icons at 16 and 32 pixels, on a dark and on a light ground."""

import os

from PIL import Image

from library import THEMES, picture

from drawing import Text

GROUNDS = ((0x23, 0x27, 0x2D), (0xF3, 0xF4, 0xF6))
GAP = 6
TITLE = 110  # pixels for the name of a theme


def theme_rows(icons, zoom=1, sizes=(32, 16)):
    rows, columns = [], max(map(len, THEMES.values()))
    for ground in GROUNDS:
        for size in sizes:
            cell = max(sizes) * zoom + GAP
            row = Image.new("RGB", (columns * cell + GAP, size * zoom + GAP), ground)
            for number, draw in enumerate(icons.values()):
                icon = picture(draw, size)
                icon = icon.resize((size * zoom, size * zoom), Image.NEAREST)
                row.paste(icon, (GAP + number * cell + (max(sizes) - size) * zoom // 2, GAP // 2), icon)
            rows.append(row)
    return rows


def stacked(rows):
    sheet = Image.new("RGB", (rows[0].width, sum(row.height for row in rows)))
    y = 0
    for row in rows:
        sheet.paste(row, (0, y))
        y += row.height
    return sheet


def titled(theme, rows):
    sheet = stacked(rows)
    result = Image.new("RGBA", (sheet.width + TITLE, sheet.height))
    result.paste(sheet, (TITLE, 0))
    half = sheet.height // 2
    for y in (0, half):
        result.paste(sheet.getpixel((0, y)), (0, y, TITLE, y + half))
    Text("tahoma", 14, True).draw(result, theme, 2 * GAP, 0, TITLE, half, "FFFFFF")
    return result.convert("RGB")


def write_sheets(folder):
    """One picture of them all, and each theme magnified."""
    os.makedirs(folder, exist_ok=True)
    whole = stacked([titled(theme, theme_rows(icons)) for theme, icons in THEMES.items()])
    whole.quantize(256, dither=Image.Dither.NONE).save(os.path.join(folder, "icons.png"), optimize=True)
    for theme, icons in THEMES.items():
        stacked(theme_rows(icons, 3)).save(os.path.join(folder, f"{theme} magnified.png"))
