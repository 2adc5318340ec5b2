"""Internet: places, messages and what keeps them safe."""

import math

from pen import AMBER, BLUE, BROWN, GREEN, INK, ORANGE, PAPER, RED, SLATE, TEAL, VIOLET


def globe(p):
    p.ball(8, 8, 7, BLUE)
    p.rect(1, 7, 14, 1, PAPER)
    p.rect(7, 1, 1, 14, PAPER)
    with p.clipped(lambda: p.ctx.arc(8, 8, 7, 0, 2 * math.pi)):
        with p.moved(7.5, 7.5, stretch=(0.55, 1)):
            p.hoop(0, 0, 7.5, PAPER, 1.3)
        if p.fine:
            p.rect(1, 3.5, 14, 0.7, PAPER)
            p.rect(1, 11, 14, 0.7, PAPER)


def mail(p):
    p.block(0, 3, 16, 11, BLUE)
    p.rect(1, 4, 14, 8, PAPER)
    p.line(BLUE.mid, 1.3, (1, 4), (8, 9.5), (15, 4))


def open_mail(p):
    p.poly(VIOLET.dark, (0, 6), (8, 0), (16, 6))
    p.rect(0, 6, 16, 10, VIOLET.dark, 1)
    p.rect(3, 3, 10, 8, PAPER)
    p.rect(5, 5, 6, 1, VIOLET.mid)
    p.rect(5, 7, 6, 1, VIOLET.mid)
    p.poly(VIOLET.mid, (0, 7), (8, 12), (16, 7), (16, 15), (0, 15))


def cloud(p):
    for dy, colour in ((1, BLUE.dark), (0, BLUE.mid)):
        p.disc(4, 9 + dy, 4, colour)
        p.disc(8, 6.5 + dy, 4.5, colour)
        p.disc(12.5, 9.5 + dy, 3.5, colour)
        p.rect(4, 9 + dy, 9, 4, colour)
    p.hoop(8, 6.5, 3.2, BLUE.light, 1, 180, 270, round_ends=True)


def link(p):
    for degrees, colour in ((-45, TEAL.mid), (135, SLATE.mid)):
        with p.moved(8, 8, degrees):
            p.rect(-2, -3.2, 11, 6.4, colour, 3.2)
            with p.cleared():
                p.rect(0, -1.2, 7, 2.4, INK, 1.2)
    with p.moved(8, 8, -45):
        p.rect(-4, -1, 8, 2, TEAL.dark, 1)


def bookmark(p):
    p.poly(RED.mid, (3, 0), (13, 0), (13, 16), (8, 12), (3, 16))
    p.poly(RED.dark, (3, 14.6), (8, 10.6), (13, 14.6), (13, 16), (8, 12), (3, 16))
    p.rect(5, 2, 6, 1, RED.light)


def chat(p):
    p.rect(0, 1, 12, 9, GREEN.mid, 2)
    p.poly(GREEN.mid, (2, 9), (6, 9), (2, 13))
    p.rect(3, 4, 6, 1, PAPER)
    p.rect(3, 6, 4, 1, PAPER)
    with p.cleared():
        p.rect(6, 6, 11, 9, INK, 2)
    p.rect(7, 7, 9, 7, BLUE.mid, 2)
    p.poly(BLUE.mid, (11, 13), (14, 13), (14, 16))
    p.rect(9, 10, 1, 1, PAPER)
    p.rect(11, 10, 1, 1, PAPER)
    p.rect(13, 10, 1, 1, PAPER)


def feed(p):
    p.block(1, 1, 14, 14, ORANGE, 2)
    p.disc(4.5, 11.5, 1.5, PAPER)
    p.hoop(3, 13, 6, PAPER, 2, 270, 360)
    p.hoop(3, 13, 10, PAPER, 2, 270, 360)


def wireless(p):
    for radius in (11, 7.5, 4):
        p.hoop(8, 13, radius, TEAL.mid, 2, 225, 315)
    p.disc(8, 13, 1.5, TEAL.dark)


def web_search(p):
    with p.moved(-1, -1):
        globe(p)
    with p.cleared():
        p.disc(10.5, 10.5, 5, INK)
        p.line(INK, 4, (11, 11), (16, 16))
    p.line(SLATE.dark, 2.4, (12.5, 12.5), (14.7, 14.7), round_ends=True)
    p.disc(10.5, 10.5, 4, SLATE.dark)
    p.disc(10.5, 10.5, 2.5, AMBER.light)


def home(p):
    p.rect(11, 2, 2, 4, BROWN.dark)
    p.rect(2, 7, 12, 9, SLATE.mid, 0.5)
    p.rect(3, 7, 10, 8, PAPER)
    p.poly(RED.mid, (8, 0), (16, 8), (14.5, 9.2), (8, 2.8), (1.5, 9.2), (0, 8))
    p.poly(RED.mid, (8, 1), (14, 7.5), (2, 7.5))
    p.rect(6, 10, 4, 6, BROWN.mid)
    if p.fine:
        p.rect(8.5, 12.5, 1, 1, BROWN.light)


