"""The made-up panel that the previews show."""

# A button is (style, label, icon); the style is the eleven signs of a button's style text.
BIG = "11113001100"
LIST = "C0213001411"
WIDE = "C1113001411"
TINY = "0021300110"
SHORT = "11223003811"

GROUPS = [
    (
        "Favourites",
        [(BIG, "", name) for name in ("folder", "globe", "mail", "terminal", "picture", "music", "calendar", "chart", "gear", "box")],
    ),
    (
        "Documents",
        [
            (LIST, "Letters", "note"),
            (LIST, "Invoices", "chart"),
            (LIST, "Holiday plan", "calendar"),
            (LIST, "Sketches", "brush"),
            (WIDE, "Photos", "picture"),
            (WIDE, "Archive", "box"),
        ],
    ),
    (
        "Media",
        [
            (BIG, "", "play"),
            (BIG, "", "chat"),
            (TINY, "", "music"),
            (TINY, "", "globe"),
            (TINY, "", "gear"),
            (TINY, "", "mail"),
            (SHORT, "Play", "play"),
            (SHORT, "Chat", "chat"),
        ],
    ),
    ("My Computer", [("", "C", "drive"), ("", "D", "drive"), ("", "E", "drive-empty")]),
]

CATEGORIES = ["Programs", "Work", "Pictures and Music", "Notes"]

DRIVES = {"C": ("84.2", "237.5", 35), "D": ("612.4", "931.5", 66), "E": None}
