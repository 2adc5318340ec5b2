"""People: somebody, and what people care for."""

import math

from pen import AMBER, BLUE, BROWN, FACE, GREEN, INK, ORANGE, PAPER, PINK, RED, SLATE, TEAL, VIOLET


def _bust(p, tone, hair=BROWN, x=8.0, top=1.0, scale=1.0):
    """Head and shoulders; `x` is the middle."""
    with p.moved(x, top, stretch=(scale, scale)):
        p.curve(tone.dark, (-7, 15), ((-7, 11), (-4, 9), (0, 9)), ((4, 9), (7, 11), (7, 15)))
        p.curve(tone.mid, (-7, 14), ((-7, 10.5), (-4, 8.5), (0, 8.5)), ((4, 8.5), (7, 10.5), (7, 14)))
        p.disc(0, 4, 4, FACE.mid)
        with p.clipped(lambda: p.ctx.arc(0, 4, 4, 0, 2 * math.pi)):
            p.rect(-4, 0, 8, 3, hair.dark)


def person(p):
    _bust(p, BLUE)


def woman(p):
    p.rect(3, 1, 10, 9, BROWN.dark, 4.5)
    _bust(p, PINK)


def team(p):
    _bust(p, GREEN, x=4.2, top=1, scale=0.6)
    _bust(p, ORANGE, x=11.8, top=1, scale=0.6)
    with p.cleared():
        p.disc(8, 7.4, 3.9, INK)
        p.rect(2.4, 10.2, 11.2, 6, INK, 4)
    _bust(p, BLUE, x=8, top=4.6, scale=0.76)


def family(p):
    _bust(p, BLUE, x=4.6, top=0, scale=0.66)
    _bust(p, PINK, hair=BROWN, x=11.4, top=1, scale=0.6)
    with p.cleared():
        p.disc(8, 10.2, 2.9, INK)
        p.rect(3.6, 12.2, 8.8, 5, INK, 3)
    _bust(p, GREEN, x=8, top=8, scale=0.53)


def contact_card(p):
    p.sheet(0, 2, 16, 12, SLATE)
    p.disc(4.5, 6.5, 2, BLUE.mid)
    p.curve(BLUE.mid, (1.6, 12), ((1.6, 9), (3, 8.8), (4.5, 8.8)), ((6, 8.8), (7.4, 9), (7.4, 12)))
    p.rect(9, 5, 5, 1, SLATE.dark)
    p.rect(9, 8, 5, 1, SLATE.mid)
    p.rect(9, 10, 3, 1, SLATE.mid)


def address_book(p):
    for y, tone in ((2, RED), (6, AMBER), (10, GREEN)):
        p.rect(12, y, 4, 3, tone.mid, 0.5)
    p.block(1, 0, 13, 16, BROWN)
    p.rect(1, 0, 2, 16, BROWN.dark, 0.5)
    p.disc(8.5, 5.5, 2, PAPER)
    p.curve(PAPER, (5, 11), ((5, 8.5), (7, 8), (8.5, 8)), ((10, 8), (12, 8.5), (12, 11)))


def heart(p):
    def outline(colour, dy):
        p.curve(colour, (8, 15 + dy), (1.6, 8.6 + dy), ((-0.8, 6), (0.2, 1.4 + dy), (4.2, 1.4 + dy)), ((6, 1.4 + dy), (7.3, 2.4 + dy), (8, 3.8 + dy)), ((8.7, 2.4 + dy), (10, 1.4 + dy), (11.8, 1.4 + dy)), ((15.8, 1.4 + dy), (16.8, 6), (14.4, 8.6 + dy)))

    outline(RED.dark, 0)
    outline(RED.mid, -0.9)
    p.hoop(4.6, 5, 2.6, RED.light, 1, 180, 270, round_ends=True)


