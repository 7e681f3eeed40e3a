"""A machine of our own for a test: a display, a sound server, and programs that run on them.

Everything lives in a temporary folder and on free numbers, so that tests can run side by side,
and ends with the test.
"""

import array
import os
import queue
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest

from waiting import PATIENCE, child_of, need, stop, wait_until

# Neither a sound server nor a card, whatever the machine has.
NO_SOUND = {"PULSE_SERVER": "unix:/nonexistent", "PIPEWIRE_REMOTE": "nonexistent",
            "ALSA_CONFIG_PATH": "/dev/null"}

class Display:
    """An X display without a window manager, and the keyboard of it."""

    KEYCODES = {"Shift_R": "62", "KP_1": "87", "KP_Enter": "104"}  # for xdotool: no extra presses

    def __init__(self):
        need("Xvfb", "xdotool")
        self.screen = tempfile.mkdtemp(prefix="tamlo-")
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1024x768x24", "-nolisten", "tcp",
             "-fbdir", self.screen],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as numbers:
            self.name = ":" + numbers.readline().strip()
        self.environment = {"DISPLAY": self.name}

    def xdotool(self, *arguments):
        environment = dict(os.environ, **self.environment)
        return subprocess.run(["xdotool", *arguments], env=environment, timeout=PATIENCE,
                              capture_output=True, text=True)

    def await_window(self):
        """Waits until the game's window has the keyboard."""
        wait_until(lambda: "Tamlo" in self.xdotool("getwindowfocus", "getwindowname").stdout,
                   "the window")

    def press(self, *keys):
        """Presses keys, given by their X names; returns the time just before the first."""
        before = time.monotonic()
        for key in keys:
            self.xdotool("key", "--delay", "0", self.KEYCODES.get(key, key))
        return before

    def pixels(self, colour):
        """How many pixels of the screen have a colour."""
        with open(os.path.join(self.screen, "Xvfb_screen0"), "rb") as file:
            image = file.read()
        header = struct.unpack(">25I", image[:100])
        points = array.array("I", image[header[0] + 12 * header[19]:])
        return points.count(colour) + points.count(0xFF000000 | colour)

    def close(self):
        stop(self.server)
        shutil.rmtree(self.screen, ignore_errors=True)


