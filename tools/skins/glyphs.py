"""The signs on the bottom bar's two little buttons and the 16 by 16 pictures of the note tree."""

from raster import Canvas, rgb, white

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


def shortcut_picture(sheet, line, accent):
    """A sheet with a bent arrow: a file in the note tree."""
    canvas = Canvas(16, 16)
    canvas.polygon([(2, 1), (10, 1), (14, 5), (14, 15), (2, 15)], line)
    canvas.polygon([(3, 2), (9.6, 2), (13, 5.4), (13, 14), (3, 14)], sheet)
    canvas.polygon([(9, 2), (13, 6), (9, 6)], line)
    canvas.line([(5.5, 12), (5.5, 9.5), (9, 9.5)], accent, 1.6)
    canvas.polygon([(8.5, 6.8), (12, 9.5), (8.5, 12.2)], accent)
    return canvas.image()


def favorite_picture(disc, line, accent):
    """A globe with a marker ribbon: an address in the note tree."""
    canvas = Canvas(16, 16)
    ctx = canvas.ctx
    canvas.disc(7.5, 8, 6.5, line)
    canvas.disc(7.5, 8, 5.5, disc)
    canvas.colour(line)
    ctx.set_line_width(1)
    ctx.save()
    ctx.translate(7.5, 8)
    ctx.scale(0.45, 1)
    ctx.arc(0, 0, 6, 0, 6.2832)
    ctx.restore()
    ctx.stroke()
    canvas.rect(2, 7.5, 11, 1, line)
    canvas.polygon([(10, 8), (15, 8), (15, 16), (12.5, 13.6), (10, 16)], accent)
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
    """Both pictures of the tree in quiet colours for a dark or a light tree ground."""
    if ground_is_dark:
        return {
            "shortcut": shortcut_picture(rgb("E9EEF3"), rgb("7C8894"), accent),
            "favorite": favorite_picture(rgb("CFE4F5"), rgb("5E7F9A"), accent),
        }
    return {
        "shortcut": shortcut_picture(white(1.0), rgb("6B7580"), accent),
        "favorite": favorite_picture(rgb("DCEBFA"), rgb("4A6B88"), accent),
    }
