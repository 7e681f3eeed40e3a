"""The game as players have it: in a window with sound, in a terminal, and fed from a pipe."""

import os
import signal
import subprocess
import sys
import time

from machine import NO_SOUND, Case, Display, Program, Terminal, main
from sound_servers import SoundServer
from waiting import wait_until

GAME = sys.argv[1]
SLOW = 4  # how many times slower than a quiet machine a busy one may be


def walk_the_menu(keyboard, game):
    """From the title tune to the main menu; `game` tells the lines as they are said."""
    pressed = time.monotonic()
    keyboard.press("space")
    title = game.line("Tamlo Delivery. version 3.")
    game.line("start game")
    keyboard.press("Down")
    game.line("reed instructions")
    keyboard.press("Up")
    game.line("start game")
    return title - pressed


def drive_three_blocks(keyboard, game):
    """From the main menu to the third corner."""
    keyboard.press("Return")
    game.line("There is an order for")
    keyboard.press("space")
    game.line("turn left, west")
    keyboard.press("Return")
    for block in range(3):
        game.line("How fast do you wish to go?")
        keyboard.press("3", "5")
        game.line("You are at the corner of")
        game.line("Select")
        if block < 2:
            keyboard.press("Return")


class Game(Case):
    def start(self, environment, **options):
        return self.own(Program([GAME], self.folder, environment,
                                cwd=os.path.dirname(GAME), **options))

    def test_a_window_with_sound(self):
        display, sound = self.own(Display()), self.own(SoundServer(self.folder))
        game = self.start({**display.environment, **sound.environment})
        wait_until(lambda: sound.first_sound(game.begin), "the title tune")
        self.assertLess(sound.first_sound(game.begin) - game.begin, 2 * SLOW)
        wait_until(lambda: sound.heard(time.monotonic() - 0.3), "the tune to go on")
        key = display.press("space")
        wait_until(lambda: sound.silent_for(0.15), "the tune to be cut")
        cut = time.monotonic()
        self.assertLess(cut - key, 1 * SLOW)
        wait_until(lambda: sound.first_sound(cut), "the title sentence")
        self.assertLess(sound.first_sound(cut) - key, 2 * SLOW)
        wait_until(lambda: sound.silent_for(2), "the menu to be read")

        # An item that is cut and the next one are heard for a shorter time than both in full.
        full = self.sounding(display, sound, "Down") + self.sounding(display, sound, "Down")
        self.sounding(display, sound, "Up", "Up")
        cut_short = self.sounding(display, sound, "Down", "Down")
        self.assertLess(cut_short, 0.8 * full)

        before = game.cpu_seconds()
        time.sleep(5)
        self.assertLess(game.cpu_seconds() - before, 5 * 0.05)
        game.process.send_signal(signal.SIGTERM)
        self.assertEqual(game.ended(5), 0)

    def sounding(self, display, sound, *keys):
        """Seconds from the first sound after the keys to the last, until it is silent."""
        pressed = display.press(*keys)
        wait_until(lambda: sound.first_sound(pressed), f"an answer to {keys}")
        first = sound.first_sound(pressed)
        wait_until(lambda: sound.silent_for(1), "silence")
        return time.monotonic() - 1 - first

    def test_a_window_without_sound(self):
        self.speak_quickly()
        display = self.own(Display())
        game = self.start({**display.environment, **NO_SOUND})
        display.await_window()
        self.assertLess(walk_the_menu(display, game), 2 * SLOW)
        drive_three_blocks(display, game)
        game.process.send_signal(signal.SIGTERM)
        self.assertEqual(game.ended(5), 0)

    def test_a_closed_window_ends_the_game_while_it_speaks(self):
        display = self.own(Display())
        for way in ("SIGTERM", "SIGINT", "close"):
            with self.subTest(way=way):
                game = self.start({**display.environment, **NO_SOUND})
                display.await_window()
                display.press("space")
                game.line("Tamlo Delivery. version 3.")  # which no key cuts
                if way == "close":
                    display.xdotool("getwindowfocus", "windowclose")
                else:
                    game.process.send_signal(getattr(signal, way))
                begin = time.monotonic()
                self.assertEqual(game.ended(5), 0)
                self.assertLess(time.monotonic() - begin, 1)
                self.assertNotIn("exiting program", " ".join(game.lines))
                game.close()

    def test_a_terminal(self):
        terminal = self.own(Terminal(GAME, self.folder, NO_SOUND))
        walk_the_menu(terminal, terminal)  # drive_test.py goes on from here
        wait_until(lambda: terminal.at_cursor() == "start game", "the cursor at the line")
        terminal.press("C-c")
        self.assertEqual(terminal.ended(5 * SLOW), 0)

    def test_no_input_at_all(self):
        game = self.start(NO_SOUND)
        game.line("Tamlo Delivery. version 3.")
        game.line("start game")
        self.assertEqual(game.ended(), 0)
        self.assertIn("input has ended", game.lines[-1])

    def test_keys_from_a_pipe(self):
        self.speak_quickly()
        game = self.start(NO_SOUND, stdin=subprocess.PIPE)
        game.process.stdin.write("\x1b[B" * 2 + "\x1b[A")
        game.process.stdin.close()
        for item in ("start game", "reed instructions", "reed special key instructions",
                     "reed instructions"):
            game.line(item)
        self.assertEqual(game.ended(), 0)


if __name__ == "__main__":
    main()
