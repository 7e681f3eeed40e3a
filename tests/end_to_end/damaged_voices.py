"""The game with damaged voice data: damaged_voices.py GAME COUNT [FIRST].

Each seed damages one file of the data: it is emptied, cut, overwritten with zeros, or some of its
bytes are changed. The game must go on and be heard, in the usual voice, another one, or by tones;
it must not end by itself.
"""

import array
import concurrent.futures
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time

from machine import NO_SOUND, PATIENCE, Program

FOLDERS = ("/usr/lib/x86_64-linux-gnu/espeak-ng-data", "/usr/lib/espeak-ng-data",
           "/usr/share/espeak-ng-data")
# What English is spoken with; each second damage hits one of these.
USED = ("phontab", "phonindex", "phondata", "intonations", "en_dict", "lang/gmw/en",
        "lang/gmw/en-US", "voices/!v/f3")
HEARD_WITHIN = 4  # s; 3 on a quiet machine


def data_folder():
    """Where the data of the voices is installed; none if it is not."""
    named = subprocess.run(["find", "/usr/lib", "/usr/share", "-maxdepth", "3", "-type", "d",
                            "-name", "espeak-ng-data"], capture_output=True, text=True).stdout
    return next((folder for folder in (*FOLDERS, *named.split()) if os.path.isdir(folder)), None)


def files_in(folder):
    return sorted(os.path.relpath(os.path.join(where, name), folder)
                  for where, _, names in os.walk(folder) for name in names)


def damaged(data, chance):
    """The bytes with a damage, and what it is called."""
    kind = chance.choice(("emptied", "cut", "zeros", "a block of zeros", "bytes", "many bytes"))
    changed = bytearray(data)
    if kind == "emptied":
        return b"", kind
    if kind == "cut":
        return data[:chance.randrange(len(data) or 1)], kind
    if kind == "zeros":
        return bytes(len(data)), kind
    if kind == "a block of zeros" and data:
        begin = chance.randrange(len(data)) // 4096 * 4096
        changed[begin:begin + 4096] = bytes(len(changed[begin:begin + 4096]))
    for _ in range({"bytes": 3, "many bytes": 300}.get(kind, 0) if data else 0):
        changed[chance.randrange(len(data))] = chance.randrange(256)
    return bytes(changed), kind


def copy_with(source, folder, name, data):
    """Makes a copy of the voice data in a folder, with one file of another content."""
    copy = os.path.join(folder, "espeak-ng-data")
    shutil.copytree(source, copy, copy_function=os.symlink)
    os.remove(os.path.join(copy, name))
    with open(os.path.join(copy, name), "wb") as file:
        file.write(data)


def damage(source, folder, seed):
    """Makes a damaged copy of the data in a folder, and tells what was done."""
    chance = random.Random(seed)
    files = files_in(source)
    used = [name for name in USED if name in files]
    name = chance.choice(used if seed % 2 == 0 else files)
    with open(os.path.join(source, name), "rb") as file:
        data, kind = damaged(file.read(), chance)
    copy_with(source, folder, name, data)
    return f"{name}: {kind}"


def heard_since(path, begin):
    """Whether anything but silence was played after so many bytes."""
    with open(path, "rb") as file:
        file.seek(begin)
        bytes_ = file.read()
    samples = array.array("f", bytes_[:len(bytes_) // 4 * 4])
    return any(abs(sample) > 0.003 for sample in samples[::5])


def settings(folder):
    files = os.path.join(folder, "Documents", "tolvane")
    os.makedirs(files)
    with open(os.path.join(files, "tamlo.cfg"), "w", encoding="ascii") as file:
        file.write(" 0\n 10\n 100\n-3500\n 1\n")  # quick speech, soft sounds


def await_sound(path, begin, what):
    end = time.monotonic() + HEARD_WITHIN
    while not heard_since(path, begin):
        if time.monotonic() > end:
            raise AssertionError(f"nothing was heard of {what}")
        time.sleep(0.05)


def await_silence(path):
    """Waits until nothing has been played for a while; returns the length of what was played."""
    end = time.monotonic() + PATIENCE
    while True:
        begin = os.path.getsize(path) // 8 * 8
        time.sleep(0.4)
        if not heard_since(path, begin):
            return os.path.getsize(path) // 8 * 8
        if time.monotonic() > end:
            raise AssertionError("it is never silent")


def press(program, key):
    program.process.stdin.write(key)
    program.process.stdin.flush()


def skip_the_tune(program):
    """A key that comes before the game reads keys is lost, and then the tune is played out."""
    program.line("[title tune]")
    time.sleep(1.5)
    try:
        press(program, " ")
    except BrokenPipeError:
        raise AssertionError(f"it has ended: {program.lines}") from None


def play(game, folder):
    """Starts the game, goes through the first entries of the menu, and ends it."""
    played = os.path.join(folder, "played")
    program = Program([game], folder, {**NO_SOUND, "SDL_AUDIODRIVER": "disk",
                                       "SDL_DISKAUDIOFILE": played, "ESPEAK_DATA_PATH": folder},
                      cwd=os.path.dirname(game), stdin=subprocess.PIPE)
    try:
        skip_the_tune(program)
        program.line("start game")
        for line in ("reed instructions", "reed special key instructions"):
            begin = await_silence(played)
            press(program, "\x1b[B")
            program.line(line)  # in a pipe a key waits for the end of a text
            await_sound(played, begin, line)
        program.process.terminate()
        status = program.ended()
        if status != 0:
            raise AssertionError(f"status {status}: {program.lines}")
    finally:
        program.close()


def try_seed(game, source, seed):
    folder = tempfile.mkdtemp(prefix="tamlo-")
    what = ""
    try:
        what = damage(source, folder, seed)
        settings(folder)
        play(game, folder)
        return seed, what, None
    except AssertionError as failure:
        return seed, what, str(failure)
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def main():
    game, count = os.path.abspath(sys.argv[1]), int(sys.argv[2])
    first = int(sys.argv[3]) if len(sys.argv) > 3 else 0
    source = data_folder()
    if source is None:
        print("The voice data are not installed.")
        return 77
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(3) as pool:
        seeds = range(first, first + count)
        for seed, what, failure in pool.map(lambda seed: try_seed(game, source, seed), seeds):
            print(f"{seed}: {what}: {failure or 'heard'}", flush=True)
            failed += failure is not None
    print(f"{count} damages, {failed} failures")
    return min(failed, 1)


if __name__ == "__main__":
    sys.exit(main())
