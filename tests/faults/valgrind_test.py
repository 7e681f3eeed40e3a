#!/usr/bin/env python3
"""A short game in a terminal under valgrind, to its end: valgrind_test.py GAME [--seconds N].

A use of memory that is not the game's, or memory that nothing points to any more at the end, fails
it. Without a display and without sound; the voice speaks into nothing. Part of the long runs only.
"""

import argparse
import os
import pathlib
import pty
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
FAULTY = 99  # valgrind's exit status when it has found something

UP, ENTER = b"\x1b[A", b"\r"
# What is printed, and the key that answers it: up from the first item of the menu to the last. A voice
# that takes too long to be ready counts as none, which the game tells before it ends.
ANSWERS = {"start game": UP, "exit game": ENTER, "Press Enter.": ENTER}

# What libraries keep to the end of the process on purpose.
SUPPRESSIONS = pathlib.Path(__file__).with_name("valgrind.supp")


def start(game, home, log):
    """The game under valgrind in a terminal of its own; the process, and our end of the terminal."""
    ours, theirs = pty.openpty()
    environment = {"HOME": str(home), "PATH": os.environ["PATH"], "TERM": "xterm",
                   "PULSE_SERVER": "unix:/nonexistent", "PIPEWIRE_REMOTE": "nonexistent",
                   "ALSA_CONFIG_PATH": "/dev/null", "LANG": "C.UTF-8"}
    command = ["valgrind", "--quiet", f"--error-exitcode={FAULTY}", "--leak-check=full",
               "--show-leak-kinds=definite", "--errors-for-leak-kinds=definite",
               "--trace-children=yes", "--fair-sched=yes",
               f"--suppressions={SUPPRESSIONS}", f"--log-file={log}.%p", game]
    process = subprocess.Popen(command, stdin=theirs, stdout=theirs, stderr=theirs, cwd=home,
                               env=environment, start_new_session=True)
    os.close(theirs)
    return process, ours


def play(process, terminal, patience):
    """Answers what is printed until the game ends; what has been printed."""
    printed, answered = "", 0
    end = time.monotonic() + patience
    while time.monotonic() < end:
        if not select.select([terminal], [], [], 0.2)[0]:
            if process.poll() is not None:
                break
            continue
        try:
            printed += os.read(terminal, 4096).decode(errors="replace")
        except OSError:  # the other end is closed
            break
        for text, key in ANSWERS.items():
            if text in printed[answered:]:
                answered = len(printed)
                os.write(terminal, key)
    return printed


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("game", type=pathlib.Path)
    parser.add_argument("--seconds", type=float, default=240, help="until the game counts as stuck")
    arguments = parser.parse_args()
    if not shutil.which("valgrind"):
        print("Skipped: valgrind is missing.")
        return SKIPPED
    with tempfile.TemporaryDirectory() as work:
        home = pathlib.Path(work)
        process, terminal = start(arguments.game.resolve(), home, home / "valgrind")
        printed = play(process, terminal, arguments.seconds)
        try:
            status = process.wait(timeout=arguments.seconds)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            status = process.wait()
        found = "".join(log.read_text(errors="replace") for log in home.glob("valgrind.*"))
    os.close(terminal)
    if status != 0 or found or "exiting program" not in printed:
        print(repr(printed), found, sep="\n")
        print(f"1 game, ended with {status}")
        return 1
    print("1 game, " + ("1 with a voice" if "exit game" in printed else "0 with a voice") + ", 0 wrong")
    return 0


if __name__ == "__main__":
    sys.exit(main())
