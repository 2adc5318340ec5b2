"""Contact sheets for judging the pictures by eye: at their own size and magnified, on dark and on light ground."""

import os

from PIL import Image

import app_icon
from check import GROUNDS
from tray_set import ICONS, SIZES

ZOOM = 6


def _row(pictures, ground, zoom=1):
    gap = 8
    pictures = [p.resize((p.width * zoom, p.height * zoom), Image.NEAREST) for p in pictures]
    row = Image.new("RGB", (sum(p.width + gap for p in pictures) + gap, max(p.height for p in pictures) + 2 * gap), ground)
    x = gap
    for picture in pictures:
        row.paste(picture, (x, gap), picture)
        x += picture.width + gap
    return row


def _stacked(rows):
    sheet = Image.new("RGB", (max(r.width for r in rows), sum(r.height for r in rows)))
    y = 0
    for row in rows:
        sheet.paste(row, (0, y))
        y += row.height
    return sheet


def write_sheets(folder):
    os.makedirs(folder, exist_ok=True)
    grounds = GROUNDS.values()
    plain = [_row([icon.picture(size) for icon in ICONS], ground) for size in SIZES for ground in grounds]
    _stacked(plain).save(os.path.join(folder, "tray.png"))
    for size in (16, 22, 24):
        rows = [_row([icon.picture(size) for icon in ICONS], ground, ZOOM) for ground in grounds]
        _stacked(rows).save(os.path.join(folder, f"tray {size} magnified.png"))
    apps = [app_icon.picture(size) for size in app_icon.SIZES]
    _stacked([_row(apps, ground) for ground in grounds]).save(os.path.join(folder, "app.png"))
