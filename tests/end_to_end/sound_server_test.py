"""The sound server is halted, killed and started again; there is no voice."""

import os
import sys
import time

from machine import Case, Terminal, main
from sound_servers import PipeWireServer, SoundServer
from waiting import wait_until

GAME = sys.argv[1]
# Seconds on a busy machine.
BACK = 3  # until the game is heard again; 0.05 to 0.4 on a quiet one
ANSWERED = 3  # until a key is answered, heard or not
ENDED = 5
# May still sound when the server continues; it holds 0.128. What is said again takes 0.38.
HELD = 0.2
BEGUN = 10  # 1.5 on a quiet one; the server's own limit for a connection is 30


class TakenAway(Case):
    def begin(self, kind):
        """The server, which does not answer yet, and the game, which is to find it by itself."""
        self.speak_quickly()
        server = self.own(kind(self.folder))
        server.halt()
        environment = dict(server.environment, XDG_RUNTIME_DIR=server.folder,
                           ALSA_CONFIG_PATH="/dev/null")
        del environment["SDL_AUDIODRIVER"]
        begin = time.monotonic()
        game = self.own(Terminal(GAME, self.folder, environment))
        self.soon(game.line("[title tune]") - begin, BEGUN, "the beginning")
        return server, game

    def start_again(self, server):
        since = time.monotonic()
        server.start()
        self.heard_again(server, since)

    def heard_again(self, server, since=None):
        """Called when the server is back, or with the time at which it began to come back. The game
        itself says again what nobody heard."""
        back = time.monotonic()
        since = since or back
        wait_until(lambda: server.first_sound(since), "sound")
        self.soon(server.first_sound(since) - back, BACK, "heard again")
        wait_until(lambda: server.heard(since + HELD), "more than what the server held")

    def soon(self, seconds, most, what):
        print(f"{what} after {seconds:.2f} s", flush=True)
        self.assertLess(seconds, most)

    def answer(self, game, key, line):
        pressed = time.monotonic()
        game.press(key)
        self.soon(game.line(line) - pressed, ANSWERED, line)

    def skip_the_tune(self, game):
        """A key that comes before the game reads keys is lost."""
        def skipped():
            game.press("space")
            time.sleep(0.5)
            return "Tamlo Delivery. version 3." in game.printed()
        wait_until(skipped, "the end of the tune")

    def play(self, kind, *further):
        """As far as the menu, and further."""
        server, game = self.begin(kind)
        self.skip_the_tune(game)
        game.line("start game")
        self.answer(game, "Down", "reed instructions")
        time.sleep(2)  # it has been said, to nobody
        server.go_on()
        self.heard_again(server)

        self.answer(game, "Up", "start game")
        server.kill()
        time.sleep(1.5)
        self.start_again(server)

        for part in further:
            part(server, game)
        server.halt()
        begin = time.monotonic()
        game.press("C-c")
        game.ended()
        self.soon(time.monotonic() - begin, ENDED, "the end")

    def pause(self, server, game):
        server.pause(True)
        self.answer(game, "Down", "reed instructions")
        time.sleep(3)
        server.pause(False)
        self.heard_again(server)
        self.answer(game, "Up", "start game")

    def begin_the_day(self, server, game):
        game.press("Return")
        server.halt()
        self.unheard(game, "There is an order for", 25)  # it takes 7
        server.go_on()
        self.heard_again(server)

    def drive(self, server, game):
        game.press("space")
        game.line("turn left, west")
        self.answer(game, "Return", "How fast do you wish to go?")
        server.halt()
        game.press("3", "5")
        self.unheard(game, "You are at the corner of", 15)  # it takes 6
        server.go_on()
        self.heard_again(server)
        server.kill()
        game.line("Select")
        self.answer(game, "Return", "How fast do you wish to go?")
        game.press("3", "5")
        self.start_again(server)

    def unheard(self, game, line, most):
        begin = time.monotonic()
        self.soon(game.line(line) - begin, most, line)

    def test_pulseaudio(self):
        self.play(SoundServer, self.pause, self.begin_the_day)

    def test_pipewire(self):
        self.play(PipeWireServer)

    def ends_without_an_answer(self, kind):
        server, game = self.begin(kind)
        self.skip_the_tune(game)
        game.line("start game")
        server.kill()
        self.start_again(server)

    def test_pulseaudio_ends_without_an_answer(self):
        self.ends_without_an_answer(SoundServer)

    def test_pipewire_ends_without_an_answer(self):
        self.ends_without_an_answer(PipeWireServer)

    def test_no_voice(self):
        """Without speech libraries the sounds are heard, and the game continues in print."""
        server = self.own(SoundServer(self.folder))
        libraries = os.path.join(self.folder, "libraries")
        os.mkdir(libraries)
        for name in ("libespeak-ng.so.1", "libflite.so.1"):
            with open(os.path.join(libraries, name), "wb"):
                pass
        begin = time.monotonic()
        game = self.own(Terminal(GAME, self.folder, dict(server.environment,
                                                         LD_LIBRARY_PATH=libraries)))
        game.line("Nothing is spoken")
        wait_until(lambda: server.first_sound(begin), "the title tune")
        self.skip_the_tune(game)
        title = game.line("Tamlo Delivery. version 3.")
        self.assertGreater(game.line("start game") - title, 1, "there was no time to read it")
        self.answer(game, "Down", "reed instructions")

    # Longer, and asked for by their names.

    def pulseaudio_in_a_trip(self):
        self.play(SoundServer, self.begin_the_day, self.drive)

    def pipewire_in_a_trip(self):
        self.play(PipeWireServer, self.begin_the_day, self.drive)


if __name__ == "__main__":
    main()
