"""What is measured: the game, the reference program, and two ways of speaking that others use."""

import array
import mmap
import os
import random
import shutil
import socket
import struct
import subprocess
import time
import wave

from machine import Program
from waiting import need, stop, wait_until

LOOPS = ("tamlo3", "tamlob1", "tamlob2", "tamlob3", "tamlob4")  # scooter's idle, backgrounds
DEVICE, KEY, BLOCK = 1, 2, 3
STAMP = struct.Struct("<qii")
MOST_STAMPS = 1 << 18
TRIES = 5  # of the speech service, until it says what it was told


class Stamps:
    """What a program notes of itself while it runs; see stamps.h."""

    def __init__(self, path):
        with open(path, "wb") as file:
            file.truncate(8 + MOST_STAMPS * STAMP.size)
        with open(path, "r+b") as file:
            self.memory = mmap.mmap(file.fileno(), 0)

    def all(self):
        count, = struct.unpack_from("<Q", self.memory)
        for number in range(max(0, count - MOST_STAMPS + 1), count):
            when, kind, value = STAMP.unpack_from(
                self.memory, 8 + number % MOST_STAMPS * STAMP.size)
            yield when / 1e9, kind, value

    def keys(self, since):
        """When the program took keys after a moment."""
        return [when for when, kind, _ in self.all() if kind == KEY and when >= since]

    def frames(self):
        """Of a block, at each opening of the device: [256] when all went well."""
        return [value for _, kind, value in self.all() if kind == DEVICE]

    def callbacks_to_sound(self, pressed):
        """How many blocks were filled from the moment that the program took the next key up to
        the block that was audible first: a list of one, or empty if there is no such block."""
        taken, blocks = None, 0
        for when, kind, value in self.all():
            if kind == KEY and taken is None and when >= pressed - 0.001:
                taken = when
            elif kind == BLOCK and taken is not None and when >= taken:
                blocks += 1
                if value >= 0:
                    return [blocks]
        return []


def status_number(process, name):
    """A number that the system tells of a process's first thread."""
    with open(f"/proc/{process}/status", encoding="ascii") as file:
        return next(int(line.split()[1]) for line in file if line.startswith(name + ":"))


class Player:
    """A program with a window that answers keys."""

    def __init__(self, command, folder, display, server, bench, keyboard, cwd):
        self.recording, self.keyboard = server.recording, keyboard
        stamps = os.path.join(folder, "stamps of the " + self.name)
        self.stamps = Stamps(stamps)
        self.program = Program(command, folder, cwd=cwd, environment={
            **display.environment, **server.environment,
            "LD_PRELOAD": os.path.join(bench, "liblatency_stamps.so"),
            "TAMLO_STAMPS": stamps})
        self.begin = self.program.begin

    def start_to_sound(self):
        return self.recording.await_onset(self.begin) - self.begin

    def settle(self, seconds=0.25):
        """Waits until it is quiet, and a little longer, so that keys meet any place of a block."""
        self.recording.await_quiet(time.monotonic(), seconds)
        time.sleep(random.uniform(0, 0.02))

    def to_sound(self, key):
        pressed = self.keyboard.press(key)
        return pressed, self.recording.await_onset(pressed) - pressed

    def to_silence(self, key):
        pressed = self.keyboard.press(key)
        time.sleep(0.05)
        return self.recording.await_quiet(pressed, 0.1) - pressed

    def processes(self):
        """The process that was started, and those that it has started in turn."""
        parents = {}
        for entry in os.listdir("/proc"):
            try:
                with open(f"/proc/{entry}/stat", encoding="utf-8", errors="replace") as file:
                    parents[int(entry)] = int(file.read().rsplit(")", 1)[1].split()[1])
            except (OSError, ValueError):
                pass  # no process, or no longer
        own = [self.program.process.pid]
        for process in own:
            own += [child for child, parent in parents.items() if parent == process]
        return own

    def resident(self, kind="VmRSS"):
        """Memory in use, in MB, of the largest process: what the others have they share with it."""
        return max(status_number(process, kind) for process in self.processes()) / 1024

    def processor_time(self):
        """Seconds, of all threads that there are now."""
        nanoseconds = 0
        for process in self.processes():
            for thread in os.listdir(f"/proc/{process}/task"):
                with open(f"/proc/{process}/task/{thread}/schedstat", encoding="ascii") as file:
                    nanoseconds += int(file.read().split()[0])
        return nanoseconds / 1e9

    def wakes(self):
        """How often the first threads of all processes have gone to sleep so far."""
        return sum(status_number(process, "voluntary_ctxt_switches")
                   for process in self.processes())

    def close(self):
        self.program.close()


