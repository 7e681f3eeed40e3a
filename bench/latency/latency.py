"""Measures how long a player waits for sound, and for silence: from the press of a key, and from
the start of the game. Beside the game, in turn, a program that does next to nothing else, a speech
service, and a speech program that is started for each text."""

import argparse
import collections
import json
import os
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time
import unittest

from keyboard import Keyboard
from machine import NO_SOUND, Display
from waiting import stop
from programs import Command, Game, Reference, Service
from recording import PIECE, PipeWire, PulseAudio

DELAYS = ("keys", "others", "starts", "work")
COURSES = ("idle", "held")  # what shows only in the course of minutes
BLOCK = 256  # frames, of the game

# All other figures are delays, kept in seconds and told in milliseconds.
NO_DELAYS = ("callbacks", "processor, %", "wakes a second", "resident, MB")


def quantile(values, share):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, int(share * len(ordered)))]


class Load:
    """How busy the machine is: figures of a busy one tell little of the game."""

    def __init__(self):
        self.before = self.times()

    @staticmethod
    def times():
        with open("/proc/stat", encoding="ascii") as file:
            return [int(time) for time in file.readline().split()[1:9]]

    def busy(self):
        """Percent of the time since the start that the processors were not idle."""
        spent = [after - before for before, after in zip(self.before, self.times())]
        return round(100 * (1 - spent[3] / max(1, sum(spent))))


class Report:
    def __init__(self):
        self.rows = []

    def add(self, server, program, frames, condition, figure, values, dropouts, load):
        if not values:
            return
        scale, digits = (1, 2) if figure in NO_DELAYS else (1000, 1)
        row = {"server": server, "program": program, "frames": frames, "condition": condition,
               "figure": figure, "n": len(values),
               "p50": round(scale * statistics.median(values), digits),
               "p90": round(scale * quantile(values, 0.9), digits),
               "max": round(scale * max(values), digits), "dropouts": dropouts,
               "busy": load.busy()}
        self.rows.append(row)
        print("{server:10} {program:14} {frames!s:>11} {condition:8} {figure:17} {n:3} "
              "{p50:7} {p90:7} {max:7} {dropouts!s:>9} {busy:3} %".format(**row), flush=True)

    def heading(self):
        print(f"{'server':10} {'program':14} {'frames':>11} {'state':8} {'figure':17} {'n':>3} "
              f"{'p50':>7} {'p90':>7} {'max':>7} drop-outs  busy", flush=True)


class NoServer:
    """In place of a sound server: a machine without."""

    environment = NO_SOUND
    recording = None


