"""Media: to play, to hear and to see."""

from pen import AMBER, BLUE, BROWN, GREEN, INK, ORANGE, PAPER, PINK, RED, SLATE, TEAL, VIOLET


def _control(tone, *shapes):
    """A disc with white signs: a shape is a rectangle of four numbers or a list of points."""

    def draw(p):
        p.ball(8, 8, 7, tone)
        for shape in shapes:
            if isinstance(shape, list):
                p.poly(PAPER, *shape)
            else:
                p.rect(*shape, PAPER)

    return draw


def music(p):
    p.poly(PINK.mid, (5, 1), (14, 0), (14, 4), (5, 5))
    p.rect(5, 3, 2, 10, PINK.dark)
    p.rect(12, 2, 2, 10, PINK.dark)
    p.oval(1, 11, 6, 5, PINK.mid)
    p.oval(8, 10, 6, 5, PINK.mid)


def _speaker(p):
    p.rect(0, 5, 4, 6, SLATE.dark)
    p.poly(SLATE.mid, (3, 5), (8, 1), (8, 15), (3, 11))


def speaker(p):
    _speaker(p)
    p.hoop(8, 8, 4, BLUE.mid, 1.5, -50, 50)
    p.hoop(8, 8, 7.5, BLUE.mid, 1.5, -50, 50)


def mute(p):
    _speaker(p)
    p.line(RED.mid, 2, (9.5, 5.5), (14.5, 10.5))
    p.line(RED.mid, 2, (14.5, 5.5), (9.5, 10.5))


def headphones(p):
    p.hoop(8, 8, 7, SLATE.dark, 2, 180, 360)
    p.rect(1, 8, 2, 3, SLATE.dark)
    p.rect(13, 8, 2, 3, SLATE.dark)
    p.rect(1, 8, 4, 7, ORANGE.mid, 1)
    p.rect(11, 8, 4, 7, ORANGE.mid, 1)
    p.rect(4, 9, 1, 5, ORANGE.dark)
    p.rect(11, 9, 1, 5, ORANGE.dark)


def microphone(p):
    p.hoop(8, 7, 5.5, SLATE.dark, 1.5, 0, 180)
    p.rect(7, 12, 2, 3, SLATE.dark)
    p.rect(4, 14, 8, 2, SLATE.dark)
    p.rect(5, 0, 6, 10, RED.mid, 3)
    p.rect(5, 5, 6, 1, RED.dark)
    p.rect(7, 2, 2, 2, RED.light, 0.5)


def film(p):
    p.rect(0, 2, 16, 12, SLATE.dark, 1)
    for x in range(1, 15, 3):
        p.rect(x, 3, 2, 1, PAPER)
        p.rect(x, 12, 2, 1, PAPER)
    p.rect(1, 5, 14, 6, TEAL.mid)
    p.poly(PAPER, (6, 5.5), (11, 8), (6, 10.5))


def clapper(p):
    p.block(1, 6, 14, 10, SLATE)
    p.rect(3, 9, 10, 4, PAPER)
    with p.moved(1, 6, -9):
        p.rect(0, -4, 13, 3.5, SLATE.dark, 0.5)
        for x in (1, 5, 9):
            p.poly(PAPER, (x, -0.5), (x + 2, -0.5), (x + 3.5, -4), (x + 1.5, -4))


def television(p):
    p.line(SLATE.dark, 1.2, (4.5, 0.6), (8, 4), (11.5, 0.6))
    p.rect(0, 3, 16, 11, BROWN.dark, 1)
    p.rect(0, 3, 16, 10, BROWN.mid, 1)
    p.rect(1, 4, 10, 8, PAPER, 1)
    p.rect(2, 5, 8, 6, BLUE.mid)
    p.poly(BLUE.light, (2, 5), (7, 5), (2, 9))
    p.rect(12, 5, 2, 2, BROWN.light)
    p.rect(12, 8, 2, 1, BROWN.light)
    p.rect(3, 14, 2, 2, BROWN.dark)
    p.rect(11, 14, 2, 2, BROWN.dark)


