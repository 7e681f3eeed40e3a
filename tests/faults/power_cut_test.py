#!/usr/bin/env python3
"""Cuts the power at every moment of a rehearsed day that can make a difference to the disk, and has
the game start from what is then found on it.

power_cut_test.py REHEARSE [--every N]: the player's files lie on an ext4 file system whose disk is
a program that remembers each write and each flush (recorded_disk.py). A power cut leaves the writes
up to some moment; of those since the last flush, any may be missing. Tried are: every beginning of
the writes, and before every flush each of the writes not yet flushed as the only one that is
missing and as the only one that is there. From each such disk a fresh image is made and mounted,
which replays its journal. With N, tries one of N, and on one kind of file system only. Needs to be
root, since it mounts; skipped where it can't.
"""

import argparse
import hashlib
import itertools
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from kill_test import SKIPPED, STORED, SUCCESS, Machine, contents, days, wrong_start
from recorded_disk import RecordedDisk, records

IMAGE_BYTES = 12 * 1024 * 1024
# A disk that is written to as late as it may be, as soon as it can be, and as players have it. The
# middle one commits each change by itself, the first none that the game has not asked for.
MOUNTS = ("data=writeback,noauto_da_alloc,commit=900", "sync,dirsync,noauto_da_alloc",
          "commit=900")


def run(*command):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          check=False)


def must(*command):
    done = run(*command)
    if done.returncode != 0:
        raise RuntimeError(f"{command[0]}: {done.stderr.strip()}")


def why_not(work):
    """Why power can't be cut here; nothing if it can."""
    if os.geteuid() != 0:
        return "only root may mount"
    for tool in ("mkfs.ext4", "losetup", "mount"):
        if not shutil.which(tool):
            return f"{tool} is missing"
    try:
        make_image(work / "probe", mounted(work))
        with RecordedDisk(work / "probe", work) as disk:
            must("mount", disk.device, mounted(work))
            must("umount", mounted(work))
    except (RuntimeError, OSError, subprocess.CalledProcessError) as failure:
        return str(failure)
    return ""


def mounted(work):
    folder = work / "mounted"
    folder.mkdir(exist_ok=True)
    return folder


def make_image(image, begin):
    """An ext4 file system with the files of a folder."""
    image.write_bytes(b"")
    os.truncate(image, IMAGE_BYTES)
    must("mkfs.ext4", "-q", "-F", "-E", "lazy_itable_init=0,lazy_journal_init=0", "-d", begin,
         image)


