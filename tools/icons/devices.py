"""Devices: computers and what is plugged into them."""

from pen import AMBER, BLUE, GREEN, INK, ORANGE, PAPER, RED, SHADE, SLATE, TEAL, VIOLET


def _screen(p, x, y, w, h):
    p.rect(x, y, w, h, SLATE.dark, 1)
    p.rect(x + 1, y + 1, w - 2, h - 2, BLUE.mid)
    p.poly(BLUE.light, (x + 1, y + 1), (x + w / 2 + 1, y + 1), (x + 1, y + h / 2 + 2))


def monitor(p):
    _screen(p, 1, 1, 14, 11)
    p.rect(6, 12, 4, 2, SLATE.mid)
    p.rect(4, 14, 8, 1, SLATE.dark)


def computer(p):
    _screen(p, 0, 2, 10, 8)
    p.rect(4, 10, 2, 2, SLATE.mid)
    p.rect(2, 12, 6, 1, SLATE.dark)
    p.block(11, 1, 5, 14, SLATE)
    p.rect(12, 3, 3, 1, PAPER)
    p.rect(12, 5, 3, 1, SLATE.light)
    p.rect(13, 11, 1, 1, GREEN.light)


def laptop(p):
    _screen(p, 2, 2, 12, 9)
    p.rect(0, 12, 16, 2, SLATE.mid, 1)
    p.rect(6, 12, 4, 1, SLATE.light)


def phone(p):
    p.rect(4, 0, 8, 16, SLATE.dark, 1.5)
    p.rect(5, 2, 6, 10, TEAL.mid)
    p.poly(TEAL.light, (5, 2), (10, 2), (5, 8))
    p.rect(7, 13, 2, 1, SLATE.light)


def tablet(p):
    p.rect(2, 0, 12, 16, SLATE.dark, 1.5)
    p.rect(3, 1, 10, 12, VIOLET.mid)
    p.poly(VIOLET.light, (3, 1), (10, 1), (3, 9))
    p.rect(7, 14, 2, 1, SLATE.light)


def printer(p):
    p.sheet(4, 0, 8, 7, SLATE, 0)
    p.block(1, 5, 14, 7, SLATE)
    p.rect(12, 7, 2, 1, GREEN.light)
    p.sheet(3, 9, 10, 6, BLUE, 0)
    p.rect(5, 11, 6, 1, BLUE.mid)
    if p.fine:
        p.rect(5, 12.5, 4, 0.5, SHADE)


def scanner(p):
    with p.moved(2, 8, -24):
        p.rect(-0.5, -1.5, 14, 2, SLATE.mid, 0.5)
    p.block(1, 9, 14, 6, SLATE)
    p.rect(2, 8, 12, 2, TEAL.light)
    p.rect(2, 9, 12, 1, TEAL.mid)
    p.rect(11, 12, 2, 1, GREEN.light)


def keyboard(p):
    p.block(0, 4, 16, 9, SLATE)
    for y in (6, 8):
        for x in range(2, 14, 2):
            p.rect(x, y, 1 if not p.fine else 1.5, 1 if not p.fine else 1.5, PAPER)
    p.rect(4, 10, 8, 1, PAPER)


def mouse(p):
    p.rect(3, 1, 10, 14, SLATE.dark, 5)
    p.rect(4, 2, 8, 12, SHADE, 4)
    p.rect(4, 6, 8, 1, SLATE.dark)
    p.rect(7, 2, 2, 4, SLATE.dark)
    p.rect(7, 3, 2, 3, ORANGE.mid, 0.5)


def hard_disk(p):
    p.block(1, 2, 14, 12, SLATE)
    p.disc(7, 8, 4, PAPER)
    p.disc(7, 8, 1, SLATE.dark)
    p.line(AMBER.mid, 1, (12.5, 12.5), (8, 8.5), round_ends=True)
    p.rect(12, 4, 1, 1, GREEN.light)


