"""Tests of the generator: run with `/usr/bin/python3 -B -m unittest` in this folder."""

import copy
import filecmp
import os
import tempfile
import unittest

from PIL import Image, ImageChops

import black_glass
import delft
import hairline
import index_card
import meridian
import walnut
from check import faults, finer_faults, has_seam, logo_faults
from contrast import measured, ratio
from drawing import lay
from frame import NOMINAL_HEIGHT, NOMINAL_WIDTH
from logo import all_logos
from raster import drawn_at, pixels
from store import write_skin
from strips import strip

SKINS = [module.build() for module in (black_glass, delft, hairline, index_card, meridian, walnut)]


def altered(change, skin=SKINS[2]):
    """A copy of a sound skin with one thing spoilt by `change`."""
    spoilt = copy.copy(skin)
    spoilt.pieces = dict(skin.pieces)
    spoilt.settings = {section: dict(keys) for section, keys in skin.settings.items()}
    change(spoilt)
    return spoilt


def across(width, height):
    """A picture that runs from black to white and so cannot be tiled across."""
    return Image.linear_gradient("L").rotate(90).resize((width, height)).convert("RGBA")


class Contrast(unittest.TestCase):
    def test_known_ratios(self):
        self.assertAlmostEqual(ratio((0, 0, 0), (255, 255, 255)), 21.0)
        self.assertAlmostEqual(ratio((0x77,) * 3, (255, 255, 255)), 4.48, places=2)

    def test_see_through_ground_is_judged_on_the_worst_desktop(self):
        solid = altered(lambda s: s.settings["Fonts"].update({"button label color": "FFFFFF"}))
        clear = altered(lambda s: s.pieces.update(back=Image.new("RGBA", (8, 8), (0, 0, 0, 40))), solid)
        self.assertGreater(measured(solid)["button label color on back"], 4.5)
        self.assertLess(measured(clear)["button label color on back"], 2)


class Checks(unittest.TestCase):
    def test_skins_are_sound_and_each_flaw_is_found(self):
        for skin in SKINS:
            self.assertEqual(faults(skin), [], skin.name)
        flaws = {
            "piece righta is missing": lambda s: s.pieces.pop("righta"),
            "contrast": lambda s: s.settings["Fonts"].update({"category active color": "2F443C"}),
            "bottoma height": lambda s: s.pieces.update(bottoma=s.pieces["bottoma"].crop((0, 0, 8, 18))),
            "category shows a seam": lambda s: s.pieces.update(category=across(64, 19)),
            "lefta shows a seam": lambda s: s.pieces.update(lefta=across(64, 3).transpose(5)),
            "back shows a seam": lambda s: s.pieces.update(back=across(64, 64)),
            "the menu button does not lie": lambda s: s.settings["Buttons"].update({"menu button right": "113"}),
            "the logo covers the hide": lambda s: s.settings["Buttons"].update({"paneda logo left": "18"}),
            "hide button top is missing": lambda s: s.settings["Buttons"].pop("hide button top"),
            "group color is not a colour": lambda s: s.settings["Fonts"].update({"group color": "ABC"}),
            "group font name is empty": lambda s: s.settings["Fonts"].update({"group font name": ""}),
        }
        for wanted, spoil in flaws.items():
            with self.subTest(wanted):
                self.assertTrue(any(wanted in line for line in faults(altered(spoil))))

    def test_logo_must_fit_between_the_buttons(self):
        right = altered(lambda s: s.settings["Buttons"].update({"paneda logo left": "40"}))
        low = altered(lambda s: s.settings["Buttons"].update({"paneda logo top": "9"}))
        self.assertEqual(logo_faults(right, all_logos()), ["the logo covers the menu button"])
        self.assertEqual(logo_faults(low, all_logos()), ["the logo reaches below the bottom piece"])

    def test_larger_pictures_have_the_size_of_their_scale(self):
        with drawn_at(2):
            finer = {2: hairline.build()}
        self.assertEqual(finer_faults(SKINS[2], finer), [])
        finer[2].pieces["top"] = finer[2].pieces["topa"] = finer[2].pieces["topa"].crop((0, 0, 15, 8))
        finer[2].pieces["scrollthumb"] = across(32, 48).transpose(5)
        wanted = ["top comes at one scale only", "scrollthumb changes along its length", "topa at 2 is (15, 8)"]
        lines = finer_faults(SKINS[2], finer)
        for words in wanted:
            self.assertTrue(any(words in line for line in lines), lines)

    def test_seams(self):
        self.assertFalse(has_seam(strip([(9, 9, 9, 1.0)] * 4)))
        self.assertTrue(has_seam(across(64, 8)))
        self.assertFalse(has_seam(across(64, 8), down=True))


class Frames(unittest.TestCase):
    def test_pieces_put_together_give_the_whole_frame_again(self):
        for scale in (1, 2):
            with drawn_at(scale):
                self.check_frames()

    def check_frames(self):
        wholes = {
            black_glass: lambda: black_glass.frame(black_glass.GLASS),
            delft: lambda: delft.frame(delft.COBALT),
            hairline: lambda: hairline.frame(hairline.NIGHT),
            index_card: lambda: index_card.frame(index_card.MANILA),
            meridian: lambda: meridian.frame(meridian.PETROL),
            walnut: walnut.frame,
        }
        for module, frame in wholes.items():
            p, (w, h) = module.build().pieces, pixels(NOMINAL_WIDTH, NOMINAL_HEIGHT)
            left, top, tall, foot = p["lefta"].width, p["topa"].height, p["topleft"].height, p["bottom"].height
            put = Image.new("RGBA", (w, h), (0, 0, 0, 0))
            lay(put, p["topa"], left, 0, w - 2 * left, top)
            lay(put, p["bottoma"], left, h - foot, w - 2 * left, foot)
            for name, x in (("left", 0), ("right", w - left)):
                lay(put, p[name + "a"], x, tall, left, h - tall - foot)
                lay(put, p["top" + name], x, 0)
                lay(put, p["bottom" + name], x, h - foot)
            whole = frame()
            inner = (left, top, w - left, h - foot)
            for picture in (put, whole):
                picture.paste((0, 0, 0, 0), inner)
            with self.subTest(module.NAME):
                # The soft shadow alone may still change a little beyond its corner.
                most = max(high for _, high in ImageChops.difference(put, whole).getextrema())
                self.assertLessEqual(most, 4)


class Folders(unittest.TestCase):
    def test_two_runs_write_the_same_bytes(self):
        with tempfile.TemporaryDirectory() as one, tempfile.TemporaryDirectory() as two:
            for root in (one, two):
                with drawn_at(2):
                    finer = {2: meridian.build()}
                write_skin(root, meridian.build(), finer)
            names = [os.path.relpath(os.path.join(d, f), one) for d, _, files in os.walk(one) for f in files]
            for name in ("buttonbig.png", "buttonbig@2x.png"):
                self.assertIn(os.path.join("Meridian", name), names)
                self.assertIn(os.path.join("Meridian", "Bare Buttons", f"DELETE {name}.txt"), names)
            self.assertEqual(filecmp.cmpfiles(one, two, names, shallow=False), (names, [], []))
            with open(os.path.join(one, "Meridian", "skin.ini"), "rb") as file:
                text = file.read()
            self.assertEqual(text.count(b"\n"), text.count(b"\r\n"))


if __name__ == "__main__":
    unittest.main()