class Reference(Player):
    name = "reference"

    def __init__(self, folder, display, server, bench, keyboard, frames=256, **_):
        super().__init__([os.path.join(bench, "reference_program"), str(frames)], folder, display, server,
                         bench, keyboard, folder)

    def reach(self, _condition):
        wait_until(lambda: self.stamps.frames(), "the window")
        time.sleep(1)

    def trial(self, figures):
        self.settle(0.1)
        pressed, delay = self.to_sound("Down")
        figures["next item"].append(delay)
        figures["callbacks"] += self.stamps.callbacks_to_sound(pressed)
        time.sleep(random.uniform(0.15, 0.17))
        figures["silence"].append(self.to_silence("Escape"))


class Game(Player):
    """Measured in its menu of two items, which an option leads to: both are short, and what
    follows it comes after a fifth of a second of silence."""

    name = "game"

    def __init__(self, folder, display, server, bench, keyboard, game):
        self.own = os.path.join(folder, "own")
        if not os.path.exists(self.own):
            shutil.copytree(game, self.own)
            for loop in LOOPS:
                soften(os.path.join(self.own, loop + ".wav"))
        super().__init__([os.path.join(self.own, "tamlo")], folder, display, server, bench,
                         keyboard, game)

    def reach(self, condition):
        self.start_to_sound()
        time.sleep(1)
        self.keyboard.press("space")
        self.settle(1.5)
        self.home = ["Down"] * 6
        if condition == "driving":
            self.keyboard.press("Return")
            self.settle(3)
            self.walk("Up", "Return")
            self.settle()
            self.home = ["Up"]
        self.walk(*self.home)
        self.settle()

    def hold(self, seconds):
        """Holds a key, which the display repeats. Returns its repeats a second, by how much the
        memory grew meanwhile (MB), and how much longer keys were taken after the release and
        something was spoken (seconds)."""
        pressed = time.monotonic()
        self.keyboard.down("Down")
        self.keyboard.flush()
        time.sleep(2)
        before = self.resident("RssAnon")  # the stamps are a file in memory, and grow
        time.sleep(max(0, seconds - 2))
        grown = self.resident("RssAnon") - before
        released = time.monotonic()
        self.keyboard.up("Down")
        quiet = self.recording.await_quiet(released, 0.5)
        keys = self.stamps.keys(pressed)
        return len(keys) / seconds, grown, max(keys) - released, quiet - released

    def walk(self, *keys):
        for key in keys:
            self.keyboard.press(key)
            time.sleep(0.04)

    def trial(self, figures):
        self.to_sound("Return")
        self.recording.await_quiet(time.monotonic(), 0.07)
        _, delay = self.to_sound("Down")  # before the second of the two texts that were queued
        figures["break off and say"].append(delay)
        self.settle()
        pressed, delay = self.to_sound("Down")
        figures["next item"].append(delay)
        figures["callbacks"] += self.stamps.callbacks_to_sound(pressed)
        time.sleep(random.uniform(0.15, 0.17))
        figures["silence"].append(self.to_silence("Return"))
        self.recording.await_onset(time.monotonic())
        self.walk(*self.home)
        self.settle()


