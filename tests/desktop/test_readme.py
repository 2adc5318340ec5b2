#!/usr/bin/env python3
"""Runs the command lines that README.md shows, in their order, on the desktop that this test runs on.

usage: test_readme.py SOURCE_DIR BINARY_DIR      (through tools/with-desktop)

Lines that take minutes or build everything are not run: the programs they name have to be there. A line that
matches no rule fails, so that a new one in the README gets one here.
"""
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import time

SOURCE, BINARY = (pathlib.Path(path).resolve() for path in sys.argv[1:3])
WAIT = 20  # s


README = (SOURCE / "README.md").read_text()


def command_lines():
    """The lines of all code blocks that show commands, without the remarks behind them."""
    for block in re.findall(r"^ *```\n(.*?)^ *```$", README, re.S | re.M):
        lines = [line.strip() for line in block.splitlines()]
        is_tree, is_ini = lines[0].endswith("/"), lines[0].startswith("[")
        if not is_tree and not is_ini:
            yield from (re.split(r" {3,}", line)[0] for line in lines)


def paths_in_sentences():
    return re.findall(r"`((?:tools|packaging)/[^` ]+)`", README)


def visible_panel():
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^AhPanel$"], text=True,
                           capture_output=True, check=False)
    return found.stdout.split()


def wait_for(what, condition):
    end = time.monotonic() + WAIT
    while not condition():
        assert time.monotonic() < end, f"{what} did not happen in {WAIT} s"
        time.sleep(0.1)


def names_are_there(command):
    """Scripts of the checkout and programs of the build that a line names."""
    for word in shlex.split(command):
        if word.startswith("build/release/"):
            assert os.access(BINARY / word.removeprefix("build/release/"), os.X_OK), f"{word} is not there"
        elif word.startswith(("./", "tools/", "packaging/")):
            assert os.access(SOURCE / word, os.X_OK), f"{word} is not there"


def install(command):
    subprocess.run(shlex.split(command), check=True, stdout=subprocess.DEVNULL, cwd=BINARY)


def start(command):
    program = subprocess.Popen(shlex.split(command))
    wait_for("the start of the panel", visible_panel)
    return program


def call(command):
    """The panel is out of sight before the call and in sight after it."""
    subprocess.run(["xdotool", "windowminimize", *visible_panel()], check=True)
    wait_for("minimizing the panel", lambda: not visible_panel())
    subprocess.run(shlex.split(command), check=True)
    wait_for("the call of the panel", visible_panel)


RULES = [
    (r"\./(run|test)\.sh$", names_are_there),
    (r"(build/release/bench|tools/with-desktop -- build/release/bench)/", names_are_there),
    (r"cmake --install ", install),
    (r"\S*/paneda$", start),
    (r"dbus-send ", call),
]


def main():
    for path in paths_in_sentences():
        names_are_there(path)
    ran = []
    program = None
    with tempfile.TemporaryDirectory() as folder:
        try:
            for line in command_lines():
                rule = next((act for pattern, act in RULES if re.match(pattern, line)), None)
                assert rule, f"no test runs this line of the README: {line}"
                print(line, flush=True)
                command = line.replace("DIR", folder)
                if rule is install:
                    command = command.replace("build/release", str(BINARY))
                result = rule(command)
                program = result or program
                ran.append(rule)
        finally:
            if program:
                program.terminate()
                program.wait(WAIT)
    for rule in {act for _, act in RULES}:
        assert rule in ran, f"the README shows nothing for {rule.__name__}"


if __name__ == "__main__":
    main()