class RecordedDay:
    """A day as the disk has seen it: the image at its begin, the writes and flushes, and how many of
    them there were when the game had ended."""

    def __init__(self, day, options, work):
        self.day, self.options, self.work = day, options, work
        self.numbers = itertools.count()
        self.started = set()  # what the player's folder held when the game was started on it
        self.image = work / "begin"
        make_image(self.image, day.begin)
        with RecordedDisk(self.image, work) as disk:
            must("mount", "-o", options, disk.device, mounted(work))
            done = day.machine.run(day.script, mounted(work))
            self.told = len(list(records(disk.log.read_bytes())))
            must("umount", mounted(work))
            self.steps = list(records(disk.log.read_bytes()))
        if SUCCESS[day.script] not in done.stdout:
            raise RuntimeError("the day on the recorded disk is another one: " + done.stderr)

    def cuts(self):
        """Disks that a cut may leave: what it is called, its bytes, and whether all that the player
        was told of has to be on it."""
        flushed = bytearray(self.image.read_bytes())
        now, waiting = bytearray(flushed), []
        yield "before the day", bytes(now), False
        for number, step in enumerate(self.steps, 1):
            told = number > self.told
            if step is not None:
                apply(now, step)
                waiting.append(step)
                yield f"after write {number}", bytes(now), told
                continue
            for index, write in enumerate(waiting) if len(waiting) > 1 else ():
                only = bytearray(flushed)
                apply(only, write)
                yield f"before flush {number}, only write {index}", bytes(only), told
                others = bytearray(flushed)
                for other in waiting[:index] + waiting[index + 1:]:
                    apply(others, other)
                yield f"before flush {number}, without write {index}", bytes(others), told
            flushed, waiting = bytearray(now), []
        yield "when the game had ended", self.at_the_end(), True

    def at_the_end(self):
        image = bytearray(self.image.read_bytes())
        for step in self.steps[:self.told]:
            if step is not None:
                apply(image, step)
        return bytes(image)

    def wrong_after(self, image, told):
        """What is wrong when the game starts on such a disk."""
        # A file of its own: should the system still hold the last one's loop device, as for a name
        # space that was made meanwhile, it would be mounted once more as it was.
        cut = self.work / f"cut{next(self.numbers)}"
        cut.write_bytes(image)
        if (done := run("mount", "-o", "loop", cut, mounted(self.work))).returncode != 0:
            return ["it can't be mounted: " + done.stderr]
        try:
            documents = mounted(self.work)
            (documents / "tolvane").mkdir(exist_ok=True)
            return [*self.wrong_files(contents(documents), told), *self.wrong_start(documents)]
        except OSError as unreadable:
            return [f"a file can't be read: {unreadable}"]
        finally:
            must("umount", documents)
            cut.unlink()

    def wrong_files(self, found, told):
        before, after = self.day.before, self.day.after
        for name in STORED:
            if found[name] not in ((after[name],) if told else (before[name], after[name])):
                yield f"{name} is " + ("not the new one, which the player was told of" if told
                                       else "neither the old one nor the new one")
        # The log is not flushed: it may end earlier, or in zeros.
        log = (found["tamlolog.txt"] or b"").rstrip(b"\0")
        if not any((day["tamlolog.txt"] or b"").startswith(log) for day in (before, after)):
            yield "the log holds what was never written: " + repr(log[-40:])

    def wrong_start(self, documents):
        """What the game makes of the folder; nothing if it has been started on such a one."""
        names = sorted(os.listdir(documents / "tolvane"))
        content = tuple((name, (documents / "tolvane" / name).read_bytes()) for name in names)
        if content in self.started:
            return
        self.started.add(content)
        yield from wrong_start(self.day.machine, documents)
        log = contents(documents)["tamlolog.txt"]
        if b"\0" in log or re.search(b"[^\r]\n", log) or not log.endswith(b"\r\n"):
            yield "after the next start the log is still spoilt: " + repr(log[-40:])


def apply(image, write):
    where, data = write
    image[where:where + len(data)] = data


def try_day(recorded, every):
    """How many different disks were tried, on how many of them the game was started, and what was
    wrong."""
    seen, wrong = set(), []
    for number, (name, image, told) in enumerate(recorded.cuts()):
        key = (hashlib.sha256(image).digest(), told)
        if key in seen or number % every:
            continue
        seen.add(key)
        wrong += [f"{recorded.day.name}, mounted with {recorded.options}, {name}: {what}"
                  for what in recorded.wrong_after(image, told)]
    return len(seen), len(recorded.started), wrong


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("rehearse", type=pathlib.Path)
    parser.add_argument("--every", type=int, default=1)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as work_name:
        work = pathlib.Path(work_name)
        if reason := why_not(work):
            print(f"Skipped: power can't be cut here: {reason}.")
            return SKIPPED
        machine = Machine(arguments.rehearse, work)
        tried, started, wrong = 0, 0, []
        for day in days(machine):
            for options in MOUNTS if arguments.every == 1 else MOUNTS[:1]:
                cuts, starts, found = try_day(RecordedDay(day, options, work), arguments.every)
                tried, started, wrong = tried + cuts, started + starts, wrong + found
    print("\n".join(wrong[:20]))
    print(f"{tried} power cuts, {started} starts on different files, {len(wrong)} wrong")
    return 1 if wrong or tried < 20 else 0


if __name__ == "__main__":
    sys.exit(main())
