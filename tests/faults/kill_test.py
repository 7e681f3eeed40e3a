#!/usr/bin/env python3
"""Kills the game before and after the calls by which it touches the player's files, has those
calls fail, and lets files end in the middle of a write; then the game must find the old files or
the new ones, and start as if nothing had been.

kill_test.py REHEARSE [--every N]: REHEARSE is tamlo-rehearse. Every call that changes the disk is
tried, and every one between the last trip and the end of a day; of the others, which leave the
disk as the call before did, one in N (12).
"""

import argparse
import collections
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
# Wins, a slow and a quick record: the saved game is deleted and the record stored.
WIN = """\
press enter
set p2d 0
set cash 2001
set nhr {hours}
set ordopen(1) 0
press enter 3 5 right enter 3 5 right enter 3 5 right enter 3 5
press a l enter enter
"""
# The next start, which stores the settings once more.
NEXT = "press down down down down down down enter enter\n"

SCRIPTS = {"day": DAY, "slow win": WIN.format(hours=90), "quick win": WIN.format(hours=1),
           "next": NEXT}
SUCCESS = {"day": " game saved ", "slow win": " Which sets a new record.",
           "quick win": " Which sets a new record."}

# In the log: the last line of a trip, and the first of those with which the day ends.
TRIP_OVER = " in tips."
DAY_OVER = b" Today you worked "

STORED = ("tamlo.sav", "tamlo.cfg", "tamlostreets.txt", "tamlo.rec")
FILES = (*STORED, "tamlolog.txt")
CHANGING = {"mkdir", "write", "rename", "renameat", "renameat2", "fsync", "unlink", "unlinkat",
            "ftruncate", "fchmod", "fchown"}
ERRORS = ("ENOSPC", "EIO", "EACCES")


class Machine:
    """A folder of scripts, and ways to run them."""

    def __init__(self, rehearse, work):
        self.rehearse = rehearse
        self.work = work
        for name, script in SCRIPTS.items():
            (work / name).write_text(script, encoding="utf-8")

    def run(self, script, documents, strace=(), longest_file=None):
        """longest_file: bytes after which a write stops short and the next one fails."""
        def limit():
            if longest_file is not None:
                resource.setrlimit(resource.RLIMIT_FSIZE, (longest_file, longest_file))

        command = [*strace, self.rehearse, "--documents", documents, self.work / script]
        return subprocess.run(command, capture_output=True, text=True, timeout=1200, check=False,
                              preexec_fn=limit)

    def strace(self, *options, log="/dev/null"):
        return ["strace", "-f", "-y", "-s", "200", "-o", log, "-e", "trace=file,desc", *options]

    def calls(self, script, documents):
        """Every call on the player's folder: its name, its number among those of its name, whether
        it changes the disk, and whether the trips of the day are over."""
        log = self.work / "calls"
        done = self.run(script, documents, self.strace(log=log))
        if done.returncode != 0:
            raise RuntimeError("strace can't watch the game: " + done.stderr)
        counts = {}
        found = []
        paying = False
        for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
            if not (match := re.match(r"\d+ +(\w+)\(", line)):
                continue
            name = match[1]
            counts[name] = counts.get(name, 0) + 1
            if "/tolvane" in line:
                changes = name in CHANGING or "O_CREAT" in line
                found.append((name, counts[name], changes, paying))
                paying = paying or TRIP_OVER in line
        return found


def contents(documents):
    folder = documents / "tolvane"
    return {name: (folder / name).read_bytes() if (folder / name).exists() else None
            for name in FILES}


def wrong_files(before, after, found):
    """What of the files found is neither as before the day nor as after it."""
    for name in STORED:
        if found[name] not in (before[name], after[name]):
            yield f"{name} is neither the old one nor the new one"
    log = found["tamlolog.txt"]
    if log != before["tamlolog.txt"]:
        yield from wrong_log(log, after["tamlolog.txt"])
        days_told = (log or b"").count(DAY_OVER)
        if days_told == after["tamlolog.txt"].count(DAY_OVER) and \
                days_told > (before["tamlolog.txt"] or b"").count(DAY_OVER) and \
                found["tamlo.sav"] != after["tamlo.sav"]:
            yield "the player has been told of the day's pay, and it is not saved"


