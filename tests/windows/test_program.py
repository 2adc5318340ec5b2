#!/usr/bin/env python3
"""Starts the installed Windows program under Wine. Run it on a desktop of its own, by tools/with-desktop.

usage: test_program.py CMAKE BUILD_FOLDER RUNNER [HOST_BUILD_FOLDER]

BUILD_FOLDER holds the Windows build, RUNNER runs a Windows program, HOST_BUILD_FOLDER holds a build for this
machine; without it the tests that need both are skipped.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import wine_desktop as desk

# What the install step lays out, which no start changes.
INSTALLED = ("paneda", "paneda.exe", "skin", "Sound", "Icons", "help")
ENABLED, CTRL, ALT, KEY = 9, 10, 11, 14  # records of `config`
VK_K = 0x4B
FIRST_BUTTON = (29, 49)  # pixels from the panel's corner

arguments = []


class Installed(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="paneda-")
        self.addCleanup(scratch.cleanup)
        # A name that a command line has to quote, and that is no ASCII.
        self.folder = pathlib.Path(scratch.name, "A folder é")
        cmake, build, runner = arguments[:3]
        self.install(cmake, build)
        self.wine = desk.Wine(runner)
        self.addCleanup(self.wine.end)

    def install(self, cmake, build):
        subprocess.run([cmake, "--install", build, "--prefix", str(self.folder)], stdout=subprocess.DEVNULL, check=True)

    def start(self):
        program = desk.Program(self.wine, self.folder)
        self.addCleanup(program.end)
        panel = program.panel()
        self.assertTrue(panel, "the panel did not come")
        return program, panel

    def store(self):
        return desk.tree_of(self.folder, INSTALLED)


class Start(Installed):
    def test_first_run(self):
        program, panel = self.start()
        self.assertIn("Setting", self.store())
        left, top, width, height = area = desk.area_of(panel)
        self.assertGreater(min(width, height), 100)

        def is_painted():
            return len(desk.Picture().colours(area)) > 50
        self.assertTrue(desk.wait_for(is_painted), "the panel is blank")
        picture = desk.Picture()
        ground = picture.at(left + width + 40, top + height + 40)
        for x, y in ((left, top), (left + width - 1, top), (left, top + height - 1), (left + width - 1, top + height - 1)):
            self.assertEqual(picture.at(x, y), ground, "a corner of the panel is not transparent")
        self.assertNotEqual(picture.at(left + width // 2, top + height // 2), ground)

        self.assertEqual(program.close(), 0)
        names = self.store()
        for name in ("Cache/cache", "config", "setting.ini", "Setting2", "Data/Tree"):
            self.assertIn(name, names)
        self.assertFalse([name for name in names if name.count(".") > 1], "a temporary file was left")

    def test_second_instance_is_refused(self):
        program, _ = self.start()
        second = desk.Program(self.wine, self.folder)
        self.addCleanup(second.end)
        notice = desk.wait_for(lambda: next(filter(desk.is_shown, desk.windows_named("Paneda Launcher")), ""))
        self.assertTrue(notice, "nothing was told")
        desk.output("xdotool", "windowfocus", notice)
        desk.wait_for(lambda: desk.press_keys("Return") or second.process.poll() is not None)
        self.assertEqual(second.process.returncode, 0)
        self.assertIsNone(program.process.poll())

    def test_press_starts_a_program(self):
        group = self.folder / "Setting" / "[001] One" / "[001] Group"
        group.mkdir(parents=True)
        mark = self.folder.parent / "mark.txt"
        # The folder it starts in, the parameter in its quotes, and what comes behind are told by the shell.
        group.joinpath("[001] Shell [1].pnd").write_bytes(
            "[Properties]\r\nTarget=C:\\windows\\system32\\cmd.exe\r\n"
            "Parameter=/c \"cd >mark.txt\"\r\nStart In={}\r\n".format(desk.windows_path(mark.parent)).encode())
        program, panel = self.start()
        left, top = desk.area_of(panel)[:2]
        desk.click(left + FIRST_BUTTON[0], top + FIRST_BUTTON[1])
        self.assertTrue(desk.wait_for(lambda: mark.exists() and mark.stat().st_size), "nothing was started")
        self.assertEqual(mark.read_text().strip().lower(), desk.windows_path(mark.parent).lower())
        self.assertTrue(desk.is_shown(panel), "a launch hides the panel only when that is set")
        self.assertEqual(program.close(), 0)

    def test_hotkey(self):
        program, _ = self.start()
        self.assertEqual(program.close(), 0)
        config = desk.Config(self.folder / "config")
        config.set(ENABLED, True)
        config.set(CTRL, True)
        config.set(ALT, True)
        config.set(KEY, VK_K)
        config.save()
        program, panel = self.start()
        desk.focus_desktop()
        for shown in (False, True, False):
            desk.press_keys("ctrl+alt+k")
            self.assertEqual(bool(desk.wait_for(lambda want=shown: desk.is_shown(panel) == want)), True,
                             "the hotkey did not {} the panel".format("show" if shown else "hide"))
        self.assertEqual(program.close(), 0)


class OneStoreTwoSystems(Installed):
    """One folder with both programs in it. What one has written the other takes as it is."""

    def setUp(self):
        if len(arguments) < 4 or not pathlib.Path(arguments[3], "src/app/paneda").exists():
            self.skipTest("there is no build for this machine")
        super().setUp()
        self.install(arguments[0], arguments[3])
        for path, text in {
            "Setting/[001] Prógrams/[001] Gruppe ß/[001] Tool [11113001100].pnd":
                "; kept\r\n[properties]\r\nTarget = C:\\Tools\\a.exe\r\nOwn Key=1\r\n",
            "Setting/[001] Prógrams/[001] Gruppe ß/[002] Web.url": "[InternetShortcut]\nURL=https://example.org\n",
            "Setting/[002] Dynamic Category/Properties.ini": "[Properties]\r\nCategory=Tree\r\nOwn=2\r\n",
            "setting.ini": "; my own line\r\n[Properties]\r\nCategory=1\r\n[Elsewhere]\r\nkey=\xe9\r\n",
        }.items():
            file = self.folder / path
            file.parent.mkdir(parents=True, exist_ok=True)
            # One file as old systems wrote them.
            file.write_bytes(text.encode("latin-1" if path == "setting.ini" else "utf-8"))

    def run_windows(self):
        program, _ = self.start()
        self.assertEqual(program.close(), 0)

    def run_host(self):
        process = subprocess.Popen([self.folder / "paneda"], cwd=self.folder)
        self.addCleanup(process.kill)
        window = desk.wait_for(lambda: next(filter(desk.is_shown, desk.windows_named(desk.PANEL)), ""))
        self.assertTrue(window, "the panel did not come")
        process.terminate()
        self.assertEqual(process.wait(desk.WAIT), 0)

    def test_round_trip(self):
        for first, second in ((self.run_windows, self.run_host), (self.run_host, self.run_windows)):
            first()
            before = self.store()
            second()
            after = self.store()
            self.assertEqual(sorted(before), sorted(after))
            # Each system composes the pictures with its own fonts; the cache carries what was measured.
            changed = [name for name in before if before[name] != after[name] and not name.startswith("Cache/")]
            self.assertEqual(changed, [])
            self.assertIn(b"; my own line\r\n", after["setting.ini"])
            self.assertIn(b"key=\xe9\r\n", after["setting.ini"])


if __name__ == "__main__":
    if not os.environ.get("WITH_DESKTOP_SCRATCH"):
        sys.exit("This test wants a desktop of its own: tools/with-desktop -- test_program.py ...")
    arguments = sys.argv[1:]
    if len(arguments) < 3:
        sys.exit(__doc__)
    unittest.main(argv=sys.argv[:1], verbosity=2)
