"""Voices that break down under the game: what is heard then, and what the doctor says of it."""

import os
import shutil
import signal
import sys
import time

import damaged_voices
from machine import Case, Display, Program, child_of, main
from sound_servers import SoundServer
from waiting import wait_until

GAME = os.path.abspath(sys.argv[1])
SOON = 4  # seconds; 3 on a quiet machine


class Voices(Case):
    def setUp(self):
        super().setUp()
        self.source = damaged_voices.data_folder()
        if self.source is None:
            self.skipTest("the voice data are not installed")
        self.files = self.speak_quickly()

    def empty(self, name):
        """A copy of the voice data in which a file is empty, for the environment."""
        damaged_voices.copy_with(self.source, self.folder, name, b"")
        return {"ESPEAK_DATA_PATH": self.folder}

    def without(self, *names):
        """For the environment: these libraries are none."""
        libraries = os.path.join(self.folder, "libraries")
        os.mkdir(libraries)
        for name in names:
            with open(os.path.join(libraries, name), "wb"):
                pass
        return {"LD_LIBRARY_PATH": libraries}

    def in_window(self, game=GAME, **further):
        display, sound = self.own(Display()), self.own(SoundServer(self.folder))
        running = self.own(Program([game], self.folder, cwd=os.path.dirname(game), environment={
            **display.environment, **sound.environment, **further}))
        display.await_window()
        return display, sound, running

    def to_the_menu(self, display, sound):
        wait_until(lambda: sound.heard(time.monotonic() - 0.1), "the title")
        display.press("space")
        wait_until(lambda: sound.silent_for(1.5), "the menu to be read")

    def heard(self, sound, since):
        wait_until(lambda: sound.first_sound(since), "a voice or tones")
        self.assertLess(sound.first_sound(since) - since, SOON)

    def test_the_next_family_speaks(self):
        display, sound, game = self.in_window(**self.empty("phontab"))
        self.to_the_menu(display, sound)
        self.heard(sound, display.press("Down"))
        self.assertIn("another one speaks", "".join(game.lines))
        self.assertIsNone(game.process.poll())

    def test_a_voice_killed_at_work_is_started_again(self):
        display, sound, game = self.in_window()
        self.to_the_menu(display, sound)
        host = child_of(game.player())
        for _ in range(2):
            os.kill(child_of(host), signal.SIGSEGV)
            self.heard(sound, display.press("Down"))
            wait_until(lambda: sound.silent_for(1), "the end of the entry")
        os.kill(host, signal.SIGKILL)
        self.heard(sound, display.press("Down"))  # tones
        game.line("change voice")
        self.assertIsNone(game.process.poll())

    def test_a_breakdown_is_told_though_the_voice_is_broken(self):
        display, sound, game = self.in_window(**self.empty("phontab"))
        self.to_the_menu(display, sound)
        os.kill(game.player(), signal.SIGSEGV)
        told = game.line("has broken down")
        self.heard(sound, told + 0.5)
        self.assertEqual(game.ended(), 128 + signal.SIGSEGV)

    def test_without_any_a_window_ends_with_the_failure(self):
        libraries = self.without("libespeak-ng.so.1", "libflite.so.1")
        display, sound, game = self.in_window(**libraries)
        shown = game.line("find any voices")
        self.heard(sound, shown)  # a beep
        display.press("Return")
        self.assertEqual(game.ended(), 0)

    def test_a_message_box_is_spoken(self):
        game = os.path.join(self.folder, "game")
        os.mkdir(game)
        for name in os.listdir(os.path.dirname(GAME)):
            if name.endswith(".wav") and name != "tamlo13.wav":
                os.symlink(os.path.join(os.path.dirname(GAME), name), os.path.join(game, name))
        shutil.copy(GAME, game)
        display, sound, program = self.in_window(os.path.join(game, "tamlo"))
        self.heard(sound, program.line("seem to be corrupt"))
        wait_until(lambda: sound.silent_for(1), "the end of the text")
        self.heard(sound, display.press("x"))
        wait_until(lambda: sound.silent_for(1), "the end of the text")
        self.assertIsNone(program.process.poll(), "it waits")
        display.press("Return")
        program.ended()


if __name__ == "__main__":
    main()