def wrong_log(log, whole):
    if log is None:
        yield "the log is gone"
    elif not whole.startswith(log):
        yield "the log holds what was never written: " + repr(log[-40:])
    elif not log.endswith(b"\r\n"):
        yield "the log ends in the middle of a line"


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
    """One day: a script that begins with the player's files as in the folder `begin`, and how it
    ends undisturbed."""

    def __init__(self, machine, name, script, begin):
        self.machine = machine
        self.name = name
        self.script = script
        self.begin = begin
        self.end = self.fresh("end")
        if SUCCESS[script] not in machine.run(script, self.end).stdout:
            raise RuntimeError("the undisturbed day does not come to its end")
        self.before = contents(self.begin)
        self.after = contents(self.end)

    def fresh(self, name):
        folder = self.machine.work / f"{self.name}-{name}"
        shutil.copytree(self.begin, folder)
        return folder

    def calls(self):
        return self.machine.calls(self.script, self.fresh("watched"))

    def kill(self, call):
        name, number, *_ = call
        documents = self.fresh(f"kill-{name}-{number}")
        killed = self.machine.run(self.script, documents, self.machine.strace(
            "-e", f"inject={name}:signal=KILL:when={number}"))
        wrong = [] if killed.returncode in (-9, 137) else ["the game has not been killed"]
        (documents / "tolvane").mkdir(exist_ok=True)
        wrong += wrong_files(self.before, self.after, contents(documents))
        wrong += wrong_start(self.machine, documents)
        shutil.rmtree(documents)
        return [f"{self.name}, killed before {name} {number}: {what}" for what in wrong]

    def fail(self, call, error):
        name, number, *_ = call
        documents = self.fresh(f"fail-{name}-{number}-{error}")
        day = self.machine.run(self.script, documents, self.machine.strace(
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
        day = self.machine.run(self.script, documents, longest_file=longest_file)
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


def days(machine):
    """Two days of work and two careers won, each from the files that the one before has left."""
    begin = machine.work / "nothing"
    (begin / "tolvane").mkdir(parents=True)
    for name, script in (("first day", "day"), ("second day", "day"), ("first record", "slow win"),
                         ("second record", "quick win")):
        yield (day := Day(machine, name, script, begin))
        begin = day.end


def trials(day, every):
    """What to try on a day: of which kind it is, and the trial."""
    others = 0
    calls = day.calls()
    for call in calls:
        # For a game that is killed, unlike for a power cut, flushing changes nothing.
        changes = call[2] and call[0] != "fsync"
        others += not changes
        paying = day.script == "day" and call[3]
        if changes or paying or others % every == 0:
            yield "kills", lambda call=call: day.kill(call)
    if day.script != "day":
        return
    for number, call in enumerate(call for call in calls if call[2]):
        for error in ERRORS if every == 1 else (ERRORS[number % len(ERRORS)],):
            yield "failing calls", lambda call=call, error=error: day.fail(call, error)
    for longest_file in range(0, 2400, 6 * every):
        yield "short files", lambda longest_file=longest_file: day.run_short(longest_file)


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
        tried = [trial for day in days(machine) for trial in trials(day, arguments.every)]
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            wrong = [what for found in pool.map(lambda trial: trial[1](), tried) for what in found]
    print("\n".join(wrong[:20]))
    counts = collections.Counter(kind for kind, _ in tried)
    print(", ".join(f"{count} {kind}" for kind, count in counts.items()) + f", {len(wrong)} wrong")
    return 1 if wrong or len(tried) < 100 else 0


if __name__ == "__main__":
    sys.exit(main())
