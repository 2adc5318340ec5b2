"""Tests of the generator: run with `/usr/bin/python3 -B -m unittest` in this folder."""

import io
import unittest

from PIL import Image

from faults import found_faults
from library import SIZES, THEMES, picture
from pen import BLUE, PAPER

from ico import ico_bytes


class Icons(unittest.TestCase):
    def test_each_flaw_is_found(self):
        icons = dict(THEMES["Devices"])
        icons["Pale"] = lambda pen: pen.disc(8, 8, 7, PAPER)
        icons["Small"] = lambda pen: pen.disc(8, 8, 3, BLUE.mid)
        icons["Twin"] = icons["Printer"]
        icons["Aside/1"] = lambda pen: pen.rect(0, 0, 8, 16, BLUE.mid)
        icons["Cut"] = lambda pen: pen.rect(2, 1, 15, 14, BLUE.mid)
        lines = "\n".join(found_faults({"Devices": icons, "Empty": {}}))
        for wanted in (
            "Pale at 16 is hard to see on a light",
            "Small at 96 is hard to see on a dark",
            "Devices/Twin looks like Devices/Printer",
            "Aside/1 is no name",
            "Aside/1 at 32 lies 8.0 pixels off",
            "Cut reaches beyond",
            "Empty has 0 icons",
        ):
            self.assertIn(wanted, lines)
        self.assertNotIn("Printer at", lines)

    def test_files_hold_each_size_as_drawn(self):
        draw = THEMES["Media"]["Palette"]
        pictures = [picture(draw, size) for size in SIZES]
        with Image.open(io.BytesIO(ico_bytes(pictures, 32))) as icon:
            self.assertEqual(icon.ico.sizes(), {(size, size) for size in SIZES})
            for drawn in pictures:
                self.assertEqual(icon.ico.getimage(drawn.size).convert("RGBa").tobytes(), drawn.convert("RGBa").tobytes())


if __name__ == "__main__":
    unittest.main()
