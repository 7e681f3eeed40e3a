"""A stream to PipeWire follows its sinks and their rates, and takes longer blocks without a pause
where the machine misses cycles of the graph."""

import array
import json
import math
import os
import shutil
import signal
import statistics
import subprocess
import sys
import time
import wave

from machine import Case, Program, main
from sound_servers import PipeWireServer
from waiting import stop, wait_until

PROBE = sys.argv[1]
PERIOD = 240  # frames
HALT = 0.04  # seconds that the probe stands still: several cycles


class AtRate(PipeWireServer):
    """With a graph of another rate; what is recorded is 48,000 all the same."""

    def __init__(self, folder, rate):
        self.SINK = (f"context.properties = {{ default.clock.rate = {rate} }}\n"
                     + PipeWireServer.SINK.replace("48000", str(rate)))
        super().__init__(folder)

    def tool(self, *command):
        environment = dict(os.environ, **self.environment, XDG_RUNTIME_DIR=self.folder)
        return subprocess.run(command, env=environment, capture_output=True, text=True).stdout

    def sink_of_the_stream(self):
        """The name of the sink that the one stream which plays leads to."""
        inputs = self.tool("pactl", "list", "short", "sink-inputs").split()
        sinks = [line.split() for line in self.tool("pactl", "list", "short", "sinks").splitlines()]
        return next((sink[1] for sink in sinks if inputs and sink[0] == inputs[1]), None)

    def latency(self):
        """Frames of the blocks that the stream asks for."""
        nodes = [thing["info"]["props"] for thing in json.loads(self.tool("pw-dump"))
                 if thing["type"] == "PipeWire:Interface:Node"]
        return next((int(node["node.latency"].split("/")[0]) for node in nodes
                     if node.get("node.name") == "Tamlo Delivery"), None)

    def period(self):
        """Frames of a cycle of what is heard on the sink; a drop-out spoils only a few of them."""
        environment = dict(os.environ, **self.environment)
        recorder = subprocess.Popen(
            ["parec", "-d", "null.monitor", "--format=float32le", "--rate=48000", "--channels=1"],
            env=environment, stdout=subprocess.PIPE)
        samples = array.array("f", recorder.stdout.read(4 * 3 * 48000))[48000:]
        stop(recorder)
        rises = [i for i in range(1, len(samples)) if samples[i - 1] < 0 <= samples[i]]
        return statistics.median(after - before for before, after in zip(rises, rises[1:]))


class PipeWire(Case):
    def play(self, rate):
        server = self.own(AtRate(self.folder, rate))
        for name, values in (("loop", [0.5 * math.sin(2 * math.pi * i / PERIOD)
                                       for i in range(2400)]), ("silence", [0] * 100)):
            with wave.open(os.path.join(self.folder, name + ".wav"), "wb") as file:
                file.setparams((1, 2, 48000, 0, "NONE", ""))
                file.writeframes(array.array("h", (int(32767 * v) for v in values)).tobytes())
        probe = self.own(Program([PROBE, self.folder, "60"], self.folder, server.environment))
        probe.line("playing by pipewire")
        return server, probe

    def test_graphs_of_other_rates_keep_the_pitch(self):
        for rate in (44100, 96000):
            with self.subTest(rate):
                server, probe = self.play(rate)
                self.assertAlmostEqual(server.period(), PERIOD, delta=1)
                probe.process.kill()
                server.close()
                shutil.rmtree(server.folder)

    def test_it_follows_the_default_sink_and_one_that_appears(self):
        server, _ = self.play(48000)
        self.assertEqual(server.sink_of_the_stream(), "null")
        other = server.tool("pactl", "load-module", "module-null-sink", "sink_name=other").strip()
        server.tool("pactl", "set-default-sink", "other")
        wait_until(lambda: server.sink_of_the_stream() == "other", "the other sink")
        server.tool("pactl", "unload-module", other)
        wait_until(lambda: server.sink_of_the_stream() == "null", "the way back")
        server.tool("pw-cli", "destroy", "null")
        wait_until(lambda: server.sink_of_the_stream() not in ("null", None), "a stand-in")
        server.tool("pactl", "load-module", "module-null-sink", "sink_name=late")
        wait_until(lambda: server.sink_of_the_stream() == "late", "the late sink")

    def test_missed_cycles_lengthen_its_blocks_live(self):
        server, probe = self.play(48000)
        self.assertIn(server.latency(), (128, 256))  # the longer ones on a busy machine

        def longest():
            probe.process.send_signal(signal.SIGSTOP)
            time.sleep(HALT)
            probe.process.send_signal(signal.SIGCONT)
            time.sleep(0.1)
            return server.latency() == 512
        wait_until(longest, "longer blocks")
        probe.process.send_signal(signal.SIGUSR1)
        probe.line("openings 1")


if __name__ == "__main__":
    main()
