"""The game on a braille display: BRLTTY's virtual one, of 20 cells."""

import os
import re
import signal
import socket
import subprocess
import sys
import threading
import time

from machine import NO_SOUND, Case, Terminal, main
from waiting import need, wait_until

GAME = sys.argv[1]


class Brltty:
    """BRLTTY with a display that this test reads and presses the keys of."""

    def __init__(self, folder, number):
        need("brltty")
        self.folder = folder
        self.host = f":{number}"
        self.environment = {"BRLAPI_HOST": self.host, "BRLAPI_AUTH": "none", "CONTROLVT": "1"}
        self.cells = ""
        self.display = None
        self.start()

    def start(self):
        address = os.path.join(self.folder, "display")
        if os.path.exists(address):
            os.unlink(address)
        with socket.socket(socket.AF_UNIX) as server:
            server.bind(address)
            server.listen(1)
            server.settimeout(30)
            self.process = subprocess.Popen(
                ["brltty", "--no-daemon", "--environment-variables", "--configuration-file=/dev/null",
                 "--braille-driver=vr", f"--braille-device=client:{address}", "--screen-driver=no",
                 "--speech-driver=no", "--quiet",
                 f"--api-parameters=Auth=none,Host={self.host}",
                 f"--pid-file={self.folder}/brltty.pid", f"--updatable-directory={self.folder}",
                 f"--writable-directory={self.folder}"],
                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            self.display, _ = server.accept()
        self.display.sendall(b"cells 20 1\n")
        wait_until(lambda: os.path.exists(f"/var/lib/BrlAPI/{self.host[1:]}"), "BRLTTY's door")
        threading.Thread(target=self._read, args=[self.display.makefile()], daemon=True).start()
        # Its door opens a moment before it lets anybody in.
        wait_until(lambda: self.cells, "BRLTTY's own cells")

    def _read(self, lines):
        try:
            for line in lines:
                if visual := re.match(r'Visual "(.*)"', line):
                    self.cells = visual[1]
        except OSError:
            pass

    def shows(self, text):
        try:
            wait_until(lambda: self.cells == text.ljust(20), repr(text))
        except AssertionError as late:
            raise AssertionError(f"{late}; shown: {self.cells!r}") from None

    def press(self, *commands):
        for command in commands:
            self.display.sendall(f"{command}\n".encode())

    def kill(self):
        self.process.terminate()  # takes its door away
        self.process.wait(30)
        self.display.close()
        self.cells = ""

    def close(self):
        self.kill()


class Braille(Case):
    def test_the_game_is_read_and_played_on_the_display(self):
        brltty = self.own(Brltty(self.folder, 1000 + os.getpid() % 60000))
        game = self.own(Terminal(GAME, self.folder, {**NO_SOUND, **brltty.environment}))
        brltty.shows("[title tune]")
        brltty.press("Route 1")
        brltty.shows("start game")
        for before in ("select", "version 3.", "Tamlo Delivery.", "[title tune]"):
            brltty.press("FWinLt")
            brltty.shows(before)
        brltty.press("FWinRt")
        brltty.shows("Tamlo Delivery.")
        brltty.press("LnDn")
        brltty.shows("reed instructions")
        brltty.press("PASSCHAR 55")
        game.line("7")
        brltty.shows("start game")
        with self.subTest("a new BRLTTY is found"):
            brltty.kill()
            brltty.start()
            brltty.shows("start game")
            brltty.press("LnDn")
            brltty.shows("reed instructions")

    def test_a_display_that_hangs_holds_up_nothing(self):
        brltty = self.own(Brltty(self.folder, 1000 + os.getpid() % 60000))
        game = self.own(Terminal(GAME, self.folder, {**NO_SOUND, **brltty.environment}))
        brltty.shows("[title tune]")
        brltty.process.send_signal(signal.SIGSTOP)
        game.press("space")
        game.line("start game")
        game.press("Down")
        game.line("reed instructions")
        begin = time.monotonic()
        game.press("C-c")
        game.ended(10)
        self.assertLess(time.monotonic() - begin, 5)
        brltty.process.send_signal(signal.SIGCONT)


if __name__ == "__main__":
    main()
