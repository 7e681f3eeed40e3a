"""Hours of the game itself, played at the highest rate of speech by a player who reads, while the
machine takes things away: the sink is paused or another one, the server stands still or ends, the
voice is slow. Memory, descriptors, threads, drop-outs and delays are looked at every minute.

    soak_test.py TAMLO [--minutes N] [--seed N]      60 minutes by default

Half of the runs are in a window, the others in a terminal.
"""

import argparse
import fcntl
import os
import pty
import queue
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import threading
import time
import unittest

from machine import Display
from sound_servers import SoundServer
from soak_health import Gaps, Health, judge
from soak_player import SoakPlayer
from waiting import child_of, need, stop, wait_until

SKIPPED = 77
BYTES = {"Down": b"\x1b[B", "Up": b"\x1b[A", "Right": b"\x1b[C", "Left": b"\x1b[D",
         "Return": b"\r", "space": b" ", "Escape": b"\x1b", "F5": b"\x1b[15~", "F6": b"\x1b[17~",
         **{f"F{n}": b"\x1bO" + bytes([ord("P") + n - 1]) for n in range(1, 5)}}
LONGEST_DIALOG, LONGEST_SILENCE = 4, 45  # seconds without a line, until Enter is tried
ENDS_WITHIN = 60


class Game:
    """One run of the game, and the lines it says, each with the time at which it came."""

    def __init__(self, program, home, environment, **options):
        self.lines = queue.Queue()
        self.last = []
        self.process = subprocess.Popen(
            [program], cwd=os.path.dirname(program), start_new_session=True,
            env={"HOME": home, "TERM": "xterm", "PATH": os.environ["PATH"],
                 "XDG_RUNTIME_DIR": home, **environment}, **options)
        threading.Thread(target=self._read, daemon=True).start()

    def said(self, line):
        self.last = [*self.last[-30:], line]
        self.lines.put((time.monotonic(), line))

    def player(self):
        return child_of(self.process.pid)

    def close(self):
        stop(self.process)


class InTerminal(Game):
    def __init__(self, program, home, environment):
        self.terminal, theirs = pty.openpty()

        def take_terminal():
            fcntl.ioctl(0, termios.TIOCSCTTY, 0)

        super().__init__(program, home, environment, stdin=theirs, stdout=theirs, stderr=theirs,
                         preexec_fn=take_terminal)
        os.close(theirs)

    def _read(self):
        unread = ""
        while True:
            try:
                data = os.read(self.terminal, 65536)
            except OSError:
                return
            unread += re.sub(r"\x1b\[\d*A", "", data.decode(errors="replace"))
            *lines, unread = re.split(r"[\r\n]+", unread)
            for line in filter(None, lines):
                self.said(line)

    def press(self, keys):
        try:
            for key in keys:
                os.write(self.terminal, BYTES.get(key, key.encode()))
                if len(keys) > 1:
                    time.sleep(0.05)
        except OSError:
            pass  # it has ended

    def close(self):
        super().close()
        os.close(self.terminal)


class InWindow(Game):
    """Its lines are read from the file of the run, as a player would beside the game."""

    def __init__(self, program, home, environment, display):
        self.display = display
        self.folder = os.path.join(home, ".local", "state", "tamlo")
        self.before = set(self._runs())
        super().__init__(program, home, {**environment, **display.environment},
                         stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                         stderr=subprocess.DEVNULL)

    def _runs(self):
        try:
            return sorted(name for name in os.listdir(self.folder) if name.startswith("said "))
        except FileNotFoundError:
            return []

    def _read(self):
        name = file = None
        while self.process.poll() is None:
            # A restart is a run of its own.
            newest = self._runs()[-1:]
            if newest and newest[0] != name and newest[0] not in self.before:
                name = newest[0]
                file = open(os.path.join(self.folder, name), encoding="utf-8")
            while file and (line := file.readline()).endswith("\n"):
                self.said(line[len("2026-11-23 10:00:00 "):-1])
            time.sleep(0.01)

    def press(self, keys):
        self.display.press(*keys)


class Machine(threading.Thread):
    """Takes things away for a moment, in every minute but each third; seeded."""

    def __init__(self, server, chance, begin):
        super().__init__(daemon=True)
        self.server, self.chance, self.begin = server, chance, begin
        self.game = None
        self.done = []
        self.going = True

    def calm(self, now=None):
        return int(((now or time.monotonic()) - self.begin) / 60) % 3 == 0

    def run(self):
        actions = [self.pause_sink, self.move_sink, self.halt_server, self.slow_voice,
                   self.halt_game, self.end_server]
        weights = [5, 5, 5, 5, 3, 1]
        while self.going:
            time.sleep(self.chance.uniform(5, 20))
            # Not so late that it reaches into a calm minute.
            if self.calm() or self.calm(time.monotonic() + 10) or not self.going:
                continue
            action = self.chance.choices(actions, weights)[0]
            action()
            self.done.append(action.__name__)

    def nap(self):
        time.sleep(self.chance.uniform(0.2, 2.5))

    def pactl(self, *words):
        done = subprocess.run(["pactl", *words], capture_output=True, text=True, timeout=60,
                              env=dict(os.environ, **self.server.environment), check=False)
        return done.stdout

    def pause_sink(self):
        self.server.pause(True)
        self.nap()
        self.server.pause(False)

    def move_sink(self):
        if "other" not in self.pactl("list", "short", "sinks"):
            self.pactl("load-module", "module-null-sink", "sink_name=other")
        for sink in ("other", "null"):
            for line in self.pactl("list", "short", "sink-inputs").splitlines():
                self.pactl("move-sink-input", line.split()[0], sink)
            self.nap()

    def halt_server(self):
        self.server.halt()
        self.nap()
        self.server.go_on()

    def end_server(self):
        self.server.kill()
        self.nap()
        self.server.start()

    def stopped(self, processes):
        for number in (signal.SIGSTOP, signal.SIGCONT):
            for process in processes:
                try:
                    os.kill(process, number)
                except ProcessLookupError:
                    pass
            if number == signal.SIGSTOP:
                time.sleep(self.chance.uniform(0.1, 1.5))

    def slow_voice(self):
        """The voices speak in processes of their own, below that which plays."""
        player = self.game and self.game.player()
        if player:
            children = subprocess.run(["pgrep", "-P", str(player)], capture_output=True, text=True,
                                      check=False).stdout.split()
            self.stopped([int(child) for child in children])

    def halt_game(self):
        if player := self.game and self.game.player():
            self.stopped([player])


