"""A desk of its own for the program: a virtual display with a window manager, a fresh folder for all its data, the
trace of its host calls, and hands that press real keys and move a real pointer. A Windows program (.exe) works at the same
desk, under Wine."""

import json
import os
import re
import shutil
import subprocess
import tempfile
import time
import traceback
from pathlib import Path
from typing import NamedTuple

PATIENCE_S = 30.0  # for anything the program is expected to do; a busy machine is slow, a hung program never comes
POLL_S = 0.02
SCREEN = "1280x1024x24"


def cannot_start(program, error):
    """The failure of a program that the test needs and the machine does not have."""
    return Failure(f"'{program}' cannot be started ({error.strerror}). scripts/packages.txt lists the packages that the "
                   "tour needs; './run --tour DIR' installs them and builds the programs")


class Area(NamedTuple):
    """A part of the screen, in pixels."""
    left: int
    top: int
    width: int
    height: int

    def contains(self, other):
        return (self.left <= other.left and other.left + other.width <= self.left + self.width and
                self.top <= other.top and other.top + other.height <= self.top + self.height)

    def around_middle(self, dx, dy, size):
        """A square at a distance from the middle of this area."""
        return Area(self.left + self.width // 2 + dx - size // 2, self.top + self.height // 2 + dy - size // 2,
                    size, size)

    def as_crop(self):
        return f"{self.width}x{self.height}+{self.left}+{self.top}"


class Failure(Exception):
    """What went wrong, as a sentence."""


def as_sentence(error):
    """Any error as one sentence: a Failure in its own words, everything else with the line of the test that met it."""
    if isinstance(error, Failure):
        return str(error)
    where = traceback.extract_tb(error.__traceback__)[-1]
    return f"{type(error).__name__}: {error} ({Path(where.filename).name}, line {where.lineno}: {where.line})"


def wait_until(condition, otherwise, patience_s=PATIENCE_S):
    """Waits until the condition gives something true and returns that; else fails with the sentence `otherwise`.
    A condition that fails itself is not true yet: windows come and go while they are asked."""
    deadline = time.monotonic() + patience_s
    while True:
        try:
            if result := condition():
                return result
        except Failure:
            pass
        if time.monotonic() > deadline:
            raise Failure(f"{otherwise} (waited {patience_s:.0f} s)")
        time.sleep(POLL_S)


class Trace:
    """The host calls of one process, read from its trace file while it grows. A full file is moved away and a new one begun;
    the old one is read to its end first."""

    def __init__(self, path):
        self._path = path
        self._file = None
        self._calls = []

    def calls(self):
        """All calls so far, oldest first; each with fn, in, out and ret."""
        while self._file or self._path.exists():
            self._file = self._file or open(self._path, "rb")
            was_moved = not self._path.exists() or not os.path.samestat(os.fstat(self._file.fileno()), os.stat(self._path))
            self._read_on()
            if not was_moved:
                break
            self._file.close()
            self._file = None
        return self._calls

    def _read_on(self):
        while line := self._file.readline():
            if not line.endswith(b"\n"):
                self._file.seek(-len(line), os.SEEK_CUR)  # still being written
                break
            self._calls.append(json.loads(line))

    def mark(self):
        """A place in the trace: what comes later is what is done from now on."""
        return len(self.calls())

    def find(self, fn, since=0, where=lambda call: True):
        """The first call of that function after the mark, or None."""
        return next((call for call in self.calls()[since:] if call["fn"] == fn and where(call)), None)

    def last(self, fn, where=lambda call: True):
        """The latest call of that function, or None."""
        return next((call for call in reversed(self.calls()) if call["fn"] == fn and where(call)), None)

    def wait(self, fn, since, where=lambda call: True, meaning=""):
        """Waits for a call of that function after the mark."""
        return wait_until(lambda: self.find(fn, since, where),
                          f"{fn} {meaning}{' ' if meaning else ''}was expected and did not come")


