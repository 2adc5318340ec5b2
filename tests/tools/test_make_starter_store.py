"""make-starter-store, run as a user would, on made-up machines."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "make-starter-store"


class Machine:
    """A home, a PATH and a folder of .desktop files of its own."""

    def __init__(self, root, programs=("prog", "xterm")):
        self.root = pathlib.Path(root)
        for name in ("home", "bin", "apps", "store"):
            (self.root / name).mkdir()
        self.home, self.store = self.root / "home", self.root / "store"
        for program in programs:
            (self.root / "bin" / program).write_text("#!/bin/sh\n")
            (self.root / "bin" / program).chmod(0o755)

    def desktop(self, file, name="X", categories="Game;", folder="apps", **more):
        values = {"Type": "Application", "Name": name, "Exec": "prog %U", "Categories": categories, **more}
        path = self.root / folder / file
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("# a comment\n[Desktop Entry]\n" + "".join(f"{k}={v}\n" for k, v in values.items())
                        + "[Desktop Action other]\nName=Other\nNoDisplay=true\n")
        return path

    def run(self, folders=("apps",), **environment):
        options = [word for folder in folders for word in ("--applications", str(self.root / folder))]
        env = {"PATH": str(self.root / "bin"), "HOME": str(self.home), **environment}
        return subprocess.run([sys.executable, str(TOOL), str(self.store), *options], env=env, text=True,
                              capture_output=True, check=False)

    def tree(self, below="Setting"):
        top = self.store / below
        return sorted(path.relative_to(top).as_posix() for path in top.rglob("*") if path.is_file())

    def titles(self, group):
        """Button titles of a group of Programs, in their order."""
        folder = next((self.store / "Setting" / "[001] Programs").glob(f"*[]] {group}"), None)
        return [name[6:name.rindex(" [")] for name in sorted(os.listdir(folder))] if folder else None

    def groups(self, category="[001] Programs"):
        return sorted(os.listdir(self.store / "Setting" / category))


class StarterStore(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.root = pathlib.Path(scratch.name)

    def machine(self, name="m", **options):
        (self.root / name).mkdir()
        return Machine(self.root / name, **options)

    def test_which_programs_get_a_button(self):
        cases = [
            ("plain", {}, True),
            ("program in a folder that is not there", {"Exec": "/nowhere/prog"}, False),
            ("quoted program", {"Exec": '"prog" "two words"'}, True),
            ("env of a missing one", {"Exec": "env A=b missing"}, False),
            ("TryExec missing", {"TryExec": "missing"}, False),
            ("NoDisplay", {"NoDisplay": "true"}, False),
            ("only elsewhere", {"OnlyShowIn": "Elsewhere;"}, False),
            ("not here", {"NotShowIn": "Here;"}, False),
            ("nothing left of the name", {"Name": "..."}, False),
        ]
        machine = self.machine()
        for number, (name, values, _) in enumerate(cases):
            machine.desktop(f"{number:02}.desktop", **{"Name": name, **values})
        machine.run(XDG_CURRENT_DESKTOP="Here")
        self.assertEqual(machine.titles("Games"), sorted(name for name, _, wanted in cases if wanted))

    def test_groups_hold_each_program_once_and_no_more_than_ten(self):
        machine = self.machine()
        machine.desktop("w1.desktop", "Browser A", "Network;WebBrowser;", Icon="a", Terminal="true")
        machine.desktop("w2.desktop", "Browser Z", "Network;WebBrowser;", Icon="z")
        machine.desktop("w3.desktop", "Chat", "Network;")
        machine.desktop("d.desktop", "Debugger", "Development;")
        machine.desktop("f.desktop", "Files", "System;FileManager;Network;")
        machine.desktop("o.desktop", "Odd", "")
        for number in range(12):
            machine.desktop(f"g{number}.desktop", f"Game {number:02}")
        machine.run()
        self.assertEqual(machine.groups(), ["[001] Everyday", "[002] Internet", "[003] Games", "[004] Accessories"])
        self.assertEqual(machine.titles("Everyday"), ["Files", "Browser Z"])
        self.assertEqual(machine.titles("Internet"), ["Chat", "Browser A"])
        self.assertEqual(machine.titles("Accessories"), ["Debugger", "Odd"])
        self.assertEqual(machine.titles("Games"), [f"Game {number:02}" for number in range(10)])

    def test_titles_are_file_names(self):
        machine = self.machine()
        names = {
            "a/b:c*?": "a-b-c--", ".hidden.": "hidden", 'q"<>|': "q----", "T[1]": "T(1) 2", "t(1)": "t(1)",
            "two  \tblanks": "two blanks", "Äö" * 50: "Äö" * 30, "äÖ" * 60: "äÖ" * 29 + " 2", "😀" * 60: "😀" * 50,
        }
        for number, name in enumerate(names):
            machine.desktop(f"{number}.desktop", name)
        machine.run()
        self.assertEqual(sorted(machine.titles("Games")), sorted(names.values()))

    def test_a_record(self):
        machine = self.machine()
        path = machine.desktop("kde/a.desktop", "Tool", **{
            "Name[de]": "Werkzeug", "Comment": "A tool", "Comment[de]": '"Ein Werkzeug"', "Comment[de_AT]": "\\nAT"})
        machine.run(LANG="de_DE.UTF-8")
        button = next(machine.store.rglob("*.pnd"))
        self.assertEqual(button.name, "[001] Werkzeug [C0213001411].pnd")
        self.assertEqual(button.read_bytes().decode().split("\r\n"), [
            "[Properties]", "Target=C:" + str(path).replace("/", "\\"), "Parameter=", "Start In=", "Window State=Normal",
            'Description=""Ein Werkzeug""', ""])

    def test_a_machine_without_desktop_files(self):
        machine = self.machine()
        machine.run()
        self.assertEqual(machine.tree("Setting/[001] Programs"), ["[001] Everyday/[001] Terminal [11113001100].pnd"])
        bare = self.machine("bare", programs=())
        self.assertEqual(bare.run().returncode, 0)
        self.assertEqual(bare.groups(), ["[001] Everyday"])

    def test_what_is_there_is_kept(self):
        machine = self.machine()
        (machine.store / "SETTING2").mkdir()
        (machine.store / "setting.ini").write_text("[Note]\nwidth=700\n")
        machine.run()
        self.assertEqual((machine.store / "setting.ini").read_text(), "[Note]\nwidth=700\n")
        self.assertEqual(sorted(os.listdir(machine.store)), ["SETTING2", "Setting", "setting.ini"])
        for name in ("Setting", "sETTING"):
            used = self.machine(name)
            (used.store / name).mkdir()
            result = used.run()
            self.assertEqual((result.returncode, os.listdir(used.store)), (0, [name]))
            self.assertIn("already", result.stdout)


if __name__ == "__main__":
    unittest.main()
