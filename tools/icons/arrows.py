"""Arrows: ways to go, and what comes and goes."""

from pen import AMBER, BLUE, GREEN, ORANGE, PAPER, RED, SLATE, TEAL, VIOLET


def _head(p, colour, x=8, y=3, wide=5, high=5):
    p.poly(colour, (x, y), (x + wide, y + high), (x - wide, y + high))


def _disc_arrow(quarters, tone=BLUE):
    def draw(p):
        p.ball(8, 8, 7, tone)
        with p.turned(quarters):
            _head(p, PAPER, y=3.5, wide=4, high=4)
            p.rect(7, 7, 2, 5, PAPER)

    return draw


def _bent(mirror):
    """Undo, and mirrored redo."""

    def draw(p):
        with p.moved(16 if mirror else 0, 0, stretch=(-1 if mirror else 1, 1)):
            tone = GREEN if mirror else ORANGE
            p.hoop(9, 9, 5, tone.dark, 2, -90, 100)
            p.rect(6, 4, 3, 2, tone.mid)
            p.hoop(9, 9, 5, tone.mid, 2, -90, 40)
            p.rect(5, 12, 4, 2, tone.dark)
            p.poly(tone.mid, (1, 5), (6, 0), (6, 10))

    return draw


def refresh(p):
    p.hoop(8, 9, 6, TEAL.mid, 2, -15, 270)
    p.poly(TEAL.mid, (8, 0.5), (8, 7.5), (12, 4))


def synchronise(p):
    for quarters, tone in ((0, GREEN), (2, BLUE)):
        with p.turned(quarters):
            p.hoop(8, 8, 7, tone.mid, 2, 188, 312)
            with p.moved(8, 8, 314):
                p.poly(tone.mid, (2, 0), (10, 0), (6, 5))


def _tray(p, tone):
    p.rect(1, 10, 2, 5, tone.dark)
    p.rect(13, 10, 2, 5, tone.dark)
    p.rect(1, 13, 14, 2, tone.dark)


def download(p):
    _tray(p, SLATE)
    p.rect(6, 1, 4, 5, GREEN.mid)
    p.poly(GREEN.mid, (2.5, 6), (13.5, 6), (8, 11.5))


def upload(p):
    _tray(p, SLATE)
    p.rect(6, 6, 4, 5, BLUE.mid)
    p.poly(BLUE.mid, (2.5, 6.5), (13.5, 6.5), (8, 1))


def swap(p):
    p.rect(1, 4, 10, 2, BLUE.mid)
    p.poly(BLUE.mid, (10, 1), (15, 5), (10, 9))
    p.rect(5, 10, 10, 2, ORANGE.mid)
    p.poly(ORANGE.mid, (6, 7), (1, 11), (6, 15))


def expand(p):
    for quarters, tone in ((0, VIOLET.mid), (2, VIOLET.dark)):
        with p.turned(quarters):
            p.poly(tone, (15, 1), (15, 8), (8, 1))
            p.line(tone, 2, (12.5, 3.5), (8.5, 7.5))


def shrink(p):
    for quarters, tone in ((0, TEAL.mid), (2, TEAL.dark)):
        with p.turned(quarters):
            p.poly(tone, (9, 7), (9, 0.5), (15.5, 7))
            p.line(tone, 2, (11, 5), (14.5, 1.5))


def _door(p):
    p.rect(7, 1, 8, 14, SLATE.dark, 1)
    p.rect(9, 3, 4, 10, PAPER)


def enter(p):
    _door(p)
    p.rect(1, 7, 6, 2, GREEN.mid)
    p.poly(GREEN.mid, (6, 4), (10.5, 8), (6, 12))


def leave(p):
    p.rect(1, 1, 8, 14, SLATE.dark, 1)
    p.rect(3, 3, 4, 10, PAPER)
    p.rect(5, 7, 6, 2, RED.mid)
    p.poly(RED.mid, (10, 4), (15, 8), (10, 12))


def first(p):
    p.rect(2, 2, 3, 12, BLUE.dark)
    p.poly(BLUE.mid, (6, 8), (14, 1.5), (14, 14.5))


def last(p):
    with p.turned(2):
        first(p)


def turn(p):
    p.rect(3, 6, 2, 9, ORANGE.dark)
    p.hoop(8, 8, 5, ORANGE.dark, 2, 180, 270)
    p.rect(8, 3, 3, 2, ORANGE.mid)
    p.poly(ORANGE.mid, (10, 0), (15, 4), (10, 8))


def fork(p):
    p.rect(7, 9, 2, 6, VIOLET.dark)
    for side in (-1, 1):
        p.line(VIOLET.mid, 2, (8, 10), (8 + side * 4.5, 5.5))
        p.poly(VIOLET.mid, (8 + side * 7, 2), (8 + side * 7, 8), (8 + side * 1.5, 2))


def cycle(p):
    p.rect(4, 3, 8, 2, AMBER.mid)
    p.rect(2, 4, 2, 4, AMBER.mid)
    p.poly(AMBER.mid, (11, 0), (15.5, 4), (11, 8))
    p.rect(4, 11, 8, 2, AMBER.dark)
    p.rect(12, 8, 2, 4, AMBER.dark)
    p.poly(AMBER.dark, (5, 8), (0.5, 12), (5, 16))


ICONS = {
    "Up": _disc_arrow(0),
    "Right": _disc_arrow(1),
    "Down": _disc_arrow(2),
    "Left": _disc_arrow(3),
    "Undo": _bent(False),
    "Redo": _bent(True),
    "Refresh": refresh,
    "Synchronise": synchronise,
    "Download": download,
    "Upload": upload,
    "Swap": swap,
    "Repeat": cycle,
    "Expand": expand,
    "Shrink": shrink,
    "Enter": enter,
    "Leave": leave,
    "First": first,
    "Last": last,
    "Turn": turn,
    "Fork": fork,
}