class Desk:
    """Used as `with Desk() as desk`; at the end every process that was started here has ended."""

    def __init__(self, program=None, screen=SCREEN):
        """Needs to know the program when it can be one of Windows."""
        self._screen = screen
        self._wine = program is not None and program.suffix == ".exe"
        self._places = program.with_name("window_places.exe") if self._wine else None
        self._place_asker = None
        self.folder = Path(tempfile.mkdtemp(prefix="ocuva-tour-"))
        self._processes = []
        self._env = None

    def __enter__(self):
        try:
            self._open()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self._wine and self._env:
            self._try("wineserver", "-k")
        for process in reversed(self._processes):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _open(self):
        for name in ("data", "config", "runtime", "tmp"):
            (self.folder / name).mkdir(mode=0o700)
        display_in, display_out = os.pipe()
        self._start("Xvfb", "-displayfd", str(display_out), "-screen", "0", self._screen, "-nolisten", "tcp", "-noreset",
                    pass_fds=(display_out,), log="xvfb.log")
        os.close(display_out)
        with os.fdopen(display_in) as answer:
            number = answer.readline().strip()
        if not number:
            raise Failure("Xvfb did not open a display: " + (self.folder / "xvfb.log").read_text())

        kept = {key: value for key, value in os.environ.items()
                if not key.startswith(("QT_", "OCUVA_", "XDG_", "WAYLAND_", "DBUS_"))}
        self._env = kept | {
            "DISPLAY": f":{number}",
            "QT_QPA_PLATFORM": "xcb",  # which Wine does not pass on
            "LC_ALL": "C.UTF-8",
            "OCUVA_DATA": str(self.folder / "data"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_RUNTIME_DIR": str(self.folder / "runtime"),
            "TMPDIR": str(self.folder / "tmp"),
        }
        self._start("openbox", "--sm-disable", log="openbox.log")
        wait_until(lambda: self._try("xdotool", "get_num_desktops"), "The window manager did not come up")
        if self._wine:
            # A Wine stays with the display that it was started on, so this desk has one of its own.
            shutil.copytree(os.environ["OCUVA_FRESH_WINE"], self.folder / "wine", symlinks=True)
            self._env["WINEPREFIX"] = str(self.folder / "wine")
            self._place_asker = self._start(str(self._places), log="places.log", stdin=subprocess.PIPE,
                                            stdout=subprocess.PIPE, text=True)

    def _start(self, *command, log, pass_fds=(), stdin=subprocess.DEVNULL, stdout=None, text=False, **extra_env):
        env = (self._env or dict(os.environ)) | extra_env
        with open(self.folder / log, "wb") as output:
            try:
                process = subprocess.Popen(self._runnable(command), env=self._named_environment(env), stdin=stdin,
                                           stdout=stdout or output, stderr=output, pass_fds=pass_fds, text=text)
            except OSError as error:
                raise cannot_start(command[0], error) from error
        self._processes.append(process)
        return process

    def _runnable(self, command):
        return ("wine", *command) if command[0].endswith(".exe") else command

    def _named_environment(self, env):
        return {key: self.named(value) if key.startswith("OCUVA_") else value for key, value in env.items()}

    def named(self, path):
        """A path as the program calls it."""
        text = str(path)
        return "Z:" + text.replace("/", "\\") if self._wine and text.startswith("/") else text

    def _try(self, *command):
        """The command's output, or None when it fails."""
        try:
            done = subprocess.run(self._runnable(command), env=self._env, stdin=subprocess.DEVNULL, capture_output=True,
                                  text=True, timeout=PATIENCE_S)
        except subprocess.TimeoutExpired as error:
            raise Failure(f"'{' '.join(command)}' did not end within {PATIENCE_S:.0f} s") from error
        except OSError as error:
            raise cannot_start(command[0], error) from error
        return done.stdout if done.returncode == 0 else None

    def _do(self, *command):
        output = self._try(*command)
        if output is None:
            raise Failure(f"'{' '.join(command)}' failed")
        return output

    def set_environment(self, name, value):
        """For every program that is started from now on."""
        self._env[name] = str(value)

    def display(self):
        """The name of its display."""
        return self._env["DISPLAY"]

    def write(self, name, text):
        """Puts a file into the desk's folder, whole at once, as an editor does."""
        aside = self.folder / (name + ".new")
        aside.write_text(text)
        aside.replace(self.folder / name)

    # -- programs and their windows

    def start_program(self, program, *arguments, trace, log, **extra_env):
        """Starts the program; its output goes to the named file of the desk's folder."""
        return self._start(str(program), *arguments, log=log, OCUVA_TRACE=str(trace), **extra_env)

    def run(self, *command):
        """Runs a command of the desk to its end and returns its output."""
        return self._do(*map(str, command))

    def windows(self, process):
        """Ids of the visible titled windows of a process, dialogs included."""
        found = self._try("xdotool", "search", "--all", "--onlyvisible", "--pid", str(process.pid), "--name", ".")
        windows = found.split() if found else []
        return [window for window in windows if self._is_managed(window)] if self._wine else windows

    def _is_managed(self, window):
        """Not a tooltip or a menu; under Wine they have titles too."""
        return "Override Redirect State: no" in (self._try("xwininfo", "-id", window) or "")

    def title(self, window):
        return self._do("xdotool", "getwindowname", window).strip()

    def wait_for_dialog(self, process, window):
        """The window that appears in addition to the given one."""
        return wait_until(lambda: [other for other in self.windows(process) if other != window], "No dialog came up")[0]

    def wait_until_closed(self, process, window):
        wait_until(lambda: window not in self.windows(process), "The window stays open")

    def area(self, window):
        """Where the inside of a window, or of a control with a window of its own, is on the screen."""
        told = self._do("xwininfo", "-id", window)
        left, top, width, height = (int(re.search(rf"{key}: +(-?\d+)", told).group(1))
                                    for key in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        return Area(left, top, width, height)

    def place(self, handle):
        """The same of a window or control of which only the program's handle is known."""
        if not self._wine:
            return self.area(str(handle))
        self._place_asker.stdin.write(f"{handle}\n")
        self._place_asker.stdin.flush()
        answer = self._place_asker.stdout.readline().split()
        if len(answer) != 4:
            raise Failure(f"There is no window with the handle {handle}")
        return Area(*map(int, answer))

    def resize(self, window, width, height):
        self._do("xdotool", "windowsize", window, str(width), str(height))
        wait_until(lambda: self.area(window)[2:] == (width, height),
                   f"The window did not take the size {width} x {height}")

    def activate(self, window):
        self._do("xdotool", "windowactivate", "--sync", window)
        if self._wine:
            # Wine gives the keys to the window that Windows takes for the active one, which follows a little later.
            wait_until(lambda: self.place(0) == self.area(window), "The window does not get the keys")

    # -- hands and eyes

    def press(self, *keys):
        """Presses keys one after the other in the active window: press("alt+v", "n")."""
        self._do("xdotool", "key", "--delay", "120", *keys)

    def type(self, text):
        """Types a text into the active window."""
        self._do("xdotool", "type", "--delay", "20", str(text))

    def click(self, x, y, button=1):
        """Clicks a point of the screen."""
        self._do("xdotool", "mousemove", "--sync", str(round(x)), str(round(y)))
        self._do("xdotool", "click", str(button))

    def screenshot(self, path):
        self._do("import", "-window", "root", str(path))

    def likeness(self, before, area):
        """How well what is seen in an area now matches a picture of the same size: 1 the same, 0 nothing in common."""
        now = self.folder / "now.png"
        self.snap(area, now)
        return float(self._do("convert", str(before), str(now), "-metric", "NCC", "-compare",
                              "-format", "%[distortion]", "info:"))

    def snap(self, area, path):
        """Keeps what is seen in an area of the screen."""
        self._do("import", "-window", "root", "-crop", area.as_crop(), "+repage", str(path))

    def portrait(self, windows, path):
        """Keeps what is seen of one or more windows, small enough for a page."""
        areas = [self.area(window) for window in windows]
        left, top = min(area.left for area in areas), min(area.top for area in areas)
        whole = Area(left, top, max(area.left + area.width for area in areas) - left,
                     max(area.top + area.height for area in areas) - top)
        self._do("import", "-window", "root", "-crop", whole.as_crop(), "+repage", "-strip", "+dither", "-colors", "250",
                 "-define", "png:compression-level=9", f"png8:{path}")

    def reddest(self, area):
        """How much more red than green the reddest pixel in an area of the screen is: 1 pure red, 0 or less not red."""
        now = self.folder / "now.png"
        self.snap(area, now)
        return float(self._do("convert", str(now), "-fx", "u.r-u.g", "-format", "%[fx:maxima]", "info:"))

    def settle(self, area):
        """Waits until what is seen in an area stays as it is."""
        seen = self.folder / "settling.png"

        def still():
            self.snap(area, seen)
            time.sleep(0.15)
            return self.likeness(seen, area) > 0.9999
        wait_until(still, "The window does not come to rest")

    def mean(self, area, channel):
        """Mean of a channel ("r", "g", "b") of what is seen in an area of the screen, 0 to 1."""
        return float(self._do("import", "-window", "root", "-crop", area.as_crop(),
                              "-format", f"%[fx:mean.{channel}]", "info:"))

    def contrast(self, area):
        """Standard deviation of what is seen in an area of the screen, 0 (one colour) to 1."""
        return float(self._do("import", "-window", "root", "-crop", area.as_crop(), "-colorspace", "Gray",
                              "-format", "%[fx:standard_deviation]", "info:"))
