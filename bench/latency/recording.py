"""Sound servers of our own whose sink leads nowhere, and recordings of it in pieces of 1 ms."""

import array
import os
import subprocess
import threading
import time

from waiting import need, stop, wait_until

RATE = 48000
PIECE = RATE // 1000
AUDIBLE = 0.00316 + 0.0005  # -50 dB of full scale, above the marker that lies under everything
GAP = bytes(4 * PIECE)      # a millisecond of entire silence, which the marker never is


class Recording:
    """Everything that the sink plays, each piece with the time of the monotonic clock at which it
    was there. The sampling rate is no clock: a monitor is rendered again when streams come and go."""

    def __init__(self, command, environment):
        self.process = subprocess.Popen(command, env=environment, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, bufsize=0)
        self.pieces = []  # (time, loudest sample)
        self.gaps = []    # times of gaps in the marker
        self.silent = False
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()
        wait_until(lambda: self.pieces, "the recording")

    def _read(self):
        rest = b""
        while block := self.process.stdout.read(1 << 16):
            now = time.monotonic()
            block = rest + block
            whole = len(block) // len(GAP) * len(GAP)
            samples, rest = array.array("f", block[:whole]), block[whole:]
            for begin in range(0, len(samples), PIECE):
                piece = samples[begin:begin + PIECE]
                then = now - (len(samples) - begin - PIECE) / RATE
                loudest = max(max(piece), -min(piece))
                self.pieces.append((then, loudest))
                if loudest == 0 and not self.silent:
                    self.gaps.append(then)
                self.silent = loudest == 0

    def _since(self, moment):
        """Index of the first piece after a moment."""
        low, high = 0, len(self.pieces)
        while low < high:
            middle = (low + high) // 2
            if self.pieces[middle][0] < moment:
                low = middle + 1
            else:
                high = middle
        return low

    def onset(self, since):
        """When something was first audible after a moment; none if nothing was yet."""
        for when, loudest in self.pieces[self._since(since):]:
            if loudest > AUDIBLE:
                return when
        return None

    def await_onset(self, since, patience=20):
        wait_until(lambda: self.onset(since), "a sound", patience)
        return self.onset(since)

    def quiet_from(self, since, lasting):
        """When it became silent after a moment, for as long; none if it did not yet."""
        last = since
        for when, loudest in self.pieces[self._since(since):]:
            if loudest > AUDIBLE:
                last = when
            elif when - last > lasting:
                return last
        return None

    def await_quiet(self, since, lasting, patience=60):
        wait_until(lambda: self.quiet_from(since, lasting), "silence", patience)
        return self.quiet_from(since, lasting)

    def gaps_between(self, begin, end):
        return sum(begin <= gap <= end for gap in self.gaps)

    def close(self):
        self.process.kill()
        self.reader.join()
        stop(self.process)


class PulseAudio:
    name = "PulseAudio"

    def __init__(self, folder, step=PIECE):
        """Recorded in steps of so many frames: the sink takes no longer ones."""
        need("pulseaudio", "pactl", "parec")
        runtime = os.path.join(folder, "pulse")
        os.mkdir(runtime, 0o700)
        socket = os.path.join(runtime, "native")
        self.environment = {"PULSE_SERVER": "unix:" + socket, "PIPEWIRE_REMOTE": "none",
                            "PULSE_COOKIE": os.path.join(runtime, "cookie")}
        own = dict(os.environ, HOME=runtime, PULSE_RUNTIME_PATH=runtime, PULSE_STATE_PATH=runtime,
                   XDG_RUNTIME_DIR=runtime)
        own.pop("DISPLAY", None)
        # The server has real-time priority, as on a desktop; but on a busy machine it would use up
        # the time that such a thread may run without a pause, and be killed.
        with open(os.path.join(runtime, "daemon.conf"), "w", encoding="ascii") as file:
            file.write("rlimit-rttime = -1\n")
        own["PULSE_CONFIG_PATH"] = runtime
        self.server = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
             "-L", f"module-native-protocol-unix auth-anonymous=1 socket={socket}",
             "-L", f"module-null-sink sink_name=null rate={RATE} format=float32le"],
            env=own, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        client = dict(os.environ, **self.environment)
        wait_until(lambda: b"null" in subprocess.run(["pactl", "list", "sinks"], env=client,
                                                     capture_output=True).stdout, "PulseAudio")
        self.recording = Recording(
            ["parec", f"--latency-msec={1000 * step // RATE}", "--process-time-msec=1", "-d",
             "null.monitor", "--format=float32le", f"--rate={RATE}", "--channels=1"], client)

    def close(self):
        self.recording.close()
        stop(self.server)


class PipeWire:
    """As a desktop runs it: with its session manager and its service for PulseAudio's clients."""

    name = "PipeWire"

    def __init__(self, folder, step=PIECE):
        need("pipewire", "wireplumber", "pipewire-pulse", "pw-cat", "pw-cli", "dbus-run-session")
        runtime = os.path.join(folder, "pipewire")
        os.mkdir(runtime, 0o700)
        self.environment = {"PIPEWIRE_RUNTIME_DIR": runtime, "XDG_RUNTIME_DIR": runtime,
                            "PULSE_SERVER": "unix:" + os.path.join(runtime, "pulse", "native")}
        own = dict(os.environ, HOME=runtime, XDG_CONFIG_HOME=runtime, XDG_STATE_HOME=runtime,
                   **self.environment)
        own.pop("DISPLAY", None)
        self.servers = []
        self._start(["pipewire"], own)
        wait_until(lambda: os.path.exists(os.path.join(runtime, "pipewire-0")), "PipeWire")
        self._start(["dbus-run-session", "wireplumber"], own)
        self._start(["pipewire-pulse"], own)
        client = dict(os.environ, **self.environment)
        wait_until(lambda: subprocess.run(["pactl", "info"], env=client,
                                          capture_output=True).returncode == 0, "its service")
        subprocess.run(["pactl", "load-module", "module-null-sink", "sink_name=null",
                        f"rate={RATE}", "channels=2"], env=client, capture_output=True)
        subprocess.run(["pactl", "set-default-sink", "null"], env=client, capture_output=True)
        self.recording = Recording(
            ["pw-cat", "--record", "--target", "null", "-P", "stream.capture.sink=true",
             "--latency", str(step), "--format", "f32", f"--rate={RATE}", "--channels=1", "-"], client)

    def _start(self, command, environment):
        self.servers.append(subprocess.Popen(command, env=environment, start_new_session=True,
                                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))

    def close(self):
        self.recording.close()
        for server in reversed(self.servers):
            os.killpg(server.pid, 15)
            server.wait()