def usb_stick(p):
    p.rect(5, 0, 6, 5, SLATE.mid)
    p.rect(6, 1, 4, 4, SHADE)
    p.rect(6, 2, 1, 2, SLATE.dark)
    p.rect(9, 2, 1, 2, SLATE.dark)
    p.block(4, 5, 8, 11, ORANGE)
    p.rect(7, 8, 2, 4, ORANGE.light, 0.5)


def optical_disc(p):
    p.disc(8, 8, 7, SLATE.mid)
    p.disc(8, 8, 6, SHADE)
    p.slice(8, 8, 6, TEAL.light, 200, 250)
    p.slice(8, 8, 6, VIOLET.light, 20, 70)
    p.disc(8, 8, 2.5, SLATE.mid)
    with p.cleared():
        p.disc(8, 8, 1.5, INK)


def memory_card(p):
    p.poly(VIOLET.dark, (3, 1), (10, 1), (13, 4), (13, 15), (3, 15))
    p.poly(VIOLET.mid, (3, 1), (10, 1), (13, 4), (13, 14), (3, 14))
    for x in (5, 7, 9):
        p.rect(x, 2, 1, 3, AMBER.light)
    p.rect(5, 8, 6, 4, PAPER)


def server(p):
    for y in (1, 6, 11):
        p.block(1, y, 14, 4, SLATE)
        p.rect(3, y + 1, 5, 1, PAPER)
        p.rect(11, y + 1, 2, 1, GREEN.light if y < 11 else AMBER.light)


def router(p):
    p.rect(3, 3, 1, 7, SLATE.dark)
    p.rect(12, 3, 1, 7, SLATE.dark)
    p.block(1, 9, 14, 5, SLATE)
    for x in (3, 5, 7):
        p.rect(x, 11, 1, 1, GREEN.light)
    p.hoop(8, 8, 3.5, BLUE.mid, 1, 215, 325)
    p.hoop(8, 8, 6, BLUE.mid, 1, 225, 315)


def camera(p):
    p.rect(5, 2, 6, 4, SLATE.dark, 1)
    p.block(0, 4, 16, 10, SLATE)
    p.disc(8, 8.5, 4, PAPER)
    p.disc(8, 8.5, 3, BLUE.dark)
    p.disc(7, 7.5, 1, BLUE.light)
    p.rect(13, 6, 2, 1, RED.light)


def battery(p):
    p.rect(14, 6, 2, 4, SLATE.dark, 0.5)
    p.rect(0, 3, 15, 10, SLATE.dark, 1.5)
    p.rect(1, 4, 13, 8, PAPER, 0.5)
    p.rect(2, 5, 8, 6, GREEN.mid)
    p.rect(2, 10, 8, 1, GREEN.dark)


def game_controller(p):
    p.curve(VIOLET.dark, (4, 4), (12, 4), ((15, 4), (16, 9), (16, 12)), ((16, 15), (13, 14.5), (11, 11)), (5, 11), ((3, 14.5), (0, 15), (0, 12)), ((0, 9), (1, 4), (4, 4)))
    p.curve(VIOLET.mid, (4, 3), (12, 3), ((15, 3), (16, 8), (16, 11)), ((16, 14), (13, 13.5), (11, 10)), (5, 10), ((3, 13.5), (0, 14), (0, 11)), ((0, 8), (1, 3), (4, 3)))
    p.rect(4, 5, 1, 3, PAPER)
    p.rect(3, 6, 3, 1, PAPER)
    p.rect(12, 5, 1, 1, AMBER.light)
    p.rect(10, 7, 1, 1, RED.light)


ICONS = {
    "Battery": battery,
    "Camera": camera,
    "Computer": computer,
    "Game Controller": game_controller,
    "Hard Disk": hard_disk,
    "Keyboard": keyboard,
    "Laptop": laptop,
    "Memory Card": memory_card,
    "Monitor": monitor,
    "Mouse": mouse,
    "Optical Disc": optical_disc,
    "Phone": phone,
    "Printer": printer,
    "Router": router,
    "Scanner": scanner,
    "Server": server,
    "Tablet": tablet,
    "USB Stick": usb_stick,
}
