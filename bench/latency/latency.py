"""Measures how long a player waits for sound, and for silence: from the press of a key, and from
the start of the game. Beside the game, in turn, a program that does next to nothing else, a speech
service, and a speech program that is started for each text."""

import argparse
import collections
import json
import os
import statistics
import tempfile
import time
import unittest

from keyboard import Keyboard
from machine import Display, stop
from programs import Command, Game, Reference, Service
from recording import PipeWire, PulseAudio


def quantile(values, share):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, int(share * len(ordered)))]


class Report:
    def __init__(self):
        self.rows = []

    def add(self, server, program, frames, condition, figure, values, dropouts):
        if not values:
            return
        scale = 1 if figure == "callbacks" else 1000
        row = {"server": server, "program": program, "frames": frames, "condition": condition,
               "figure": figure, "n": len(values),
               "p50": round(scale * statistics.median(values), 1),
               "p90": round(scale * quantile(values, 0.9), 1),
               "max": round(scale * max(values), 1), "dropouts": dropouts}
        self.rows.append(row)
        print("{server:10} {program:14} {frames!s:>11} {condition:8} {figure:17} {n:3} "
              "{p50:7.1f} {p90:7.1f} {max:7.1f}  {dropouts}".format(**row), flush=True)

    def heading(self):
        print(f"{'server':10} {'program':14} {'frames':>11} {'state':8} {'figure':17} {'n':>3} "
              f"{'p50':>7} {'p90':>7} {'max':>7}  drop-outs", flush=True)


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
            begin = time.monotonic()
            for _ in range(self.options.trials):
                program.trial(figures)
            own = hasattr(program, "stamps")
            frames = program.stamps.frames() if own else None
            gaps = server.recording.gaps_between(begin, time.monotonic()) if own else None
        finally:
            program.close()
        for figure, values in figures.items():
            self.report.add(server.name, program.name, frames, condition, figure, values, gaps)
        time.sleep(0.5)

    def starts(self, server):
        """From the start of the process; the first, which fills the caches, does not count."""
        for kind in (Game, Service):
            delays = []
            for _ in range(1 + self.options.starts):
                program = (self.player(kind, server) if kind is Game
                           else kind(self.folder, server))
                delays.append(program.start_to_sound())
                frames = program.stamps.frames() if kind is Game else None
                program.close()
                time.sleep(0.5)
            self.report.add(server.name, kind.name, frames, "start", "first sound", delays[1:],
                            None)

    def idle(self, server):
        """Drop-outs while nothing happens."""
        program = self.player(Game, server)
        try:
            program.reach("menu")
            begin = time.monotonic()
            time.sleep(60 * self.options.idle)
            gaps = server.recording.gaps_between(begin, time.monotonic())
            self.report.add(server.name, program.name, program.stamps.frames(), "menu",
                            "idle minutes", [self.options.idle * 0.06], gaps)
        finally:
            program.close()

    def run(self):
        for kind in (PulseAudio, PipeWire):
            if self.options.server not in (None, kind.name):
                continue
            with tempfile.TemporaryDirectory() as place:
                server = kind(place)
                try:
                    self.run_on(server)
                finally:
                    server.close()

    def run_on(self, server):
        wanted = self.options.figures
        self.report.heading()
        if "keys" in wanted:
            for condition in ("menu", "driving"):
                self.measure(server, self.player(Reference, server), condition)
                self.measure(server, self.player(Game, server), condition)
        if "others" in wanted:
            self.measure(server, Service(self.folder, server), "warm")
            self.measure(server, Command(self.folder, server), "cold")
        if "starts" in wanted:
            self.starts(server)
        if "idle" in wanted:
            self.idle(server)


def main(game, bench):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--json", metavar="FILE", help="writes the figures there as well")
    parser.add_argument("--trials", type=int, default=25, help="keys a figure (25)")
    parser.add_argument("--starts", type=int, default=5, help="starts of each program (5)")
    parser.add_argument("--idle", type=float, default=10, help="minutes of the idle test (10)")
    parser.add_argument("--server", choices=["PulseAudio", "PipeWire"], help="only this one")
    parser.add_argument("--figures", nargs="+", default=["keys", "others", "starts"],
                        choices=["keys", "others", "starts", "idle"])
    options = parser.parse_args()
    print("load before:", *os.getloadavg())
    with tempfile.TemporaryDirectory() as folder:
        measuring = Bench(game, bench, folder, options)
        try:
            measuring.run()
        except unittest.SkipTest as missing:
            raise SystemExit(str(missing)) from None
        finally:
            stop(measuring.display.server)
    print("load after:", *os.getloadavg())
    if options.json:
        with open(options.json, "w", encoding="ascii") as file:
            json.dump(measuring.report.rows, file, indent=1)
