"""Documents: sheets of all kinds and where they are kept."""

from pen import AMBER, BLUE, BROWN, GREEN, INK, ORANGE, PAPER, PINK, RED, SHADE, SLATE, TEAL, VIOLET


def _page(p, tone):
    """An upright sheet with a folded corner."""
    p.poly(tone.mid, (2, 0), (10, 0), (14, 4), (14, 16), (2, 16))
    p.poly(PAPER, (3, 1), (9, 1), (9, 5), (13, 5), (13, 15), (3, 15))
    p.poly(tone.light, (10, 1.5), (12.5, 4), (10, 4))


def _lines(p, colour, *rows, left=5, width=6):
    for y in rows:
        p.rect(left, y, width, 1, colour)


def document(p):
    _page(p, SLATE)


def text(p):
    _page(p, BLUE)
    _lines(p, BLUE.mid, 4, width=3)
    _lines(p, BLUE.mid, 7, 9, 11)
    _lines(p, BLUE.mid, 13, width=4)


def spreadsheet(p):
    _page(p, GREEN)
    p.rect(4, 7, 8, 7, GREEN.mid)
    for x in (5, 9):
        p.rect(x, 10, 2 if x == 9 else 3, 1, PAPER)
        p.rect(x, 12, 2 if x == 9 else 3, 1, PAPER)
    p.rect(5, 8, 6, 1, GREEN.light)


def presentation(p):
    p.rect(7, 0, 2, 2, SLATE.dark)
    p.rect(0, 1, 16, 2, SLATE.dark)
    p.rect(1, 3, 14, 8, ORANGE.mid)
    p.rect(2, 3, 12, 7, PAPER)
    for x, top in ((4, 7), (7, 5), (10, 6)):
        p.rect(x, top, 2, 10 - top, ORANGE.mid)
    p.line(SLATE.dark, 1.4, (8, 11), (4.5, 15.6))
    p.line(SLATE.dark, 1.4, (8, 11), (11.5, 15.6))


def drawing(p):
    _page(p, PINK)
    p.disc(6.5, 8.5, 1.5, AMBER.mid)
    p.poly(PINK.mid, (4, 14), (9, 7), (12, 14))


def code(p):
    _page(p, VIOLET)
    p.line(VIOLET.dark, 1, (6.5, 7), (4.5, 9.5), (6.5, 12))
    p.line(VIOLET.dark, 1, (9.5, 7), (11.5, 9.5), (9.5, 12))


def archive(p):
    p.block(2, 1, 12, 14, AMBER)
    for y in range(1, 9, 2):
        p.rect(7, y, 1, 1, PAPER)
        p.rect(8, y + 1, 1, 1, PAPER)
    p.rect(6, 9, 4, 4, PAPER, 0.5)
    p.rect(7, 10, 2, 2, AMBER.dark)


def folder(p):
    p.rect(0, 2, 7, 4, AMBER.dark, 1)
    p.rect(0, 3, 16, 11, AMBER.dark, 1)
    p.rect(0, 5, 16, 9, AMBER.mid, 1)
    p.rect(1, 5, 14, 1, AMBER.light)


def open_folder(p):
    p.rect(0, 2, 7, 4, AMBER.dark, 1)
    p.rect(0, 3, 14, 10, AMBER.dark, 1)
    p.sheet(3, 1, 9, 8, SLATE, 0)
    p.poly(AMBER.mid, (3, 7), (16, 7), (13, 14), (0, 14))
    p.rect(3, 7, 12, 1, AMBER.light)


def new_document(p):
    _page(p, SLATE)
    with p.cleared():
        p.disc(11, 11, 5.5, INK)
    p.ball(11, 11, 4.5, GREEN)
    p.rect(10, 8, 2, 6, PAPER)
    p.rect(8, 10, 6, 2, PAPER)


