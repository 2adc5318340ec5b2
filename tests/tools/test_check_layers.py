"""check-layers on made-up trees; each rule by itself is tried by its own --self-test."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "check-layers"


def run(*arguments):
    return subprocess.run([sys.executable, str(TOOL), *map(str, arguments)], text=True, capture_output=True, check=False)


class CheckLayers(unittest.TestCase):
    def check(self, files):
        with tempfile.TemporaryDirectory() as root:
            for name, text in files.items():
                path = pathlib.Path(root, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            result = run(root)
        return result.returncode, result.stdout.splitlines()

    def test_every_rule_fires(self):
        result = run("--self-test")
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_every_fault_is_named_with_its_line(self):
        status, lines = self.check({
            "src/core/text/a.h": "#pragma once\n",
            "src/ui/b.h": '#include "core/text/a.h"\n',
            "src/core/text/c.cpp": 'const char* text = "/*";\n#include "ui/b.h"\n/* two\nlines */ int x;\n#include <QLabel>\n',
            "src/notes/d.h": '#include "core/text/a.h"\n#include "ui/b.h"\n',
        })
        self.assertEqual(status, 1)
        self.assertEqual([line.split(": ")[0] for line in lines], ["src/core/text/c.cpp:2", "src/core/text/c.cpp:5", "src/notes/d.h:2"])

    def test_a_tree_in_order_and_one_without_sources(self):
        self.assertEqual(self.check({"src/core/text/a.cpp": "#include <QString>\n", "tests/b.cpp": "#include <QWidget>\n"})[0], 0)
        self.assertEqual(self.check({"tests/b.cpp": ""})[0], 1)


if __name__ == "__main__":
    unittest.main()
