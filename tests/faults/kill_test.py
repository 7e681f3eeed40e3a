#!/usr/bin/env python3
"""Kills the game before and after the calls by which it touches the player's files, has those
calls fail, and lets files end in the middle of a write; then the game must find the old files or
the new ones, and start as if nothing had been.

kill_test.py REHEARSE [--every N]: REHEARSE is tamlo-rehearse. Every call that changes the disk is
tried, and of the others, which leave it as the call before did, one in N (12).
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77

# Stores the settings, delivers one order at the corner north of the restaurant, quits for the day.
DAY = """\
press down down down down down down enter down enter
draw 0 0 0.365 0.49 0.5
press enter enter 3 5 right enter 3 5 right enter 3 5 right enter 3 5
press down enter down enter
"""
# The next start, which stores the settings once more.
NEXT = "press down down down down down down enter enter\n"

FILES = ("tamlo.sav", "tamlo.cfg", "tamlostreets.txt", "tamlolog.txt")
CHANGING = {"mkdir", "write", "rename", "renameat", "renameat2", "fsync", "unlink", "unlinkat",
            "ftruncate", "fchmod", "fchown"}
ERRORS = ("ENOSPC", "EIO", "EACCES")


class Machine:
    """A folder of scripts, and ways to run them."""

    def __init__(self, rehearse, work):
        self.rehearse = rehearse
        self.work = work
        for name, script in (("day", DAY), ("next", NEXT)):
            (work / name).write_text(script, encoding="utf-8")

    def run(self, script, documents, strace=(), longest_file=None):
        """longest_file: bytes behind which a write stops short and the next one fails."""
        def limit():
            if longest_file is not None:
                resource.setrlimit(resource.RLIMIT_FSIZE, (longest_file, longest_file))

        command = [*strace, self.rehearse, "--documents", documents, self.work / script]
        # Our own ignoring of the signal that comes with the limit is passed on.
        return subprocess.run(command, capture_output=True, text=True, timeout=120, check=False,
                              preexec_fn=limit, restore_signals=False)

    def strace(self, *options, log="/dev/null"):
        return ["strace", "-f", "-y", "-o", log, "-e", "trace=file,desc", *options]

    def calls(self, documents):
        """Every call on the player's folder: its name, its number among those of its name."""
        log = self.work / "calls"
        done = self.run("day", documents, self.strace(log=log))
        if done.returncode != 0:
            raise RuntimeError("strace can't watch the game: " + done.stderr)
        counts = {}
        found = []
        for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
            if not (match := re.match(r"\d+ +(\w+)\(", line)):
                continue
            name = match[1]
            counts[name] = counts.get(name, 0) + 1
            if "/tolvane" in line:
                changes = name in CHANGING or "O_CREAT" in line
                found.append((name, counts[name], changes))
        return found


def contents(documents):
    folder = documents / "tolvane"
    return {name: (folder / name).read_bytes() if (folder / name).exists() else None
            for name in FILES}


def wrong_files(before, after, found):
    """What of the files found is neither as before the day nor as after it."""
    for name in FILES[:3]:
        if found[name] not in (before[name], after[name]):
            yield f"{name} is neither the old one nor the new one"
    log = found["tamlolog.txt"]
    if log is not None and not (log.endswith(b"\r\n") and after["tamlolog.txt"].startswith(log)):
        yield "the log ends in the middle of a line"
    if log is None and before["tamlolog.txt"] is not None:
        yield "the log is gone"


def wrong_start(machine, documents):
    """What is wrong with the game's next start."""
    next_start = machine.run("next", documents)
    if next_start.returncode != 0 or not next_start.stdout.endswith(" rest\n"):
        yield "the next start comes to no rest: " + next_start.stderr
    if "I 'm sorry" in next_start.stdout:
        yield "the next start finds something wrong"
    if any("unfinished" in name for name in os.listdir(documents / "tolvane")):
        yield "what was left half written is never removed"