class Soak:
    def __init__(self, program, minutes, seed, folder):
        self.program, self.folder = os.path.abspath(program), folder
        self.chance = random.Random(seed)
        self.server = SoundServer(folder)
        self.display = Display()
        self.gaps = Gaps(self.server)
        self.begin = time.monotonic()
        self.end = self.begin + minutes * 60
        self.machine = Machine(self.server, random.Random(seed + 1), self.begin)
        self.health = Health(self.begin, self.machine, self.gaps)
        self.counts = {}
        files = os.path.join(folder, "Documents", "tolvane")
        os.makedirs(files)
        self.settings = os.path.join(files, "tamlo.cfg")
        self.saved = os.path.join(files, "tamlo.sav")

    def count(self, counts):
        for what, count in counts.items():
            self.counts[what] = self.counts.get(what, 0) + count

    def run(self):
        self.machine.start()
        while time.monotonic() < self.end:
            with open(self.settings, "w", encoding="ascii") as settings:
                settings.write(f" {self.chance.randrange(13)}\n 10\n 100\n-600\n 1\n")
            where = (self.program, self.folder, self.server.environment)
            in_window = self.chance.random() < 0.5
            game = InWindow(*where, self.display) if in_window else InTerminal(*where)
            player = SoakPlayer(self.chance)
            try:
                self.play(game, player)
            except AssertionError as wrong:
                raise AssertionError(f"{wrong}; the last lines: {game.last}") from None
            finally:
                self.machine.game = None
                game.close()
            self.count(player.counts)
            self.count({"runs in a window" if in_window else "runs in a terminal": 1})
        self.machine.going = False

    def play(self, game, player):
        """One run of the game, to its end or that of the time."""
        self.machine.game = game
        pressed, last = None, time.monotonic()
        while time.monotonic() < self.end and game.process.poll() is None:
            self.health.look(game, player)
            try:
                when, line = game.lines.get(timeout=1)
            except queue.Empty:
                patience = LONGEST_SILENCE if player.driving or player.leaving else LONGEST_DIALOG
                if time.monotonic() - last > patience:
                    game.press(["Return"])
                    last = time.monotonic()
                continue
            if pressed and when > pressed and not line.startswith("["):
                self.health.delay(when - pressed)
                pressed = None
            last = time.monotonic()
            if line == "restarting game":
                self.count({"restarts": 1})
            if "You are paid" in line and self.chance.random() < 0.5:
                self.leave_while_paid(game, player)
            if keys := player.keys_for(line):
                time.sleep(0.05)
                answered = keys == ["Down"] or keys[0][0] == "F"  # at once, by a line
                pressed = time.monotonic() if answered else None
                game.press(keys)
            if player.leaving == "restart" and line.startswith("Tamlo Delivery. version"):
                player.leaving = None
        self.health.look(game, player)
        self.finish(game, player)

    def leave_while_paid(self, game, player):
        """The day is saved as soon as the player is told of the pay."""
        if not os.path.exists(self.saved) or os.path.getmtime(self.saved) < time.time() - 30:
            raise AssertionError("the day is not saved when its pay is told")
        game.process.send_signal(signal.SIGTERM)
        player.leaving = "told"
        self.count({"left while paid": 1})

    def finish(self, game, player):
        """Ends it with the time, or looks whether it was meant to end."""
        if game.process.poll() is None:
            game.process.send_signal(signal.SIGTERM)
        elif player.leaving is None:
            raise AssertionError(f"it ended by itself with {game.process.returncode}")
        wait_until(lambda: game.process.poll() is not None, "the end", ENDS_WITHIN)
        if game.process.returncode != 0:
            raise AssertionError(f"it ended with {game.process.returncode}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--minutes", type=float, default=60)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    try:
        need(*SoundServer.TOOLS, "pgrep", "Xvfb", "xdotool")
    except unittest.SkipTest as missing:
        print(f"Skipped: {missing}")
        sys.exit(SKIPPED)
    folder = tempfile.mkdtemp(prefix="tamlo-soak-")
    soak = Soak(arguments.program, arguments.minutes, arguments.seed, folder)
    wrong = []
    try:
        soak.run()
    except AssertionError as failure:
        wrong.append(str(failure))
    finally:
        soak.machine.going = False
        soak.server.go_on()
        soak.gaps.close()
        soak.server.close()
        soak.display.close()
        shutil.rmtree(folder, ignore_errors=True)
    waves = sum(os.path.getsize(entry) for entry in os.scandir(os.path.dirname(soak.program))
                if entry.name.endswith(".wav"))
    wrong += judge(soak.health.minutes, waves / 1e6)
    print("Taken away:", ", ".join(f"{soak.machine.done.count(what)} {what}"
                                   for what in sorted(set(soak.machine.done))))
    print("\n".join(wrong))
    tried = {"minutes": len(soak.health.minutes), **soak.counts, "wrong": len(wrong)}
    print(", ".join(f"{count} {what}" for what, count in tried.items()))
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
