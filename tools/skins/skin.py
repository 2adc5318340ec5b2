"""What a skin is: pictures, settings, and options that change some of both."""

from dataclasses import dataclass, field

from glyphs import button_rects

FONT_KEYS = [
    "category active color",
    "category inactive color",
    "category drawmode",
    "category active font name",
    "category active font size",
    "category active font bold",
    "category active font anti alias",
    "category active font alignment",
    "category inactive font name",
    "category inactive font size",
    "category inactive font bold",
    "category inactive font anti alias",
    "category inactive font alignment",
    "group color",
    "group drawmode",
    "group font name",
    "group font size",
    "group font bold",
    "group font anti alias",
    "group font alignment",
    "background alignment",
    "background drawmethod",
    "button background color",
    "button background drawmode",
    "button background",
    "button label bold",
    "button label border",
    "button label color",
    "button label border color",
    "button label font name",
    "button label font anti alias",
    "drive free space color",
    "drive capacity color",
    "drive N/A color",
    "drive letter color",
    "drive bar border color",
    "drive bar free space color",
]

# Keys that are empty on purpose: no solid ground under the buttons.
EMPTY_KEYS = {"button background color"}

DEFAULT_FONTS = {
    "category drawmode": "Over",
    "group drawmode": "Over",
    "background alignment": "5",
    "background drawmethod": "tile",
    "button background color": "",
    "button background drawmode": "Over",
    "button background": "user defined",
    "button label bold": "user defined",
    "button label border": "user defined",
    "button label font name": "Tahoma",
    "button label font anti alias": "1",
}


def font_block(block, size=8, bold=True, name="Tahoma", alignment=4):
    """The five keys of one title font; alignment 4 is left and centred upright, 5 centred both ways."""
    return {
        f"{block} font name": name,
        f"{block} font size": str(size),
        f"{block} font bold": "1" if bold else "0",
        f"{block} font anti alias": "1",
        f"{block} font alignment": str(alignment),
    }


def title_fonts(**style):
    keys = {}
    for block in ("category active", "category inactive", "group"):
        keys.update(font_block(block, **style))
    return keys


@dataclass
class Option:
    """A change on top of a skin: pieces to replace, pieces to delete, settings to write."""

    name: str
    pieces: dict = field(default_factory=dict)
    deleted: list = field(default_factory=list)
    settings: dict = field(default_factory=dict)


@dataclass
class Skin:
    """pieces: name to picture. settings: section to key to text, in the order of the file."""

    name: str
    pieces: dict
    settings: dict
    readme: str
    options: list = field(default_factory=list)

    def with_option(self, option):
        """The skin as it is once the option is applied."""
        pieces = {k: v for k, v in self.pieces.items() if k not in option.deleted}
        pieces.update(option.pieces)
        settings = {section: dict(keys) for section, keys in self.settings.items()}
        for section, keys in option.settings.items():
            settings[section].update(keys)
        return Skin(self.name, pieces, settings, self.readme)


def settings(fonts, tree, *, buttons_top, logo, logo_top, logo_left):
    """The four sections of a skin file. buttons_top and the logo's place are pixels on the bottom piece."""
    merged = {**DEFAULT_FONTS, **fonts}
    return {
        "Fonts": {key: merged[key] for key in FONT_KEYS},
        "Buttons": {
            **{key: str(value) for key, value in button_rects(buttons_top).items()},
            "paneda logo top": str(logo_top),
            "paneda logo left": str(logo_left),
            "paneda logo design": str(logo),
        },
        "Message Window": {"Height": "92"},
        "Tree": tree,
    }


def tree_colours(background, label, highlight, highlight_label):
    return {
        "background color": background,
        "label color": label,
        "highlight color": highlight,
        "highlight label color": highlight_label,
    }
