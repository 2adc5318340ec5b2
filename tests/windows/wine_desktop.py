"""The installed Windows program in a virtual desktop of Wine, on the X display that tools/with-desktop gave."""
import os
import pathlib
import struct
import subprocess
import time

WAIT = 60  # seconds; a first start under a loaded machine is slow
PANEL = "AhPanel"
# Whose name shows in the title of the X window that holds the virtual desktop.
DESKTOP = "paneda"


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False).stdout


def wait_for(condition, seconds=WAIT):
    """What `condition` gives as soon as it is true, or what it gives after that time."""
    end = time.monotonic() + seconds
    while not (value := condition()) and time.monotonic() < end:
        time.sleep(0.1)
    return value


class Picture:
    """What the whole screen shows."""

    def __init__(self):
        self.width, self.height = map(int, output("xdotool", "getdisplaygeometry").split())
        self.rgb = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], stdout=subprocess.PIPE,
                                  check=True).stdout
        if len(self.rgb) != self.width * self.height * 3:
            raise AssertionError("the screen cannot be read")

    def at(self, x, y):
        start = (y * self.width + x) * 3
        return self.rgb[start:start + 3]

    def colours(self, area):
        left, top, width, height = area
        return {self.at(x, y) for y in range(top, top + height) for x in range(left, left + width)}


def windows_named(name):
    return output("xdotool", "search", "--name", f"^{name}$").split()


def is_shown(window):
    return "IsViewable" in output("xwininfo", "-id", window)


def area_of(window):
    """Left, top, width and height on the screen."""
    values = dict(line.split("=") for line in output("xdotool", "getwindowgeometry", "--shell", window).splitlines())
    return tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))


def click(x, y, button=1):
    output("xdotool", "mousemove", str(x), str(y), "sleep", "0.3", "click", str(button))


def press_keys(keys):
    output("xdotool", "key", keys)


def focus_desktop():
    """Wine hears of keys while an own window of the X server has the focus; its desktop is one."""
    window = wait_for(lambda: next(iter(output("xdotool", "search", "--name", f"^{DESKTOP} - ").split()), ""))
    output("xdotool", "windowfocus", "--sync", window)


class Wine:
    def __init__(self, runner):
        self.runner = runner
        for key, name, value in ((r"HKCU\Software\Wine\Explorer", "Desktop", DESKTOP),
                                 (r"HKCU\Software\Wine\Explorer\Desktops", DESKTOP, "1024x768")):
            subprocess.run([runner, "reg", "add", key, "/v", name, "/d", value, "/f"], stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL, check=True)

    def start(self, program, *arguments):
        return subprocess.Popen([self.runner, str(program), *arguments], cwd=pathlib.Path(program).parent)

    def run(self, *command):
        return subprocess.run([self.runner, *command], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True, check=False)

    def end(self):
        subprocess.run(["wineserver", "-k"], stderr=subprocess.DEVNULL, check=False)
        subprocess.run(["wineserver", "-w"], stderr=subprocess.DEVNULL, check=False)


class Program:
    """One start of paneda.exe."""

    def __init__(self, wine, folder):
        self.wine = wine
        self.process = wine.start(pathlib.Path(folder, "paneda.exe"))

    def panel(self):
        """The panel's X window as soon as it is on the screen; empty when it does not come."""
        return wait_for(lambda: self.process.poll() is None and next(filter(is_shown, windows_named(PANEL)), ""))

    def close(self):
        """Ends the program as the system does. Its exit status, None when it goes on."""
        self.wine.run("taskkill", "/im", "paneda.exe")
        wait_for(lambda: self.process.poll() is not None)
        return self.process.returncode

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


class Config:
    """The file `config`: records of 4000 bytes."""

    SIZE = 4000

    def __init__(self, path):
        self.path = pathlib.Path(path)
        self.data = bytearray(self.path.read_bytes())

    def set(self, record, value):
        """A boolean or a small integer."""
        body = struct.pack("<HBB", 1, 1, value) if isinstance(value, bool) else struct.pack("<HBh", 1, 2, value)
        checksum = 0x811C9DC5
        for byte in body:
            checksum = (checksum ^ byte) * 0x01000193 & 0xFFFFFFFF
        start = (record - 1) * self.SIZE
        self.data[start:start + 8 + len(body)] = struct.pack("<II", len(body), checksum) + body

    def save(self):
        self.path.write_bytes(self.data)


def tree_of(folder, left_out=()):
    """Each name below a folder with its bytes, or None for a folder."""
    found = {}
    for path in sorted(pathlib.Path(folder).rglob("*")):
        name = path.relative_to(folder).as_posix()
        if not any(name == part or name.startswith(part + "/") for part in left_out):
            found[name] = path.read_bytes() if path.is_file() else None
    return found


def windows_path(path):
    """What Wine calls a path of the host."""
    return "Z:" + os.path.abspath(path).replace("/", "\\")
