"""Tools: to set, to mend, to make."""

from pen import AMBER, BLUE, BROWN, GREEN, INK, ORANGE, PAPER, RED, SLATE, TEAL, VIOLET


def settings(p):
    for number in range(8):
        with p.moved(8, 8, 45 * number):
            p.rect(-1.5, -7.8, 3, 4, SLATE.dark, 0.5)
    p.disc(8, 8, 5.6, SLATE.dark)
    p.disc(8, 7.6, 5, SLATE.mid)
    with p.cleared():
        p.disc(8, 8, 2.3, INK)


def wrench(p):
    with p.moved(8, 8, 45):
        p.disc(0, -5, 4.4, SLATE.mid)
        p.disc(0, 6.4, 2.8, SLATE.mid)
        p.rect(-1.8, -3, 3.6, 9.4, SLATE.mid)
        p.rect(0.6, -2, 1.2, 9, SLATE.dark)
        with p.cleared():
            p.rect(-1.7, -10, 3.4, 6, INK, 0.5)
            p.disc(0, 6.4, 1.2, INK)


def hammer(p):
    with p.moved(8, 8, -45):
        p.rect(-1.3, -4, 2.6, 13.4, BROWN.mid, 0.8)
        p.rect(0.4, -2, 0.9, 11, BROWN.dark)
        p.rect(-4.4, -6.8, 8, 4.2, SLATE.dark, 0.6)
        p.poly(SLATE.mid, (3.6, -6.8), (5.8, -5.4), (5.8, -4), (3.6, -2.6))


def screwdriver(p):
    with p.moved(8, 8, 45):
        p.rect(-0.9, 0, 1.8, 8, SLATE.mid)
        p.poly(SLATE.dark, (-1.5, 7), (1.5, 7), (1, 10), (-1, 10))
        p.rect(-2.6, -9.5, 5.2, 9, ORANGE.mid, 1.6)
        p.rect(0.5, -9, 1.2, 8, ORANGE.dark, 0.5)
        p.rect(-1.9, -1.2, 3.8, 1.8, ORANGE.dark)


def brush(p):
    with p.moved(8, 8, 45):
        p.rect(-1.1, -9.8, 2.2, 10, BROWN.mid, 1)
        p.rect(-2.4, -0.8, 4.8, 2.4, SLATE.mid)
        p.curve(VIOLET.mid, (-2.4, 1.6), (2.4, 1.6), ((4, 5), (1.5, 7.5), (0, 10)), ((-1.5, 7.5), (-4, 5), (-2.4, 1.6)))
        p.curve(VIOLET.dark, (-1, 6.8), (1, 6.8), (0, 10))


def paint_roller(p):
    p.block(1, 1, 12, 5, TEAL)
    p.line(SLATE.mid, 1, (13, 3.5), (15, 3.5), (15, 8.5), (8, 8.5), (8, 11))
    p.rect(6, 10, 4, 6, BROWN.mid, 0.8)
    p.rect(8, 10, 2, 6, BROWN.dark, 0.8)


def magnifier(p):
    p.line(BROWN.mid, 3.4, (10.5, 10.5), (14.2, 14.2), round_ends=True)
    p.hoop(6.5, 6.5, 6.5, SLATE.dark, 2)
    p.disc(6.5, 6.5, 4.6, BLUE.light)
    p.hoop(6.5, 6.5, 3.4, PAPER, 1.2, 190, 260, round_ends=True)


def magic_wand(p):
    p.line(SLATE.dark, 2.4, (1.4, 14.6), (10, 6))
    p.line(PAPER, 2.4, (8.2, 7.8), (10, 6))
    p.line(SLATE.mid, 2.4, (9.6, 6.4), (10.4, 5.6))
    for x, y, r in ((12, 4, 4), (4, 4, 2.6), (13.4, 12, 2.4)):
        p.poly(AMBER.mid, (x, y - r), (x + r * 0.28, y - r * 0.28), (x + r, y), (x + r * 0.28, y + r * 0.28), (x, y + r), (x - r * 0.28, y + r * 0.28), (x - r, y), (x - r * 0.28, y - r * 0.28))


