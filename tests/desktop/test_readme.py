#!/usr/bin/env python3
"""Runs the command lines that README.md shows, in their order, on the desktop that this test runs on.

usage: test_readme.py SOURCE_DIR BINARY_DIR      (through tools/with-desktop)

Of lines that take minutes only the programs are looked for. A line that no rule knows fails.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

SOURCE, BINARY = (pathlib.Path(path).resolve() for path in sys.argv[1:3])
README = (SOURCE / "README.md").read_text()
WAIT = 20  # s


def command_lines():
    """The lines of all code blocks but those of folders and INI files, without the remarks behind them."""
    for block in re.findall(r"^ *```\n(.*?)^ *```$", README, re.S | re.M):
        lines = [line.strip() for line in block.splitlines()]
        if not lines[0].endswith("/") and not lines[0].startswith("["):
            yield from (re.split(r" {3,}", line)[0] for line in lines)
    yield from re.findall(r"`((?:tools|packaging)/[^` ]+)`", README)


def run(*words):
    return subprocess.run(words, text=True, stdout=subprocess.PIPE, check=words[0] != "xdotool").stdout.split()


def wait_for_panel(is_seen):
    end = time.monotonic() + WAIT
    while bool(run("xdotool", "search", "--onlyvisible", "--name", "^AhPanel$")) != is_seen:
        assert time.monotonic() < end, f"the panel's visibility does not become {is_seen} in {WAIT} s"
        time.sleep(0.1)


def look_for_programs(*words):
    for word in words:
        path = BINARY / word[len("build/release/"):] if word.startswith("build/release/") else SOURCE / word
        if re.match(r"\./|build/release/|tools/|packaging/", word):
            assert os.access(path, os.X_OK), f"{word} is not there"


def start(*words):
    program = subprocess.Popen(words)
    wait_for_panel(True)
    return program


def call(*words):
    run("xdotool", "windowminimize", *run("xdotool", "search", "--onlyvisible", "--name", "^AhPanel$"))
    wait_for_panel(False)
    run(*words)
    wait_for_panel(True)


RULES = {r"\./|build/release/|tools/|packaging/": look_for_programs, r"cmake --install ": run,
         r"\S*/paneda$": start, r"dbus-send ": call}


def main():
    unused = set(RULES)
    program = None
    with tempfile.TemporaryDirectory() as folder:
        try:
            for line in command_lines():
                print(line, flush=True)
                rule = next((pattern for pattern in RULES if re.match(pattern, line)), None)
                assert rule, "no test runs this line"
                unused.discard(rule)
                words = line.replace("DIR", folder).split(" ")
                if RULES[rule] is run:
                    words = [str(BINARY) if word == "build/release" else word for word in words]
                program = RULES[rule](*words) or program
        finally:
            if isinstance(program, subprocess.Popen):
                program.terminate()
                program.wait(WAIT)
    assert not unused, f"the README shows nothing for {unused}"


if __name__ == "__main__":
    main()
