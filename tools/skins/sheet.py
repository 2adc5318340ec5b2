"""Contact sheets for judging a skin by eye: several widths side by side, and one magnified."""

import os

from PIL import Image

from compose import Preview, on_desktop

WIDTHS = (3, 4, 5, 9, 12)


def write_sheets(folder, skin, logos):
    os.makedirs(folder, exist_ok=True)
    panels = [on_desktop(Preview(skin, logos, width).draw(), 8) for width in WIDTHS]
    sheet = Image.new("RGB", (sum(p.width for p in panels), max(p.height for p in panels)), (110, 120, 130))
    x = 0
    for panel in panels:
        sheet.paste(panel, (x, 0))
        x += panel.width
    sheet.save(os.path.join(folder, f"{skin.name}.png"))
    panel = on_desktop(Preview(skin, logos, 5, active=1).draw(), 8)
    panel.resize((panel.width * 3, panel.height * 3), Image.NEAREST).save(os.path.join(folder, f"{skin.name} 3x.png"))