def soften(path):
    """Has a loop mixed as ever, but too softly to be taken for the voice."""
    with wave.open(path) as file:
        parameters, frames = file.getparams(), file.readframes(file.getnframes())
    assert parameters.sampwidth == 2, path
    samples = array.array("h", frames)
    loudest = max(max(samples), -min(samples))
    softer = array.array("h", (sample * 20 // loudest for sample in samples))
    with wave.open(path, "wb") as file:
        file.setparams(parameters)
        file.writeframes(softer.tobytes())


class Service:
    """speech-dispatcher with espeak-ng, as a program reaches it by its socket."""

    name = "speech service"

    def __init__(self, folder, server):
        need("speech-dispatcher")
        self.recording = server.recording
        runtime = os.path.join(folder, "service")
        os.makedirs(runtime, exist_ok=True)
        path = os.path.join(runtime, "socket")
        if os.path.exists(path):
            os.unlink(path)
        environment = dict(os.environ, **server.environment, HOME=runtime)
        environment.setdefault("XDG_RUNTIME_DIR", runtime)
        self.begin = time.monotonic()
        self.daemon = subprocess.Popen(
            ["speech-dispatcher", "-s", "-c", "unix_socket", "-S", path, "-L", runtime,
             "-P", os.path.join(runtime, "pid"), "-t", "0"], env=environment,
            start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.socket = socket.socket(socket.AF_UNIX)
        wait_until(lambda: self.socket.connect_ex(path) == 0, "speech-dispatcher")
        self.tell("SET SELF CLIENT_NAME tamlo:latency:main", "SET SELF OUTPUT_MODULE espeak-ng")

    def tell(self, *lines):
        for line in lines:
            self.socket.sendall(line.encode() + b"\r\n")
            self.socket.recv(4096)

    def say(self, text):
        self.tell("SPEAK", text + "\r\n.")

    def start_to_sound(self):
        self.say("female")
        return self.recording.await_onset(self.begin) - self.begin

    def reach(self, _condition):
        self.start_to_sound()

    def settle(self):
        self.recording.await_quiet(time.monotonic(), 0.4)
        time.sleep(random.uniform(0, 0.02))

    def trial(self, figures):
        self.settle()
        asked = time.monotonic()
        self.say("female")
        figures["next item"].append(self.recording.await_onset(asked) - asked)
        time.sleep(random.uniform(0.15, 0.17))
        asked = time.monotonic()
        self.tell("CANCEL SELF")
        time.sleep(0.05)
        figures["silence"].append(self.recording.await_quiet(asked, 0.1) - asked)
        # Most of what it is told right after breaking off, the service drops.
        for _ in range(TRIES):
            if delay := self.break_off_and_say():
                figures["break off and say"].append(delay)
                break

    def break_off_and_say(self):
        """None if it was not said."""
        self.settle()
        asked = time.monotonic()
        self.say("we were away all year")  # voiced throughout: the first silence is the break
        time.sleep(self.recording.await_onset(asked) - time.monotonic() + random.uniform(0.4, 0.42))
        asked = time.monotonic()
        self.tell("CANCEL SELF")
        self.say("male")
        broken_off = self.recording.await_quiet(asked, 0.004)
        time.sleep(1)
        said = self.recording.onset(broken_off + 0.004)
        return said and said - asked

    def close(self):
        self.socket.close()
        os.killpg(self.daemon.pid, 9)
        self.daemon.wait()


class Command:
    """espeak-ng, started for every text."""

    name = "espeak-ng"

    def __init__(self, _folder, server):
        need("espeak-ng")
        self.recording = server.recording
        self.environment = dict(os.environ, **server.environment)
        self.speaking = None

    def reach(self, _condition):
        pass

    def trial(self, figures):
        self.recording.await_quiet(time.monotonic(), 0.3)
        asked = time.monotonic()
        self.speaking = subprocess.Popen(["espeak-ng", "female"], env=self.environment,
                                         stderr=subprocess.DEVNULL)
        figures["next item"].append(self.recording.await_onset(asked) - asked)
        self.speaking.wait()

    def close(self):
        if self.speaking:
            stop(self.speaking)