class Bench:
    def __init__(self, game, bench, folder, options):
        self.game, self.bench, self.folder, self.options = game, bench, folder, options
        self.display = Display()
        self.keyboard = Keyboard(self.display)
        self.report = Report()

    def player(self, kind, server):
        return kind(self.folder, self.display, server, self.bench, self.keyboard, game=self.game)

    def measure(self, server, program, condition):
        """One program in one state; the frames are those of each opening of its device."""
        figures = collections.defaultdict(list)
        try:
            program.reach(condition)
            load = Load()
            begin = time.monotonic()
            for _ in range(self.options.trials):
                program.trial(figures)
            own = hasattr(program, "stamps")
            frames = program.stamps.frames() if own else None
            gaps = server.recording.gaps_between(begin, time.monotonic()) if own else None
        finally:
            program.close()
        for figure, values in figures.items():
            self.report.add(server.name, program.name, frames, condition, figure, values, gaps,
                            load)
        time.sleep(0.5)

    def starts(self, server):
        """From the start of the process; the first, which fills the caches, does not count."""
        for kind in (Game, Service) if shutil.which("speech-dispatcher") else (Game,):
            delays, load = [], Load()
            for _ in range(1 + self.options.starts):
                program = (self.player(kind, server) if kind is Game
                           else kind(self.folder, server))
                delays.append(program.start_to_sound())
                frames = program.stamps.frames() if kind is Game else None
                program.close()
                time.sleep(0.5)
            self.report.add(server.name, kind.name, frames, "start", "first sound", delays[1:],
                            None, load)

    def work(self, server):
        """Processor time in percent of a core, and how often the program's own thread wakes, in
        turn with the reference program; memory at the end."""
        figures = collections.defaultdict(list)
        load = Load()
        for _ in range(self.options.rounds):
            for kind, condition, where in ((Reference, "menu", server), (Game, "menu", server),
                                           (Game, "driving", server), (Game, "no sound", NoServer)):
                program = self.player(kind, where)
                try:
                    if where is NoServer:
                        time.sleep(2)
                        self.keyboard.press("space")  # the title would play for long
                        time.sleep(8)
                    else:
                        program.reach(condition)
                        time.sleep(2)
                    busy, wakes, begin = program.processor_time(), program.wakes(), time.monotonic()
                    while time.monotonic() < begin + self.options.seconds:
                        time.sleep(1)
                        if condition == "driving":
                            self.keyboard.press("Down")  # so that the voice speaks, too
                    took = time.monotonic() - begin
                    row = (kind.name, condition)
                    figures[*row, "processor, %"].append(
                        100 * (program.processor_time() - busy) / took)
                    figures[*row, "wakes a second"].append((program.wakes() - wakes) / took)
                    figures[*row, "resident, MB"].append(program.resident())
                finally:
                    program.close()
        for (name, condition, figure), values in figures.items():
            self.report.add(server.name, name, None, condition, figure, values, None, load)

    def long(self, server, what):
        """What shows only in the course of minutes: drop-outs while nothing happens, and what a
        held key leaves behind."""
        seconds = 60 * self.options.minutes
        program = self.player(Game, server)
        try:
            program.reach("menu")
            begin, load = time.monotonic(), Load()
            watch = subprocess.Popen([os.path.join(self.bench, "stalls"), f"{seconds:.0f}"],
                                     stdout=subprocess.PIPE, text=True)
            if what == "idle":
                time.sleep(seconds)
            else:
                repeats, grown, keys_taken, spoken = program.hold(seconds)
            gaps = server.recording.gaps_between(begin, time.monotonic())
            print(f"{server.name}: {what} for {seconds:.0f} s; {gaps} drop-outs; blocks of "
                  f"{program.stamps.frames()} frames; {program.resident():.1f} MB; machine "
                  f"{load.busy()} % busy, and stood still "
                  f"{watch.communicate()[0].strip() or 'an unknown number of'} times")
            if what == "held":
                print(f"{repeats:.0f} repeats a second; {grown:.2f} MB more; after the release keys "
                      f"taken for {1000 * keys_taken:.0f} ms, speech for {spoken:.1f} s")
        finally:
            program.close()

    def run(self):
        """Delays are recorded in the shortest steps, or as asked for. Where only drop-outs count, the
        server goes in steps of the game's blocks, as it would if nobody recorded."""
        for kind in (PulseAudio, PipeWire):
            if self.options.server not in (None, kind.name):
                continue
            for step, figures in ((self.options.step, DELAYS), (BLOCK, COURSES)):
                if wanted := [figure for figure in figures if figure in self.options.figures]:
                    self.run_on(kind, step, wanted)

    def run_on(self, kind, step, wanted):
        with tempfile.TemporaryDirectory() as place:
            try:
                server = kind(place, step)
            except unittest.SkipTest as missing:
                print(f"{kind.name}: {missing}")
                return
            try:
                self.measure_all(server, wanted)
            finally:
                server.close()

    def measure_all(self, server, wanted):
        self.report.heading()
        if "keys" in wanted:
            for condition in ("menu", "driving"):
                self.measure(server, self.player(Reference, server), condition)
                self.measure(server, self.player(Game, server), condition)
        if "others" in wanted:
            for kind, condition in ((Service, "warm"), (Command, "cold")):
                try:
                    self.measure(server, kind(self.folder, server), condition)
                except unittest.SkipTest as missing:
                    print(f"{kind.name}: {missing}")
        if "starts" in wanted:
            self.starts(server)
        if "work" in wanted:
            self.work(server)
        for what in COURSES:
            if what in wanted:
                self.long(server, what)


def main(game, bench):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--json", metavar="FILE", help="writes the figures there as well")
    parser.add_argument("--trials", type=int, default=25, help="keys a figure (25)")
    parser.add_argument("--starts", type=int, default=5, help="starts of each program (5)")
    parser.add_argument("--minutes", type=float, default=10, help="of idle and held (10)")
    parser.add_argument("--step", type=int, default=PIECE, metavar="FRAMES",
                        help=f"of the recording of delays ({PIECE}); {BLOCK} as a player's graph goes")
    parser.add_argument("--server", choices=["PulseAudio", "PipeWire"], help="only this one")
    parser.add_argument("--figures", nargs="+", default=["keys", "others", "starts"],
                        choices=DELAYS + COURSES)
    parser.add_argument("--rounds", type=int, default=3, help="of work, in turn (3)")
    parser.add_argument("--seconds", type=float, default=20, help="of each round (20)")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    with tempfile.TemporaryDirectory() as folder:
        measuring = Bench(game, bench, folder, options)
        try:
            measuring.run()
        except unittest.SkipTest as missing:
            raise SystemExit(str(missing)) from None
        finally:
            stop(measuring.display.server)
    if options.json:
        with open(options.json, "w", encoding="ascii") as file:
            json.dump(measuring.report.rows, file, indent=1)
