"""The icons by theme and name."""

import arrows
import devices
import documents
import internet
import media
import office
import people
import tools_theme
from pen import Pen

SIZES = (16, 32, 48, 64, 96)
THEMES = {
    "Arrows": arrows.ICONS,
    "Devices": devices.ICONS,
    "Documents": documents.ICONS,
    "Internet": internet.ICONS,
    "Media": media.ICONS,
    "Office": office.ICONS,
    "People": people.ICONS,
    "Tools": tools_theme.ICONS,
}


def picture(draw, size):
    pen = Pen(size)
    draw(pen)
    return pen.image()