def radio(p):
    p.line(SLATE.dark, 1.2, (3, 4), (13, 0.5))
    p.block(0, 4, 16, 11, RED, 1)
    p.disc(4.5, 9.5, 3, PAPER)
    p.disc(4.5, 9.5, 1.2, RED.dark)
    p.rect(9, 6, 6, 3, PAPER)
    p.rect(11, 6, 1, 3, RED.mid)
    p.rect(9, 11, 2, 2, RED.light)
    p.rect(13, 11, 2, 2, RED.light)


def photo(p):
    p.sheet(0, 2, 16, 12, SLATE)
    p.rect(2, 4, 12, 8, BLUE.light)
    p.disc(11, 6.5, 1.5, AMBER.mid)
    p.poly(GREEN.mid, (2, 12), (6, 6), (10, 12))
    p.poly(GREEN.dark, (7, 12), (10.5, 8), (14, 12))


def palette(p):
    p.ball(8, 8, 7.5, BROWN)
    for x, y, tone in ((5, 4.5, RED), (9.5, 3.8, AMBER), (3.6, 8.7, GREEN), (12.6, 6.8, BLUE)):
        p.disc(x, y, 1.4, tone.light if tone is not RED else PAPER)
        p.disc(x, y, 1.2, tone.mid)
    with p.cleared():
        p.disc(10.5, 11.5, 1.8, INK)


def equalizer(p):
    for x, y, tone in ((1, 8, GREEN), (6, 3, AMBER), (11, 6, RED)):
        p.rect(x + 1, 1, 2, 14, SLATE.mid)
        p.block(x, y, 4, 4, tone, 0.5)


def cassette(p):
    p.block(0, 3, 16, 11, VIOLET)
    p.rect(2, 5, 12, 6, PAPER)
    p.disc(5, 8, 1.8, VIOLET.dark)
    p.disc(11, 8, 1.8, VIOLET.dark)
    p.rect(7, 7, 2, 2, VIOLET.mid)
    p.poly(VIOLET.light, (4, 13), (5, 12), (11, 12), (12, 13))


def guitar(p):
    with p.moved(8, 8, 45):
        p.rect(-1, -8, 2, 9, BROWN.dark)
        p.rect(-1.8, -9.3, 3.6, 2.6, SLATE.dark)
        p.disc(0, 1, 3.4, ORANGE.mid)
        p.disc(0, 5, 4.2, ORANGE.mid)
        p.disc(0, 2.4, 1.5, BROWN.dark)
        p.rect(-1.8, 5.5, 3.6, 1.2, BROWN.dark)


def ticket(p):
    p.rect(0, 3, 16, 10, AMBER.dark, 1)
    p.rect(0, 3, 16, 9, AMBER.mid, 1)
    with p.cleared():
        p.disc(0, 7.5, 1.6, INK)
        p.disc(16, 7.5, 1.6, INK)
    p.rect(4, 5, 6, 1, AMBER.dark)
    p.rect(4, 7, 6, 1, AMBER.dark)
    for y in (4, 6, 8, 10):
        p.rect(12, y, 1, 1, PAPER)


def vinyl(p):
    p.disc(8, 8, 7.5, SLATE.dark)
    p.hoop(8, 8, 5.6, SLATE.mid, 0.6)
    p.hoop(8, 8, 4.4, SLATE.mid, 0.6)
    p.disc(8, 8, 3, RED.mid)
    p.disc(8, 8, 0.8, PAPER)


ICONS = {
    "Cassette": cassette,
    "Clapper": clapper,
    "Equalizer": equalizer,
    "Film": film,
    "Guitar": guitar,
    "Headphones": headphones,
    "Microphone": microphone,
    "Music": music,
    "Mute": mute,
    "Next": _control(BLUE, [(4, 4), (9, 8), (4, 12)], (9, 4, 2, 8)),
    "Palette": palette,
    "Pause": _control(AMBER, (5, 4, 2, 7), (9, 4, 2, 7)),
    "Photo": photo,
    "Play": _control(GREEN, [(6, 3.5), (12.5, 7.5), (6, 11.5)]),
    "Previous": _control(BLUE, [(12, 4), (7, 8), (12, 12)], (5, 4, 2, 8)),
    "Radio": radio,
    "Speaker": speaker,
    "Stop": _control(RED, (5, 5, 6, 6)),
    "Television": television,
    "Ticket": ticket,
    "Vinyl": vinyl,
}
