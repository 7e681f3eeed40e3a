"""Sound servers of our own, whose sinks lead nowhere, and what they were given to play."""

import array
import os
import signal
import subprocess
import threading
import time

from waiting import PATIENCE, listens, need, stop, wait_until


class SoundServer:
    """A PulseAudio server whose only sink leads nowhere, and a recording of all it plays."""

    RATE = 48000
    TOOLS = ("pulseaudio", "pactl", "parec")

    def __init__(self, folder):
        need(*self.TOOLS)
        self.folder = os.path.join(folder, "pulse")
        os.mkdir(self.folder, 0o700)
        self.blocks = []  # (time of arrival, loudness), for each piece of 10 ms or so
        self.servers, self.recorder = [], None
        self.set_up()
        try:
            self.start()
        except BaseException:
            self.kill()
            raise

    def set_up(self):
        """Sets the `environment` of programs that are to be heard, the `commands` that serve them,
        each with the socket by which it is known to run, and the `surroundings` of these."""
        path = os.path.join(self.folder, "native")
        self.environment = {"PULSE_SERVER": "unix:" + path, "SDL_AUDIODRIVER": "pulseaudio",
                            "PULSE_COOKIE": os.path.join(self.folder, "cookie")}
        self.surroundings = {}
        self.commands = [(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
             "--disable-shm=yes", "--high-priority=no", "--realtime=no",
             "-L", f"module-native-protocol-unix auth-anonymous=1 socket={path}",
             "-L", f"module-null-sink sink_name=null rate={self.RATE} norewinds=1"], path)]

    def start(self):
        # On a busy machine the manager of the streams may come too late for the recording.
        for patience in (10, 20, PATIENCE):
            so_far = len(self.blocks)
            self._launch()
            try:
                wait_until(lambda: len(self.blocks) > so_far, "the recording", patience)
                return
            except AssertionError:
                self.kill()
        raise AssertionError("nothing can be recorded")

    def _launch(self):
        own = dict(os.environ, HOME=self.folder, PULSE_RUNTIME_PATH=self.folder,
                   PULSE_STATE_PATH=self.folder, XDG_RUNTIME_DIR=self.folder,
                   **self.surroundings)
        own.pop("DISPLAY", None)
        self.servers = []
        for command, door in self.commands:
            self.servers.append(subprocess.Popen(command, env=own, stdout=subprocess.DEVNULL,
                                                 stderr=subprocess.DEVNULL))
            wait_until(lambda: not door or listens(door), command[0])
        client = dict(os.environ, **self.environment)
        wait_until(lambda: subprocess.run(["pactl", "list", "sinks"], env=client,
                                          capture_output=True).stdout.find(b"null") >= 0,
                   "the sound server")
        # A null sink that nobody reads renders seconds ahead.
        self.recorder = subprocess.Popen(
            ["parec", "--latency-msec=5", "-d", "null.monitor", "--format=float32le",
             f"--rate={self.RATE}", "--channels=1"],
            env=client, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.thread = threading.Thread(target=self._record, args=[self.recorder], daemon=True)
        self.thread.start()

    def _record(self, recorder):
        rest = b""
        while block := recorder.stdout.read1(1 << 16):
            block = rest + block
            whole = len(block) // 4 * 4
            samples, rest = array.array("f", block[:whole]), block[whole:]
            if samples:
                self.blocks.append((time.monotonic(), max(max(samples), -min(samples))))

    def heard(self, since, until=None):
        """Whether anything sounded in a span of time."""
        until = until or time.monotonic()
        return any(loud > 0.003 for when, loud in list(self.blocks) if since <= when <= until)

    def first_sound(self, since):
        """When something first sounded after a moment; none if it has been silent."""
        return next((when for when, loud in list(self.blocks) if when >= since and loud > 0.003),
                    None)

    def silent_for(self, seconds):
        now = time.monotonic()
        return not self.heard(now - seconds, now)

    def halt(self):
        """The server no longer answers, but has not ended."""
        self._signal(signal.SIGSTOP)

    def go_on(self):
        self._signal(signal.SIGCONT)

    def _signal(self, number):
        for server in self.servers:
            server.send_signal(number)

    def pause(self, paused):
        """Has the server pause its sink, as for another user of the machine, or resume it."""
        subprocess.run(["pactl", "suspend-sink", "null", str(int(paused))], check=True,
                       env=dict(os.environ, **self.environment))

    def kill(self):
        for server in self.servers:
            stop(server)
        if self.recorder:
            self.recorder.kill()
            self.thread.join()
            stop(self.recorder)

    def close(self):
        self.kill()


class PipeWireServer(SoundServer):
    """The same with PipeWire and its manager; the recording goes by way of its PulseAudio service."""

    TOOLS = ("dbus-daemon", "pipewire", "wireplumber", "pipewire-pulse", "pactl", "parec")
    SINK = """context.objects = [ { factory = adapter args = {
        factory.name = support.null-audio-sink node.name = "null" media.class = Audio/Sink
        audio.position = [ FL FR ] audio.rate = 48000 object.linger = true } } ]"""

    def set_up(self):
        self.environment = {"PULSE_SERVER": f"unix:{self.folder}/native",
                            "PIPEWIRE_RUNTIME_DIR": self.folder, "SDL_AUDIODRIVER": "pipewire"}
        bus = f"unix:path={self.folder}/bus"
        self.surroundings = {"DBUS_SESSION_BUS_ADDRESS": bus}
        self.commands = [
            (["dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + bus],
             self.folder + "/bus"),
            (["pipewire"], self.folder + "/pipewire-0"), (["wireplumber"], None),
            (["pipewire-pulse"], self.folder + "/native")]
        settings = os.path.join(self.folder, ".config", "pipewire", "pipewire.conf.d")
        os.makedirs(settings)
        with open(os.path.join(settings, "sink.conf"), "w", encoding="ascii") as file:
            file.write(self.SINK)
