"""Composes a preview of the panel from a skin, by the same rules as the panel itself."""

import math

from PIL import Image

from drawing import Text, em_pixels, lay, letters
from icons import icon
from raster import Canvas, rgb
import sample

UNIT, GAP = 32, 4


def width_units(code):
    if code == "":
        return 1
    if code.isdigit():
        return int(code) or 0.5
    return 10 if code == "A" else ord(code) - 65 + 0.5


def pixels_of(units):
    return 16 if units == 0.5 else round((units - 1) * (UNIT + GAP)) + UNIT


class Packer:
    """Places one group's buttons in rows of two half-height lanes."""

    def __init__(self, per_row):
        self.per_row, self.upper, self.lower, self.row = per_row, 0, 0, 0

    def place(self, units, half):
        """Returns (left in units, lane 0 or 1, row)."""
        lane = 0
        if half and self.lower < self.upper:
            at, lane = self.lower, 1
            self.lower += units
        elif half:
            at = self.upper
            self.upper += units
        else:
            at = max(self.upper, self.lower)
            self.upper = self.lower = at + units
        if max(self.upper, self.lower) > self.per_row:
            at, lane, self.row = 0, 0, self.row + 1
            self.upper, self.lower = units, 0 if half else units
        return at, lane, self.row


class Preview:
    """One picture of the panel; `groups` and `categories` default to the sample's."""

    def __init__(self, skin, logos, per_row=5, active=0, groups=None, categories=None):
        self.skin, self.logos, self.per_row, self.active = skin, logos, per_row, active
        self.groups = sample.GROUPS if groups is None else groups
        self.categories = categories or sample.CATEGORIES
        self.fonts = skin.settings["Fonts"]
        piece = self.piece
        self.left, self.right = piece("lefta").width, piece("righta").width
        self.top, self.bottom = piece("topa").height, piece("bottom").height
        self.bar = piece("category").height
        self.head = piece("group").height
        self.inner = per_row * (UNIT + GAP) + GAP
        self.width = self.left + self.inner + self.right

    def piece(self, name):
        return self.skin.pieces.get(name)

    def draw(self):
        places, end = self._layout()
        self.height = end + self.bar * len(self.categories) + self.bottom
        self.picture = Image.new("RGBA", (self.width, self.height), (0, 0, 0, 0))
        self._frame()
        for title, y, buttons in places:
            self._group(title, y)
            for button in buttons:
                self._button(*button)
        self._bars(end)
        return self.picture

    def _layout(self):
        y, places = self.top, []
        for title, buttons in self.groups:
            head, y = y, y + self.head + GAP
            packer, placed = Packer(self.per_row), []
            for style, label, name in buttons:
                units = min(width_units(style[:1]), self.per_row)
                half = style[1:2] == "0"
                at, lane, row = packer.place(units, half)
                x = self.left + round(at + 0.9) * GAP + int(at * UNIT)
                if units % 1 and not at % 1:
                    x -= 1
                elif at % 1:
                    x += 1
                dy = (-1, 17)[lane] if half else 0
                placed.append((style, label, name, x, y + row * (UNIT + GAP) + dy, pixels_of(units), 16 if half else UNIT))
            y += (packer.row + 1) * (UNIT + GAP)
            places.append((title, head, placed))
        return places, y

    def _frame(self):
        p, pic, w, h = self.piece, self.picture, self.width, self.height
        corners = {
            "topleft": (0, 0),
            "topright": (w - p("topright").width, 0),
            "bottomleft": (0, h - p("bottomleft").height),
            "bottomright": (w - p("bottomright").width, h - p("bottomright").height),
        }
        left, right = p("topleft").width, p("topright").width
        lay(pic, p("topa"), left, 0, w - left - right, self.top)
        left, right = p("bottomleft").width, p("bottomright").width
        lay(pic, p("bottoma"), left, h - self.bottom, w - left - right, self.bottom)
        upper, lower = p("topleft").height, p("bottomleft").height
        lay(pic, p("lefta"), 0, upper, self.left, h - upper - lower)
        lay(pic, p("righta"), w - self.right, upper, self.right, h - upper - lower)
        for name, place in corners.items():
            lay(pic, p(name), *place)
        if p("top"):
            lay(pic, p("top"), (w - p("top").width) // 2, 0)
        method = self.fonts["background drawmethod"]
        area = (self.left, self.top, self.inner, h - self.top - self.bottom)
        lay(pic, p("back"), *area, method=method, alignment=int(self.fonts["background alignment"]))
        x = max(int((w - p("bottom").width) / 2), self.left)
        room = min(p("bottom").width, self.inner)
        lay(pic, p("bottom"), x, h - self.bottom, room, self.bottom)
        place = self.skin.settings["Buttons"]
        logo = self.logos[int(place["paneda logo design"]) - 1]
        self._stamp(logo, x + int(place["paneda logo left"]), h - self.bottom + int(place["paneda logo top"]))

    def _stamp(self, image, x, y):
        room = (max(0, min(image.width, self.width - x)), image.height)
        self.picture.alpha_composite(image.crop((0, 0, *room)), (x, y))

    def _mode(self, key):
        return "copy" if self.fonts[key] == "Clear" else "over"

    def _title(self, block, text, y, height):
        size = em_pixels(int(self.fonts[f"{block} font size"]))
        name, bold = self.fonts[f"{block} font name"], self.fonts[f"{block} font bold"] == "1"
        font = Text(name, size, bold)
        if font.width(text) > self.inner - 8:
            font = Text(name, size * (self.inner - 8) / font.width(text), bold)
        column, row = letters(self.fonts[f"{block} font alignment"])
        colour = self.fonts[f"{block.replace(' font', '')} color"]
        font.draw(self.picture, text, self.left + 4, y, self.inner - 8, height, colour, column=column, row=row)

    def _group(self, title, y):
        lay(self.picture, self.piece("group"), self.left, y, self.inner, self.head, mode=self._mode("group drawmode"))
        self._title("group", title, y, self.head)

    def _bars(self, y):
        for i, title in enumerate(self.categories):
            block = "category active" if i == self.active else "category inactive"
            name = "categoryactive" if i == self.active and self.piece("categoryactive") else "category"
            lay(self.picture, self.piece(name), self.left, y, self.inner, self.bar, mode=self._mode("category drawmode"))
            self._title(block, title, y, self.bar)
            y += self.bar

    def _button(self, style, label, name, x, y, w, h):
        override = self.fonts["button background"].upper()
        if override == "YES" or (override != "NO" and style[10:11] == "1"):
            piece = self.piece("buttonsmall" if h == 16 else "buttonbig")
            lay(self.picture, piece, x, y, w, h, mode=self._mode("button background drawmode"))
        if name.startswith("drive"):
            self._drive(label, x, y)
            return
        size = {"1": 32, "2": 16}.get(style[2:3], 0)
        column, row = letters(style[3:4])
        icon_x = {"L": 0, "C": (w - size) // 2, "R": w - size}[column]
        icon_y = max(0, {"T": 0, "C": (h - size) // 2, "B": h - size}[row])
        if size:
            self.picture.alpha_composite(icon(name, size), (x + icon_x, y + icon_y))
        if label and style[9:10] == "1":
            self._label(style, label, x, y, w, h, size)

    def _label(self, style, label, x, y, w, h, size):
        points = {"1": 6, "2": 7, "3": 8}.get(style[4:5], 9)
        bold = {"YES": True, "NO": False}.get(self.fonts["button label bold"].upper(), style[6:7] == "1")
        edged = {"YES": True, "NO": False}.get(self.fonts["button label border"].upper(), style[5:6] == "1")
        font = Text(self.fonts["button label font name"], em_pixels(points), bold)
        column, row = letters(style[8:9])
        indent = size + 2 if style[7:8] == "1" else 0
        border = self.fonts["button label border color"] if edged else None
        font.draw(self.picture, label, x + indent, y, w - indent, h, self.fonts["button label color"], column=column, row=row, border=border)

    def _drive(self, letter, x, y):
        small = Text("Small Fonts", 8.5, True, anti_alias=False)

        def text(words, dx, dy, key):
            small.draw(self.picture, words, x + dx, y + dy, 32, 10, self.fonts[key], row="T")

        state = sample.DRIVES[letter]
        box = Image.new("RGBA", self.picture.size, (0, 0, 0, 0))
        edge = tuple(bytes.fromhex(self.fonts["drive bar border color"])) + (255,)
        box.paste(edge, (x + 10, y + 25, x + 31, y + 31))
        box.paste((0, 0, 0, 0), (x + 11, y + 26, x + 30, y + 30))
        if state:
            text(state[0], 0, 0, "drive free space color")
            text(state[1], 0, 10, "drive capacity color")
            fill = tuple(bytes.fromhex(self.fonts["drive bar free space color"])) + (255,)
            box.paste(fill, (x + 11, y + 27, x + 11 + math.ceil(state[2] * 19 / 100), y + 29))
        else:
            text("N/A", 0, 10, "drive N/A color")
        self.picture.alpha_composite(box)
        text(letter, 0, 21, "drive letter color")


def on_desktop(panel, margin=14):
    """The panel on a quiet two-colour desktop, so that its own transparency shows."""
    width, height = panel.width + 2 * margin, panel.height + 2 * margin
    canvas = Canvas(width, height)
    canvas.fade(0, 0, width, height, [(0, rgb("7FA3B8")), (0.55, rgb("B9C9C4")), (1, rgb("DCCDB4"))])
    canvas.rect(0, 0, width, height)
    canvas.disc(width * 0.9, height * 0.2, width * 0.42, rgb("FFFFFF", 0.16))
    canvas.disc(width * 0.1, height * 0.85, width * 0.5, rgb("2C4A5E", 0.14))
    result = canvas.image()
    result.alpha_composite(panel, (margin, margin))
    return result.convert("RGB")