def smile(p):
    p.ball(8, 8, 7.5, AMBER)
    p.rect(5, 5, 2, 3, BROWN.dark, 1)
    p.rect(9, 5, 2, 3, BROWN.dark, 1)
    p.hoop(8, 8, 5, BROWN.dark, 1.5, 25, 155, round_ends=True)


def first_aid(p):
    p.rect(5, 1, 6, 4, SLATE.dark, 1)
    with p.cleared():
        p.rect(6, 2, 4, 2, INK)
    p.block(0, 3, 16, 12, RED)
    p.rect(7, 5, 2, 8, PAPER)
    p.rect(4, 8, 8, 2, PAPER)


def mortarboard(p):
    p.curve(SLATE.mid, (3, 8), (13, 8), (13, 12), ((11, 14.5), (5, 14.5), (3, 12)))
    p.poly(SLATE.dark, (8, 2), (16, 6.5), (8, 11), (0, 6.5))
    p.line(AMBER.mid, 1, (8, 6.5), (14.5, 8), (14.5, 12))
    p.rect(13.5, 11, 2, 4, AMBER.mid, 0.5)


def gift(p):
    p.hoop(5.6, 2.6, 2.6, RED.mid, 1.4)
    p.hoop(10.4, 2.6, 2.6, RED.mid, 1.4)
    p.block(1, 7, 14, 9, VIOLET, 0.5)
    p.rect(0, 4, 16, 4, VIOLET.mid, 0.5)
    p.rect(0, 7, 16, 1, VIOLET.dark)
    p.rect(7, 4, 2, 12, RED.mid)


def cake(p):
    p.rect(7, 3, 2, 4, BLUE.mid)
    p.disc(8, 1.8, 1.4, ORANGE.mid)
    p.block(1, 6, 14, 9, PINK, 1)
    p.rect(1, 6, 14, 3, PAPER, 1)
    p.rect(1, 6, 14, 1, PINK.light, 0.5)
    for x in (2.5, 6, 9.5, 13):
        p.disc(x, 9, 1.4, PAPER)
    p.rect(0, 14, 16, 2, SLATE.mid, 0.5)


def coffee(p):
    p.line(SLATE.mid, 1.2, (5, 4), (6, 2.5), (5, 0.5))
    p.line(SLATE.mid, 1.2, (9, 4), (10, 2.5), (9, 0.5))
    p.hoop(12, 9, 3.5, TEAL.dark, 1.5)
    p.curve(TEAL.mid, (1, 5), (13, 5), (13, 10), ((13, 13), (11, 14), (9, 14)), (5, 14), ((3, 14), (1, 13), (1, 10)))
    p.rect(2, 6, 10, 1, BROWN.dark)
    p.rect(1, 15, 12, 1, TEAL.dark)


def crown(p):
    p.poly(AMBER.mid, (1, 4), (4.5, 7.5), (8, 2), (11.5, 7.5), (15, 4), (14, 12), (2, 12))
    p.rect(2, 12, 12, 2, AMBER.dark)
    for x, y in ((1.4, 3.4), (8, 1.8), (14.6, 3.4)):
        p.disc(x, y, 1.3, AMBER.dark)
    p.disc(8, 9.5, 1.5, RED.mid)


def star(p):
    points = []
    for number in range(10):
        radius = 8 if number % 2 == 0 else 3.5
        angle = number * math.pi / 5
        points.append((8 + radius * math.sin(angle), 8.6 - radius * math.cos(angle)))
    p.poly(AMBER.mid, *points)
    p.poly(AMBER.dark, (8, 8.6), points[4], points[5])
    p.poly(AMBER.dark, (8, 8.6), points[6], points[5])
    p.poly(AMBER.light, (8, 8.6), points[0], points[9])