def terminal(p):
    p.block(0, 1, 16, 14, SLATE)
    p.rect(1, 4, 14, 10, INK)
    p.rect(2, 2, 1, 1, PAPER)
    p.rect(4, 2, 1, 1, PAPER)
    p.line(GREEN.light, 1.2, (3, 6), (5.6, 8.5), (3, 11))
    p.rect(7, 11, 5, 1, PAPER)


def plug(p):
    p.rect(4, 0, 2, 5, SLATE.mid)
    p.rect(10, 0, 2, 5, SLATE.mid)
    p.curve(GREEN.mid, (2, 4), (14, 4), (14, 7), ((14, 11), (11, 12), (10, 12)), (6, 12), ((5, 12), (2, 11), (2, 7)))
    p.rect(2, 4, 12, 1, GREEN.dark)
    p.rect(7, 12, 2, 4, SLATE.dark)


def bulb(p):
    p.disc(8, 6, 6, AMBER.mid)
    p.poly(AMBER.mid, (3.6, 9.6), (12.4, 9.6), (10.6, 12), (5.4, 12))
    p.hoop(8, 6, 4.4, AMBER.light, 1.2, 190, 260, round_ends=True)
    p.rect(5, 12, 6, 1, SLATE.mid)
    p.rect(5, 13, 6, 1, SLATE.dark)
    p.rect(6, 14, 4, 2, SLATE.dark, 0.5)


def flash(p):
    p.poly(AMBER.mid, (9, 0), (2, 9), (7, 9), (6, 16), (14, 6), (9, 6))
    p.poly(AMBER.dark, (7, 9), (6, 16), (14, 6), (12.4, 6), (7.6, 12))


def compass(p):
    p.disc(8, 8, 7.5, BROWN.mid)
    p.disc(8, 8, 6, PAPER)
    with p.moved(8, 8, 35):
        p.poly(RED.mid, (0, -5.4), (1.9, 0), (-1.9, 0))
        p.poly(SLATE.dark, (0, 5.4), (1.9, 0), (-1.9, 0))


def flask(p):
    p.rect(5, 0, 6, 1.5, SLATE.dark, 0.5)
    p.poly(SLATE.mid, (6, 1), (10, 1), (10, 6), (15, 14), (14, 16), (2, 16), (1, 14), (6, 6))
    p.poly(PAPER, (7, 1.5), (9, 1.5), (9, 6.5), (13.6, 14), (13.3, 15), (2.7, 15), (2.4, 14), (7, 6.5))
    p.poly(GREEN.mid, (4.9, 10), (11.1, 10), (13.6, 14), (13.3, 15), (2.7, 15), (2.4, 14))
    p.disc(7, 12.5, 1, GREEN.light)
    p.disc(10, 13.5, 0.7, GREEN.light)


def thermometer(p):
    p.rect(5, 0, 6, 13, SLATE.mid, 3)
    p.disc(8, 12, 4, SLATE.mid)
    p.rect(6, 1, 4, 11, PAPER, 2)
    p.disc(8, 12, 3, PAPER)
    p.rect(7, 4, 2, 8, RED.mid)
    p.disc(8, 12, 2.2, RED.mid)
    for y in (3, 5, 7):
        p.rect(12, y, 2, 1, SLATE.mid)


def flag(p):
    p.rect(2, 0, 2, 16, SLATE.dark, 0.5)
    p.curve(RED.mid, (4, 1), ((7, -0.5), (10, 3.5), (15, 1.5)), (15, 9.5), ((10, 11.5), (7, 7.5), (4, 9)))
    p.curve(RED.dark, (4, 8), ((7, 6.5), (10, 10.5), (15, 8.5)), (15, 9.5), ((10, 11.5), (7, 7.5), (4, 9)))


