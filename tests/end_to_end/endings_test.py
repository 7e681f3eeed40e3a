"""How the game ends when it was not meant to: faults, a second game, lost displays and terminals."""

import fcntl
import os
import resource
import signal
import subprocess
import sys
import time

from machine import NO_SOUND, Case, Display, Program, Terminal, main
from sound_servers import SoundServer
from waiting import wait_until

GAME = sys.argv[1]
SLOW = 4  # how many times slower than a quiet machine a busy one may be
SAVED_GAME = os.path.join(os.path.dirname(__file__), "../../fuzz/saved_game/corpus/career.sav")


def is_running(process):
    """Whether a process of that number runs; a zombie does not."""
    try:
        with open(f"/proc/{process}/stat", encoding="ascii") as file:
            return file.read().rpartition(")")[2].split()[0] != "Z"
    except FileNotFoundError:
        return False


def has_open(process, path):
    folder = f"/proc/{process}/fd"
    return path in [os.path.realpath(os.path.join(folder, number)) for number in os.listdir(folder)]


class Ending(Case):
    def setUp(self):
        super().setUp()
        self.files = self.speak_quickly()

    def start(self, environment, **options):
        return self.own(Program([GAME], self.folder, environment,
                                cwd=os.path.dirname(GAME), **options))

    def start_in_terminal(self, program=GAME):
        """In a terminal, up to the title."""
        terminal = self.own(Terminal(program, self.folder, NO_SOUND))
        terminal.line("[title tune]")
        terminal.press("space")
        terminal.line("Tamlo Delivery. version 3.")
        return terminal

    def script(self, *lines):
        """A shell script of these lines, to be started as a program."""
        path = os.path.join(self.folder, "script")
        with open(path, "w", encoding="ascii") as file:
            file.write("\n".join(("#!/bin/sh -e", *lines, "")))
        os.chmod(path, 0o700)
        return path

    def content(self):
        """Of all the player's files."""
        found = {}
        for name in os.listdir(self.files):
            with open(os.path.join(self.files, name), "rb") as file:
                found[name] = file.read()
        return found

    def report(self):
        return self.content()["tamlo report.txt"].decode()

    def ends_in_time(self, program, seconds):
        """Within so many seconds on a quiet machine; the status."""
        begin = time.monotonic()
        status = program.ended()
        self.assertLess(time.monotonic() - begin, seconds * SLOW)
        return status


class Fault(Ending):
    def test_in_a_window_is_heard(self):
        display, sound = self.own(Display()), self.own(SoundServer(self.folder))
        game = self.start({**display.environment, **sound.environment})
        wait_until(lambda: sound.first_sound(game.begin), "the title tune")
        os.kill(game.player(), signal.SIGSEGV)
        told = game.line("has broken down")
        wait_until(lambda: sound.first_sound(told + 0.5), "the sentence")
        self.assertEqual(game.ended(), 128 + signal.SIGSEGV)
        self.assertTrue(sound.heard(time.monotonic() - 3), "the sentence was cut")
        self.assertIn("Signal: 11", self.report())
        self.assertIn("tamlo(", self.report(), "where it was")

    def test_in_a_terminal_gives_it_back(self):
        terminal = self.start_in_terminal()
        before = self.content()
        os.kill(terminal.player(), signal.SIGABRT)
        terminal.line("has broken down")
        self.assertEqual(terminal.ended(), 128 + signal.SIGABRT)
        self.assertEqual(terminal.noted("settings after"), terminal.noted("settings before"))
        self.assertEqual(self.content() | before, self.content(), "what was saved is kept")

    def test_in_a_pipe_is_told(self):
        game = self.start(NO_SOUND, stdin=subprocess.PIPE)
        game.line("[title tune]")
        os.kill(game.player(), signal.SIGKILL)
        game.line("has broken down")
        self.assertEqual(game.ended(), 128 + signal.SIGKILL)
        self.assertIn("Signal: 9", self.report())


class Watching(Ending):
    def test_the_game_ends_with_its_watcher(self):
        game = self.start(NO_SOUND, stdin=subprocess.PIPE)
        game.line("[title tune]")
        player = game.player()
        self.assertNotEqual(player, game.process.pid)
        game.process.kill()
        wait_until(lambda: not is_running(player), "the end", 3 * SLOW)

    def test_a_shell_stops_and_continues_it(self):
        shell = self.script(f"cd '{os.path.dirname(GAME)}'", "exec bash --norc -i")
        terminal = self.own(Terminal(shell, self.folder, {"PS1": "shell> ", **NO_SOUND}))
        terminal.line("shell>")
        terminal.type("./tamlo")
        terminal.line("[title tune]")
        terminal.press("space")
        terminal.line("start game")
        terminal.press("C-z")
        terminal.line("Stopped")
        terminal.type("fg")
        terminal.line("./tamlo")
        terminal.press("Down")
        terminal.line("reed instructions")
        terminal.press("C-c")
        terminal.line("interrupted")


