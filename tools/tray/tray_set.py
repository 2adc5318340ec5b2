"""The twelve tray pictures by number, and the trays each is made for."""

from dataclasses import dataclass
from typing import Callable

import emblem_icons
import things
from surface import Canvas

# What trays ask for at one, two and three times their height of 16, 22 or 24; those between come scaled down.
SIZES = (16, 22, 24, 32, 44, 48, 64, 66, 72, 96)
BOTH = ("dark", "light")


@dataclass(frozen=True)
class TrayIcon:
    draw: Callable
    trays: tuple = BOTH

    def picture(self, size):
        canvas = Canvas(size, size)
        self.draw(canvas, size)
        return canvas.image()


ICONS = (
    TrayIcon(emblem_icons.tile),
    TrayIcon(emblem_icons.colours),
    TrayIcon(emblem_icons.light, ("dark",)),
    TrayIcon(emblem_icons.dark, ("light",)),
    TrayIcon(emblem_icons.outlined),
    TrayIcon(emblem_icons.badge),
    TrayIcon(things.panel),
    TrayIcon(things.tiles),
    TrayIcon(things.rocket),
    TrayIcon(things.star),
    TrayIcon(things.start),
    TrayIcon(things.mouse),
)
