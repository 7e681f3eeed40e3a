"""A drive as it is heard: the sink's recording shows the tune, the engine and the passing truck."""

import array
import math
import os
import subprocess
import sys
import threading
import time
import wave

from machine import Case, Terminal, main
from sound_servers import SoundServer
from waiting import need, stop, wait_until

GAME = sys.argv[1]
RATE = SoundServer.RATE


class StereoRecording:
    """All that a sound server plays, both ears, each piece with the time of its arrival."""

    def __init__(self, server):
        need("parec")
        self.recorder = subprocess.Popen(
            ["parec", "--latency-msec=20", "-d", "null.monitor", "--format=s16le",
             f"--rate={RATE}", "--channels=2"],
            env=dict(os.environ, **server.environment), stdout=subprocess.PIPE)
        self.pieces = []
        threading.Thread(target=self._record, daemon=True).start()
        wait_until(lambda: self.pieces, "the recording")

    def _record(self):
        rest = b""
        while block := self.recorder.stdout.read1(1 << 16):
            block = rest + block
            whole = len(block) // 4 * 4
            samples, rest = array.array("h", block[:whole]), block[whole:]
            self.pieces.append((time.monotonic(), samples))

    def ears(self, begin, end):
        """The samples of the left and the right ear that came between two moments."""
        both = array.array("h")
        for when, samples in list(self.pieces):
            if begin <= when <= end:
                both.extend(samples)
        return both[0::2], both[1::2]

    def close(self):
        stop(self.recorder)


def level(samples):
    """In dB below full scale."""
    power = sum(s * s for s in samples) / max(1, len(samples))
    return 10 * math.log10(power / 32768 ** 2 + 1e-12)


def loud_time(samples, threshold=-25, piece=RATE // 20):
    """Seconds for which the sound is louder than a threshold in dB."""
    pieces = [samples[at:at + piece] for at in range(0, len(samples), piece)]
    return sum(len(part) for part in pieces if level(part) > threshold) / RATE


def loudest_second(samples, rate):
    tenth = rate // 10
    return max(level(samples[at:at + rate]) for at in range(0, len(samples) - rate, tenth))


class Drive(Case):
    def test_is_heard_as_it_is_told(self):
        self.speak_quickly()
        server = self.own(SoundServer(self.folder))
        recording = self.own(StereoRecording(server))
        game = self.own(Terminal(GAME, self.folder, server.environment))
        self.title_is_at_full_volume(server, recording)
        game.press("space")
        game.line("start game")
        game.press("Return")
        game.line("There is an order for")
        time.sleep(0.5)
        game.press("space")
        game.line("turn left, west")
        game.press("Return")
        slow = self.engine(game, recording, "1", "0")
        game.line("Select")
        game.press("Left", "Return")
        fast = self.engine(game, recording, "4", "5")
        game.line("Select")
        # The same sound, played at 13,876 and at 25,321 samples a second: as much higher as it is
        # shorter, 1.8 times if the machine is not too busy to play all of it.
        self.assertGreater(slow / fast, 1.35)
        game.press("Return")
        self.engine(game, recording, "3", "5")
        self.truck_passes(game, recording)

    def title_is_at_full_volume(self, server, recording):
        """The loudest second heard is as loud as the loudest of the file."""
        wait_until(lambda: server.first_sound(0), "the title tune")
        begin = server.first_sound(0)
        time.sleep(3.5)
        with wave.open(os.path.join(os.path.dirname(GAME), "tamlo1.wav")) as tune:
            rate = tune.getframerate()
            expected = loudest_second(array.array("h", tune.readframes(3 * rate)), rate)
        for ear in recording.ears(begin, time.monotonic()):
            # A busy machine loses some of it.
            self.assertAlmostEqual(loudest_second(ear, RATE), expected, delta=4)

    def engine(self, game, recording, *speed):
        """Drives a block; for how long the acceleration was heard."""
        game.line("How fast do you wish to go?")
        game.press(*speed)
        begin = time.monotonic()
        game.line("You are at the corner of")
        left, _ = recording.ears(begin, time.monotonic())
        game.press("space")  # cuts the corner short, and what waits for it
        return loud_time(left)

    def truck_passes(self, game, recording):
        begin = time.monotonic()
        game.line("Select")
        self.assertGreater(time.monotonic() - begin, 5)
        left, right = recording.ears(begin, time.monotonic())
        half = RATE // 2
        leans = [level(right[at:at + half]) - level(left[at:at + half])
                 for at in range(0, len(left) - half, half)]
        sides = [lean > 0 for lean in leans if abs(lean) > 3]
        self.assertEqual(sides, sorted(sides, reverse=sides[0]), f"not one after the other: {leans}")
        self.assertGreater(len(set(sides)), 1, f"the truck stays on its side: {leans}")


if __name__ == "__main__":
    main()
