"""The signs on the bottom bar's two little buttons and the grounds of the note tree's shortcuts and favorites."""

import cairo

from raster import Canvas, rgb

# The buttons' squares on the bottom piece, in pixels from its left; the logo stands between them.
BUTTON = 16
HIDE_LEFT = 3
MENU_LEFT = 93


def hide_sign(canvas, x, y, colour, size=BUTTON):
    """A minimise bar in a button square whose top left is (x, y)."""
    canvas.rect(x + size // 2 - 4, y + size // 2 + 2, 8, 2, colour)


def menu_sign(canvas, x, y, colour, size=BUTTON, thick=1):
    """Three lines of a list."""
    top = y + size // 2 - (4 if thick == 1 else 5)
    for i in range(3):
        canvas.rect(x + size // 2 - 4, top + i * (3 if thick == 1 else 4) + (1 if thick == 1 else 0), 8, thick, colour)


def down_sign(canvas, x, y, colour, size=BUTTON):
    """A chevron that points to the foot of the screen, where the panel goes when it hides."""
    cx, cy = x + size / 2, y + size / 2
    canvas.line([(cx - 3.5, cy - 1.5), (cx, cy + 2), (cx + 3.5, cy - 1.5)], colour, 1.6)


# The strips of the note tree's rows are this high; a ground fades out before the end of a usual name.
STRIP_HEIGHT = 18
STRIP_WIDTH = 180


def strip_ground(colour, strength):
    """The ground of a row's text: a tint that fades out to the right, so that it suits names of any length."""
    canvas = Canvas(STRIP_WIDTH, STRIP_HEIGHT)
    red, green, blue = (part / 255 for part in colour[:3])
    fade = cairo.LinearGradient(0, 0, STRIP_WIDTH, 0)
    fade.add_color_stop_rgba(0, red, green, blue, strength)
    fade.add_color_stop_rgba(1, red, green, blue, 0)
    canvas.ctx.set_source(fade)
    canvas.ctx.rectangle(0, 1, STRIP_WIDTH, STRIP_HEIGHT - 2)
    canvas.ctx.fill()
    return canvas.image()


def button_rects(top):
    """The hot rectangles of the skin file for buttons whose squares start at row `top`."""
    rects = {}
    for name, left in (("hide", HIDE_LEFT), ("menu", MENU_LEFT)):
        rects[f"{name} button top"] = top
        rects[f"{name} button left"] = left
        rects[f"{name} button bottom"] = top + BUTTON
        rects[f"{name} button right"] = left + BUTTON
    return rects


def tree_pictures(ground_is_dark, accent):
    """The grounds of shortcuts, in the skin's accent, and of favorites, on a dark or a light tree."""
    strength = 0.42 if ground_is_dark else 0.30
    return {
        "shortcut": strip_ground(accent, strength),
        "favorite": strip_ground(rgb("3FA796" if ground_is_dark else "1F8A7A"), strength),
    }
