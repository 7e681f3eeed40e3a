"""Plays the game that is installed in a folder, as the player who lives there: from its menu entry,
from a bare terminal, and from another folder. Display and sound server are this machine's."""

import configparser
import os
import pathlib
import shlex
import subprocess
import sys
import time

from machine import NO_SOUND, Case, Display, Program, Terminal, main
from sound_servers import SoundServer
from waiting import wait_until

DEBIAN = pathlib.Path(sys.argv[1])
GAME = "/usr/games/tamlo"
ENTRY = "usr/share/applications/example.tamlo.delivery.desktop"
HOME = "/home/player"
# As a desktop that does not have /usr/games in its path starts programs.
PLAYER = ["chroot", "--userspec=player:player", str(DEBIAN),
          "/usr/bin/env", f"HOME={HOME}", "PATH=/usr/bin:/bin"]


class Installed(Case):
    def entry(self, group="Desktop Entry"):
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(DEBIAN / ENTRY, encoding="utf-8")
        return PLAYER + shlex.split(entry[group]["Exec"])

    def start(self, command, *machines):
        environment = {}
        for machine in machines:
            environment.update(machine if isinstance(machine, dict) else machine.environment)
        return self.own(Program(command, HOME, environment, cwd="/"))

    def sound_server(self):
        os.chmod(self.folder, 0o711)
        server = self.own(SoundServer(self.folder))
        os.chmod(server.folder, 0o711)  # for another user
        return server

    def test_1_the_menu_entry_is_heard_and_answers_keys(self):
        display, sound = self.own(Display()), self.sound_server()
        game = self.start(self.entry(), display, sound)
        wait_until(lambda: sound.first_sound(game.begin), "the title tune")
        print(f"title tune after {sound.first_sound(game.begin) - game.begin:.2f} s", flush=True)
        display.await_window()
        display.press("space")  # ends the tune; the title is spoken
        wait_until(lambda: sound.silent_for(1.5), "the main menu to be read")
        pressed = display.press("Down")
        wait_until(lambda: sound.first_sound(pressed), "the next item")
        print(f"answer to a key after {(sound.first_sound(pressed) - pressed) * 1000:.0f} ms",
              flush=True)
        self.assertIsNone(game.process.poll())

    def test_2_the_window_plays_to_the_road(self):
        display = self.own(Display())
        game = self.start(self.entry(), display, NO_SOUND)
        display.await_window()
        self.to_the_first_corner(display, game)

    def test_3_a_bare_terminal_plays_to_the_road(self):
        door = os.path.join(self.folder, "door")
        with open(door, "w", encoding="ascii") as file:
            file.write(f'#!/bin/sh\nexec {shlex.join(PLAYER)} {GAME}\n')
        os.chmod(door, 0o700)
        terminal = self.own(Terminal(door, self.folder, NO_SOUND))
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
        keyboard.press("Left")  # cuts the order short
        game.line("turn left, west")
        keyboard.press("Return")
        game.line("How fast do you wish to go?")
        keyboard.press("3", "5")
        game.line("You are at the corner of")

    def test_4_the_other_programs(self):
        def run(*command, **options):
            return subprocess.run([*PLAYER, *command], capture_output=True, text=True, timeout=60,
                                  cwd="/", **options)
        self.start(self.entry("Desktop Action sounds"), NO_SOUND).line(
            "Learn the sounds of Tamlo Delivery.")
        check = self.start(self.entry("Desktop Action doctor"), self.sound_server())
        check.line("Sound goes out by pulseaudio")
        self.assertEqual(check.ended(), 0)
        trace = run("tamlo-rehearse", input='upon " start game " up\npress enter\n')
        self.assertIn('say2 " exit game "', trace.stdout)
        documents = DEBIAN / "usr/share/doc/tamlo-delivery"
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