def umbrella(p):
    p.rect(7.2, 1, 1.6, 12, SLATE.dark)
    p.hoop(6, 12.6, 2.8, SLATE.dark, 1.6, 0, 180)
    p.slice(8, 9, 8, VIOLET.mid, 180, 360)
    for x, w in ((0, 5.4), (5.4, 5.2), (10.6, 5.4)):
        with p.cleared():
            p.oval(x, 7.8, w, 2.6, INK)
    p.rect(7.2, 8, 1.6, 3, SLATE.dark)
    p.curve(VIOLET.light, (8, 1), ((5.6, 3), (5.2, 6), (5.4, 8.4)), ((4.8, 5), (5.6, 2.2), (8, 1)))


def rocket(p):
    with p.moved(8, 8, 45):
        p.poly(AMBER.mid, (-2, 5), (2, 5), (0, 10))
        p.poly(RED.dark, (-2.5, -0.5), (-4.8, 3), (-4.8, 6.2), (-2.5, 5))
        p.poly(RED.dark, (2.5, -0.5), (4.8, 3), (4.8, 6.2), (2.5, 5))
        p.curve(SLATE.mid, (0, -10), ((3, -7.4), (3.8, -4), (3.2, 0)), (2.4, 5.4), (-2.4, 5.4), (-3.2, 0), ((-3.8, -4), (-3, -7.4), (0, -10)))
        p.curve(RED.mid, (0, -10), ((1.8, -8.4), (2.7, -6.7), (3.1, -5)), (-3.1, -5), ((-2.7, -6.7), (-1.8, -8.4), (0, -10)))
        p.disc(0, -1.6, 1.7, PAPER)
        p.disc(0, -1.6, 1.1, BLUE.mid)


def toolbox(p):
    p.rect(5, 2, 6, 4, SLATE.dark, 1)
    with p.cleared():
        p.rect(6, 3, 4, 2, INK)
    p.block(0, 5, 16, 10, RED)
    p.rect(0, 9, 16, 1, RED.dark)
    p.rect(3, 8, 2, 3, PAPER)
    p.rect(11, 8, 2, 3, PAPER)


def puzzle(p):
    p.block(1, 5, 10, 10, GREEN, 0.5)
    p.disc(6, 4, 2.6, GREEN.mid)
    p.disc(12, 9.6, 2.6, GREEN.mid)
    with p.cleared():
        p.disc(1.6, 9.6, 2.1, INK)


def broom(p):
    with p.moved(8, 8, 45):
        p.rect(-0.9, -10, 1.8, 10, BROWN.mid, 0.8)
        p.rect(-2.6, -1.4, 5.2, 2, RED.mid)
        p.poly(AMBER.mid, (-2.6, 0.6), (2.6, 0.6), (4, 7), (-4, 7))
        p.line(AMBER.dark, 0.8, (-0.9, 2), (-1.5, 7))
        p.line(AMBER.dark, 0.8, (0.9, 2), (1.5, 7))


def target(p):
    p.disc(8, 8, 7.5, RED.mid)
    p.disc(8, 8, 5.5, PAPER)
    p.disc(8, 8, 3.6, RED.mid)
    p.disc(8, 8, 1.4, PAPER)


def power(p):
    p.ball(8, 8, 7.5, RED)
    p.hoop(8, 8, 5, PAPER, 1.6, -55, 235)
    p.rect(7.2, 2, 1.6, 6, PAPER)


ICONS = {
    "Broom": broom,
    "Brush": brush,
    "Bulb": bulb,
    "Compass": compass,
    "Flag": flag,
    "Flash": flash,
    "Flask": flask,
    "Hammer": hammer,
    "Magic Wand": magic_wand,
    "Magnifier": magnifier,
    "Paint Roller": paint_roller,
    "Plug": plug,
    "Power": power,
    "Puzzle": puzzle,
    "Rocket": rocket,
    "Screwdriver": screwdriver,
    "Settings": settings,
    "Target": target,
    "Terminal": terminal,
    "Thermometer": thermometer,
    "Toolbox": toolbox,
    "Umbrella": umbrella,
    "Wrench": wrench,
}
