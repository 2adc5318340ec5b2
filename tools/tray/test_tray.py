"""Tests of the generator: run with `/usr/bin/python3 -B -m unittest` in this folder."""

import filecmp
import importlib.machinery
import importlib.util
import io
import os
import struct
import tempfile
import unittest

from PIL import Image

import app_icon
import emblem
from check import app_faults, contrast, placement_faults, tray_faults, visibility_faults
from emblem_icons import dark, light
from ico import ico_bytes
from surface import Canvas, base_of, fitted, rgb
from tray_set import ICONS, SIZES, TrayIcon

HERE = os.path.dirname(os.path.abspath(__file__))


def script(name):
    loader = importlib.machinery.SourceFileLoader(name.replace("-", "_"), os.path.join(HERE, name))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


class Layouts(unittest.TestCase):
    def test_sizes_are_multiples_of_hand_made_ones(self):
        found = {size: base_of(size) for size in SIZES + app_icon.SIZES}
        self.assertEqual(found, {16: 16, 22: 22, 24: 24, 32: 16, 44: 22, 48: 24, 64: 16, 66: 22, 72: 24, 96: 24, 128: 16, 256: 16})
        self.assertRaises(ValueError, base_of, 20)
        self.assertEqual(fitted({16: (1, 0.5)}, 64), (4, 2))

    def test_straight_edges_of_the_emblem_are_crisp(self):
        """Half covered pixels come from corners and the round end alone."""
        for size in SIZES:
            alpha = TrayIcon(light).picture(size).getchannel("A")
            left, top, stem, height, gap, width, round_height, radius = fitted(emblem.ALONE, size)
            inset = -int(-radius // 1)
            soft = [
                (x, y)
                for y in range(size)
                for x in range(size)
                if 0 < alpha.getpixel((x, y)) < 255
                and not (x < left + stem and (y < top + inset or y >= top + height - inset))
                and not (x >= left + stem + gap and (x < left + stem + gap + inset or x >= left + stem + gap + width - round_height // 2))
            ]
            self.assertEqual(soft, [], size)


class Checks(unittest.TestCase):
    def test_contrast(self):
        self.assertAlmostEqual(contrast((0, 0, 0), (255, 255, 255)), 21.0)
        self.assertAlmostEqual(contrast((255, 255, 255), (0x77,) * 3), 4.48, places=2)

    def test_all_pictures_are_sound(self):
        self.assertEqual(tray_faults() + app_faults(), [])
        self.assertEqual(len(ICONS), 12)

    def test_each_flaw_is_found(self):
        def dot(canvas, size):
            canvas.disc(size / 2, size / 2, size / 8, rgb("FFFFFF"))

        def aside(canvas, size):
            canvas.rect(0, 0, size / 2, size, rgb("FFFFFF"))

        cases = {
            "tray01-16 is hard to see on a light tray": (TrayIcon(light),),
            "tray01-48 is hard to see on a dark tray": (TrayIcon(dark),),
            "tray01-22 is hard to see on a dark tray": (TrayIcon(dot, ("dark",)),),
            "tray01-24 lies 6.0 pixels off": (TrayIcon(aside, ("dark",)),),
            "tray01-32 is empty": (TrayIcon(lambda canvas, size: None, ()),),
            "tray02 looks like tray01": (ICONS[2], ICONS[2]),
        }
        for wanted, icons in cases.items():
            with self.subTest(wanted):
                self.assertTrue(any(line.startswith(wanted) for line in tray_faults(icons)), tray_faults(icons))
        self.assertEqual(placement_faults(Canvas(16, 15).image(), 16), ["is 16 by 15"])
        self.assertEqual(visibility_faults(TrayIcon(light).picture(16), ("dark",)), [])


class WindowsIcon(unittest.TestCase):
    def test_a_reader_finds_every_picture_again(self):
        pictures = [app_icon.picture(size) for size in app_icon.SIZES]
        with Image.open(io.BytesIO(ico_bytes(pictures))) as icon:
            self.assertEqual(icon.ico.sizes(), {(s, s) for s in app_icon.SIZES})
            for picture in pictures:
                # Readers are free to drop the colour of what cannot be seen.
                self.assertEqual(icon.ico.getimage(picture.size).convert("RGBa").tobytes(), picture.convert("RGBa").tobytes())

    def test_mask_shows_what_is_see_through(self):
        picture = Image.new("RGBA", (16, 16), (9, 9, 9, 255))
        picture.putpixel((2, 15), (0, 0, 0, 0))
        data = ico_bytes([picture])
        _, _, _, _, _, bits, size, at = struct.unpack("<BBBBHHII", data[6:22])
        self.assertEqual((bits, size, at), (32, 40 + 16 * 16 * 4 + 16 * 4, 22))
        mask = data[at + 40 + 16 * 16 * 4 :]
        # The lowest row comes first.
        self.assertEqual([mask[4 * y : 4 * y + 2] for y in range(16)], [b"\x20\x00"] + [b"\x00\x00"] * 15)


class Files(unittest.TestCase):
    def test_two_runs_write_the_same_bytes(self):
        make_tray = script("make-tray")
        with tempfile.TemporaryDirectory() as one, tempfile.TemporaryDirectory() as two:
            for folder in (one, two):
                make_tray.write_all(folder)
            names = sorted(os.path.relpath(os.path.join(d, f), one) for d, _, files in os.walk(one) for f in files)
            self.assertEqual(len(names), 12 * len(SIZES) + len(app_icon.SIZES) + 1)
            self.assertEqual(filecmp.cmpfiles(one, two, names, shallow=False), (names, [], []))


if __name__ == "__main__":
    unittest.main()
