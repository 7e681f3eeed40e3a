"""What a run of hours is judged by: memory, descriptors, threads, drop-outs and delays."""

import os
import re
import statistics
import subprocess
import threading
import time

RATE = 48000
SHORTEST_GAP, LONGEST_GAP = 0.005, 0.3  # seconds of nothing that are a drop-out
# How much more there may be than at first.
MORE_MEMORY = 24      # MB, beside the sounds, which are kept as voices are once they were heard
MORE_LATER = 6        # MB, from the middle of a long run to its end
MORE_DESCRIPTORS = 4
MORE_THREADS = 3      # a voice that stands still is left behind, three times
MORE_DELAY = 0.1      # seconds
MORE_GAPS = 5         # a minute
SETTLED = 2           # minutes of a run that are not compared


class Gaps:
    """Counts the drop-outs in what the sink plays while `driving`: engine and background never pause there."""

    SILENCE = re.compile(rb"\0{%d,}" % int(SHORTEST_GAP * RATE * 4))

    def __init__(self, server):
        self.server = server
        self.count = 0
        self.driving = False
        self.going = True
        self.recorder = None
        threading.Thread(target=self._listen, daemon=True).start()

    def _listen(self):
        while self.going:  # the recording ends with the server
            self.recorder = subprocess.Popen(
                ["parec", "--latency-msec=20", "-d", "null.monitor", "--format=float32le",
                 f"--rate={RATE}", "--channels=1"], stdout=subprocess.PIPE,
                stderr=subprocess.DEVNULL, env=dict(os.environ, **self.server.environment))
            rest = b""
            while block := self.recorder.stdout.read(RATE * 4):
                rest = self._look(rest + block)
            self.recorder.wait()
            time.sleep(0.2)

    def _look(self, data):
        """Counts the gaps; what is silent at the end belongs to the next piece."""
        body = data.rstrip(b"\0")
        if self.driving:
            for gap in self.SILENCE.finditer(body):
                self.count += gap.start() > 0 and len(gap[0]) < LONGEST_GAP * RATE * 4
        return data[len(body):][-RATE * 4:]

    def close(self):
        self.going = False
        if self.recorder:
            self.recorder.kill()


def tree(process):
    """The process and all below it."""
    done = subprocess.run(["pgrep", "-P", str(process)], capture_output=True, text=True,
                          check=False)
    return [process, *[one for child in done.stdout.split() for one in tree(int(child))]]


def usage(process):
    """MB of memory of its own, descriptors, threads, of a process and those below it."""
    memory = descriptors = threads = 0
    for one in tree(process):
        try:
            with open(f"/proc/{one}/smaps_rollup", encoding="ascii") as file:
                memory += sum(int(size) for size in
                              re.findall(r"^Private_\w+: *(\d+) kB", file.read(), re.M))
            descriptors += len(os.listdir(f"/proc/{one}/fd"))
            threads += len(os.listdir(f"/proc/{one}/task"))
        except (FileNotFoundError, ProcessLookupError, PermissionError):
            pass  # it has just ended
    return memory / 1000, descriptors, threads


class Health:
    """A line for each minute."""

    def __init__(self, begin, machine, gaps):
        self.begin, self.machine, self.gaps = begin, machine, gaps
        self.minutes = []
        self.delays = []
        self.shown = 0
        self.game, self.since, self.run = None, begin, 0

    def delay(self, seconds):
        self.delays.append(seconds)

    def look(self, game, player):
        """To be called often; takes note once a minute."""
        self.gaps.driving = player.on_road
        if game is not self.game:
            self.game, self.since, self.run = game, time.monotonic(), self.run + 1
        minute = int((time.monotonic() - self.begin) / 60)
        if minute <= self.shown:
            return
        self.shown = minute
        memory, descriptors, threads = usage(game.process.pid)
        row = {"calm": (minute - 1) % 3 == 0, "run": self.run,
               "age": (time.monotonic() - self.since) / 60, "memory": memory,
               "descriptors": descriptors, "threads": threads, "gaps": self.gaps.count,
               "delay": statistics.median(self.delays) if self.delays else None,
               "longest": max(self.delays, default=None)}
        self.gaps.count, self.delays = 0, []
        self.minutes.append(row)
        delays = f"{row['delay'] * 1000:.0f} ms, at most {row['longest'] * 1000:.0f}" \
            if row["delay"] else "none"
        print(f"minute {minute}{' calm' if row['calm'] else ''}: {memory:.1f} MB, "
              f"{descriptors} descriptors, {threads} threads, {row['gaps']} gaps, delays {delays}; "
              f"{len(self.machine.done)} things taken away so far", flush=True)


def grown(rows, what, most):
    """The rows of one run in which something is that much more than at first."""
    settled = [row for row in rows if row["age"] >= SETTLED]
    for row in settled[1:]:
        if row[what] > settled[0][what] + most:
            yield f"{what} grew from {settled[0][what]:.1f} to {row[what]:.1f} in one run"
            return


def still_growing(rows):
    """In a long run, when all that is kept has mostly been heard."""
    memory = [row["memory"] for row in rows if row["age"] >= SETTLED]
    third = len(memory) // 3
    if third < 4:
        return
    middle, last = statistics.mean(memory[third:-third]), statistics.mean(memory[-third:])
    if last > middle + MORE_LATER:
        yield f"memory still grew from {middle:.1f} to {last:.1f} late in one run"


def worse(rows, what, most):
    """Whether the last third of the calm minutes is that much worse than the first, and not by
    a machine that is slower throughout."""
    values = [row[what] for row in rows if row["calm"] and row[what] is not None]
    third = len(values) // 3
    if third < 2:
        return
    first, last = statistics.mean(values[:third]), statistics.mean(values[-third:])
    if last > 2 * first + most:
        yield f"{what} of calm minutes grew from {first:.2f} to {last:.2f}"


def judge(rows, sounds):
    """What is wrong; `sounds`: MB of all wave files."""
    bounds = {"memory": sounds + MORE_MEMORY, "descriptors": MORE_DESCRIPTORS,
              "threads": MORE_THREADS}
    wrong = []
    for what, most in bounds.items():
        for run in dict.fromkeys(row["run"] for row in rows):
            of_run = [row for row in rows if row["run"] == run]
            wrong += grown(of_run, what, most)
            wrong += still_growing(of_run) if what == "memory" else []
        # From run to run: of the same age, within those of a minute or two.
        young = [row for row in rows if SETTLED <= row["age"] < SETTLED + 2]
        if young and young[-1][what] > young[0][what] + most:
            wrong.append(f"{what} of a young run grew from {young[0][what]:.1f} to "
                         f"{young[-1][what]:.1f}")
    wrong += worse(rows, "delay", MORE_DELAY)
    wrong += worse(rows, "gaps", MORE_GAPS)
    return wrong