class Program:
    """A running program and the lines it prints, each with the time of its arrival."""

    def __init__(self, command, folder, environment=None, **options):
        surroundings = {name: value for name, value in os.environ.items()
                        if not name.startswith(("XDG_", "SDL_", "PULSE_"))
                        and name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        surroundings.update(HOME=folder, XDG_RUNTIME_DIR=folder)
        surroundings.update(environment or {})
        options.setdefault("stdin", subprocess.DEVNULL)
        self.begin = time.monotonic()
        self.process = subprocess.Popen(command, env=surroundings, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True, bufsize=1, **options)
        self.arriving = queue.Queue()
        self.lines = []
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\n"))
            self.arriving.put((time.monotonic(), line.rstrip("\n")))

    def line(self, text, patience=PATIENCE):
        """Waits for the next line that contains the text; returns the time it came."""
        end = time.monotonic() + patience
        while True:
            try:
                when, line = self.arriving.get(timeout=max(0.01, end - time.monotonic()))
            except queue.Empty:
                raise AssertionError(f"no line with {text!r}; there were {self.lines}") from None
            if text in line:
                return when

    def player(self):
        """The number of the process that plays: the child of the one that watches over it."""
        return child_of(self.process.pid) or self.process.pid

    def cpu_seconds(self):
        with open(f"/proc/{self.player()}/stat", encoding="ascii") as file:
            fields = file.read().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def ended(self, patience=PATIENCE):
        """Waits for the end; returns the exit status."""
        try:
            return self.process.wait(patience)
        except subprocess.TimeoutExpired:
            raise AssertionError(f"still running after {patience} s; {self.lines}") from None

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.reader.join(PATIENCE)  # the process that plays ends with the one that watches
        stop(self.process)


class Terminal:
    """A program in a terminal of its own, started in its own folder, and all it prints there."""

    # The terminal itself does not always tell the status.
    SCRIPT = """trap : INT
        stty -a >"$1/settings before"
        "$0"
        echo $? >"$1/status"
        stty -a >"$1/settings after"
        echo >"$1/ended" """

    def __init__(self, program, folder, environment):
        need("tmux")
        self.folder = folder
        self.socket = os.path.join(folder, "tmux")
        self.log = os.path.join(folder, "printed")
        self.seen = 0
        settings = [f"{name}={value}" for name, value in environment.items()]
        self.tmux("-f", "/dev/null", "new-session", "-d", "-x", "80", "-y", "24", "cat")
        self.tmux("set-option", "-g", "remain-on-exit", "on")
        self.tmux("pipe-pane", f"cat >'{self.log}'")
        self.tmux("respawn-pane", "-k", "-c", os.path.dirname(program),
                  "env", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", f"HOME={folder}", *settings,
                  "sh", "-c", self.SCRIPT, program, folder)

    def tmux(self, *arguments):
        return subprocess.run(["tmux", "-S", self.socket, *arguments], capture_output=True,
                              text=True, timeout=PATIENCE).stdout

    def press(self, *keys):
        names = {"Return": "Enter", "space": "Space"}
        for key in keys:
            self.tmux("send-keys", names.get(key, key))

    def type(self, line):
        self.tmux("send-keys", "-l", line)
        self.press("Return")

    def printed(self):
        try:
            with open(self.log, encoding="utf-8", errors="replace") as file:
                return file.read()
        except FileNotFoundError:
            return ""

    def line(self, text, patience=PATIENCE):
        """Waits for the text to be printed after what was last waited for."""
        wait_until(lambda: text in self.printed()[self.seen:], repr(text), patience)
        self.seen = self.printed().index(text, self.seen) + len(text)
        return time.monotonic()

    def at_cursor(self):
        """The screen's text from the cursor to the end of its row."""
        column, row = self.tmux("display-message", "-p", "#{cursor_x} #{cursor_y}").split()
        return self.tmux("capture-pane", "-p", "-S", row, "-E", row).rstrip("\n")[int(column):]

    def ended(self, patience=PATIENCE):
        """Waits for the end; returns the exit status."""
        wait_until(lambda: os.path.exists(os.path.join(self.folder, "ended")),
                   f"the end after {self.printed()[-300:]!r}", patience)
        return int(self.noted("status"))

    def noted(self, name):
        with open(os.path.join(self.folder, name), encoding="ascii") as file:
            return file.read()

    def player(self):
        """The number of the process that plays."""
        shell = self.tmux("display-message", "-p", "#{pane_pid}").strip()
        return child_of(child_of(shell))

    def close(self):
        self.tmux("kill-server")


class Case(unittest.TestCase):
    """A test with a folder of its own; what it `owns` is closed at its end."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tamlo-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def own(self, thing):
        self.addCleanup(thing.close)
        return thing

    def speak_quickly(self):
        """Where speech is only waited for: settings with the quickest. Returns the folder of the
        player's files."""
        files = os.path.join(self.folder, "Documents", "tolvane")
        os.makedirs(files)
        with open(os.path.join(files, "tamlo.cfg"), "w", encoding="ascii") as settings:
            settings.write(" 0\n 10\n 100\n 0\n 1\n")
        return files


def main():
    """Runs the tests of the calling script, whose first argument is the program to test and whose
    others name tests (all by default); exit status 77 when every one was skipped."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    run = unittest.main(exit=False, argv=[sys.argv[0], "-v", *sys.argv[2:]])
    result = run.result
    if not result.wasSuccessful() or result.testsRun == 0:
        sys.exit(1)
    sys.exit(77 if len(result.skipped) == result.testsRun else 0)
