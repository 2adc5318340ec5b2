"""Office: what lies on a desk and what the day is made of."""

from pen import AMBER, BLUE, BROWN, GREEN, INK, ORANGE, PAPER, RED, SHADE, SLATE, TEAL, VIOLET


def calendar(p):
    p.sheet(1, 2, 14, 14, SLATE)
    p.rect(1, 2, 14, 4, RED.mid, 1)
    p.rect(1, 4, 14, 2, RED.mid)
    p.rect(4, 0, 2, 4, SLATE.dark)
    p.rect(10, 0, 2, 4, SLATE.dark)
    for y in (8, 11):
        for x in (3, 7, 11):
            p.rect(x, y, 2, 2, RED.mid if (x, y) == (7, 11) else SLATE.mid)


def _clock_face(p, x, y, radius, tone):
    p.disc(x, y, radius, tone.mid)
    p.disc(x, y, radius - 1.5, PAPER)


def clock(p):
    _clock_face(p, 8, 8, 7.5, BLUE)
    p.line(SLATE.dark, 1.4, (8, 3.5), (8, 8), (11, 10))
    if p.fine:
        for degrees in range(0, 360, 90):
            with p.moved(8, 8, degrees):
                p.rect(-0.25, -6, 0.5, 1, BLUE.dark)


def alarm_clock(p):
    p.disc(3.5, 3.5, 3, RED.dark)
    p.disc(12.5, 3.5, 3, RED.dark)
    p.line(RED.dark, 2, (4, 13), (2, 15.5))
    p.line(RED.dark, 2, (12, 13), (14, 15.5))
    with p.cleared():
        p.disc(8, 9, 6.7, INK)
    _clock_face(p, 8, 9, 6, RED)
    p.line(SLATE.dark, 1.3, (8, 5.8), (8, 9), (10.4, 10.4))


def calculator(p):
    p.block(2, 0, 12, 16, SLATE)
    p.rect(4, 2, 8, 3, GREEN.light)
    for y in (7, 9, 11, 13):
        for x in (4, 7, 10):
            p.rect(x, y, 2, 1, PAPER if x < 10 else ORANGE.mid if y < 13 else ORANGE.light)


def briefcase(p):
    p.rect(5, 1, 6, 4, BROWN.dark, 1)
    with p.cleared():
        p.rect(6, 2, 4, 2, INK)
    p.block(0, 4, 16, 11, BROWN)
    p.rect(0, 8, 16, 1, BROWN.dark)
    p.rect(6, 7, 4, 3, AMBER.light)
    p.rect(7, 8, 2, 1, BROWN.dark)


def bar_chart(p):
    for x, top, tone in ((1, 9, BLUE), (6, 5, ORANGE), (11, 1, GREEN)):
        p.rect(x, top, 4, 13 - top, tone.mid)
        p.rect(x + 3, top, 1, 13 - top, tone.dark)
    p.rect(0, 14, 16, 1, SLATE.dark)


def pie_chart(p):
    p.slice(7.5, 8.5, 7, BLUE.mid, 0, 270)
    p.slice(7.5, 8.5, 7, BLUE.dark, 90, 180)
    p.slice(9, 7, 6.8, ORANGE.mid, 270, 360)


def line_chart(p):
    p.rect(0, 0, 2, 16, SLATE.dark)
    p.rect(0, 14, 16, 2, SLATE.dark)
    p.line(GREEN.mid, 2, (3.5, 11), (6.5, 7), (9.5, 9), (14, 3))
    p.poly(GREEN.mid, (10.5, 1), (15.5, 1), (15.5, 6))


def push_pin(p):
    with p.moved(8, 8, 45):
        p.rect(-0.6, 3, 1.2, 7, SLATE.mid)
        p.rect(-4.5, 2, 9, 2, RED.dark, 0.5)
        p.poly(RED.mid, (-2.5, -5), (2.5, -5), (3.6, 2), (-3.6, 2))
        p.rect(-4, -7.5, 8, 2.6, RED.mid, 0.6)
        p.rect(-1.6, -4.5, 1, 5.5, RED.light)


def paperclip(p):
    with p.moved(8, 8, 45):
        p.line(TEAL.mid, 1.6, (3.4, -5), (3.4, 4.2))
        p.hoop(0, 4.2, 4.2, TEAL.mid, 1.6, 0, 180)
        p.line(TEAL.mid, 1.6, (-3.4, 4.2), (-3.4, -4.5))
        p.hoop(-0.8, -4.5, 3.4, TEAL.dark, 1.6, 180, 360)
        p.line(TEAL.dark, 1.6, (1.8, -4.5), (1.8, 3.4))
        p.hoop(0, 3.2, 2.6, TEAL.dark, 1.6, 0, 180)
        p.line(TEAL.dark, 1.6, (-1.8, 3.4), (-1.8, -1.5))


def scissors(p):
    p.line(SLATE.mid, 2, (3, 0.5), (9.6, 10))
    p.line(SLATE.dark, 2, (13, 0.5), (6.4, 10))
    p.hoop(4.2, 12.2, 3.6, RED.mid, 2)
    p.hoop(11.8, 12.2, 3.6, RED.mid, 2)


