"""Plays the installed game: from its menu entry, from a bare terminal, and from another folder."""

import configparser
import os
import pathlib
import shlex
import subprocess
import sys
import time

from machine import NO_SOUND, Case, Display, Program, SoundServer, Terminal, main, wait_until

GAME = "/usr/games/tamlo"
ENTRY = "/usr/share/applications/example.tamlo.delivery.desktop"
sys.argv[1:] = [GAME]


class Installed(Case):
    def setUp(self):
        super().setUp()
        self.tools, self.folder = self.folder, os.environ["HOME"]  # the player's own files stay

    def entry(self, group="Desktop Entry"):
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(ENTRY, encoding="utf-8")
        return shlex.split(entry[group]["Exec"])

    def test_1_the_menu_entry_is_heard_and_answers_keys(self):
        display, sound = self.own(Display()), self.own(SoundServer(self.tools))
        game = self.own(Program(self.entry(), self.folder, cwd="/",
                                environment={**display.environment, **sound.environment}))
        wait_until(lambda: sound.first_sound(game.begin), "the title tune")
        print(f"title tune after {sound.first_sound(game.begin) - game.begin:.2f} s", flush=True)
        time.sleep(1)
        display.press("space")  # ends the tune; the title is spoken
        wait_until(lambda: sound.silent_for(1.5), "the main menu to be read")
        pressed = display.press("Down")
        wait_until(lambda: sound.first_sound(pressed), "the next item")
        print(f"answer to a key after {(sound.first_sound(pressed) - pressed) * 1000:.0f} ms",
              flush=True)
        self.assertIsNone(game.process.poll())

    def test_2_the_window_plays_to_the_road(self):
        display = self.own(Display())
        game = self.own(Program(self.entry(), self.folder, cwd="/",
                                environment={**display.environment, **NO_SOUND}))
        display.await_window()
        self.to_the_first_corner(display, game)

    def test_3_a_bare_terminal_plays_to_the_road(self):
        terminal = self.own(Terminal(GAME, self.tools, {**NO_SOUND, "HOME": self.folder}))
        terminal.line("[title tune]")
        self.to_the_first_corner(terminal, terminal)
        terminal.press("C-c")
        self.assertEqual(terminal.ended(10), 0)

    def to_the_first_corner(self, keyboard, game):
        keyboard.press("space")
        game.line("Tamlo Delivery. version 3.")
        game.line("start game")
        keyboard.press("Return")
        game.line("There is an order for")
        game.line("turn left, west")
        keyboard.press("Return")
        game.line("How fast do you wish to go?")
        keyboard.press("3", "5")
        game.line("You are at the corner of")

    def test_4_the_other_programs(self):
        def run(*command, **options):
            return subprocess.run(command, capture_output=True, text=True, timeout=60, cwd="/",
                                  env={"HOME": self.folder, "PATH": os.defpath}, **options)
        sounds = Program(self.entry("Desktop Action sounds"), self.folder, cwd="/",
                         environment=NO_SOUND)
        self.own(sounds).line("Learn the sounds of Tamlo Delivery.")
        sound = self.own(SoundServer(self.tools))
        check = self.own(Program(self.entry("Desktop Action doctor"), self.folder, cwd="/",
                                 environment=sound.environment))
        check.line("Sound goes out by pulseaudio")
        self.assertEqual(check.ended(), 0)
        trace = run("tamlo-rehearse", input='upon " start game " up\npress enter\n')
        self.assertIn('say2 " exit game "', trace.stdout)
        documents = pathlib.Path("/usr/share/doc/tamlo-delivery")
        cities = sorted((documents / "examples/cities").glob("*.txt"))
        self.assertEqual(len(cities), 2)
        made = run("/usr/games/tamlo-city", "new", "Bay", input=cities[0].read_text())
        self.assertEqual(made.returncode, 0, made)
        self.assertIn("can be played", run("/usr/games/tamlo-city", "check", "Bay").stdout)
        self.assertIn("\f", run("/usr/games/tamlo-city", "map", "Bay").stdout)
        for file in ("manual.txt", "manual.html", "manual.brf", "manual-contracted.brf"):
            self.assertGreater((documents / file).stat().st_size, 10000)


if __name__ == "__main__":
    main()