def glasses(p):
    p.hoop(4, 9, 4, SLATE.dark, 1.6)
    p.hoop(12, 9, 4, SLATE.dark, 1.6)
    p.disc(4, 9, 2.4, BLUE.light)
    p.disc(12, 9, 2.4, BLUE.light)
    p.line(SLATE.dark, 1.4, (7, 8), (9, 8))
    p.line(SLATE.dark, 1.4, (0.8, 8), (2, 3.5), (4, 3.5))
    p.line(SLATE.dark, 1.4, (15.2, 8), (14, 3.5), (12, 3.5))


def shirt(p):
    p.poly(BLUE.mid, (5, 1), (11, 1), (16, 5), (13.5, 8.5), (12, 7.5), (12, 15), (4, 15), (4, 7.5), (2.5, 8.5), (0, 5))
    p.rect(4, 14, 8, 1, BLUE.dark)
    p.slice(8, 1, 2.6, BLUE.dark, 0, 180)


def paw(p):
    p.curve(BROWN.mid, (8, 7), ((11, 7), (13.5, 10.5), (13.5, 12.5)), ((13.5, 16), (10, 14.6), (8, 14.6)), ((6, 14.6), (2.5, 16), (2.5, 12.5)), ((2.5, 10.5), (5, 7), (8, 7)))
    for x, y, w, h in ((0.5, 5, 3.4, 4.6), (4, 0.8, 3.4, 5), (8.6, 0.8, 3.4, 5), (12.1, 5, 3.4, 4.6)):
        p.oval(x, y, w, h, BROWN.dark)


def thumb_up(p):
    p.block(0, 7, 4, 8, BLUE, 0.5)
    p.curve(FACE.dark, (5, 7), (8, 1), ((10.5, 0.5), (10.5, 3), (10, 6)), (14, 6), ((16, 6), (16, 8.5), (15, 9)), ((15.8, 10), (15.4, 11.4), (14.6, 11.7)), ((15, 13), (14, 15), (12.6, 15)), (7, 15), (5, 14))
    p.curve(FACE.mid, (5, 7), (8, 1), ((10.5, 0.5), (10.5, 3), (10, 6)), (14, 6), ((16, 6), (16, 8.5), (15, 9)), ((15.8, 10), (15.4, 11), (14.6, 11)), ((15, 12), (14, 13.8), (12.6, 13.8)), (7, 13.8), (5, 13))
    for y, left in ((9, 11.5), (11.4, 11)):
        p.rect(left, y - 0.3, 15 - left, 0.6 if p.fine else 0.4, FACE.dark)


def apple(p):
    p.line(BROWN.dark, 1.3, (8, 5), (9, 1))
    p.curve(GREEN.mid, (9, 3.4), ((9.5, 0.5), (12.5, 0), (13.5, 0.4)), ((13.5, 2.5), (11.5, 3.8), (9, 3.4)))
    for dx, tone in ((0, RED.dark), (-0.8, RED.mid)):
        with p.clipped(lambda: (p.ctx.arc(5.2, 8.2, 4.4, 0, 6.3), p.ctx.new_sub_path(), p.ctx.arc(10.8, 8.2, 4.4, 0, 6.3), p.ctx.new_sub_path(), p.ctx.arc(6.6, 10.6, 5.2, 0, 6.3), p.ctx.new_sub_path(), p.ctx.arc(9.4, 10.6, 5.2, 0, 6.3))):
            p.disc(8 + 1.6 * dx, 9 + 1.2 * dx, 8.4, tone)
    p.hoop(5.4, 8.6, 2.9, RED.light, 1, 180, 270, round_ends=True)


ICONS = {
    "Address Book": address_book,
    "Apple": apple,
    "Cake": cake,
    "Coffee": coffee,
    "Contact Card": contact_card,
    "Crown": crown,
    "Family": family,
    "First Aid": first_aid,
    "Gift": gift,
    "Glasses": glasses,
    "Heart": heart,
    "Mortarboard": mortarboard,
    "Paw": paw,
    "Person": person,
    "Shirt": shirt,
    "Smile": smile,
    "Star": star,
    "Team": team,
    "Thumb Up": thumb_up,
    "Woman": woman,
}