def pencil(p):
    with p.moved(8, 8, 45):
        p.rect(-2, -9, 4, 3, RED.mid, 0.8)
        p.rect(-2, -6.6, 4, 1.4, SLATE.light)
        p.rect(-2, -5.4, 4, 10.4, AMBER.mid)
        p.rect(0.6, -5.4, 1.4, 10.4, AMBER.dark)
        p.poly(SHADE, (-2, 5), (2, 5), (0, 9.5))
        p.poly(SLATE.dark, (-0.9, 7.4), (0.9, 7.4), (0, 9.5))


def ruler(p):
    p.block(0, 5, 16, 7, AMBER)
    for number, x in enumerate(range(2, 15, 2)):
        p.rect(x, 5, 1, 3 if number % 2 == 0 else 2, AMBER.dark)


def stamp(p):
    p.disc(8, 3.5, 3.5, BROWN.mid)
    p.poly(BROWN.mid, (6.5, 5), (9.5, 5), (10, 10), (6, 10))
    p.block(1, 9, 14, 4, BROWN)
    p.rect(2, 14, 12, 2, VIOLET.mid)


def banknote(p):
    p.block(0, 3, 16, 10, GREEN)
    p.rect(1, 4, 14, 7, GREEN.light)
    p.rect(2, 5, 12, 5, GREEN.mid)
    p.disc(8, 7.5, 2.5, GREEN.light)
    p.disc(8, 7.5, 1.2, GREEN.dark)


def coins(p):
    for x, count in ((0, 3), (7, 5)):
        for number in range(count):
            y = 13 - 2.4 * number
            p.rect(x, y - 1.4, 9, 3.6, AMBER.dark, 1.8)
            p.rect(x, y - 1.8, 9, 2.8, AMBER.mid, 1.4)
        p.oval(x + 1.6, 13 - 2.4 * (count - 1) - 1.4, 5.8, 1.5, AMBER.light)


def credit_card(p):
    p.block(0, 3, 16, 11, BLUE, 1.5)
    p.rect(0, 5, 16, 2, INK)
    p.rect(2, 9, 3, 2, AMBER.light)
    p.rect(9, 10, 5, 1, PAPER)


def telephone(p):
    p.curve(SLATE.dark, (0, 6), ((1, 0), (15, 0), (16, 6)), (12, 7), (11, 4.4), ((9, 3.8), (7, 3.8), (5, 4.4)), (4, 7))
    p.poly(RED.mid, (5, 6), (11, 6), (14, 11), (14, 15), (2, 15), (2, 11))
    p.rect(2, 14, 12, 1, RED.dark)
    p.disc(8, 10.5, 2.6, PAPER)
    p.disc(8, 10.5, 1.1, RED.dark)


def waste_bin(p):
    p.rect(6, 0, 4, 2, SLATE.dark, 0.5)
    p.rect(1, 2, 14, 2, SLATE.dark, 0.5)
    p.poly(SLATE.mid, (2, 5), (14, 5), (13, 16), (3, 16))
    p.rect(3, 15, 10, 1, SLATE.dark)
    for x in (5, 7.5, 10):
        p.rect(x, 7, 1, 7, PAPER)


def desk_lamp(p):
    p.rect(2, 14, 9, 2, SLATE.dark, 0.5)
    p.line(SLATE.mid, 1.5, (6, 14), (3, 9), (8, 4.5))
    p.disc(3, 9, 1.3, SLATE.dark)
    with p.moved(9.5, 4, 40):
        p.poly(GREEN.mid, (-2, -3), (2, -3), (5, 3), (-5, 3))
        p.rect(-2, 3, 4, 1.8, AMBER.mid, 0.9)


def scales(p):
    p.rect(7, 1, 2, 13, SLATE.dark)
    p.rect(4, 14, 8, 2, SLATE.dark)
    p.rect(2, 2, 12, 1, SLATE.dark)
    for x in (3.5, 12.5):
        p.line(SLATE.mid, 0.8, (x - 3, 9), (x, 2.5), (x + 3, 9))
        p.slice(x, 9, 3.4, AMBER.mid, 0, 180)


def signpost(p):
    p.rect(7, 0, 2, 16, BROWN.dark)
    p.poly(GREEN.mid, (2, 1), (12, 1), (15, 3.5), (12, 6), (2, 6))
    p.poly(BLUE.mid, (14, 7), (4, 7), (1, 9.5), (4, 12), (14, 12))
    p.rect(4, 3, 6, 1, PAPER)
    p.rect(6, 9, 6, 1, PAPER)


ICONS = {
    "Alarm Clock": alarm_clock,
    "Banknote": banknote,
    "Bar Chart": bar_chart,
    "Briefcase": briefcase,
    "Calculator": calculator,
    "Calendar": calendar,
    "Clock": clock,
    "Coins": coins,
    "Credit Card": credit_card,
    "Desk Lamp": desk_lamp,
    "Line Chart": line_chart,
    "Paperclip": paperclip,
    "Pencil": pencil,
    "Pie Chart": pie_chart,
    "Push Pin": push_pin,
    "Ruler": ruler,
    "Scales": scales,
    "Scissors": scissors,
    "Signpost": signpost,
    "Stamp": stamp,
    "Telephone": telephone,
    "Waste Bin": waste_bin,
}