def shield(p):
    def half(colour, inset=0.0):
        p.curve(colour, (8, inset), (14.5 - inset, 2 + inset), (14.5 - inset, 8), ((14.5 - inset, 12), (11, 14.5 - inset), (8, 16 - inset)), ((5, 14.5 - inset), (1.5 + inset, 12), (1.5 + inset, 8)), (1.5 + inset, 2 + inset))

    half(GREEN.dark)
    half(GREEN.mid, 1)
    p.line(PAPER, 2, (4.5, 7.5), (7, 10), (11.5, 5.5))


def _padlock(p, tone, x):
    p.block(x, 7, 12, 9, tone)
    p.rect(x + 5, 9, 2, 4, tone.dark)
    if p.fine:
        p.disc(x + 6, 10, 1.4, tone.dark)


def lock(p):
    p.rect(4, 0, 8, 12, SLATE.dark, 4)
    with p.cleared():
        p.rect(6, 2, 4, 12, INK, 2)
    _padlock(p, AMBER, 2)


def unlocked(p):
    p.rect(7, 0, 8, 10, SLATE.dark, 4)
    with p.cleared():
        p.rect(9, 2, 4, 12, INK, 2)
        p.rect(11, 5, 6, 8, INK)
    _padlock(p, GREEN, 1)


def key(p):
    with p.moved(8, 8, -45):
        p.rect(-2, -1, 9.8, 2, AMBER.mid)
        p.rect(3, 0, 1.8, 3, AMBER.dark)
        p.rect(6, 0, 1.8, 3, AMBER.dark)
        p.disc(-4.5, 0, 4, AMBER.mid)
        with p.cleared():
            p.disc(-5, 0, 1.6, INK)


def shopping_cart(p):
    p.line(SLATE.dark, 1, (0, 1.5), (2.5, 1.5), (5, 11.5), (13, 11.5))
    p.poly(BLUE.mid, (3, 3), (16, 3), (14, 10), (5, 10))
    p.poly(BLUE.dark, (4.75, 9), (14.3, 9), (14, 10), (5, 10))
    p.disc(6, 14, 1.6, SLATE.dark)
    p.disc(12, 14, 1.6, SLATE.dark)


def share(p):
    p.line(SLATE.mid, 1.6, (3.5, 8), (12.5, 3.5))
    p.line(SLATE.mid, 1.6, (3.5, 8), (12.5, 12.5))
    p.disc(3.5, 8, 3, BLUE.mid)
    p.disc(12.5, 3.5, 3, GREEN.mid)
    p.disc(12.5, 12.5, 3, ORANGE.mid)


def bug(p):
    for y, dy in ((6, -2.5), (9, 0), (12, 2.5)):
        p.line(SLATE.dark, 1, (3, y + dy * 0.4), (13, y + dy * 0.4))
        p.line(SLATE.dark, 1, (1, y + dy), (3.5, y + dy * 0.4))
        p.line(SLATE.dark, 1, (15, y + dy), (12.5, y + dy * 0.4))
    p.disc(8, 4, 3, SLATE.dark)
    p.oval(3.5, 4, 9, 12, RED.mid)
    p.rect(7.5, 4, 1, 12, RED.dark)
    for x, y in ((5.5, 7.5), (10.5, 7.5), (5.5, 11.5), (10.5, 11.5)):
        p.disc(x, y, 0.9, RED.dark)


def firewall(p):
    p.rect(0, 2, 16, 13, BROWN.dark)
    for row, y in enumerate((3, 6, 9, 12)):
        for x in (range(1, 16, 5) if row % 2 == 0 else range(-2, 16, 5)):
            left, right = max(x, 0), min(x + 4, 16)
            p.rect(left, y - 1, right - left, 2, ORANGE.mid)


def at_sign(p):
    p.hoop(8, 8, 7.5, VIOLET.mid, 1.7, 50, 360)
    p.hoop(8, 8, 3.5, VIOLET.dark, 1.7)
    p.rect(9.9, 4.7, 1.7, 3.6, VIOLET.dark)
    p.hoop(12.7, 8, 2.8, VIOLET.mid, 1.7, 0, 180)


ICONS = {
    "At Sign": at_sign,
    "Bookmark": bookmark,
    "Bug": bug,
    "Chat": chat,
    "Cloud": cloud,
    "Feed": feed,
    "Firewall": firewall,
    "Globe": globe,
    "Home": home,
    "Key": key,
    "Link": link,
    "Lock": lock,
    "Mail": mail,
    "Open Mail": open_mail,
    "Share": share,
    "Shield": shield,
    "Shopping Cart": shopping_cart,
    "Unlocked": unlocked,
    "Web Search": web_search,
    "Wireless": wireless,
}
