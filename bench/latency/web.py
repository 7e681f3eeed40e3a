"""Delays of the edition for browsers: from a key to the sample that the page's worklet takes, and to the
sink; from the button to the title; drop-outs, processor time. Called by latency --edition web."""

import argparse
import contextlib
import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

import sound_servers

MEASURE = """(() => {
    globalThis.keysAt = [];
    globalThis.takenAt = [];
    addEventListener('keydown', (event) => keysAt.push(performance.timeOrigin + event.timeStamp), true);
    tamlo.sound.measure(true, (when) => takenAt.push(when));
})()"""
PAUSE = 2.2          # seconds after a key, in which a menu's item is spoken
LATEST_CHANGE = 300  # ms after a key that its last change may come
QUIET = 0.3          # seconds of silence before a key that counts


def spread(values):
    if not values:
        return "none"
    ordered = sorted(values)
    return (f"median {statistics.median(ordered):.1f}, p90 {ordered[int(0.9 * (len(ordered) - 1))]:.1f}, "
            f"most {ordered[-1]:.1f}, n {len(ordered)}")


def processes_of(process):
    """A process and all that it has started: their numbers, and the seconds of processor time so far."""
    listed = subprocess.run(["ps", "-eo", "pid=,ppid="], capture_output=True, text=True).stdout
    rows = [tuple(map(int, row.split())) for row in listed.splitlines()]
    family = {process}
    for _ in range(8):
        family |= {pid for pid, parent in rows if parent in family}
    seconds = {}
    for pid in family:
        try:
            with open(f"/proc/{pid}/stat", encoding="utf-8") as stat:
                fields = stat.read().rpartition(")")[2].split()
            seconds[pid] = (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
        except OSError:
            pass  # it has just ended
    return seconds


def memory_of(processes):
    """Proportional set size in MB."""
    total = 0
    for process in processes:
        try:
            with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as rollup:
                total += sum(int(line.split()[1]) for line in rollup if line.startswith("Pss:"))
        except OSError:
            pass
    return total / 1024


class Bench:
    """A browser with the game in it."""

    def __init__(self, kind, browser_module, recording_module):
        self.kind, self.browsers, self.recordings = kind, browser_module, recording_module

    def run(self, options):
        with tempfile.TemporaryDirectory(prefix="tamlo-") as folder:
            with contextlib.ExitStack() as ends:
                display = self.browsers.Display()
                ends.callback(display.close)
                sound = sound_servers.SoundServer(folder)
                ends.callback(sound.kill)
                recording = self.recordings.Recording(
                    ["parec", "--latency-msec=1", "-d", "null.monitor", "--format=float32le", "--rate=48000",
                     "--channels=1"], dict(os.environ, **sound.environment))
                ends.callback(recording.process.kill)
                return self.measure(options, display, sound, recording)

    def begin(self, site, display, sound, number, profile):
        browser = self.browsers.Browser(self.kind, site.address, display, sound, profile=profile)
        page = site.page(number)
        browser.focus(page)
        self.browsers.wait_until(lambda: page.run("tamlo.front.next?.loaded.then(() => true)"), "the program")
        page.run("document.getElementById('begin').focus()")
        time.sleep(1)
        return browser, page

    def measure(self, options, display, sound, recording):
        figures = {}
        site = self.browsers.Site()
        with tempfile.TemporaryDirectory(prefix="tamlo-", ignore_cleanup_errors=True) as profile:
            starts = []
            for number in range(options.starts):
                browser, page = self.begin(site, display, sound, number, profile)
                pressed = display.press("Return")
                time.sleep(2)
                heard = recording.onset(pressed)
                starts.append(1000 * (heard - pressed) if heard else None)
                if number + 1 < options.starts:
                    browser.close()
            figures["first sound, ms"] = spread([start for start in starts if start])
            figures["silent starts"] = f"{starts.count(None)} of {len(starts)}"
            try:
                figures.update(self.keys(options, display, page, recording))
                figures.update(self.waiting(options, browser, page))
            finally:
                browser.close()
                site.close()
        return figures

    def keys(self, options, display, page, recording):
        display.press("space")
        page.await_line("start game")
        time.sleep(PAUSE)
        page.run(MEASURE)
        at_sink = []
        for _ in range(options.trials):
            display.press("Down")
            time.sleep(PAUSE)
            quiet = recording.onset(time.monotonic() - QUIET) is None
            pressed = display.press("Down")
            time.sleep(PAUSE)
            heard = recording.onset(pressed)
            if heard and quiet:
                at_sink.append(1000 * (heard - pressed))
        keys, taken, sound = page.run("[keysAt, takenAt, tamlo.sound.figures()]")
        taken_after = [max((when - key for when in taken if 0 <= when - key < LATEST_CHANGE), default=None)
                       for key in keys]
        latency = 1000 * (sound["outputLatency"] or sound["baseLatency"])
        return {"key to the worklet, ms": spread([delay for delay in taken_after if delay is not None]),
                "key to the sink, ms": spread(at_sink), "the browser's own delay, ms": f"{latency:.1f}",
                "taken at once, frames": sound["burst"], "overtaken": f"{sound['late']} of {sound['changes']}"}

    def waiting(self, options, browser, page):
        before, missing = processes_of(browser.process.pid), page.run("tamlo.sound.figures().missing")
        begin = time.monotonic()
        time.sleep(options.seconds)
        after = processes_of(browser.process.pid)
        used = sum(after.values()) - sum(before.get(pid, 0) for pid in after)
        return {"waiting in a menu, % of a core": f"{100 * used / (time.monotonic() - begin):.1f}",
                "memory of all its processes, MB": f"{memory_of(after):.0f}",
                "frames missing while waiting": page.run("tamlo.sound.figures().missing") - missing}


def main(project, arguments):
    parser = argparse.ArgumentParser(prog="latency --edition web", description=__doc__)
    parser.add_argument("--json", metavar="FILE", help="writes the figures there as well")
    parser.add_argument("--browser", choices=["chromium", "firefox"], help="only this one")
    parser.add_argument("--trials", type=int, default=25, help="keys (25)")
    parser.add_argument("--starts", type=int, default=5, help="starts of the game (5)")
    parser.add_argument("--seconds", type=float, default=30, help="of waiting in a menu (30)")
    options = parser.parse_args(arguments)
    sys.path[:0] = [os.path.join(project, "tests/web")]
    import browser
    import recording
    figures = {}
    for kind in [options.browser] if options.browser else ["chromium", "firefox"]:
        figures[kind] = Bench(kind, browser, recording).run(options)
        for name, value in figures[kind].items():
            print(f"{kind:9} {name:34} {value}", flush=True)
    if options.json:
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump(figures, file, indent=1)
