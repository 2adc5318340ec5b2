"""Placeholder icons for the previews, drawn in a 32 by 32 grid and scaled to the wanted size."""

import math

from raster import Canvas, mix, rgb, white


def icon(name, size):
    canvas = Canvas(size, size)
    canvas.ctx.scale(size / 32, size / 32)
    PICTURES[name](canvas)
    return canvas.image()


def _tile(canvas, top, bottom):
    canvas.round_path(3, 3, 26, 26, 6)
    canvas.fade(0, 3, 0, 29, [(0, rgb(top)), (1, rgb(bottom))])
    canvas.ctx.fill()
    canvas.ring(3, 3, 26, 26, 6, mix(rgb(bottom), (0, 0, 0, 1.0), 0.35)[:3] + (0.8,))
    canvas.ring(4, 4, 24, 24, 5, white(0.22))


def _folder(canvas):
    canvas.round_rect(3, 6, 13, 8, 2, rgb("D9962E"))
    canvas.round_rect(3, 9, 26, 18, 2, rgb("E0A23A"))
    canvas.round_path(3, 12, 26, 15, 2)
    canvas.fade(0, 12, 0, 27, [(0, rgb("FFD87A")), (1, rgb("F0B347"))])
    canvas.ctx.fill()
    canvas.rect(4, 12, 24, 1, white(0.5))


def _globe(canvas):
    ctx = canvas.ctx
    canvas.fade(0, 3, 0, 29, [(0, rgb("7CC4FF")), (1, rgb("2670C9"))])
    canvas.disc(16, 16, 13)
    canvas.colour(white(0.85))
    ctx.set_line_width(1.4)
    for squeeze in (0.45, 1.0):
        ctx.save()
        ctx.translate(16, 16)
        ctx.scale(squeeze, 1)
        ctx.arc(0, 0, 12.3, 0, 2 * math.pi)
        ctx.restore()
        ctx.stroke()
    for y in (10, 16, 22):
        half = math.sqrt(12.3**2 - (y - 16) ** 2)
        canvas.line([(16 - half, y), (16 + half, y)], white(0.85), 1.4)


def _mail(canvas):
    canvas.round_path(3, 7, 26, 19, 2)
    canvas.fade(0, 7, 0, 26, [(0, rgb("FFFFFF")), (1, rgb("DDE5EE"))])
    canvas.ctx.fill()
    canvas.ring(3, 7, 26, 19, 2, rgb("8A99AA"))
    canvas.line([(4.5, 9), (16, 18), (27.5, 9)], rgb("5D7FA8"), 1.8)


def _music(canvas):
    _tile(canvas, "FF8FB0", "D63A6E")
    canvas.disc(12, 22, 3, white(1.0))
    canvas.disc(21, 20, 3, white(1.0))
    canvas.polygon([(13.6, 10), (24, 8), (24, 11), (13.6, 13)], white(1.0))
    canvas.rect(13.4, 11, 1.6, 11, white(1.0))
    canvas.rect(22.4, 9, 1.6, 11, white(1.0))


def _terminal(canvas):
    _tile(canvas, "4A525C", "1E242B")
    canvas.line([(9, 11), (14, 16), (9, 21)], rgb("8CF0A8"), 2.2)
    canvas.line([(16.5, 21.5), (23, 21.5)], white(0.95), 2.2)


def _picture(canvas):
    _tile(canvas, "BFE3FF", "7DB8EA")
    canvas.disc(11, 11.5, 3, rgb("FFF1B0"))
    canvas.polygon([(5, 26), (13, 15), (19, 26)], rgb("3F8F5A"))
    canvas.polygon([(13, 26), (21, 18), (27, 26)], rgb("2F7148"))


def _gear(canvas):
    ctx = canvas.ctx
    canvas.colour(rgb("8592A0"))
    for i in range(8):
        ctx.save()
        ctx.translate(16, 16)
        ctx.rotate(i * math.pi / 4)
        ctx.rectangle(-2.6, -13, 5.2, 6)
        ctx.restore()
    ctx.fill()
    canvas.fade(0, 6, 0, 26, [(0, rgb("C4CED8")), (1, rgb("7D8A98"))])
    canvas.disc(16, 16, 9.5)
    canvas.disc(16, 16, 3.8, rgb("4E5A66"))


def _chart(canvas):
    _tile(canvas, "FFFFFF", "E4E9EE")
    for x, top, colour in ((8, 17, "4C9BE8"), (14, 11, "F0A33C"), (20, 14, "58B368")):
        canvas.rect(x, top, 4, 25 - top, rgb(colour))


def _note(canvas):
    canvas.polygon([(6, 3), (20, 3), (26, 9), (26, 29), (6, 29)], rgb("7E8A96"))
    canvas.polygon([(7, 4), (19.5, 4), (25, 9.5), (25, 28), (7, 28)], rgb("FBFCFD"))
    canvas.polygon([(19, 4), (25, 10), (19, 10)], rgb("C3CCD5"))
    for y in (13, 17, 21, 25):
        canvas.rect(10, y, 12, 1.3, rgb("9FB0C0"))


def _calendar(canvas):
    canvas.round_rect(4, 5, 24, 23, 3, rgb("9AA5B0"))
    canvas.round_rect(5, 6, 22, 21, 2, white(1.0))
    canvas.round_rect(5, 6, 22, 7, 2, rgb("E0503F"))
    for x in (9, 15, 21):
        for y in (16, 21):
            canvas.rect(x, y, 3.4, 3.2, rgb("6A7886"))


def _brush(canvas):
    _tile(canvas, "C9A0F0", "7B46C4")
    canvas.line([(22, 9), (15, 18)], white(1.0), 3)
    canvas.disc(12.4, 21.4, 3.6, rgb("FFD37A"))


def _play(canvas):
    _tile(canvas, "FFB066", "E0602A")
    canvas.polygon([(12.5, 9.5), (23, 16), (12.5, 22.5)], white(1.0))


def _chat(canvas):
    canvas.fade(0, 5, 0, 25, [(0, rgb("8DE3B4")), (1, rgb("2FA46C"))])
    canvas.round_rect(3, 5, 26, 18, 8)
    canvas.polygon([(8, 20), (8, 28), (16, 22)], rgb("2FA46C"))
    for x in (10, 16, 22):
        canvas.disc(x, 14, 1.8, white(1.0))


def _box(canvas):
    canvas.polygon([(16, 3), (28, 9), (16, 15), (4, 9)], rgb("E9C795"))
    canvas.polygon([(4, 9), (16, 15), (16, 29), (4, 23)], rgb("C7995B"))
    canvas.polygon([(28, 9), (16, 15), (16, 29), (28, 23)], rgb("A97B41"))


PICTURES = {
    "folder": _folder,
    "globe": _globe,
    "mail": _mail,
    "music": _music,
    "terminal": _terminal,
    "picture": _picture,
    "gear": _gear,
    "chart": _chart,
    "note": _note,
    "calendar": _calendar,
    "brush": _brush,
    "play": _play,
    "chat": _chat,
    "box": _box,
}