def notes(p):
    p.poly(AMBER.dark, (1, 1), (15, 1), (15, 10), (10, 15), (1, 15))
    p.poly(AMBER.light, (2, 2), (14, 2), (14, 10), (10, 10), (10, 14), (2, 14))
    p.poly(AMBER.mid, (10.5, 10.5), (14, 10.5), (10.5, 14))
    _lines(p, AMBER.dark, 4, 6, left=4, width=8)
    _lines(p, AMBER.dark, 8, left=4, width=5)


def book(p):
    p.rect(2, 0, 12, 16, RED.dark, 1.5)
    p.rect(4, 12, 9, 2, PAPER)
    p.rect(2, 0, 12, 12, RED.mid, 1.5)
    p.rect(2, 1, 2, 12, RED.dark)
    p.rect(6, 3, 6, 1, RED.light)
    p.rect(6, 5, 4, 1, RED.light)


def open_book(p):
    p.poly(TEAL.dark, (0, 3), (8, 5), (16, 3), (16, 14), (8, 16), (0, 14))
    p.poly(PAPER, (1, 2), (7.5, 4), (7.5, 14), (1, 12.5))
    p.poly(PAPER, (15, 2), (8.5, 4), (8.5, 14), (15, 12.5))
    for y in (5, 7, 9):
        p.poly(SLATE.mid, (2, y), (6, y + 1), (6, y + 2), (2, y + 1))
        p.poly(SLATE.mid, (14, y), (10, y + 1), (10, y + 2), (14, y + 1))


def certificate(p):
    p.sheet(0, 1, 16, 11, BLUE)
    _lines(p, BLUE.dark, 4, left=3, width=10)
    _lines(p, SLATE.light, 6, 8, left=3, width=5)
    p.poly(RED.dark, (9, 10), (13, 10), (13, 16), (11, 14), (9, 16))
    p.disc(11, 9, 3, RED.mid)
    p.disc(11, 9, 1, RED.light)


def clipboard(p):
    p.block(2, 1, 12, 15, BROWN)
    p.rect(4, 3, 8, 11, PAPER)
    p.rect(5, 1, 6, 3, SLATE.dark)
    p.rect(7, 0, 2, 2, SLATE.dark)
    _lines(p, SLATE.mid, 6, 8, 10)
    _lines(p, SLATE.mid, 12, width=3)


def copy(p):
    p.sheet(1, 0, 10, 12, SLATE)
    with p.cleared():
        p.rect(4, 3, 12, 13, INK)
    p.sheet(5, 4, 10, 12, BLUE)
    _lines(p, BLUE.mid, 7, 9, 11, left=7)
    _lines(p, BLUE.mid, 13, left=7, width=4)


def file_cabinet(p):
    p.block(2, 0, 12, 16, SLATE)
    for y in (1, 6, 11):
        p.rect(3, y, 10, 4, SHADE)
        p.rect(6, y + 1, 4, 1, SLATE.dark)


def receipt(p):
    p.poly(TEAL.mid, (3, 0), (13, 0), (13, 16), (11, 14), (9.5, 16), (8, 14), (6.5, 16), (5, 14), (3, 16))
    p.poly(PAPER, (4, 1), (12, 1), (12, 13.5), (11, 12.5), (9.5, 14.5), (8, 12.5), (6.5, 14.5), (5, 12.5), (4, 13.5))
    for y in (3, 5, 7):
        p.rect(5, y, 3, 1, SLATE.mid)
        p.rect(10, y, 1, 1, TEAL.mid)
    p.rect(5, 10, 6, 1, TEAL.dark)


ICONS = {
    "Archive": archive,
    "Book": book,
    "Certificate": certificate,
    "Clipboard": clipboard,
    "Code": code,
    "Copy": copy,
    "Document": document,
    "Drawing": drawing,
    "File Cabinet": file_cabinet,
    "Folder": folder,
    "New Document": new_document,
    "Notes": notes,
    "Open Book": open_book,
    "Open Folder": open_folder,
    "Presentation": presentation,
    "Receipt": receipt,
    "Spreadsheet": spreadsheet,
    "Text": text,
}