class SecondGame(Ending):
    def test_is_told_that_one_is_running(self):
        first = self.start_in_terminal()
        first.line("start game")
        before = self.content()
        second = self.start(NO_SOUND, stdin=subprocess.PIPE)
        second.line("running already")
        self.assertEqual(second.ended(), 1)
        self.assertEqual(self.content(), before)
        first.press("Down")
        first.line("reed instructions")

    def test_waits_for_one_that_is_just_ending(self):
        ending = os.open(self.files, os.O_RDONLY)
        fcntl.flock(ending, fcntl.LOCK_EX)
        game = self.start(NO_SOUND, stdin=subprocess.PIPE)
        game.line("[title tune]")
        wait_until(lambda: has_open(game.player(), self.files), "its first try")
        os.close(ending)
        game.line("Tamlo Delivery. version 3.")

    def test_a_restart_is_none(self):
        with open(SAVED_GAME, "rb") as career, \
                open(os.path.join(self.files, "tamlo.sav"), "wb") as file:
            file.write(career.read())
        terminal = self.start_in_terminal()
        terminal.line("start game")
        for _ in range(5):
            terminal.press("Up")
        terminal.line("delete saved game")
        terminal.press("Return")
        terminal.line("no")
        terminal.press("Down")
        terminal.line("yes")
        terminal.press("Return")
        terminal.line("restarting game")
        terminal.press("space")
        terminal.line("Tamlo Delivery. version 3.")
        terminal.press("C-c")
        self.assertEqual(terminal.ended(), 0)
        self.assertNotIn("running already", terminal.printed())


class Disk(Ending):
    """A disk of a few kilobytes, which only the game sees."""

    def test_that_is_full_is_told_and_the_game_goes_on(self):
        mount = f"mount -t tmpfs -o size=16k disk '{self.files}'"
        tried = subprocess.run(["unshare", "-rm", "sh", "-c", mount], capture_output=True, text=True)
        if tried.returncode != 0:
            self.skipTest(f"no disk can be mounted here: {tried.stderr}")
        game = self.script('test -n "$1" || exec unshare -rm "$0" inside',
                           f"cd '{self.files}'", mount, f"cp tamlo.cfg '{self.files}'",
                           f"head -c 1M /dev/zero >'{self.files}/rest' || true",
                           f"cd '{os.path.dirname(GAME)}'", "exec ./tamlo")
        terminal = self.start_in_terminal(game)
        terminal.line("can not be written")
        terminal.line("start game")
        terminal.press("C-c")
        self.assertEqual(terminal.ended(), 0)


class Signals(Ending):
    """Signals that nobody sends to end the game."""

    def test_a_limit_of_file_sizes_is_told_and_the_game_goes_on(self):
        game = self.start(NO_SOUND, stdin=subprocess.PIPE,
                          preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0)))
        game.line("can not be written")

    def test_strays_end_neither_the_game_nor_its_watcher(self):
        game = self.start(NO_SOUND, stdin=subprocess.PIPE)
        game.line("[title tune]")
        for process in (game.player(), game.process.pid):
            for stray in (signal.SIGUSR1, signal.SIGALRM, signal.SIGIO, signal.SIGRTMAX):
                os.kill(process, stray)
        game.line("version 3.")


class Lost(Ending):
    def test_display_is_told_and_ends_the_game(self):
        display, sound = self.own(Display()), self.own(SoundServer(self.folder))
        game = self.start({**display.environment, **sound.environment})
        display.await_window()
        display.press("space")
        wait_until(lambda: sound.heard(time.monotonic() - 0.1), "the title")
        wait_until(lambda: sound.silent_for(1.5), "the menu to be read")
        before = self.content()
        begin = time.monotonic()
        display.close()
        self.assertEqual(self.ends_in_time(game, 3), 0)
        self.assertTrue(sound.heard(begin), "the sentence")
        self.assertEqual(self.content(), before)

    def test_terminal_ends_the_game(self):
        # Told by the signal; and without it, as under nohup, by the terminal itself.
        for signals in ("true", "trap '' HUP"):
            with self.subTest(signals=signals):
                game = self.script(f"cd '{os.path.dirname(GAME)}'", signals, "exec ./tamlo")
                terminal = self.start_in_terminal(game)
                player, before = terminal.player(), self.content()
                terminal.close()
                wait_until(lambda: not is_running(player), "the end", 3 * SLOW)
                self.assertEqual(self.content(), before)
                os.remove(terminal.log)


if __name__ == "__main__":
    main()
