"""What PulseAudio holds is rendered again at each change, in mid-tone, and outlasts a program that
stands still for a moment; neither is heard. Where the system refuses what the connection needs, it
counts as no card."""

import array
import math
import os
import resource
import signal
import subprocess
import sys
import time
import wave

from machine import Case, Program, main
from sound_servers import SoundServer
from waiting import stop

PROBE = sys.argv[1]
RATE = 48000
STEP = 0.02    # of the second difference: a click; the tone's own is 0.0007
HALT = 0.06    # seconds that the probe stands still; the server holds 0.128
TRIALS = 5     # a busy machine may add to it


class HeldStream(Case):
    def record(self, disturb):
        """The tone as it was heard, while the probe is disturbed."""
        server = self.own(SoundServer(self.folder))
        raw = os.path.join(self.folder, "heard")
        environment = dict(os.environ, **server.environment)
        with open(raw, "wb") as file:
            recorder = subprocess.Popen(
                ["parec", "--latency-msec=5", "-d", "null.monitor", "--format=float32le",
                 f"--rate={RATE}", "--channels=1"], env=environment, stdout=file)
        self.write("loop", [0.8 * math.sin(2 * math.pi * i / 240) for i in range(2400)])
        self.write("silence", [0] * 100)
        probe = self.own(Program([PROBE, self.folder], self.folder, server.environment))
        probe.line("playing by pulseaudio")
        disturb(probe)
        stop(recorder)
        with open(raw, "rb") as file:
            samples = array.array("f", file.read()[:os.path.getsize(raw) // 4 * 4])
        begin = next(i for i, sample in enumerate(samples) if sample > 0.5)
        return samples[begin:]

    def write(self, name, values):
        with wave.open(os.path.join(self.folder, name + ".wav"), "wb") as file:
            file.setparams((1, 2, RATE, 0, "NONE", ""))
            file.writeframes(array.array("h", (int(32767 * value) for value in values)).tobytes())

    def test_a_tone_stays_whole_while_other_sounds_begin(self):
        tone = self.record(lambda probe: time.sleep(4))
        self.assertGreater(len(tone), 2 * RATE)
        rough = [i for i in range(2, len(tone))
                 if abs(tone[i] - 2 * tone[i - 1] + tone[i - 2]) > STEP]
        clicks = sum(1 for before, after in zip([-RATE] + rough, rough) if after - before > 100)
        print(f"{clicks} clicks in {len(tone) / RATE:.1f} s")
        # Of 800 changes; a busy machine has a drop-out now and then.
        self.assertLess(clicks, 8)

    def test_it_sounds_on_while_the_program_stands_still(self):
        def halt(probe):
            for _ in range(TRIALS):
                time.sleep(0.5)
                probe.process.send_signal(signal.SIGSTOP)
                time.sleep(HALT)
                probe.process.send_signal(signal.SIGCONT)
            time.sleep(0.5)
        tone = self.record(halt)
        gaps, silent = 0, 0
        for sample in tone:
            silent = silent + 1 if sample == 0 else 0
            gaps += silent == RATE // 200
        print(f"{gaps} gaps")
        self.assertLess(gaps, TRIALS)

    def test_without_enough_descriptors_it_goes_on_without_a_card(self):
        server = self.own(SoundServer(self.folder))
        for most in range(4, 10):  # with 3, nothing can be loaded; 9 are enough
            with self.subTest(most):
                probe = self.own(Program(
                    [PROBE, self.folder, "0"], self.folder, server.environment,
                    preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (most, most))))
                self.assertEqual(probe.ended(), 0, probe.lines)


if __name__ == "__main__":
    main()