class Day:
    """One day, from the folder `begin` on (none: the very first), and how it ends undisturbed."""

    def __init__(self, machine, name, begin):
        self.machine = machine
        self.name = name
        self.begin = begin
        self.end = self.fresh("end")
        self.calls = machine.calls(self.fresh("watched"))
        if " game saved " not in machine.run("day", self.end).stdout:
            raise RuntimeError("the undisturbed day is not saved")
        self.before = contents(self.begin)
        self.after = contents(self.end)

    def fresh(self, name):
        folder = self.machine.work / f"{self.name}-{name}"
        shutil.copytree(self.begin, folder)
        return folder

    def kill(self, call):
        name, number, _ = call
        documents = self.fresh(f"kill-{name}-{number}")
        killed = self.machine.run("day", documents, self.machine.strace(
            "-e", f"inject={name}:signal=KILL:when={number}"))
        wrong = [] if killed.returncode in (-9, 137) else ["the game has not been killed"]
        (documents / "tolvane").mkdir(exist_ok=True)
        wrong += wrong_files(self.before, self.after, contents(documents))
        wrong += wrong_start(self.machine, documents)
        shutil.rmtree(documents)
        return [f"{self.name}, killed before {name} {number}: {what}" for what in wrong]

    def fail(self, call, error):
        name, number, _ = call
        documents = self.fresh(f"fail-{name}-{number}-{error}")
        day = self.machine.run("day", documents, self.machine.strace(
            "-e", f"inject={name}:error={error}:when={number}"))
        wrong = [] if day.returncode == 0 else [f"the day ends with {day.returncode}"]
        found = contents(documents)
        # What is told of the failure takes time, so the day is not quite the undisturbed one.
        if found["tamlo.sav"] in (None, self.before["tamlo.sav"]) or \
                " game saved " not in day.stdout:
            wrong.append("the second try to quit saves nothing")
        if found["tamlo.cfg"] != self.after["tamlo.cfg"] and \
                "your settings could not be saved" not in day.stdout:
            wrong.append("settings are not stored, and nothing is said")
        if found["tamlostreets.txt"] not in (None, self.after["tamlostreets.txt"]):
            wrong.append("the streets are neither there nor not there")
        if not (found["tamlolog.txt"] or b"\r\n").endswith(b"\r\n"):
            wrong.append("the log ends in the middle of a line")
        wrong += wrong_start(self.machine, documents)
        shutil.rmtree(documents)
        return [f"{self.name}, {error} from {name} {number}: {what}" for what in wrong]


    def run_short(self, longest_file):
        documents = self.fresh(f"short-{longest_file}")
        day = self.machine.run("day", documents, longest_file=longest_file)
        wrong = [] if day.returncode == 0 else [f"the day ends with {day.returncode}"]
        found = contents(documents)
        told = {"tamlo.sav": "the game could not be saved",
                "tamlo.cfg": "your settings could not be saved",
                "tamlostreets.txt": "can not be written to"}
        for name, sentence in told.items():
            if found[name] not in (None, self.before[name], self.after[name]) and \
                    len(found[name]) != len(self.after[name]):
                wrong.append(f"{name} is a part of the new one")
            if found[name] != self.after[name] and found[name] == self.before[name] and \
                    sentence not in day.stdout:
                wrong.append(f"{name} is not stored, and nothing is said")
        if not (found["tamlolog.txt"] or b"\r\n").endswith(b"\r\n"):
            wrong.append("the log ends in the middle of a line")
        wrong += wrong_start(self.machine, documents)
        shutil.rmtree(documents)
        return [f"{self.name}, files of {longest_file} bytes: {what}" for what in wrong]


def trials(day, every):
    others = 0
    for call in day.calls:
        # For a game that is killed, unlike for a power cut, flushing changes nothing.
        changes = call[2] and call[0] != "fsync"
        others += not changes
        if changes or others % every == 0:
            yield lambda call=call: day.kill(call)
    for number, call in enumerate(call for call in day.calls if call[2]):
        for error in ERRORS if every == 1 else (ERRORS[number % len(ERRORS)],):
            yield lambda call=call, error=error: day.fail(call, error)
    for longest_file in range(0, 2400, 6 * every):
        yield lambda longest_file=longest_file: day.run_short(longest_file)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("rehearse", type=pathlib.Path)
    parser.add_argument("--every", type=int, default=12)
    arguments = parser.parse_args()
    probe = ["strace", "-o", "/dev/null", "-e", "inject=getppid:error=EIO", "true"]
    if not shutil.which("strace") or subprocess.run(probe, capture_output=True,
                                                    check=False).returncode != 0:
        print("Skipped: strace is missing, or may not watch other programs here.")
        return SKIPPED

    with tempfile.TemporaryDirectory() as work:
        machine = Machine(arguments.rehearse, pathlib.Path(work))
        (machine.work / "nothing" / "tolvane").mkdir(parents=True)
        first = Day(machine, "first day", machine.work / "nothing")
        second = Day(machine, "second day", first.end)
        tried = [trial for day in (first, second) for trial in trials(day, arguments.every)]
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            wrong = [what for found in pool.map(lambda trial: trial(), tried) for what in found]
    print("\n".join(wrong[:20]))
    print(f"{len(tried)} kills and failing calls, {len(wrong)} wrong")
    return 1 if wrong or len(tried) < 100 else 0


if __name__ == "__main__":
    sys.exit(main())
